// Prints the JSON schema of the lines of a trace. Usage: trace_schema > docs/trace.schema.json
#include <iostream>

#include "schema/trace_schema.h"

int main() {
  std::cout << wendrill::simulator::TraceSchema();
}
