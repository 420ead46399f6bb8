// The JSON schema of scenario files. Editors use it to complete keys and to mark mistakes.
#pragma once

#include <string>

namespace wendrill::simulator {

// The complete text of docs/scenario.schema.json. It is generated from the same table of keys with which scenarios are
// read (core/scenario_keys.h).
std::string ScenarioSchema();

}  // namespace wendrill::simulator
