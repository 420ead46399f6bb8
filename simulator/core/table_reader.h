// Strict reading of one table of a scenario: what is not asked for is refused, and so is what has the wrong type.
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

// A text of the scenario, with the lines that it stands on for messages about it.
struct PlacedText {
  std::u16string text;
  std::int32_t line = 0;
  std::int32_t lastLine = 0;

  // The line of the file that line `index` (counted from 0) of the text stands on.
  std::int32_t LineOfFile(std::size_t index) const;
};

// Every key that a table may have is asked for once, in the order in which a refusal lists them; Finish then refuses
// the others. A key that is not there gives the fallback. All errors are number 5 and name file, line and key.
class TableReader {
 public:
  // `title` is how messages call the table: [[reply]].
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

  // The error number that a status stands for; 0 when the key is not there.
  std::int32_t Failure(std::u16string_view key);

  // A text, a number, a Boolean or a date; Empty when the key is not there.
  Value Property(std::u16string_view key);

  // An array of numbers or texts.
  std::vector<Value> Properties(std::u16string_view key);

  // [key] and [[key]]. `title` is how messages call them.
  std::optional<TableReader> Table(std::u16string_view key, std::u16string title);
  std::vector<TableReader> Tables(std::u16string_view key, const std::u16string& title);

  // Refuses what was not asked for.
  void Finish() const;

  // Refuses the table, or one of its keys.
  [[noreturn]] void Refuse(std::u16string_view wrong) const;
  [[noreturn]] void RefuseAt(std::int32_t line, std::u16string_view wrong) const { source_->Refuse(line, wrong); }
  [[noreturn]] void RefuseKey(std::u16string_view key, std::u16string_view wrong) const;

  // Whether the key is there. Does not count as asking for it.
  bool Has(std::u16string_view key) const;

  const std::u16string& Title() const { return title_; }

 private:
  const TomlNode* Ask(std::u16string_view key);
  const TomlEntry* Find(std::u16string_view key) const;

  // The content of a node when it is of the type; otherwise refuses the key, telling what was `expected`.
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
