// Computes the time between two readings of a Clock. Readings are seconds since midnight, so they start again from 0 at
// midnight.
#pragma once

namespace wendrill::simulator {

inline constexpr double kSecondsPerDay = 86400;

// The seconds from the reading `start` to the later reading `now`. REQUIRES: at most 23 hours lie between the readings.
//
// Returns 0 when `now` is smaller than `start` by an hour or less. Such a difference does not mean that midnight has
// passed, but that the clock was set back, or that x87 registers kept more digits of `now` than of `start`.
inline double SecondsPassed(double start, double now) {
  constexpr double kSetBack = 3600;
  const double passed = now - start;
  if (passed >= 0) {
    return passed;
  }
  return passed >= -kSetBack ? 0 : passed + kSecondsPerDay;
}

}  // namespace wendrill::simulator
