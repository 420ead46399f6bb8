// Prints the results of scan_bench as a table.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace wendrill::bench {

// A Google Benchmark reporter that prints each result at once and keeps its time for the table.
class TableReporter final : public benchmark::ConsoleReporter {
 public:
  TableReporter() : ConsoleReporter(OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override;

  // Prints a line for each scan: its rows per second, those of the count property and of the search for line ends in
  // the same display, its time relative to that search and to the reference, and the ratio of its times for 10,000 and
  // 1,000 rows. A figure that was not measured is a dash.
  void PrintTable() const;

 private:
  void PrintLine(const std::string& scan) const;
  double SecondsOf(const std::string& benchmark) const;  // 0 when the benchmark was not measured

  std::map<std::string, double> seconds_;  // the CPU time of one iteration, by the benchmark's name
};

// The name of a benchmark: "scan/KIND/no_element/1000" for "scan", "KIND/no_element" and 1000.
std::string NameOf(const std::string& what, const std::string& display, int rows);

}  // namespace wendrill::bench
