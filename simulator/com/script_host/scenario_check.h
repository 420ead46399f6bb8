// Whether a scenario can be used, found out before the script runs.
#pragma once

#include <string>

namespace wendrill::script_host {

// Raises UsageError with the simulator's own words for a scenario that it refuses. A script that creates its first
// object would be refused for the same reason, but the engines tell it only that the object cannot be created.
void RequireGoodScenario(const std::wstring& path);

}  // namespace wendrill::script_host
