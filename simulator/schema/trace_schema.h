// The JSON schema of the lines of a trace.
#pragma once

#include <string>

namespace wendrill::simulator {

// The complete text of docs/trace.schema.json, which is the schema of one line of a trace. The text is generated from
// the table in trace/kinds.h.
std::string TraceSchema();

}  // namespace wendrill::simulator
