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

// The keys of a table with their values, in the order of the text.
using TomlTable = std::vector<TomlEntry>;

// One value in the text, with the first and the last line that it occupies, counted from 1.
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

  // Raises 5 (invalid argument). The description contains the name of the file, the line and `wrong`, such as
  // "late.toml, line 12: unknown key".
  [[noreturn]] void Refuse(std::int32_t line, std::u16string_view wrong) const;
};

// Parses the text and returns its top-level table. Raises 5 (invalid argument), with the line, for text that is not
// TOML. A TOML date becomes an automation date: a day without a time is an integral number, a time without a day is a
// fraction below 1. An offset from UTC is dropped: the local time is kept as written.
TomlTable ParseToml(std::string_view text, const TomlSource& source);

}  // namespace wendrill::simulator
