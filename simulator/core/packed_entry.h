// Packed entries: several entries in one, joined with ";".
#pragma once

#include <string_view>
#include <vector>

namespace wendrill::simulator {

// The parts of a packed entry, in order, without empty ones. None for an entry that is not packed: one without ";", or
// with nothing else, or a confidential remark (RC), other service information (OS) or a special service request (SR),
// whose text may hold a ";".
std::vector<std::u16string_view> PartsOf(std::u16string_view entry);

// Whether a text holds what separates the parts. Only a reply whose own text does is meant for a packed entry as a
// whole: one for all entries that begin with "RM" would else swallow whatever is packed after a remark.
bool HoldsSeparator(std::u16string_view text);

}  // namespace wendrill::simulator
