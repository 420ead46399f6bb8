// Real PNRs beside simulated entries must never happen.
#pragma once

#include <span>

#include "com/server/module.h"

namespace wendrill::simulator {

// Raises 429, with a description that lists them, when names of the terminal's components now stand for classes that
// are not among these: components of another server would answer beside simulated ones. The environment variable
// QUILLET_SIMULATOR_MIX=1 switches this off.
//
// A clean answer is kept for as long as the thread's activation context stays the same: names are looked up there
// first, and a look-up costs more than all else that a creation does.
void RefuseMixture(std::span<const com::ServerClass> components);

}  // namespace wendrill::simulator
