// Prints the results of scan_bench as a table.
#pragma once

#include <string>

#include "times_reporter.h"

namespace wendrill::bench {

// Prints a line for each scan: its rows per second, those of the count property and of the search for line ends in the
// same display, its time relative to that search and to the reference, and the ratio of its times for 10,000 and 1,000
// rows. A figure that was not measured is a dash.
void PrintTable(const TimesReporter& times);

// The name of a benchmark: "scan/KIND/no_element/1000" for "scan", "KIND/no_element" and 1000.
std::string NameOf(const std::string& what, const std::string& display, int rows);

}  // namespace wendrill::bench
