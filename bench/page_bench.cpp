// Measures collecting a paged response: SendCommandCollectPages over the simulated terminal, for responses of 100 and
// of 1,000 pages of 24 rows. The CPU time should be linear in the number of pages. With a file name as its argument,
// the program writes a row of script/bench's table to that file.
#include <benchmark/benchmark.h>

#include <string>

#include "common/text.h"
#include "compared_benchmarks.h"
#include "core/world.h"
#include "session/quillet.h"

namespace wendrill::bench {
namespace {

constexpr int kRowsPerPage = 24;

// A page of 24 rows. The last row is the marker of a further page; in the last page it is an ordinary row.
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
BENCHMARK(CollectPages)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace wendrill::bench

int main(int count, char** words) {
  return wendrill::bench::RunAndWrite(count, words,
                                      {{"SendCommandCollectPages, 1,000 pages", "the same call, 100 pages",
                                        "CollectPages/1000", "CollectPages/100", 20}});
}
