#include "call_count.h"

#include <stdexcept>

#include "bare_calls.h"

namespace wendrill::com::bench {
namespace {

LONG CallsOf(_Control* control, const std::function<void()>& work) {
  LONG before = 0;
  LONG after = 0;
  Must(control->get_Calls(&before));
  work();
  Must(control->get_Calls(&after));
  return after - before;
}

}  // namespace

void RequireSameCalls(_Control* control, const std::string& what, const std::function<void()>& ours,
                      const std::function<void()>& reference) {
  const LONG callsOfOurs = CallsOf(control, ours);
  const LONG callsOfReference = CallsOf(control, reference);
  if (callsOfOurs != callsOfReference) {
    throw std::runtime_error(what + ": we make " + std::to_string(callsOfOurs) + " calls, the reference " +
                             std::to_string(callsOfReference));
  }
}

}  // namespace wendrill::com::bench
