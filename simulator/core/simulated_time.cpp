#include "core/simulated_time.h"

#include <cmath>

#include "core/world.h"

namespace wendrill::simulator {
namespace {

constexpr double kSecondsPerDay = 86400;

}  // namespace

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
