#include "support/fake_clock.h"

#include <gtest/gtest.h>

#include "support/call_log.h"

namespace wendrill::testing {

void FakeClock::Sleep(std::chrono::milliseconds duration) {
  sleeps.push_back(duration);
  now += std::chrono::duration<double>(duration).count();
  if (onSleep) {
    onSleep(duration);
  }
}

bool FakePump::RunOnce() {
  ++passes;
  if (passes > passLimit) {
    ADD_FAILURE() << "a wait of more than " << passLimit << " passes: nothing ends it";
    throw ForeignError();
  }
  clock_.now += secondsPerPass;
  if (onPass) {
    onPass(passes);
  }
  return quitPosted;
}

}  // namespace wendrill::testing
