// What a client does, one thing at a time.
#pragma once

#include <cstddef>

#include "soak_desk.h"

namespace wendrill::soak {

// What the simulated desktop answers during the run.
extern const wchar_t kScenario[];

std::size_t ActionCount();

// Does one thing: some calls, of which each is counted. Calls that are meant to fail do.
void Act(Desk& desk, std::size_t action);

}  // namespace wendrill::soak
