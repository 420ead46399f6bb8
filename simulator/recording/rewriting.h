// Decides when the file of a recording that is still growing is written again.
//
// The file is written, always as a whole, when the program has released all objects of the recorder. So a program that
// releases its objects after every call would wait longer and longer for the writing. To limit the waiting to a tenth
// of the program's time, the file is not written again before nine times the duration of the last writing have passed.
#pragma once

#include <chrono>
#include <optional>

namespace wendrill::recording {

class Rewriting {
 public:
  using Time = std::chrono::steady_clock::time_point;

  bool IsDue(Time now) const { return !next_ || now >= *next_; }
  void Took(Time begin, Time end) {
    constexpr int kRest = 9;
    next_ = end + kRest * (end - begin);
  }

 private:
  std::optional<Time> next_;
};

}  // namespace wendrill::recording
