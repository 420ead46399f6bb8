// Time and messages for native tests: a clock that advances only when a caller reads it or sleeps, and a message pump
// that delivers the simulated terminal's events.
#pragma once

#include <chrono>
#include <functional>
#include <vector>

#include "toolkit/clock.h"
#include "toolkit/message_pump.h"

namespace wendrill::simulator {

class World;

// A clock that starts at noon. Every reading advances the clock by a step, so that a loop that waits for a time limit
// ends. The step is 100 milliseconds unless SetStep changes it.
class SimulatedClock final : public Clock {
 public:
  double SecondsSinceMidnight() override;
  void Sleep(std::chrono::milliseconds duration) override;

  void SetSeconds(double secondsSinceMidnight) { seconds_ = secondsSinceMidnight; }
  void SetStep(std::chrono::milliseconds step) { step_ = step; }

  // The durations of all calls of Sleep, in the order of the calls.
  const std::vector<std::chrono::milliseconds>& Sleeps() const { return sleeps_; }

 private:
  void Advance(std::chrono::milliseconds duration);

  double seconds_ = 43200;
  std::chrono::milliseconds step_{100};
  std::vector<std::chrono::milliseconds> sleeps_;
};

// A message pump whose RunOnce delivers the world's pending events.
class SimulatedPump final : public MessagePump {
 public:
  explicit SimulatedPump(World& world) : world_(world) {}

  bool RunOnce() override;

  // Sets a task that simulates the other messages in the caller's queue: each RunOnce calls the task before it delivers
  // the events.
  void OnRun(std::function<void()> task) { task_ = std::move(task); }

  // Simulates a quit message (WM_QUIT), which a program receives when it is told to close. The message stays in the
  // queue: every RunOnce from now on returns true.
  void PostQuit() { quitPosted_ = true; }

 private:
  World& world_;
  std::function<void()> task_;
  bool quitPosted_ = false;
};

}  // namespace wendrill::simulator
