// Measures how fast special service requests are read from a PNR's display. The display is in a file of the scanner's
// tests; bench/textfsm/textfsm_bench.py measures a template parser on the same display.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

#include "common/text.h"
#include "scan/display_kinds.h"

namespace wendrill::bench {
namespace {

constexpr int kCopies = 50;
constexpr int kRequests = 11;  // the number of requests in one copy of the display

// The display in the file, kCopies times. The first line of the file is not part of the display: it declares that the
// lines of the display end in CR LF.
std::u16string Display() {
  std::ifstream file(std::filesystem::path(DISPLAYS) / kSpecialServiceElements.Name() / "pnr_of_a_family.txt");
  std::string line;
  std::getline(file, line);
  std::u16string once;
  while (std::getline(file, line)) {
    once += FromUtf8(line) + u"\r\n";
  }
  std::u16string display;
  for (int copy = 0; copy < kCopies; ++copy) {
    display += once;
  }
  return display;
}

void SpecialServices(benchmark::State& state) {
  const std::u16string display = Display();
  ElementArrays arrays(kSpecialServiceElements.keys);
  const auto scan = std::get<ScanText>(kSpecialServiceElements.scan);
  for (auto _ : state) {
    arrays.Reset();
    if (scan(display, arrays) != kCopies * kRequests) {
      state.SkipWithError("not every request was found");
    }
  }
  state.SetItemsProcessed(state.iterations() * std::ranges::count(display, u'\n'));
}
BENCHMARK(SpecialServices);

}  // namespace
}  // namespace wendrill::bench

BENCHMARK_MAIN();
