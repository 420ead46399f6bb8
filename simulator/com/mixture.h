// Prevents simulated components and components of a real terminal from running in one process. Such a mixture could
// answer a simulated entry with a real PNR, or send a test's entries to the real host.
#pragma once

#include <span>

#include "com/server/module.h"

namespace wendrill::simulator {

// Raises 429 (cannot create object) when the ProgID of one of `components` resolves to a class of a server other than
// the simulator and the recorder. The description of the error lists all ProgIDs that resolve to such a class. The
// environment variable QUILLET_SIMULATOR_MIX=1 switches the check off.
//
// The check is not repeated in the activation context in which the last successful check ran: resolving the ProgIDs
// takes longer than all other work of creating an object. Another activation context needs a new check, because Windows
// resolves a ProgID in the thread's activation context first.
void RefuseMixture(std::span<const com::ServerClass> components);

}  // namespace wendrill::simulator
