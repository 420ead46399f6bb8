// The JSON schema of scenario files, with which editors complete and check them.
#pragma once

#include <string>

namespace wendrill::simulator {

// The whole file docs/scenario.schema.json, made of the table of keys that the reader uses.
std::string ScenarioSchema();

}  // namespace wendrill::simulator
