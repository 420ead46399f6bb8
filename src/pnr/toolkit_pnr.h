// Access to the toolkit's current PNR object. Most members of that object are known only by their DISPIDs.
#pragma once

#include <string>

#include "common/module_state.h"
#include "common/value.h"
#include "toolkit/automation_object.h"
#include "toolkit/pnr_members.h"

namespace wendrill {

// The current PNR object. Raises 91 when there is no PNR object.
ObjectRef ToolkitPnr(const ModuleState& state);

// These functions read the current PNR object on each call. They raise 91 when there is no PNR object. Errors of the
// toolkit propagate.
std::u16string DisplayText(const ModuleState& state);
ObjectRef HeaderObject(const ModuleState& state);
ObjectRef CollectionObject(const ModuleState& state, Collection collection);

}  // namespace wendrill
