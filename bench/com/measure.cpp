#include "measure.h"

#include <windows.h>

#include <algorithm>
#include <limits>

namespace wendrill::com::bench {
namespace {

// The length of a round: shorter than the time slice that a busy system gives a program.
constexpr double kRoundNanoseconds = 1e6;
constexpr int kMostLongRounds = 15;
constexpr double kNever = std::numeric_limits<double>::max();

double Now() {
  static const double nanosecondsPerTick = [] {
    LARGE_INTEGER ticksPerSecond;
    QueryPerformanceFrequency(&ticksPerSecond);
    return 1e9 / static_cast<double>(ticksPerSecond.QuadPart);
  }();
  LARGE_INTEGER ticks;
  QueryPerformanceCounter(&ticks);
  return static_cast<double>(ticks.QuadPart) * nanosecondsPerTick;
}

template <typename Work>
double TimeOf(const Work& work) {
  const double start = Now();
  work();
  return Now() - start;
}

// How many times to do the work in one round.
int TimesInARound(const Repeated& work) {
  int times = 1;
  double time = TimeOf([&] { work(times); });
  while (time < kRoundNanoseconds / 2 && times < std::numeric_limits<int>::max() / 2) {
    times *= 2;
    time = std::min(time * 2, TimeOf([&] { work(times); }));
  }
  return times;
}

void Lower(double& lowest, double time) {
  lowest = std::min(lowest, time);
}

}  // namespace

double TimeOnce(const std::function<void()>& work) {
  return TimeOf(work);
}

Costs Stopwatch::Compare(const Repeated& ours, const Repeated& reference) const {
  const int timesOurs = TimesInARound(ours);
  const int timesReference = TimesInARound(reference);
  Costs lowest{kNever, kNever};
  for (int round = 0; round < rounds_; ++round) {
    Lower(lowest.ours, TimeOf([&] { ours(timesOurs); }));
    Lower(lowest.reference, TimeOf([&] { reference(timesReference); }));
  }
  return {lowest.ours / timesOurs, lowest.reference / timesReference};
}

Costs Stopwatch::CompareTimed(const std::function<double()>& ours, const std::function<double()>& reference) const {
  Costs lowest{kNever, kNever};
  for (int round = 0; round < std::min(rounds_, kMostLongRounds); ++round) {
    Lower(lowest.ours, ours());
    Lower(lowest.reference, reference());
  }
  return lowest;
}

Costs Stopwatch::CompareInParts(const std::vector<Part>& parts) const {
  std::vector<Costs> lowest(parts.size(), Costs{kNever, kNever});
  for (int round = 0; round < std::min(rounds_, kMostLongRounds); ++round) {
    for (std::size_t part = 0; part < parts.size(); ++part) {
      parts[part].prepare();
      Lower(lowest[part].ours, TimeOf(parts[part].ours));
      Lower(lowest[part].reference, TimeOf(parts[part].reference));
    }
  }
  Costs sum;
  for (const Costs& each : lowest) {
    sum.ours += each.ours;
    sum.reference += each.reference;
  }
  return sum;
}

}  // namespace wendrill::com::bench
