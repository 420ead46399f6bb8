// The PNR as a whole: header line, locator, offices, last update.
#pragma once

#include "common/module_state.h"
#include "common/param_bag.h"

namespace wendrill {

// Stores the seven keys of the header into the caller's bag. Raises 2227 and stores nothing when the header's text is
// empty. Any other failure propagates unchanged, and the keys stored before it stay in the bag.
void StorePnrHeader(ModuleState& state, const ParamBagRef& objParams);

}  // namespace wendrill
