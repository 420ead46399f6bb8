// The times of two pieces of work side by side.
//
// The two take turns, so that whatever else the machine does meets both. Of many rounds the lowest time of each counts:
// a disturbance only ever adds to it.
#pragma once

#include <functional>
#include <vector>

namespace wendrill::com::bench {

struct Costs {
  double ours = 0;  // nanoseconds for the work done once
  double reference = 0;
};

// Does a piece of work as many times as it is told.
using Repeated = std::function<void(int)>;

// The loop stands inside, so that repeating costs nothing.
template <typename Work>
Repeated Repeat(Work work) {
  return [work](int times) {
    for (; times > 0; --times) {
      work();
    }
  };
}

// One part of a work that is too long to be repeated until no round is disturbed. Preparing is not measured.
struct Part {
  std::function<void()> prepare;
  std::function<void()> ours;
  std::function<void()> reference;
};

// In nanoseconds.
double TimeOnce(const std::function<void()>& work);

class Stopwatch {
 public:
  // How many rounds each work goes through at most. One round tells only that the works can be done.
  explicit Stopwatch(int rounds) : rounds_(rounds) {}

  // Works that take nanoseconds up to milliseconds.
  Costs Compare(const Repeated& ours, const Repeated& reference) const;

  // Works that take their own time, which they return in nanoseconds; for those too long to be repeated in a round.
  Costs CompareTimed(const std::function<double()>& ours, const std::function<double()>& reference) const;

  // The sums of what each part costs at best.
  Costs CompareInParts(const std::vector<Part>& parts) const;

 private:
  int rounds_;
};

}  // namespace wendrill::com::bench
