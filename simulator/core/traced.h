// Functions with which the simulated desktop writes the trace of a run, when the run is traced.
#pragma once

#include "common/error.h"
#include "core/scenario.h"
#include "trace/trace.h"

namespace wendrill::simulator {

// Calls `work`, then writes `line` to the trace, and returns the result of `work`. `work` receives a reference to the
// line and completes it. When `work` raises an Error, the error is stored in the line, the line is written, and the
// error is raised again. When `work` throws any other exception, no line is written. When `trace` is null, only calls
// `work`.
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

// Passes the texts of the scenario to trace::Trace::Learn, so that the trace hides names from its first line on: the
// patterns, the screens and the response texts of all replies; the screens and the response text of the answer to an
// unknown entry; the retrieving entries, the display, the element texts and the passengers' names of all PNRs.
void LearnFrom(const Scenario& scenario, trace::Trace& trace);

}  // namespace wendrill::simulator
