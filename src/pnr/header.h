// The PNR as a whole: header line, locator, offices, last update.
#pragma once

#include "common/module_state.h"
#include "common/param_bag.h"

namespace wendrill {

// Stores the seven keys of the header into the caller's bag. 2227, and nothing stored, when the header's text is empty;
// any other failure arrives as it came, and the keys stored before it stay.
void StorePnrHeader(ModuleState& state, const ParamBagRef& objParams);

}  // namespace wendrill
