// The creation line of a PNR display, OFFICE/AGENT/DATE: the line after the line that begins with "RP/".
#pragma once

#include <string_view>

namespace wendrill {

// The creation line without trailing blanks, as a view into `display`. The search for the line that begins with "RP/"
// ends at the first empty line after line 1. Returns an empty view when the search finds no such line, or when the line
// with "RP/" is the last line of the display. The number of fields of the creation line is not checked. Raises 6
// (overflow) beyond line 32,767.
std::u16string_view CreationLineIn(std::u16string_view display);

}  // namespace wendrill
