// Strict reading of one table of a scenario: a key that is not asked for is rejected, and so is a value of the wrong
// type.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/value.h"
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

// The caller asks once for every key that the table may have, in the order in which error messages list the keys;
// Finish then rejects all other keys. A missing key returns the fallback. Every error is number 5 and names file, line
// and key.
class TableReader {
 public:
  // `title` is the table's name in error messages, such as [[reply]].
  TableReader(const TomlSource& source, const TomlTable& table, std::int32_t line, std::u16string title)
      : source_(&source), table_(&table), line_(line), title_(std::move(title)) {}

  std::u16string Text(std::u16string_view key, std::u16string_view fallback = {});
  std::optional<std::u16string> OptionalText(std::u16string_view key);
  std::vector<std::u16string> Texts(std::u16string_view key);
  std::optional<PlacedText> Block(std::u16string_view key);
  std::vector<PlacedText> Blocks(std::u16string_view key);

  bool Flag(std::u16string_view key, bool fallback);

  std::int32_t Whole(std::u16string_view key, std::int32_t fallback,
                     std::int32_t least = std::numeric_limits<std::int32_t>::min(),
                     std::int32_t most = std::numeric_limits<std::int32_t>::max());
  std::vector<std::int32_t> Wholes(std::u16string_view key);

  // The error number of the status under the key; 0 when the key is missing.
  std::int32_t Failure(std::u16string_view key);

  // A string, a number, a Boolean or a date; Empty when the key is missing.
  Value Property(std::u16string_view key);

  // An array of numbers or strings.
  std::vector<Value> Properties(std::u16string_view key);

  // The table [key] and the array of tables [[key]]. `title` is their name in error messages.
  std::optional<TableReader> Table(std::u16string_view key, std::u16string title);
  std::vector<TableReader> Tables(std::u16string_view key, const std::u16string& title);

  // Rejects every key that was not asked for.
  void Finish() const;

  // Rejects the table, or one of its keys: raises 5.
  [[noreturn]] void Refuse(std::u16string_view wrong) const;
  [[noreturn]] void RefuseAt(std::int32_t line, std::u16string_view wrong) const { source_->Refuse(line, wrong); }
  [[noreturn]] void RefuseKey(std::u16string_view key, std::u16string_view wrong) const;

  // Whether the table has the key. Does not count as asking for the key.
  bool Has(std::u16string_view key) const;

  const std::u16string& Title() const { return title_; }

 private:
  const TomlNode* Ask(std::u16string_view key);
  const TomlEntry* Find(std::u16string_view key) const;

  // The content of a node when it has the type Content; otherwise rejects the key and says what was `expected`.
  template <typename Content>
  const Content& As(std::u16string_view key, const TomlNode& node, std::u16string_view expected) const;

  std::int32_t WholeOf(std::u16string_view key, const TomlNode& node, std::int32_t least, std::int32_t most) const;
  Value ValueOf(std::u16string_view key, const TomlNode& node) const;

  const TomlSource* source_;
  const TomlTable* table_;
  std::int32_t line_;
  std::u16string title_;
  std::vector<std::u16string> asked_;
};

}  // namespace wendrill::simulator
