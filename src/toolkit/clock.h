// Port to time.
#pragma once

#include <chrono>

namespace wendrill {

class Clock {
 public:
  virtual ~Clock() = default;

  // Local seconds since midnight, with their fraction: 0 up to 86,400. Falls back to 0 at midnight.
  virtual double SecondsSinceMidnight() = 0;

  // Blocks the thread. No messages are delivered meanwhile.
  virtual void Sleep(std::chrono::milliseconds duration) = 0;
};

}  // namespace wendrill
