// Time and messages for native tests: a clock that advances when it is read or slept on, and a message queue that
// contains the simulated terminal's events.
#pragma once

#include <chrono>
#include <functional>
#include <vector>

#include "toolkit/clock.h"
#include "toolkit/message_pump.h"

namespace wendrill::simulator {

class World;

// A clock that starts at noon. Every reading advances it by a step, 100 milliseconds unless SetStep changes it, so that
// a loop that waits for a time limit ends.
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

  // Sets a task that simulates the other messages in the caller's queue: each RunOnce calls it before the events are
  // delivered.
  void OnRun(std::function<void()> task) { task_ = std::move(task); }

  // Posts a quit message, as when the caller's program is told to close. The message stays in the queue: every RunOnce
  // from now on returns true.
  void PostQuit() { quitPosted_ = true; }

 private:
  World& world_;
  std::function<void()> task_;
  bool quitPosted_ = false;
};

}  // namespace wendrill::simulator
