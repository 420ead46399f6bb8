// Every pair of files under data/MEMBER/ is a test: an element (.txt) and the bag that the member makes of it (.bag).
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <set>

#include "pnr/pnr.h"
#include "pnr/records.h"
#include "unit/pnr/element_file.h"
#include "unit/pnr/members.h"

namespace wendrill::testing {
namespace {

namespace fs = std::filesystem;

struct Pair {
  std::string member;
  fs::path stem;
};

std::ostream& operator<<(std::ostream& out, const Pair& pair) {
  return out << pair.member << "/" << pair.stem.filename().string();
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

class ElementFiles : public ::testing::TestWithParam<Pair> {};

TEST_P(ElementFiles, GiveTheExpectedBag) {
  const auto* member = MemberNamed(GetParam().member);
  ASSERT_NE(member, nullptr) << "no member " << GetParam().member;
  const auto file = ReadElementFile(fs::path(GetParam().stem) += ".txt");
  const PnrDesk desk;
  desk.HoldNothing();
  desk.Display(file.display);
  member->hold(desk, {ObjectOf(desk, file)});
  const auto bag = desk.Bag(file.index);
  const auto error = ErrorOf([&] { member->call(desk.module, bag); });
  const auto settings = bag->SettingsText() + (error ? "error " + std::to_string(error->Number()) + "\n" : "");
  EXPECT_EQ(settings, ReadExpectedBag(fs::path(GetParam().stem) += ".bag"));
}

INSTANTIATE_TEST_SUITE_P(Data, ElementFiles, ::testing::ValuesIn(AllPairs()), [](const auto& test) {
  return test.param.member + "_" + test.param.stem.filename().string();
});

TEST(ElementFilesOfEveryMember, AreThere) {
  for (const auto& member : Members()) {
    EXPECT_TRUE(fs::is_directory(fs::path(TEST_DATA) / member.name)) << member.name;
  }
}

}  // namespace
}  // namespace wendrill::testing
