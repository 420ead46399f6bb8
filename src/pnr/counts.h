// How many elements of each kind the current PNR holds, as the toolkit counts them.
#pragma once

#include <cstdint>

#include "common/module_state.h"
#include "wendrill23_published.h"

namespace wendrill {

// The count, read from the toolkit on each call. Raises 91 without a PNR, 6 for a count that 16 bits do not hold, 13
// for a group line whose number of names cannot be read, 5 for a kind that the toolkit does not count: the display
// shows it (scan/display_kinds.h). An error of the toolkit propagates unchanged.
std::int16_t Count(ModuleState& state, CountOf kind);

}  // namespace wendrill
