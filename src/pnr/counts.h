// The number of elements of each kind in the current PNR, as the toolkit counts them.
#pragma once

#include <cstdint>

#include "common/module_state.h"
#include "wendrill23_published.h"

namespace wendrill {

// The number of elements of a kind, read from the toolkit on each call. For the names of a group booking, the result is
// read from the display: the size of the group plus the number of passengers whose names are known. Raises:
//   - 91 (object not set) when there is no current PNR object;
//   - 6 (overflow) when the count does not fit into 16 bits;
//   - 13 (type mismatch) when the display has a group line whose number of names cannot be read;
//   - 5 (invalid argument) for a kind that the library counts in the display (scan/display_kinds.h).
//
// An error of the toolkit propagates unchanged.
std::int16_t Count(ModuleState& state, CountOf kind);

}  // namespace wendrill
