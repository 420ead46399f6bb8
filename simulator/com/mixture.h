// Prevents simulated components from running beside real ones: otherwise a simulated entry could seem to be answered
// with a real PNR, or a test could send real entries.
#pragma once

#include <span>

#include "com/server/module.h"

namespace wendrill::simulator {

// Raises 429 when programmatic names of the terminal's components resolve to classes that are not among `components`,
// which means that another server's components would answer beside the simulated ones. The description lists these
// names. The environment variable QUILLET_SIMULATOR_MIX=1 switches the check off.
//
// A check that found nothing is remembered as long as the thread's activation context stays the same, because Windows
// looks names up in that context first. Looking the names up costs more than the rest of a creation.
void RefuseMixture(std::span<const com::ServerClass> components);

}  // namespace wendrill::simulator
