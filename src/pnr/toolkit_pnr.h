// The current PNR object as the toolkit exposes it: its members are known by dispatch identifiers.
#pragma once

#include <string>

#include "common/module_state.h"
#include "common/value.h"
#include "toolkit/automation_object.h"
#include "toolkit/pnr_members.h"

namespace wendrill {

// The current PNR object. Raises 91 when there is no PNR object.
ObjectRef ToolkitPnr(const ModuleState& state);

// These functions read the current PNR object on each call. They raise the errors of ToolkitPnr and of the toolkit.
std::u16string DisplayText(const ModuleState& state);
ObjectRef HeaderObject(const ModuleState& state);
ObjectRef CollectionObject(const ModuleState& state, Collection collection);

}  // namespace wendrill
