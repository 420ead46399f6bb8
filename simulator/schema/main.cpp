// Prints the JSON schema of scenario files. Usage: scenario_schema > docs/scenario.schema.json
#include <iostream>

#include "schema/scenario_schema.h"

int main() {
  std::cout << wendrill::simulator::ScenarioSchema();
}
