// The measurements of com_bench, in groups of rows. Each group releases all objects that it creates.
#pragma once

#include <vector>

#include "measure.h"
#include "report.h"

namespace wendrill::com::bench {

using wendrill::bench::Row;

// Measures loading the library's DLL, each time in a new process.
std::vector<Row> LoadRows(const Stopwatch& stopwatch);

// Measures late binding: a call of a member that does almost nothing, and the look-up of a name.
std::vector<Row> DispatchRows(const Stopwatch& stopwatch);

// Measures sending an entry. The reference makes the toolkit calls that sending the entry requires.
std::vector<Row> SessionRows(const Stopwatch& stopwatch);

// Measures reading the elements of a PNR. The reference makes the toolkit calls that reading them requires.
std::vector<Row> PnrRows(const Stopwatch& stopwatch);

// Measures creating and releasing an object of each class.
std::vector<Row> LifeRows(const Stopwatch& stopwatch);

}  // namespace wendrill::com::bench
