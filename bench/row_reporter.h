// A Google Benchmark reporter that prints each result at once and keeps the times for the rows of script/bench's table.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace wendrill::bench {

// One row of the table: compares the CPU times of two benchmarks.
struct Comparison {
  std::string what;       // the description of the measured benchmark
  std::string beside;     // the description of the reference
  std::string ours;       // the name of the measured benchmark
  std::string reference;  // the name of the reference's benchmark
  int atMost = 0;         // the limit of ours / reference
};

class RowReporter final : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      milliseconds_[run.benchmark_name()] = run.GetAdjustedCPUTime();
    }
  }

  // Writes the rows as JSON to `file`. REQUIRES: all benchmarks that the rows name have run, with milliseconds as unit.
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

// Runs the benchmarks and returns the exit status. `words` is the command line. Google Benchmark removes its own
// options from it; the one argument that may be left names the file to which the rows are written. Returns 2 when more
// arguments are left.
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
