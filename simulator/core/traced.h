// How the simulated desktop writes the trace of a run, if there is a trace.
#pragma once

#include "common/error.h"
#include "core/scenario.h"
#include "trace/trace.h"

namespace wendrill::simulator {

// Calls `work` and then writes `line`, for calls whose lines in the trace have a kind of their own. `work` completes
// the line that is passed to it. An error that `work` raises is stored in the line and raised again. When `trace` is
// null, only `work` is called. Returns the result of `work`.
template <typename Line, typename Work>
auto Traced(trace::Trace* trace, Line line, Work work) {
  if (trace == nullptr) {
    return work(line);
  }
  try {
    auto result = work(line);
    trace->Write(line);
    return result;
  } catch (const Error& error) {
    line.error = {error.Number(), error.Description()};
    trace->Write(line);
    throw;
  }
}

// Passes to the trace every text that the scenario can show or match, so that the trace recognises names from its first
// line on.
void LearnFrom(const Scenario& scenario, trace::Trace& trace);

}  // namespace wendrill::simulator
