// Prints the JSON schema of scenario files: scenario_schema > docs/scenario.schema.json
#include <iostream>

#include "schema/scenario_schema.h"

int main() {
  std::cout << wendrill::simulator::ScenarioSchema();
}
