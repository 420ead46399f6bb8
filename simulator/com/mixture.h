// Prevents simulated components from running in one process with components of a real terminal. Together they could
// answer a simulated entry with a real PNR, or send a test's entries to the real host.
#pragma once

#include <span>

#include "com/server/module.h"

namespace wendrill::simulator {

// Raises 429 when the programmatic name of one of `components` resolves to a class of another server, other than the
// recorder. The description lists all such names. The environment variable QUILLET_SIMULATOR_MIX=1 switches the check
// off.
//
// A successful check is not repeated while the thread's activation context stays the same. The activation context
// decides first how Windows resolves a name. Resolving the names takes longer than all other work of creating an
// object.
void RefuseMixture(std::span<const com::ServerClass> components);

}  // namespace wendrill::simulator
