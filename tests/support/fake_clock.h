// Time and messages that a test moves by hand, to the pass. The simulator's clock moves at every reading, its pump
// delivers every event, and its quit message stays.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <vector>

#include "toolkit/clock.h"
#include "toolkit/message_pump.h"

namespace wendrill::testing {

// Stands still until somebody moves it.
class FakeClock final : public Clock {
 public:
  explicit FakeClock(double secondsSinceMidnight = 36000) : now(secondsSinceMidnight) {}

  double SecondsSinceMidnight() override { return now; }
  void Sleep(std::chrono::milliseconds duration) override;

  double now;                                     // local seconds since midnight
  std::vector<std::chrono::milliseconds> sleeps;  // every sleep, in order
  std::function<void(std::chrono::milliseconds)> onSleep;
};

// Every pass takes time and runs what the test wants run. A wait that nothing ends fails the test instead of hanging
// it.
class FakePump final : public MessagePump {
 public:
  explicit FakePump(FakeClock& clock) : clock_(clock) {}

  bool RunOnce() override;

  double secondsPerPass = 0.25;
  std::size_t passLimit = 1000;  // of one test
  std::size_t passes = 0;
  std::function<void(std::size_t pass)> onPass;  // passes count from 1
  bool quitPosted = false;                       // the program was told to close

 private:
  FakeClock& clock_;
};

}  // namespace wendrill::testing
