// The data of the PNR as a whole: header line, record locator, offices, time of the last update.
#pragma once

#include "common/module_state.h"
#include "common/param_bag.h"

namespace wendrill {

// Stores the seven keys of the header in the caller's bag. Raises 2227 and stores nothing when the header object's Text
// is empty. Any other failure propagates unchanged; keys that were stored before the failure stay in the bag.
void StorePnrHeader(ModuleState& state, const ParamBagRef& objParams);

}  // namespace wendrill
