// The data of the PNR as a whole: header line, record locator, offices, last update.
#pragma once

#include "common/module_state.h"
#include "common/param_bag.h"

namespace wendrill {

// Stores the seven keys of the header in the caller's bag. Raises 2227 and stores nothing when the text of the header
// is empty. Any other failure propagates unchanged; the keys stored before the failure stay in the bag.
void StorePnrHeader(ModuleState& state, const ParamBagRef& objParams);

}  // namespace wendrill
