// Counts the calls that a piece of work makes on the simulated components.
#pragma once

#include <functional>
#include <string>

#include "platform.h"

namespace wendrill::com::bench {

// Runs both pieces of work and throws std::runtime_error, with `what`, when their numbers of calls differ: times are
// comparable only if the library and the reference make the same number of calls.
void RequireSameCalls(_Control* control, const std::string& what, const std::function<void()>& ours,
                      const std::function<void()>& reference);

}  // namespace wendrill::com::bench
