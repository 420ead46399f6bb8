// Packed entries: several entries joined with ";" and transmitted as one.
#pragma once

#include <string_view>
#include <vector>

namespace wendrill::simulator {

// The parts of a packed entry, in order, without empty parts; an empty vector when the entry is not packed. Three kinds
// of entries are not packed:
//   - an entry without ";";
//   - an entry that consists of ";" alone;
//   - an entry that begins with RC (confidential remark), OS (other service information) or SR (special service
//     request): its text may contain a ";".
std::vector<std::u16string_view> PartsOf(std::u16string_view entry);

// Whether the text contains a ";". Used for the text of a reply's matcher: only a reply whose text contains a ";"
// answers a packed entry as a whole. All other replies answer only its parts. Otherwise a reply to all entries that
// begin with "RM" would answer a remark together with all parts that follow the remark.
bool HoldsSeparator(std::u16string_view text);

}  // namespace wendrill::simulator
