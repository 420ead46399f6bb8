// Strict reading of one TOML table of a scenario file. Rejects a key that scenario_keys.h does not list for the table,
// a value of the wrong type or outside its range, a missing key that is required, and keys that exclude each other.
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

// A string of the scenario, with its first and last line in the file (counted from 1) for error messages.
struct PlacedText {
  std::u16string text;
  std::int32_t line = 0;
  std::int32_t lastLine = 0;

  // The line of the file (counted from 1) that contains line `index` of the string (counted from 0). When the string is
  // on a single line of the file, the result is this line for every `index`.
  std::int32_t LineOfFile(std::size_t index) const;
};

// Reads one table. The constructor checks the whole table, except for the tables inside it. After that, the caller
// reads the keys that it needs. Every error has the number 5 (invalid argument), and its description contains the file,
// the line, and the key or the table.
//
// For a key that is left out, a function returns the default in the shape. Without a default, an optional result is
// nullopt and a list is empty. The source, the table and the shape must outlive the reader.
//
// REQUIRES: the shape has every key that the caller reads, with a default for each key that is read with Flag, Whole or
// Number.
class TableReader {
 public:
  // `line` is the line of the table's header in the file, counted from 1.
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

  // The error number for the value under the key, which is a failing HRESULT or the number of a run-time error; 0 when
  // the key is left out.
  std::int32_t Failure(std::u16string_view key) const;

  // The value of a property of the PNR object model: a string, a number, a Boolean or a date; Empty when the key is
  // left out.
  Value Property(std::u16string_view key) const;

  // The items of an array of element numbers, each as the string or the number in the file.
  std::vector<Value> Properties(std::u16string_view key) const;

  // The keys of the table under `key`, and the string under each of these keys, in the order of the file.
  std::vector<std::pair<std::u16string, std::u16string>> Words(std::u16string_view key) const;

  // Table returns a reader of the table [key]; nullopt when the table is left out. Tables returns a reader of each
  // table in the array of tables [[key]]. Both functions raise 5 (invalid argument) for an error in a table that they
  // return.
  std::optional<TableReader> Table(std::u16string_view key) const;
  std::vector<TableReader> Tables(std::u16string_view key) const;

  // Refuse, RefuseAt and RefuseKey raise 5 (invalid argument). The description contains the name of the file, a line
  // and `wrong`:
  // - Refuse: the line of the table's header.
  // - RefuseAt: the line `line`.
  // - RefuseKey: the line of the key or, when the key is left out, of the table's header. The names of the key and the
  //   table precede `wrong`.
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

  // The content of `node` as a Content. Raises 5 (invalid argument) when the node has another type; the message
  // contains `expected`, the name of the required type.
  template <typename Content>
  const Content& As(std::u16string_view key, const TomlNode& node, std::u16string_view expected) const;

  // The content of the node under a key; null when the key is left out. REQUIRES: the constructor has checked that the
  // type of the node is Content.
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
