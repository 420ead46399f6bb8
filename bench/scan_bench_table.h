// The figures of one run side by side.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace wendrill::bench {

// Prints each run as it comes and keeps its time for the table.
class TableReporter final : public benchmark::ConsoleReporter {
 public:
  TableReporter() : ConsoleReporter(OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override;

  // Rows per second of every scan, beside the bare search for line ends and the slow reference over the same text, and
  // how the time grew from 1,000 rows to 10,000. A figure that was not measured is a dash.
  void PrintTable() const;

 private:
  void PrintLine(const std::string& scan) const;
  double SecondsOf(const std::string& benchmark) const;  // 0 when it was not measured

  std::map<std::string, double> seconds_;  // of the processor, for one iteration; by the benchmark's name
};

// "scan", "KIND/no_element" and 1000: "scan/KIND/no_element/1000".
std::string NameOf(const std::string& what, const std::string& display, int rows);

}  // namespace wendrill::bench
