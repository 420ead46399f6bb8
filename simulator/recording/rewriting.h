// When the file of a recording that goes on is written again.
//
// Each time the whole story is written, so a program that lets go of its objects after every call would wait longer and
// longer. It spends a tenth of its time on that at most: after the file was written, it is not written again for nine
// times as long as that took.
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
