// What a paged response costs: SendCommandCollectPages over the simulated terminal, on responses of 100 and of 1,000
// pages of 24 rows. Ten times the pages should cost ten times the processor's time. With a file as its argument the
// program writes a row of script/bench's table to it.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>
#include <map>
#include <string>

#include "common/text.h"
#include "core/world.h"
#include "session/quillet.h"

namespace wendrill::bench {
namespace {

constexpr int kRowsPerPage = 24;
constexpr int kFewPages = 100;
constexpr int kManyPages = 1000;

// A page of 23 rows and the mark that a further one follows; the last page carries an ordinary row in the mark's place.
std::string Page(int number, bool isLast) {
  std::string page = "'''\n";
  for (int row = 1; row < kRowsPerPage; ++row) {
    page += "PAGE " + std::to_string(number) + " ROW " + std::to_string(row) + "\n";
  }
  return page + (isLast ? "END" : "MORE     ") + "\n''',\n";
}

std::u16string Scenario(int pages) {
  std::string toml = "[[session]]\nname = 'A'\n[[reply]]\nentry = 'AN'\ntype = 23\npages = [\n";
  for (int number = 1; number <= pages; ++number) {
    toml += Page(number, number == pages);
  }
  return FromUtf8(toml + "]\n");
}

void CollectPages(benchmark::State& run) {
  const auto pages = static_cast<int>(run.range(0));
  simulator::World world;
  world.LoadText(Scenario(pages));
  ModuleState module(world.Ports(), world.Time(), world.Pump(), world.Texts());
  CQuillet quillet(module);
  for (auto _ : run) {
    TextArray single;
    const std::u16string text = quillet.SendCommandCollectPages(u"AN", single);
    if (text.size() < static_cast<std::size_t>(pages) * (kRowsPerPage - 1) * kRowWidth) {
      run.SkipWithError("the response is not whole");
    }
    world.ClearJournal();
  }
  run.SetItemsProcessed(run.iterations() * pages);
}
BENCHMARK(CollectPages)->Arg(kFewPages)->Arg(kManyPages)->Unit(benchmark::kMillisecond);

// Prints the figures as they come and keeps them for the row.
class RowReporter final : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      milliseconds_[run.benchmark_name()] = run.GetAdjustedCPUTime();
    }
  }

  // The row of bench/table.py.
  void WriteRow(const char* file) const {
    std::ofstream(file)
        << R"([{"what": "SendCommandCollectPages, 1,000 pages", "beside": "the same call, 100 pages", "unit": "ms",)"
        << R"( "ours": )" << TimeOf(kManyPages) << R"(, "reference": )" << TimeOf(kFewPages) << R"(, "at_most": 20}])"
        << "\n";
  }

 private:
  double TimeOf(int pages) const { return milliseconds_.at("CollectPages/" + std::to_string(pages)); }

  std::map<std::string, double> milliseconds_;
};

}  // namespace
}  // namespace wendrill::bench

int main(int count, char** words) {
  benchmark::Initialize(&count, words);
  const char* const rows = count == 2 ? words[1] : nullptr;
  if (count > 2) {
    std::puts("usage: page_bench [--benchmark_...] [ROWS.json]");
    return 1;
  }
  wendrill::bench::RowReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  if (rows != nullptr) {
    reporter.WriteRow(rows);
  }
  return 0;
}
