// A walk over simulated objects as an automation enumerator.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <functional>

#include "com/server/automation_types.h"

namespace wendrill::simulator {

// A step of a walk: the next object, none at the end.
using WalkStep = std::function<com::Reference<IDispatch>()>;

// Begins a walk; called anew when the caller starts again.
using WalkStart = std::function<WalkStep()>;

// Steps as the caller asks, so that a failure strikes at its element. One reference for the caller. It cannot be
// cloned, which automation allows.
IUnknown* NewWalkEnumerator(WalkStart start);

}  // namespace wendrill::simulator
