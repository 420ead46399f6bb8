// The creation line of a PNR display, OFFICE/AGENT/DATE: the line after the line that begins with "RP/".
#pragma once

#include <string_view>

namespace wendrill {

// The creation line without trailing blanks, as a view into `display`. Empty when no line before the first empty line
// begins with "RP/", or when the line with "RP/" is the last line. An empty first line is skipped. The number of fields
// of the creation line is not checked. Raises 6 (overflow) beyond line 32,767.
std::u16string_view CreationLineIn(std::u16string_view display);

}  // namespace wendrill
