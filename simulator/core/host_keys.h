// The keys of the terminal that the host answers with an event.
#pragma once

#include "toolkit/terminal.h"

namespace wendrill::simulator {

// Enter, Transmit, PA1 to PA3.
inline constexpr KeyCode kHostKeys[] = {272, 320, 352, 353, 354};

}  // namespace wendrill::simulator
