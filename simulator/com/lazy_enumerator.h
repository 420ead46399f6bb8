// An automation enumerator (IEnumVARIANT) over simulated objects.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <functional>

#include "com/server/automation_types.h"

namespace wendrill::simulator {

// Returns the next object of an enumeration; an empty reference at the end.
using WalkStep = std::function<com::Reference<IDispatch>()>;

// Begins an enumeration; called once at the start and again on each Reset.
using WalkStart = std::function<WalkStep()>;

// Creates an enumerator with one reference, which the caller owns. Each element is fetched only when Next asks for it,
// so that a planned failure occurs at the element for which it was planned. Clone returns E_NOTIMPL, which automation
// allows.
IUnknown* NewWalkEnumerator(WalkStart start);

}  // namespace wendrill::simulator
