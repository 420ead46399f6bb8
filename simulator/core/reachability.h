// Finds the replies, PNRs and silent keys of a scenario that can never take effect.
#pragma once

#include <string>
#include <vector>

#include "core/scenario.h"

namespace wendrill::simulator {

// One warning for each silent key, reply and PNR that can never take effect: first for the keys, then for the replies,
// then for the PNRs, each group in the order of the file. Takes at most O(replies x replies + PNRs x PNRs) comparisons.
std::vector<std::u16string> UnreachableParts(const Scenario& scenario);

}  // namespace wendrill::simulator
