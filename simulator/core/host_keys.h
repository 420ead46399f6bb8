// The keys after which the simulated terminal raises the event ReceivedResponse, unless the scenario lists the key in
// `refuses` or `silent` of its table [terminal].
#pragma once

#include "toolkit/terminal.h"

namespace wendrill::simulator {

// The codes of Enter, Transmit, PA1, PA2 and PA3.
inline constexpr KeyCode kHostKeys[] = {272, 320, 352, 353, 354};

}  // namespace wendrill::simulator
