// A TOML text as a tree that remembers its lines. The TOML library stays behind this header.
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

// Lines count from 1. A text over several lines ends on another line than it begins on.
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

// Where a document came from.
struct TomlSource {
  std::u16string name;  // of the file

  // Raises error 5: "name, line n: what is wrong".
  [[noreturn]] void Refuse(std::int32_t line, std::u16string_view wrong) const;
};

// The document's table. A text that is no TOML is refused with its line. A date is an automation date: without a time
// of day a whole number of days, without a day the time alone; an offset from universal time is dropped, what the clock
// showed stands.
TomlTable ParseToml(std::string_view text, const TomlSource& source);

}  // namespace wendrill::simulator
