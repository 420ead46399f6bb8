// Measures and compares the times of two pieces of work.
//
// The two alternate, so that other activity of the machine affects both. The result for each is its lowest time in many
// rounds, because a disturbance can only make a round longer.
#pragma once

#include <functional>
#include <vector>

#include "report.h"

namespace wendrill::com::bench {

// In nanoseconds, for doing the library's work and the reference's work once.
using wendrill::bench::Costs;

// A function that does a piece of work n times; n is its argument.
using Repeated = std::function<void(int)>;

// Turns a piece of work into a Repeated. The loop is inside the std::function, so that each repetition is a direct
// call.
template <typename Work>
Repeated Repeat(Work work) {
  return [work](int times) {
    for (; times > 0; --times) {
      work();
    }
  };
}

// One part of a piece of work. A long piece of work is measured in parts, because each of its rounds would be
// disturbed. The time of `prepare` is not measured.
struct Part {
  std::function<void()> prepare;
  std::function<void()> ours;
  std::function<void()> reference;
};

// The time in nanoseconds of doing the work once.
double TimeOnce(const std::function<void()>& work);

class Stopwatch {
 public:
  // `rounds` is the maximum number of rounds of each comparison. With 1 round, the times mean little: the run only
  // shows that the work succeeds.
  explicit Stopwatch(int rounds) : rounds_(rounds) {}

  // Compares pieces of work that take from nanoseconds to milliseconds. Each round repeats the work.
  Costs Compare(const Repeated& ours, const Repeated& reference) const;

  // Compares pieces of work that measure themselves: each returns its time in nanoseconds. For work that is too long to
  // be repeated in a round. There are at most 15 rounds.
  Costs CompareTimed(const std::function<double()>& ours, const std::function<double()>& reference) const;

  // Compares work that consists of parts. The result is the sum of the lowest times of all parts. There are at most 15
  // rounds.
  Costs CompareInParts(const std::vector<Part>& parts) const;

 private:
  int rounds_;
};

}  // namespace wendrill::com::bench
