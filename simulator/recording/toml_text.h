// Converts values to the TOML text of a recording. The simulator reads that text with core/toml_document.h.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/value.h"

namespace wendrill::recording {

// Returns a TOML string on one line, in double quotes. An unpaired half of a surrogate pair becomes U+FFFD, because
// TOML cannot contain such a half.
std::string Quoted(std::u16string_view text);

// Returns a TOML string over several lines: each row, followed by a line break. The string is in ''' if all rows can be
// written verbatim, else in """ with escapes. Returns '', an empty TOML string, when there are no rows. REQUIRES: no
// row contains a line break.
std::string Block(const std::vector<std::u16string_view>& rows);

// Returns a string, number, truth value or date as a TOML value. Returns nullopt for a value of any other type and for
// a date outside the years 1 to 9999, because a scenario cannot contain such a value.
std::optional<std::string> Literal(const Value& value);

// Returns an error number as it is written in a scenario: 438 for a run-time error, 0x80004005 for a failing HRESULT.
// Returns nullopt for 0 and for any other number that the simulator cannot raise.
std::optional<std::string> ErrorLiteral(std::int32_t number);

// IsOfWholeRows returns whether a buffer consists of whole rows of `columns` characters, without line breaks.
// TextOfScreen returns the buffer as a TOML string. If `raw`, the string is the buffer verbatim on one line. Otherwise
// the string has the rows of the buffer without the blanks at the end of each row.
// REQUIRES for TextOfScreen: if not `raw`, IsOfWholeRows(buffer, columns).
bool IsOfWholeRows(std::u16string_view buffer, std::size_t columns);
std::string TextOfScreen(std::u16string_view buffer, std::size_t columns, bool raw);

// The display of a PNR as a TOML string, one row or line of the display in each line of the string.
// - `breaks` is true for a display with line breaks. The simulator ends each of its lines with CR LF.
// - `breaks` is false for a display without line breaks, which is cut into rows of 80 columns. The simulator fills the
//   last row with blanks.
// So the simulator's display differs from the terminal's when the terminal ended its lines otherwise, or when the
// terminal's last row was shorter than 80 columns.
struct DisplayText {
  std::string text;
  bool breaks = false;
};
DisplayText TextOfDisplay(std::u16string_view display);

}  // namespace wendrill::recording
