// The pieces of TOML that a recording is written in. The reader is the simulator's: core/toml_document.h.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/value.h"

namespace wendrill::recording {

// A string on one line, in double quotes. Half a surrogate pair becomes U+FFFD: TOML cannot hold it.
std::string Quoted(std::u16string_view text);

// A string over several lines, each of which ends in a line break; rows hold no line break. In ''' where that can hold
// the rows, else in """ with escapes.
std::string Block(const std::vector<std::u16string_view>& rows);

// A text, a number, true or false, a date. nullopt for any other value: a scenario cannot hold it.
std::optional<std::string> Literal(const Value& value);

// The number of an error as a scenario has it: 438, 0x80004005. nullopt for a number that no failure has.
std::optional<std::string> ErrorLiteral(std::int32_t number);

// A buffer of rows of `columns` characters; `raw`: verbatim, whatever it is made of.
bool IsOfWholeRows(std::u16string_view buffer, std::size_t columns);
std::string TextOfScreen(std::u16string_view buffer, std::size_t columns, bool raw);

// The display of a PNR, whose lines may end in line breaks. A display that is neither made of rows nor of lines that
// end in CR LF is written as the one that is nearest.
struct DisplayText {
  std::string text;
  bool breaks = false;
};
DisplayText TextOfDisplay(std::u16string_view display);

}  // namespace wendrill::recording
