// Measures the cost of late binding, of calls into the toolkit, and of creating and releasing objects. Each time is
// compared with that of a well-known reference: Scripting.Dictionary, or the same toolkit calls made directly.
//
//   com_bench.exe ROWS.json [ROUNDS]
//
// The time in a row is the lowest of all rounds. There are ROUNDS rounds (default: 80), or 15 at most for long work.
// All rows but that of the first load are measured in three passes: a disturbance of the machine that lasts for seconds
// then affects one pass only.
#include <ole2.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <iterator>

#include "first_load.h"
#include "rows.h"

namespace wendrill::com::bench {
namespace {

constexpr int kRounds = 80;
constexpr int kPasses = 3;

void Append(std::vector<Row>& rows, std::vector<Row> more) {
  rows.insert(rows.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

std::vector<Row> RowsOfOnePass(const Stopwatch& stopwatch) {
  std::vector<Row> rows;
  for (const auto group : {DispatchRows, SessionRows, PnrRows, LifeRows}) {
    Append(rows, group(stopwatch));
  }
  return rows;
}

void KeepLowest(std::vector<Row>& rows, const std::vector<Row>& ofAnotherPass) {
  for (std::size_t row = 0; row < rows.size(); ++row) {
    Costs& costs = rows[row].costs;
    const Costs& others = ofAnotherPass[row].costs;
    costs = {std::min(costs.ours, others.ours), std::min(costs.reference, others.reference)};
  }
}

std::vector<Row> AllRows(const Stopwatch& stopwatch) {
  std::vector<Row> rows = LoadRows(stopwatch);
  std::vector<Row> lowest = RowsOfOnePass(stopwatch);
  for (int pass = 2; pass <= kPasses; ++pass) {
    KeepLowest(lowest, RowsOfOnePass(stopwatch));
  }
  Append(rows, std::move(lowest));
  return rows;
}

int Run(const char* file, int rounds) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const std::vector<Row> rows = AllRows(Stopwatch(rounds));
  CoUninitialize();
  if (!WriteRows(rows, file)) {
    std::fprintf(stderr, "com_bench: %s cannot be written\n", file);
    return 1;
  }
  return 0;
}

}  // namespace
}  // namespace wendrill::com::bench

int main(int count, char** arguments) {
  using namespace wendrill::com::bench;
  if (count == 3 && std::strcmp(arguments[1], "--first-load") == 0) {
    return MeasureFirstLoad(arguments[2]);
  }
  const int rounds = count == 3 ? std::atoi(arguments[2]) : kRounds;
  if (count < 2 || count > 3 || rounds < 1) {
    std::fprintf(stderr, "usage: com_bench.exe ROWS.json [ROUNDS]\n");
    return 2;
  }
  try {
    return Run(arguments[1], rounds);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "com_bench: %s\n", failure.what());
    return 1;
  }
}
