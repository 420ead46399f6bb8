// Access to the toolkit's current PNR object. Most members of the PNR object are known only by their DISPIDs.
#pragma once

#include <string>

#include "common/module_state.h"
#include "common/value.h"
#include "toolkit/automation_object.h"
#include "toolkit/pnr_members.h"

namespace wendrill {

// The current PNR object; never null. Raises 91 (object not set) when there is no PNR object.
ObjectRef ToolkitPnr(const ModuleState& state);

// The text of the display, the header object, and a collection of elements, read from the current PNR object on each
// call. Each function raises 91 (object not set) when there is no PNR object. HeaderObject and CollectionObject never
// return null: they raise 91 when the toolkit returns Nothing. Errors of the toolkit propagate unchanged.
std::u16string DisplayText(const ModuleState& state);
ObjectRef HeaderObject(const ModuleState& state);
ObjectRef CollectionObject(const ModuleState& state, Collection collection);

}  // namespace wendrill
