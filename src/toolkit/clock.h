// Port to the time of day and to waiting for a fixed time.
#pragma once

#include <chrono>

namespace wendrill {

class Clock {
 public:
  virtual ~Clock() = default;

  // The local time of day in seconds since midnight, with a fraction: from 0 up to, but not including, 86,400. The time
  // starts again from 0 at midnight, so a later reading may be smaller than an earlier reading. Never raises.
  virtual double SecondsSinceMidnight() = 0;

  // Blocks the calling thread for at least `duration`, which is not negative. Delivers no messages meanwhile. Never
  // raises.
  virtual void Sleep(std::chrono::milliseconds duration) = 0;
};

}  // namespace wendrill
