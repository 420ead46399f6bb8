// Strict reading of one table of a scenario: a key that the table of keys does not have is rejected, and so are a value
// of the wrong type or outside its range and keys that exclude each other.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/value.h"
#include "core/scenario_keys.h"
#include "core/toml_document.h"

namespace wendrill::simulator {

// A string of the scenario, with its lines in the file for error messages.
struct PlacedText {
  std::u16string text;
  std::int32_t line = 0;
  std::int32_t lastLine = 0;

  // The line of the file (counted from 1) that contains line `index` (counted from 0) of the string.
  std::int32_t LineOfFile(std::size_t index) const;
};

// The constructor checks the whole table, except for the tables inside it; then the caller reads what it needs. A key
// that is left out has its default. Every error is number 5 and names file, line and key.
class TableReader {
 public:
  // `line` is that of the table's header in the file.
  TableReader(const TomlSource& source, const TomlTable& table, std::int32_t line, const TableShape& shape);

  std::u16string Text(std::u16string_view key) const;  // "" when the key is left out and has no default
  std::optional<std::u16string> OptionalText(std::u16string_view key) const;
  std::vector<std::u16string> Texts(std::u16string_view key) const;
  std::optional<PlacedText> Block(std::u16string_view key) const;
  std::vector<PlacedText> Blocks(std::u16string_view key) const;

  bool Flag(std::u16string_view key) const;

  std::int32_t Whole(std::u16string_view key) const;
  std::vector<std::int32_t> Wholes(std::u16string_view key) const;
  double Number(std::u16string_view key) const;

  // The error number of the status under the key; 0 when the key is left out.
  std::int32_t Failure(std::u16string_view key) const;

  // A string, a number, a Boolean or a date; Empty when the key is left out.
  Value Property(std::u16string_view key) const;

  // An array of numbers or strings.
  std::vector<Value> Properties(std::u16string_view key) const;

  // The keys and strings of a table.
  std::vector<std::pair<std::u16string, std::u16string>> Words(std::u16string_view key) const;

  // The table [key] and the array of tables [[key]].
  std::optional<TableReader> Table(std::u16string_view key) const;
  std::vector<TableReader> Tables(std::u16string_view key) const;

  // Rejects the table, or one of its keys: raises 5.
  [[noreturn]] void Refuse(std::u16string_view wrong) const;
  [[noreturn]] void RefuseAt(std::int32_t line, std::u16string_view wrong) const { source_->Refuse(line, wrong); }
  [[noreturn]] void RefuseKey(std::u16string_view key, std::u16string_view wrong) const;

  bool Has(std::u16string_view key) const { return Find(key) != nullptr; }

  const std::u16string& Title() const { return shape_->title; }
  std::int32_t Line() const { return line_; }

 private:
  const TomlEntry* Find(std::u16string_view key) const;
  const TomlNode* NodeOf(std::u16string_view key) const;
  const KeyShape& ShapeOf(std::u16string_view key) const;

  void CheckKeys() const;
  void CheckRules() const;
  void CheckRule(const KeyRule& rule) const;
  void CheckNode(const KeyShape& key, const TomlNode& node) const;
  void CheckCount(const KeyShape& key, std::size_t count) const;
  void CheckChoice(const KeyShape& key, const TomlNode& node) const;
  bool IsGiven(std::u16string_view key) const;

  // The content of a node when it has the type Content; otherwise rejects the key and says what was `expected`.
  template <typename Content>
  const Content& As(std::u16string_view key, const TomlNode& node, std::u16string_view expected) const;

  // The content of a node that the constructor has checked.
  template <typename Content>
  const Content* Checked(std::u16string_view key) const;

  std::int32_t WholeOf(const KeyShape& key, const TomlNode& node) const;
  double NumberOf(const KeyShape& key, const TomlNode& node) const;
  Value ValueOf(const KeyShape& key, const TomlNode& node) const;

  const TomlSource* source_;
  const TomlTable* table_;
  std::int32_t line_;
  const TableShape* shape_;
};

}  // namespace wendrill::simulator
