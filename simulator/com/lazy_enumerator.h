// An automation enumerator (IEnumVARIANT) over simulated objects.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <functional>

#include "com/server/automation_types.h"

namespace wendrill::simulator {

// One step of an enumeration. Returns the next object, or an empty reference at the end.
using WalkStep = std::function<com::Reference<IDispatch>()>;

// Begins an enumeration and returns its step function. Called once when the enumerator is created, and again by each
// Reset.
using WalkStart = std::function<WalkStep()>;

// Creates an enumerator with one reference, which the caller owns. The enumerator fetches each element only when Next
// or Skip reaches the element. So a failure that a test has planned for an element occurs at that element. Clone
// returns E_NOTIMPL, which automation allows.
IUnknown* NewWalkEnumerator(WalkStart start);

}  // namespace wendrill::simulator
