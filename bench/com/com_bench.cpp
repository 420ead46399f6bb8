// What late binding, the road into the toolkit and an object's life cost, each beside what a user knows: the system's
// scripting dictionary, or the same toolkit calls made by hand.
//
//   com_bench.exe ROWS.json [ROUNDS]
//
// The lowest time of so many rounds counts; 200 unless told.
#include <ole2.h>
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iterator>

#include "rows.h"

namespace wendrill::com::bench {
namespace {

constexpr int kRounds = 200;

std::vector<Row> AllRows(const Stopwatch& stopwatch) {
  std::vector<Row> rows;
  for (const auto group : {LoadRows, DispatchRows, SessionRows, PnrRows, LifeRows}) {
    std::vector<Row> more = group(stopwatch);
    rows.insert(rows.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
  }
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
