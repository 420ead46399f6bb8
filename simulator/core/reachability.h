// Finds the replies, PNRs and silent keys of a scenario that can never take effect. A silent key is a key that
// [terminal] lists under `silent`.
#pragma once

#include <string>
#include <vector>

#include "core/scenario.h"

namespace wendrill::simulator {

// One warning for each silent key, group of replies and PNR that can never take effect. The warnings for keys come
// first, then those for replies, then those for PNRs, each in the order of the file. A part that can never take effect
// may be missed, because EntryMatcher::Covers does not recognise every case. Takes at most O(replies x replies + PNRs x
// PNRs) comparisons.
std::vector<std::u16string> UnreachableParts(const Scenario& scenario);

}  // namespace wendrill::simulator
