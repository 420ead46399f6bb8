// A clock and a message pump that a test controls exactly. The simulator's clock and pump cannot be controlled in this
// way: its clock advances at every reading, its pump delivers every event, and its quit message stays in the queue.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <vector>

#include "toolkit/clock.h"
#include "toolkit/message_pump.h"

namespace wendrill::testing {

// A clock that advances only when Sleep is called or when a test or a FakePump changes `now`.
class FakeClock final : public Clock {
 public:
  explicit FakeClock(double secondsSinceMidnight = 36000) : now(secondsSinceMidnight) {}

  double SecondsSinceMidnight() override { return now; }
  void Sleep(std::chrono::milliseconds duration) override;

  double now;                                              // local seconds since midnight
  std::vector<std::chrono::milliseconds> sleeps;           // the durations of all calls of Sleep, in order
  std::function<void(std::chrono::milliseconds)> onSleep;  // called at the end of each Sleep, with its duration
};

// A message pump of which each pass advances the clock and calls a function of the test. A wait that nothing ends makes
// the test fail, so that the test does not hang.
class FakePump final : public MessagePump {
 public:
  explicit FakePump(FakeClock& clock) : clock_(clock) {}

  bool RunOnce() override;

  double secondsPerPass = 0.25;
  std::size_t passLimit = 1000;                  // the maximum number of passes in one test
  std::size_t passes = 0;                        // the number of passes so far
  std::function<void(std::size_t pass)> onPass;  // called in each pass with its number, counted from 1
  bool quitPosted = false;                       // the result of RunOnce: whether the program was asked to close

 private:
  FakeClock& clock_;
};

}  // namespace wendrill::testing
