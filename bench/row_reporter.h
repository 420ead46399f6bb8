// Prints the figures of a benchmark as they come and keeps them for the rows of script/bench's table.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace wendrill::bench {

// One row: the processor's time of a benchmark beside that of another one, both by name, and how many times as long it
// may take.
struct Comparison {
  std::string what;
  std::string beside;
  std::string ours;
  std::string reference;
  int atMost = 0;
};

class RowReporter final : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      milliseconds_[run.benchmark_name()] = run.GetAdjustedCPUTime();
    }
  }

  // The benchmarks of the rows have run, in milliseconds.
  void Write(const std::vector<Comparison>& rows, const char* file) const {
    std::ofstream stream(file);
    for (const Comparison& row : rows) {
      stream << (&row == &rows.front() ? "[" : ",\n ") << R"({"what": ")" << row.what << R"(", "beside": ")"
             << row.beside << R"(", "unit": "ms", "ours": )" << milliseconds_.at(row.ours) << R"(, "reference": )"
             << milliseconds_.at(row.reference) << R"(, "at_most": )" << row.atMost << "}";
    }
    stream << "]\n";
  }

 private:
  std::map<std::string, double> milliseconds_;
};

// Runs the benchmarks as the words of the command line say. Google Benchmark takes its own words; one that is left
// names the file for the rows. Returns the exit status.
inline int RunAndWrite(int count, char** words, const std::vector<Comparison>& rows) {
  benchmark::Initialize(&count, words);
  if (count > 2) {
    std::fprintf(stderr, "usage: %s [--benchmark_...] [ROWS.json]\n", words[0]);
    return 2;
  }
  RowReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  if (count == 2) {
    reporter.Write(rows, words[1]);
  }
  return 0;
}

}  // namespace wendrill::bench
