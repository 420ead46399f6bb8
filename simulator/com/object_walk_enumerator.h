// A walk over simulated objects as an automation enumerator.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <memory>

#include "toolkit/automation_object.h"

namespace wendrill::simulator {

// Steps through the walk as the caller asks, so that a failure strikes at its element. One reference for the caller. It
// can neither start again nor be cloned, which automation allows.
IUnknown* NewWalkEnumerator(std::unique_ptr<ObjectWalk> walk);

}  // namespace wendrill::simulator
