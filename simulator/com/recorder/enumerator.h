// An enumerator that forwards to an enumerator of the terminal and replaces the elements by wrappers.
#pragma once

#include <ole2.h>
#include <windows.h>

#include "com/recorder/known_members.h"
#include "com/server/automation_types.h"

namespace wendrill::recorder {

// Creates the enumerator with one reference, which the caller owns. `kind` is the kind of the elements that the
// enumerator returns.
IUnknown* NewWrappedEnumerator(com::Reference<IEnumVARIANT> real, Kind kind);

}  // namespace wendrill::recorder
