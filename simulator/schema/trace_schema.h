// The JSON schema of the lines of a trace.
#pragma once

#include <string>

namespace wendrill::simulator {

// The whole file docs/trace.schema.json, made of the table in trace/kinds.h. It is the schema of one line.
std::string TraceSchema();

}  // namespace wendrill::simulator
