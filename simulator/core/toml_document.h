// A TOML text as a tree that remembers its lines. Only the implementation of this header includes the TOML library.
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

// The entries in the order of the text.
using TomlTable = std::vector<TomlEntry>;

// Lines count from 1. A string over several lines has different first and last lines.
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

// The file that a document was read from.
struct TomlSource {
  std::u16string name;  // of the file

  // Raises error 5: "name, line n: what is wrong".
  [[noreturn]] void Refuse(std::int32_t line, std::u16string_view wrong) const;
};

// The document's top-level table. Raises 5, with the line, for text that is not TOML. A date becomes an automation
// date: without a time of day an integral number of days, without a day the time alone. An offset from universal time
// is dropped: the local time is kept as written.
TomlTable ParseToml(std::string_view text, const TomlSource& source);

}  // namespace wendrill::simulator
