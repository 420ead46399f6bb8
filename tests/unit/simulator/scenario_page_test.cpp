// The page that describes scenarios: what it shows as a scenario is one, and it leaves out no key.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "derive/object_model.h"
#include "simulated_world.h"

namespace wendrill::simulator {
namespace {

std::string Page() {
  const auto path = std::filesystem::path(TEST_DATA) / ".." / ".." / "docs" / "scenario.md";
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> TomlBlocks(const std::string& page) {
  constexpr std::string_view kOpening = "```toml\n";
  constexpr std::string_view kClosing = "\n```";
  std::vector<std::string> blocks;
  for (std::size_t begin = page.find(kOpening); begin != std::string::npos; begin = page.find(kOpening, begin)) {
    begin += kOpening.size();
    blocks.push_back(page.substr(begin, page.find(kClosing, begin) - begin));
  }
  return blocks;
}

bool Names(const std::string& page, std::u16string_view key) {
  return page.find("`" + ToUtf8(key) + "`") != std::string::npos;
}

TEST(ScenarioPage, ShowsScenariosThatAreRead) {
  const auto blocks = TomlBlocks(Page());
  ASSERT_EQ(blocks.size(), 6u);
  EXPECT_EQ(ParseScenario(blocks[0], u"scenario.md")->replies.size(), 1u);
  const auto paged = ParseScenario(blocks[2], u"scenario.md");
  ASSERT_EQ(paged->replies.size(), 1u);
  EXPECT_EQ(paged->replies[0].answers.at(0)->pages.size(), 2u);
  EXPECT_EQ(ParseScenario(blocks[3], u"scenario.md")->replies.at(0).answers.size(), 3u);
  EXPECT_TRUE(ParseScenario(blocks[5], u"scenario.md")->strict);
}

TEST(ScenarioPage, PromisesOfItsFirstScenariosWhatTheyDo) {
  const auto first = ParseScenario(TomlBlocks(Page()).at(0), u"scenario.md");
  EXPECT_EQ(first->replies.at(0).answers.at(0)->pages.at(0).rows.size(), 2u);
  const auto scenario = ParseScenario(TomlBlocks(Page()).at(1), u"scenario.md");
  EXPECT_NE(scenario->PnrOf(u"RTABC123"), nullptr);
  EXPECT_EQ(scenario->pnrs.at(0).collections.at(2).size(), 1u);
  EXPECT_EQ(scenario->pnrs.at(0).collections.at(7).size(), 1u);
  EXPECT_EQ(scenario->pnrs.at(0).collections.at(65).size(), 1u);
  EXPECT_TRUE(scenario->warnings.empty());
}

TEST(ScenarioPage, ChangesItsPnrByAState) {
  World world;
  world.LoadText(FromUtf8(TomlBlocks(Page()).at(4)), u"scenario.md");
  const auto session = world.MakeSession();
  const auto shown = [&] { return session->Send(u"RTABC123", true)->Buffer().size(); };
  EXPECT_EQ(shown(), 80u);
  session->Send(u"RMPAY AT AIRPORT;ER", true);
  EXPECT_EQ(shown(), 160u);
  EXPECT_EQ(world.Report(), u"");
}

TEST(ScenarioPage, NamesEveryCollectionAndEveryProperty) {
  const std::string page = Page();
  for (const Collection& collection : kCollections) {
    EXPECT_TRUE(Names(page, collection.name)) << ToUtf8(collection.name);
    EXPECT_NE(page.find(std::to_string(collection.id)), std::string::npos) << collection.id;
    for (const Property& property : collection.elementType.properties) {
      EXPECT_TRUE(Names(page, property.name)) << ToUtf8(property.name);
    }
  }
}

// The refusal of an unknown key lists the keys of its table.
TEST(ScenarioPage, NamesEveryKey) {
  constexpr std::string_view kList = "known keys are ";
  const std::string page = Page();
  for (const char* unknownKey :
       {"nonsense = 1", "[terminal]\nnonsense = 1", "[alarm]\nnonsense = 1", "[[session]]\nname = 'A'\nnonsense = 1",
        "[[reply]]\nnonsense = 1", "[unknown]\nnonsense = 1", "[[pnr]]\nnonsense = 1",
        "[[pnr]]\n[pnr.Header]\nnonsense = 1", "[[pnr]]\ndisplay = 'RP/'\n[[pnr.change]]\nnonsense = 1",
        "[derive]\nnonsense = 1", "[strict]\nnonsense = 1"}) {
    const std::string refusal = Refusal(5, [&] { ParseScenario(unknownKey, u"test.toml"); });
    const std::size_t list = refusal.find(kList);
    ASSERT_NE(list, std::string::npos) << refusal;
    const std::u16string known = FromUtf8(std::string_view(refusal).substr(list + kList.size()));
    for (std::int32_t n = 1; !FieldOf(known, n, u", ").empty(); ++n) {
      const std::u16string key(FieldOf(known, n, u", "));
      EXPECT_TRUE(Names(page, key) || Names(page, u"[" + key + u"]") || Names(page, u"[[" + key + u"]]"))
          << ToUtf8(key);
    }
  }
}

}  // namespace
}  // namespace wendrill::simulator
