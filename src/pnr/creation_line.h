// The creation line of a PNR display: OFFICE/AGENT/DATE, the line after the one that begins with "RP/".
#pragma once

#include <string_view>

namespace wendrill {

// The line without trailing blanks, as a view into `display`; empty when no line before the first empty line begins
// with "RP/" (an empty first line is skipped). The line is returned whether or not it has three fields. Raises 6
// (overflow) beyond line 32,767.
std::u16string_view CreationLineIn(std::u16string_view display);

}  // namespace wendrill
