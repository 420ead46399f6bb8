// Enumerators (IEnumVARIANT) over a list of objects.
#pragma once

#include <vector>

#include "com/server/automation_types.h"

namespace wendrill::com {

// Returns a new IEnumVARIANT over the objects, AddRef'ed for the caller.
IUnknown* NewEnumerator(std::vector<Reference<IDispatch>> objects);

}  // namespace wendrill::com
