// The time between two readings of a Clock, which starts again from 0 at midnight.
#pragma once

namespace wendrill::simulator {

inline constexpr double kSecondsPerDay = 86400;

// The seconds from the reading `start` to the later reading `now`, which is at most 23 hours later. The result is 0
// when `now` is up to an hour smaller than `start`. Midnight has not passed then: the clock was set back, or x87
// registers kept more digits of `now` than of `start`.
inline double SecondsPassed(double start, double now) {
  constexpr double kSetBack = 3600;
  const double passed = now - start;
  if (passed >= 0) {
    return passed;
  }
  return passed >= -kSetBack ? 0 : passed + kSecondsPerDay;
}

}  // namespace wendrill::simulator
