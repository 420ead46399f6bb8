// How fast the display scanners are. For every kind, on displays of 100, 1,000 and 10,000 rows, with no element of the
// kind and with one in every fourth row:
//
//   scan        the scanner on a display that has been read, the arrays filled; where the scan itself reads (other
//               service, split party, surface) with that reading
//   property    the count property as a caller has it, the copy that the toolkit returns included
//   line_ends   a bare search for the line ends of the same text, with the standard library
//   reference   the slow, obvious scanner of the tests
//
// The table after the single figures sets them side by side.
#include <benchmark/benchmark.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "scan/scanners.h"
#include "scan_bench_displays.h"
#include "scan_bench_table.h"
#include "support/reference_scanners.h"
#include "support/scan_comparison.h"

namespace wendrill::bench {
namespace {

using testing::FakeDesk;
using testing::ReadDisplay;
using testing::ReferenceScan;

constexpr std::array kRows = {100, 1000, 10000};
constexpr double kSecondsOfEach = 0.1;

// A kind's scanner, on the text or, where it reads by itself, on the PNR; and its reference.
struct Scanner {
  testing::NamedKind kind;
  std::span<const ArrayKey> keys;
  ScanCount (*onText)(TextView, ElementArrays&) = nullptr;
  ScanCount (*onPnr)(const ModuleState&, ElementArrays&) = nullptr;
  ReferenceScan (*reference)(const ReadDisplay&) = nullptr;
};

const std::array<Scanner, kScannedKinds>& Scanners() {
  using testing::kNamedKinds;
  static const std::array<Scanner, kScannedKinds> scanners = {{
      {.kind = kNamedKinds[0],
       .keys = kSpecialServiceKeys,
       .onText = ScanSpecialServiceElements,
       .reference = testing::ReferenceSpecialService},
      {.kind = kNamedKinds[1],
       .keys = kOtherServiceKeys,
       .onPnr = ScanOtherServiceElements,
       .reference = testing::ReferenceOtherService},
      {.kind = kNamedKinds[2],
       .keys = kSecurityKeys,
       .onText = ScanSecurityElements,
       .reference = testing::ReferenceSecurity},
      {.kind = kNamedKinds[3],
       .keys = kManualTktKeys,
       .onText = ScanManualTktElements,
       .reference = testing::ReferenceManualTkt},
      {.kind = kNamedKinds[4],
       .keys = kMiscTktInfoKeys,
       .onText = ScanMiscTktInfoElements,
       .reference = testing::ReferenceMiscTktInfo},
      {.kind = kNamedKinds[5], .keys = kSURKeys, .onPnr = ScanSURElements},
      {.kind = kNamedKinds[6], .keys = kSPKeys, .onPnr = ScanSPElements, .reference = testing::ReferenceSP},
      {.kind = kNamedKinds[7], .keys = kATXKeys, .onText = ScanATXSegments, .reference = testing::ReferenceATX},
      {.kind = kNamedKinds[8], .keys = kMCOKeys, .onText = ScanMCOElements, .reference = testing::ReferenceMCO},
  }};
  return scanners;
}

// A desk with a PNR that shows the display.
struct Desk {
  explicit Desk(const std::u16string& display) { fakes.module.gobjPNR = PnrOf(display); }
  FakeDesk fakes;
};

void Scan(benchmark::State& state, const Scanner& scanner, const std::u16string& display) {
  const Desk desk(display);
  ElementArrays arrays(scanner.keys);
  for (auto _ : state) {
    arrays.Reset();
    benchmark::DoNotOptimize(scanner.onText != nullptr ? scanner.onText(display, arrays)
                                                       : scanner.onPnr(desk.fakes.module, arrays));
  }
}

void Property(benchmark::State& state, const Scanner& scanner, const std::u16string& display) {
  Desk desk(display);
  DisplayScans scans(desk.fakes.module);
  for (auto _ : state) {
    benchmark::DoNotOptimize(scans.Count(scanner.kind.kind));
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

void Reference(benchmark::State& state, const Scanner& scanner, const std::u16string& display) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(scanner.reference([&] { return display; }).count);
  }
}

template <typename Measure>
void Register(const std::string& name, int rows, Measure measure) {
  benchmark::RegisterBenchmark(name.c_str(), [measure, rows](benchmark::State& state) {
    measure(state);
    state.SetItemsProcessed(state.iterations() * rows);
  })->MinTime(kSecondsOfEach);
}

void RegisterDisplay(const Scanner& scanner, Hits hits, int rows) {
  const std::string name = std::string(scanner.kind.name) + (hits == Hits::None ? "/no_element" : "/every_fourth");
  const auto display = std::make_shared<const std::u16string>(DisplayOf(scanner.kind.kind, hits, rows));
  const Scanner* which = &scanner;
  Register(NameOf("line_ends", name, rows), rows, [=](auto& state) { LineEnds(state, *display); });
  Register(NameOf("scan", name, rows), rows, [=](auto& state) { Scan(state, *which, *display); });
  Register(NameOf("property", name, rows), rows, [=](auto& state) { Property(state, *which, *display); });
  if (scanner.reference != nullptr) {
    Register(NameOf("reference", name, rows), rows, [=](auto& state) { Reference(state, *which, *display); });
  }
}

void RegisterAll() {
  for (const Scanner& scanner : Scanners()) {
    for (const Hits hits : {Hits::None, Hits::EveryFourth}) {
      for (const int rows : kRows) {
        RegisterDisplay(scanner, hits, rows);
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
  wendrill::bench::TableReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  reporter.PrintTable();
  benchmark::Shutdown();
  return 0;
}
