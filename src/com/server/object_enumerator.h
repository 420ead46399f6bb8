// Enumerators over objects that are at hand.
#pragma once

#include <vector>

#include "com/server/automation_types.h"

namespace wendrill::com {

// An IEnumVARIANT over the objects, with one reference for the caller.
IUnknown* NewEnumerator(std::vector<Reference<IDispatch>> objects);

}  // namespace wendrill::com
