// Benchmarks of which one is compared with another one, for the table that script/bench prints.
#pragma once

#include <string>
#include <vector>

namespace wendrill::bench {

// One row of the table.
struct Comparison {
  std::string what;
  std::string beside;
  std::string ours;       // the name of the benchmark, with its arguments
  std::string reference;  // the name of the benchmark that it is compared with
  double atMost = 0;      // the limit of ours / reference
};

// Runs the registered benchmarks. `words` are the words of the command line: those of Google Benchmark, and perhaps the
// file into which the rows are written. Returns the exit status: 0, 1 when a benchmark of a row failed or the file
// cannot be written, and 2 for a wrong command line.
int RunAndWrite(int count, char** words, const std::vector<Comparison>& rows);

}  // namespace wendrill::bench
