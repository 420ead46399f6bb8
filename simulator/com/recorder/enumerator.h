// An enumerator of the terminal's, whose elements are wrapped.
#pragma once

#include <ole2.h>
#include <windows.h>

#include "com/recorder/known_members.h"
#include "com/server/automation_types.h"

namespace wendrill::recorder {

// With one reference, which the caller owns.
IUnknown* NewWrappedEnumerator(com::Reference<IEnumVARIANT> real, Kind kind);

}  // namespace wendrill::recorder
