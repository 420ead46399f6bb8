// Enumerators over a list of objects.
#pragma once

#include <vector>

#include "com/server/automation_types.h"

namespace wendrill::com {

// An IEnumVARIANT over the objects, with one reference, which the caller owns.
IUnknown* NewEnumerator(std::vector<Reference<IDispatch>> objects);

}  // namespace wendrill::com
