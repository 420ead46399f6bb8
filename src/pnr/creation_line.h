// The creation line of a PNR display: the line behind the one that begins with "RP/", OFFICE/AGENT/DATE.
#pragma once

#include <string_view>

namespace wendrill {

// The line without trailing blanks, a part of `display`; empty when no line begins with "RP/" before the first empty
// one (an empty first line does not count). It is taken as it stands, whether it has three fields or not. 6 (overflow)
// beyond line 32,767.
std::u16string_view CreationLineIn(std::u16string_view display);

}  // namespace wendrill
