// Time for native tests: a clock that moves when it is read or slept on, and a message queue that holds the simulated
// terminal's events.
#pragma once

#include <chrono>
#include <functional>
#include <vector>

#include "toolkit/clock.h"
#include "toolkit/message_pump.h"

namespace wendrill::simulator {

class World;

// Starts at noon. Every reading advances the clock by a step, so that a loop that waits for a time limit ends.
class SimulatedClock final : public Clock {
 public:
  double SecondsSinceMidnight() override;
  void Sleep(std::chrono::milliseconds duration) override;

  void SetSeconds(double secondsSinceMidnight) { seconds_ = secondsSinceMidnight; }
  void SetStep(std::chrono::milliseconds step) { step_ = step; }

  // The durations of all calls of Sleep, in order.
  const std::vector<std::chrono::milliseconds>& Sleeps() const { return sleeps_; }

 private:
  void Advance(std::chrono::milliseconds duration);

  double seconds_ = 43200;
  std::chrono::milliseconds step_{100};
  std::vector<std::chrono::milliseconds> sleeps_;
};

// Delivers the world's pending events on each run.
class SimulatedPump final : public MessagePump {
 public:
  explicit SimulatedPump(World& world) : world_(world) {}

  bool RunOnce() override;

  // Stands in for the other messages in the caller's queue: called on each run, before the events are delivered.
  void OnRun(std::function<void()> task) { task_ = std::move(task); }

  // Posts a quit message, as when the caller's program is told to close. It stays in the queue.
  void PostQuit() { quitPosted_ = true; }

 private:
  World& world_;
  std::function<void()> task_;
  bool quitPosted_ = false;
};

}  // namespace wendrill::simulator
