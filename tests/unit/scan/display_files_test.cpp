// Every pair of files under displays/KIND/ is a test: a display (.txt) and the records that the kind's scanner makes of
// it (.records). The slow reference must make the same of it.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <set>

#include "unit/scan/display_file.h"
#include "unit/scan/scan_desk.h"

namespace wendrill::testing {
namespace {

namespace fs = std::filesystem;

struct Pair {
  std::string kind;
  fs::path stem;
};

std::ostream& operator<<(std::ostream& out, const Pair& pair) {
  return out << pair.kind << "/" << pair.stem.filename().string();
}

std::vector<Pair> AllPairs() {
  std::vector<Pair> pairs;
  std::set<fs::path> seen;
  for (const auto& entry : fs::recursive_directory_iterator(TEST_DATA)) {
    const fs::path stem = entry.path().parent_path() / entry.path().stem();
    if (entry.is_regular_file() && seen.insert(stem).second) {
      pairs.push_back({stem.parent_path().filename().string(), stem});
    }
  }
  std::ranges::sort(pairs, {}, &Pair::stem);
  return pairs;
}

class DisplayFiles : public ::testing::TestWithParam<Pair> {};

TEST_P(DisplayFiles, GiveTheExpectedRecords) {
  const DisplayKind* kind = KindWith(&DisplayKind::Name, GetParam().kind);
  ASSERT_NE(kind, nullptr) << "no kind " << GetParam().kind;
  const std::u16string display = ReadDisplay(fs::path(GetParam().stem) += ".txt");
  ScanDesk desk;
  const std::int16_t count = desk.Count(*kind, display);
  EXPECT_EQ(RecordsText(count, desk.scans.Arrays(*kind)), ReadExpectedRecords(fs::path(GetParam().stem) += ".records"));
  EXPECT_EQ(ScanComparison().Run(*kind, {display}).difference, "");
}

INSTANTIATE_TEST_SUITE_P(Data, DisplayFiles, ::testing::ValuesIn(AllPairs()),
                         [](const auto& test) { return test.param.kind + "_" + test.param.stem.filename().string(); });

TEST(DisplayFilesOfEveryKind, AreAtLeastFive) {
  const auto pairs = AllPairs();
  for (const DisplayKind* kind : kDisplayKinds) {
    const auto files = std::ranges::count(pairs, kind->Name(), &Pair::kind);
    EXPECT_GE(files, 5) << kind->Name();
  }
}

}  // namespace
}  // namespace wendrill::testing
