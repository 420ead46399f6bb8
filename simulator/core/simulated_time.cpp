#include "core/simulated_time.h"

#include <cmath>

#include "core/seconds_passed.h"
#include "core/world.h"

namespace wendrill::simulator {

double SimulatedClock::SecondsSinceMidnight() {
  const double now = seconds_;
  Advance(step_);
  return now;
}

void SimulatedClock::Sleep(std::chrono::milliseconds duration) {
  sleeps_.push_back(duration);
  Advance(duration);
}

void SimulatedClock::Advance(std::chrono::milliseconds duration) {
  seconds_ = std::fmod(seconds_ + std::chrono::duration<double>(duration).count(), kSecondsPerDay);
}

bool SimulatedPump::RunOnce() {
  if (task_) {
    task_();
  }
  world_.DeliverPending();
  return quitPosted_;
}

}  // namespace wendrill::simulator
