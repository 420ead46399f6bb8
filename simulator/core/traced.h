// How the simulated desktop feeds the trace of a run, where there is one.
#pragma once

#include "common/error.h"
#include "core/scenario.h"
#include "trace/trace.h"

namespace wendrill::simulator {

// Carries out a call whose line has a form of its own, and then writes the line. The work fills in what the call
// brings to light; its error becomes the line's. Without a trace (null) only the work is done.
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

// Tells the trace what a scenario can show and match, so that no name is written before it is known to be one.
void LearnFrom(const Scenario& scenario, trace::Trace& trace);

}  // namespace wendrill::simulator
