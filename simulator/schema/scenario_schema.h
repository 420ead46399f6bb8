// The JSON schema of scenario files. Editors use it to complete keys and to mark mistakes.
#pragma once

#include <string>

namespace wendrill::simulator {

// The complete text of docs/scenario.schema.json. The text is generated from the table of keys (core/scenario_keys.h),
// with which scenarios are also read.
std::string ScenarioSchema();

}  // namespace wendrill::simulator
