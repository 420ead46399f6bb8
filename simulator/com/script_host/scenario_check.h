// Checks a scenario before the script runs.
#pragma once

#include <string>

namespace wendrill::script_host {

// Loads the scenario in the simulator, so that an error in the scenario is reported before the script runs. Throws
// UsageError with the simulator's message when the scenario has an error, and when the simulator cannot be created.
// Without this check, the error would make the first CreateObject of the script fail. Script engines drop the message
// of such a failure, and report only that the object cannot be created.
void RequireGoodScenario(const std::wstring& path);

}  // namespace wendrill::script_host
