// What a paged response costs: SendCommandGetAll over the simulated terminal, on responses of 100 and of 1,000 pages of
// 24 rows. Ten times the pages should cost ten times the time: the line after the figures gives the ratio, of the
// processor's time.
#include <benchmark/benchmark.h>

#include <cstdio>
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
    const std::u16string text = quillet.SendCommandGetAll(u"AN");
    if (text.size() < static_cast<std::size_t>(pages) * (kRowsPerPage - 1) * kRowWidth) {
      run.SkipWithError("the response is not whole");
    }
    world.ClearJournal();
  }
  run.SetItemsProcessed(run.iterations() * pages);
}
BENCHMARK(CollectPages)->Arg(kFewPages)->Arg(kManyPages)->Unit(benchmark::kMillisecond);

// Prints the figures as they come and keeps them for the ratio.
class RatioReporter final : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      milliseconds_[run.benchmark_name()] = run.GetAdjustedCPUTime();
    }
  }

  void PrintRatio() const {
    const auto few = milliseconds_.find("CollectPages/" + std::to_string(kFewPages));
    const auto many = milliseconds_.find("CollectPages/" + std::to_string(kManyPages));
    if (few != milliseconds_.end() && many != milliseconds_.end()) {
      std::printf("\n%d pages %.3f ms, %d pages %.3f ms: ratio %.1f\n", kFewPages, few->second, kManyPages,
                  many->second, many->second / few->second);
    }
  }

 private:
  std::map<std::string, double> milliseconds_;
};

}  // namespace
}  // namespace wendrill::bench

int main(int count, char** words) {
  benchmark::Initialize(&count, words);
  if (benchmark::ReportUnrecognizedArguments(count, words)) {
    return 1;
  }
  wendrill::bench::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  reporter.PrintRatio();
  return 0;
}
