// Replies, PNRs and keys of a scenario that can never come to be used.
#pragma once

#include <string>
#include <vector>

#include "core/scenario.h"

namespace wendrill::simulator {

// A warning for each, in the order of the file's tables. Takes O(replies x replies + PNRs x PNRs) comparisons.
std::vector<std::u16string> UnreachableParts(const Scenario& scenario);

}  // namespace wendrill::simulator
