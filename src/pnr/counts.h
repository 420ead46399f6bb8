// The number of elements of each kind in the current PNR, as the toolkit counts them.
#pragma once

#include <cstdint>

#include "common/module_state.h"
#include "wendrill23_published.h"

namespace wendrill {

// The number of elements of a kind, read from the toolkit on each call. Raises:
//   - 91 when there is no current PNR object;
//   - 6 when the count does not fit into 16 bits;
//   - 13 when the display has a group line whose number of names cannot be read;
//   - 5 for a kind that is counted in the display, not by the toolkit (scan/display_kinds.h).
//
// An error of the toolkit propagates unchanged.
std::int16_t Count(ModuleState& state, CountOf kind);

}  // namespace wendrill
