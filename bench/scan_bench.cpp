// Measures the speed of the display scanners. Each kind is measured on displays of 100, 1,000 and 10,000 rows, once
// without an element of the kind and once with an element in every fourth row:
//
//   scan        the scanner on a display that has already been read, including filling the arrays; for kinds whose
//               scan reads the display itself (other service, split party, surface), including that reading
//   property    the count property as a caller reads it, including the copy of the display that the toolkit returns
//   line_ends   a search for the line ends of the same display, with the standard library
//   reference   the slow, obvious scanner of the tests
//
// After the single results, the program prints a table that compares them.
#include <benchmark/benchmark.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "scan/display_kinds.h"
#include "scan/display_scans.h"
#include "scan_bench_displays.h"
#include "scan_bench_table.h"
#include "support/kind_references.h"
#include "support/test_world.h"

namespace wendrill::bench {
namespace {

using testing::TestWorld;

constexpr std::array kRows = {100, 1000, 10000};
constexpr double kSecondsOfEach = 0.1;

// The simulated desktop with a PNR on display that has the text `display`.
struct Desk {
  explicit Desk(const std::u16string& display) { fakes.module.gobjPNR = PnrOf(display); }
  TestWorld fakes;
};

void Scan(benchmark::State& state, const DisplayKind& kind, const std::u16string& display) {
  const Desk desk(display);
  ElementArrays arrays(kind.keys);
  // Reading the display is measured only for kinds whose scan reads the display for each line.
  const bool readsAgain = std::holds_alternative<ScanAgain>(kind.scan);
  for (auto _ : state) {
    arrays.Reset();
    DisplayReader reader = readsAgain ? DisplayReader(desk.fakes.module) : DisplayReader(TextView(display));
    benchmark::DoNotOptimize(RunScan(kind, reader, desk.fakes.module, arrays));
  }
}

void Property(benchmark::State& state, const DisplayKind& kind, const std::u16string& display) {
  Desk desk(display);
  DisplayScans scans(desk.fakes.module);
  for (auto _ : state) {
    benchmark::DoNotOptimize(scans.Count(kind));
  }
}

void LineEnds(benchmark::State& state, const std::u16string& display) {
  for (auto _ : state) {
    std::size_t lines = 0;
    for (std::size_t at = display.find(u'\n'); at != std::u16string::npos; at = display.find(u'\n', at + 1)) {
      ++lines;
    }
    benchmark::DoNotOptimize(lines);
  }
}

void Reference(benchmark::State& state, const DisplayKind& kind, const std::u16string& display) {
  const auto scan = testing::ReferenceOf(kind).scan;
  for (auto _ : state) {
    benchmark::DoNotOptimize(scan([&] { return display; }).count);
  }
}

template <typename Measure>
void Register(const std::string& name, int rows, Measure measure) {
  benchmark::RegisterBenchmark(name.c_str(), [measure, rows](benchmark::State& state) {
    measure(state);
    state.SetItemsProcessed(state.iterations() * rows);
  })->MinTime(kSecondsOfEach);
}

void RegisterDisplay(const DisplayKind& kind, Hits hits, int rows) {
  const std::string name = std::string(kind.Name()) + (hits == Hits::None ? "/no_element" : "/every_fourth");
  const auto display = std::make_shared<const std::u16string>(DisplayOf(kind, hits, rows));
  Register(NameOf("line_ends", name, rows), rows, [=](auto& state) { LineEnds(state, *display); });
  Register(NameOf("scan", name, rows), rows, [=, &kind](auto& state) { Scan(state, kind, *display); });
  Register(NameOf("property", name, rows), rows, [=, &kind](auto& state) { Property(state, kind, *display); });
  Register(NameOf("reference", name, rows), rows, [=, &kind](auto& state) { Reference(state, kind, *display); });
}

void RegisterAll() {
  for (const DisplayKind* kind : kDisplayKinds) {
    for (const Hits hits : {Hits::None, Hits::EveryFourth}) {
      for (const int rows : kRows) {
        RegisterDisplay(*kind, hits, rows);
      }
    }
  }
}

}  // namespace
}  // namespace wendrill::bench

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 1;
  }
  wendrill::bench::RegisterAll();
  wendrill::bench::TimesReporter times;
  benchmark::RunSpecifiedBenchmarks(&times);
  wendrill::bench::PrintTable(times);
  benchmark::Shutdown();
  return 0;
}
