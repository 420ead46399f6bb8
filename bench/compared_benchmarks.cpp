#include "compared_benchmarks.h"

#include <benchmark/benchmark.h>

#include <cstdio>

#include "report.h"
#include "times_reporter.h"

namespace wendrill::bench {

int RunAndWrite(int count, char** words, const std::vector<Comparison>& rows) {
  benchmark::Initialize(&count, words);
  if (count > 2) {
    std::fprintf(stderr, "usage: %s [--benchmark_...] [ROWS.json]\n", words[0]);
    return 2;
  }
  TimesReporter times;
  benchmark::RunSpecifiedBenchmarks(&times);
  if (count < 2) {
    return 0;
  }
  constexpr double kMilliseconds = 1e3;
  std::vector<Row> written;
  for (const Comparison& row : rows) {
    const Costs costs = {times.SecondsOf(row.ours) * kMilliseconds, times.SecondsOf(row.reference) * kMilliseconds};
    if (costs.ours == 0 || costs.reference == 0) {
      std::fprintf(stderr, "%s: %s or %s was not measured\n", words[0], row.ours.c_str(), row.reference.c_str());
      return 1;
    }
    written.push_back({row.what, row.beside, costs, row.atMost, "ms"});
  }
  if (!WriteRows(written, words[1])) {
    std::fprintf(stderr, "%s: %s cannot be written\n", words[0], words[1]);
    return 1;
  }
  return 0;
}

}  // namespace wendrill::bench
