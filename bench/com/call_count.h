// How many calls a piece of work makes on the simulated components.
#pragma once

#include <functional>
#include <string>

#include "platform.h"

namespace wendrill::com::bench {

// A reference counts only where it makes as many calls as our side does: throws when the numbers differ.
void RequireSameCalls(_Control* control, const std::string& what, const std::function<void()>& ours,
                      const std::function<void()>& reference);

}  // namespace wendrill::com::bench
