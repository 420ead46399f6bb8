// Checks a scenario before the script runs.
#pragma once

#include <string>

namespace wendrill::script_host {

// Throws UsageError, with the simulator's message, for a scenario with an error. Without this check the script's first
// CreateObject would fail for the same reason, but script engines report only that the object cannot be created.
void RequireGoodScenario(const std::wstring& path);

}  // namespace wendrill::script_host
