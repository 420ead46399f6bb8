// Lengths of time between two readings of a Clock, which starts again at midnight.
#pragma once

namespace wendrill::simulator {

inline constexpr double kSecondsPerDay = 86400;

// The seconds from `start` to a later reading `now`, at most 23 hours. A reading up to an hour before the start is no
// new day: the clock was set back, or x87 registers kept more digits of it than of the start. It counts as no time at
// all.
inline double SecondsPassed(double start, double now) {
  constexpr double kSetBack = 3600;
  const double passed = now - start;
  if (passed >= 0) {
    return passed;
  }
  return passed >= -kSetBack ? 0 : passed + kSecondsPerDay;
}

}  // namespace wendrill::simulator
