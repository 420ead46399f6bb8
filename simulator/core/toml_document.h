// A parsed TOML text: a tree whose nodes contain their lines in the text. Only toml_document.cpp includes the TOML
// library.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "common/value.h"

namespace wendrill::simulator {

struct TomlNode;
struct TomlEntry;

using TomlArray = std::vector<TomlNode>;

// The entries of a table, in the order of the text.
using TomlTable = std::vector<TomlEntry>;

// One value. Lines are counted from 1; `line` and `lastLine` differ for a value over several lines.
struct TomlNode {
  std::int32_t line = 0;
  std::int32_t lastLine = 0;
  std::variant<bool, std::int64_t, double, Date, std::u16string, TomlArray, TomlTable> content;
};

struct TomlEntry {
  std::u16string key;
  std::int32_t line = 0;
  TomlNode node;
};

// The file from which a document is read.
struct TomlSource {
  std::u16string name;  // the name of the file in messages

  // Raises 5. The description contains the name of the file, the line and what is wrong: "late.toml, line 12: unknown
  // key".
  [[noreturn]] void Refuse(std::int32_t line, std::u16string_view wrong) const;
};

// Parses the text and returns its top-level table. Raises 5, with the line, for text that is not TOML. A date becomes
// an automation date: a day without a time is an integral number of days, a time without a day is a fraction alone. An
// offset from universal time is dropped: the local time is kept as written.
TomlTable ParseToml(std::string_view text, const TomlSource& source);

}  // namespace wendrill::simulator
