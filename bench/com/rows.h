// What is measured, a group of rows each. Each group leaves no object behind.
#pragma once

#include <vector>

#include "report.h"

namespace wendrill::com::bench {

// Loading the DLL, in processes of its own.
std::vector<Row> LoadRows(const Stopwatch& stopwatch);

// Late binding alone: a call that does nothing, and looking a name up.
std::vector<Row> DispatchRows(const Stopwatch& stopwatch);

// Sending an entry, beside the calls into the toolkit that sending it takes.
std::vector<Row> SessionRows(const Stopwatch& stopwatch);

// Reading the elements of a PNR, beside the reads that this takes.
std::vector<Row> PnrRows(const Stopwatch& stopwatch);

// Making an object of each class and letting it go.
std::vector<Row> LifeRows(const Stopwatch& stopwatch);

}  // namespace wendrill::com::bench
