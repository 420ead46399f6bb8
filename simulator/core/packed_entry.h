// Packed entries: several entries joined with ";" and transmitted as one.
#pragma once

#include <string_view>
#include <vector>

namespace wendrill::simulator {

// The parts of a packed entry, in order, without empty parts; an empty vector when the entry is not packed. An entry
// without ";" is not packed, and neither is an entry that consists of ";" alone. Confidential remarks (RC), other
// service information (OS) and special service requests (SR) are never packed, because their text may contain a ";".
std::vector<std::u16string_view> PartsOf(std::u16string_view entry);

// Whether the text contains a ";". Only a reply whose own text contains one can answer a packed entry as a whole. Else
// a reply to all entries that begin with "RM" would also swallow every part that follows a remark.
bool HoldsSeparator(std::u16string_view text);

}  // namespace wendrill::simulator
