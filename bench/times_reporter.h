// Keeps the times of benchmarks for tables and for ratios.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace wendrill::bench {

// A Google Benchmark reporter that prints each result at once and keeps its CPU time. A run that failed has no time.
class TimesReporter final : public benchmark::ConsoleReporter {
 public:
  TimesReporter() : ConsoleReporter(OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override;

  // The CPU time of one iteration of a benchmark. The name includes the arguments: "CollectPages/100". 0 when the
  // benchmark was not measured.
  double SecondsOf(const std::string& benchmark) const;

  // The CPU times of one iteration by the benchmark's name, for each benchmark that was measured.
  const std::map<std::string, double>& Seconds() const { return seconds_; }

 private:
  std::map<std::string, double> seconds_;
};

}  // namespace wendrill::bench
