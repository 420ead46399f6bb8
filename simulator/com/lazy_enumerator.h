// An automation enumerator (IEnumVARIANT) over simulated objects.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <functional>

#include "com/server/automation_types.h"

namespace wendrill::simulator {

// A function that returns the next object of an enumeration; an empty reference after the last object.
using WalkStep = std::function<com::Reference<IDispatch>()>;

// A function that begins an enumeration and returns the function that fetches its objects. The enumerator calls the
// WalkStart when the enumerator is created, and again in each Reset.
using WalkStart = std::function<WalkStep()>;

// Creates an enumerator with one reference, which the caller owns. The enumerator fetches each element only when Next
// or Skip reaches the element. So a failure that a test has planned for an element occurs at that element, and not
// already at the creation of the enumerator. Clone returns E_NOTIMPL, which automation allows.
IUnknown* NewWalkEnumerator(WalkStart start);

}  // namespace wendrill::simulator
