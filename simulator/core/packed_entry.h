// Packed entries: several entries joined with ";" and transmitted as one.
#pragma once

#include <string_view>
#include <vector>

namespace wendrill::simulator {

// The parts of a packed entry, in order, without empty parts; an empty vector when the entry is not packed. An entry
// without ";" is not packed, and neither is an entry that consists of ";" alone. Entries for confidential remarks (RC),
// other service information (OS) and special service requests (SR) are never packed, because their text may contain a
// ";".
std::vector<std::u16string_view> PartsOf(std::u16string_view entry);

// Whether the text contains a ";". A reply answers a packed entry as a whole only when the text of its matcher contains
// a ";". Without this rule, a reply to all entries that begin with "RM" would answer a remark together with all parts
// that follow the remark.
bool HoldsSeparator(std::u16string_view text);

}  // namespace wendrill::simulator
