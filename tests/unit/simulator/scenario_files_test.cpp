// The scenario files that come with the simulator: each is read, and answers what it says it does.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "core/built_in_text.h"
#include "simulated_world.h"
#include "support/us_text.h"

namespace wendrill::simulator {
namespace {

using ::testing::UnorderedElementsAre;

std::filesystem::path FileOf(const std::string& name) {
  return std::filesystem::path(TEST_DATA) / (name + ".toml");
}

std::shared_ptr<const Scenario> Read(const std::string& name) {
  return ReadScenarioFile(FileOf(name).u16string());
}

std::set<std::string> FileNames() {
  std::set<std::string> names;
  for (const auto& file : std::filesystem::directory_iterator(TEST_DATA)) {
    names.insert(file.path().stem().string());
  }
  return names;
}

std::u16string WithoutBlanks(std::u16string_view text) {
  return Replaced(text, u" ", u"");
}

std::u16string TextOf(const ScenarioObject& element) {
  return testing::ToUsText(std::get<Value>(element.contents.at(0)));
}

std::size_t CountOf(const ScenarioPnr& pnr, std::int32_t id) {
  const auto found = pnr.collections.find(id);
  return found == pnr.collections.end() ? 0 : found->second.size();
}

Value HeaderProperty(const ScenarioPnr& pnr, std::u16string_view name) {
  for (std::size_t place = 0; place < std::size(kHeaderProperties); ++place) {
    if (kHeaderProperties[place].name == name) {
      return std::get<Value>(pnr.header->contents.at(place));
    }
  }
  return {};
}

TEST(ScenarioFiles, EveryFileHasATestHere) {
  EXPECT_THAT(FileNames(), UnorderedElementsAre("built_in", "empty_desktop", "faults", "group_pnr", "old_terminal",
                                                "paged_availability", "queue_worked_through", "rich_pnr"));
}

class EveryScenarioFile : public ::testing::TestWithParam<std::string> {};

TEST_P(EveryScenarioFile, ShowsInItsDisplaysWhatItsCollectionsHold) {
  const auto scenario = Read(GetParam());
  for (const ScenarioPnr& pnr : scenario->pnrs) {
    const std::u16string display = WithoutBlanks(pnr.display);
    for (const auto& [id, elements] : pnr.collections) {
      for (const auto& element : elements) {
        const std::u16string text = TextOf(*element);
        EXPECT_TRUE(Contains(display, WithoutBlanks(text))) << ToUtf8(text) << " of collection " << id;
      }
    }
  }
}

TEST_P(EveryScenarioFile, StartsEachElementsTextWithItsNumber) {
  const auto scenario = Read(GetParam());
  for (const ScenarioPnr& pnr : scenario->pnrs) {
    for (const auto& [id, elements] : pnr.collections) {
      for (const auto& element : elements) {
        const std::u16string number = testing::ToUsText(std::get<Value>(element->contents.at(1)));
        EXPECT_FALSE(number.empty());
        EXPECT_TRUE(StartsWith(TextOf(*element), number)) << ToUtf8(TextOf(*element)) << " of collection " << id;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(ScenarioFiles, EveryScenarioFile, ::testing::ValuesIn(FileNames()),
                         [](const auto& file) { return file.param; });

TEST(BuiltInScenarioFile, IsWhatTheProgramHoldsCompiledIn) {
  std::ifstream stream(FileOf("built_in"), std::ios::binary);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}), kBuiltInText);
}

TEST(BuiltInScenarioFile, HasTwoSessionsAndOnePnrThatIsOnDisplayAndFoundByItsLocator) {
  const auto scenario = BuiltInScenario();
  EXPECT_EQ(scenario->sessions, (std::vector<std::u16string>{u"A", u"B"}));
  ASSERT_NE(scenario->PnrOnDisplay(), nullptr);
  EXPECT_EQ(scenario->PnrOnDisplay()->recordLocator, u"ABC123");
  EXPECT_EQ(scenario->PnrOf(u"RTABC123"), scenario->PnrOnDisplay());
  EXPECT_EQ(scenario->PnrOf(u"SP2"), scenario->PnrOnDisplay());
}

TEST(BuiltInScenarioFile, HasAPnrWorthCounting) {
  const auto scenario = BuiltInScenario();
  const ScenarioPnr& pnr = *scenario->PnrOnDisplay();
  EXPECT_EQ(CountOf(pnr, 2), 2u);   // names
  EXPECT_EQ(CountOf(pnr, 78), 4u);  // air segments: one flown, two timed, one open
  EXPECT_EQ(CountOf(pnr, 7), 2u);
  EXPECT_EQ(CountOf(pnr, 9), 1u);
  EXPECT_EQ(CountOf(pnr, 13), 1u);
  EXPECT_EQ(CountOf(pnr, 14), 1u);  // cars
  EXPECT_EQ(CountOf(pnr, 15), 1u);  // hotels
  EXPECT_EQ(CountOf(pnr, 62), 2u);  // contacts
  EXPECT_EQ(CountOf(pnr, 65), 2u);  // remarks
}

TEST(BuiltInScenarioFile, AnswersAnAvailabilityAndPagesTheOthers) {
  World world;
  world.Load(FileOf("built_in").u16string());
  const auto session = world.MakeSession();
  EXPECT_TRUE(StartsWith(session->Send(u"AN15JUNPARLON", true)->Buffer(), u"** AVAILABILITY ** PARLON"));
  EXPECT_TRUE(Contains(session->Send(u"AN16JUNNCEPAR", true)->Buffer(), u"PAGE  1/ 2"));
  EXPECT_TRUE(Contains(session->Send(u"MD", true)->Buffer(), u"PAGE  2/ 2"));
  session->Send(u"NONSENSE", true);
  EXPECT_EQ(world.Journal(), u"send AN15JUNPARLON\r\nsend AN16JUNNCEPAR\r\nsend MD\r\nsend NONSENSE (unanswered)\r\n");
}

TEST(RichPnrFile, HasADisplayOfMoreThan40Rows) {
  const auto scenario = Read("rich_pnr");
  EXPECT_EQ(scenario->PnrOnDisplay()->display.size(), 58u * 80u);
}

TEST(RichPnrFile, HasElementsInEveryCollection) {
  const auto scenario = Read("rich_pnr");
  const ScenarioPnr& pnr = *scenario->PnrOf(u"RTRCH001");
  for (const Collection& collection : kCollections) {
    EXPECT_GT(CountOf(pnr, collection.id), 0u) << ToUtf8(collection.name);
  }
}

TEST(RichPnrFile, HasEveryKindThatIsReadFromTheDisplay) {
  const auto scenario = Read("rich_pnr");
  const std::u16string& display = scenario->PnrOnDisplay()->display;
  std::set<std::string> kinds;
  DisplayLines lines(display);
  while (!lines.AtEnd()) {
    const std::u16string_view line = lines.Next();
    kinds.insert(ToUtf8(Before(Columns(line, 5, 4), u" ")));
    kinds.insert(ToUtf8(Columns(line, 4, 3)));
    kinds.insert(ToUtf8(Columns(line, 1, 7)));
    EXPECT_FALSE(Contains(line, u"> ")) << "the prompt would end the scans early";
  }
  for (const char* kind : {"SSR", "*SSR", "OSI", "FS", "FV", "FB", "ATX", "SUR/", "MCO", "FHM", "FHE", "  * ES/"}) {
    EXPECT_TRUE(kinds.contains(kind)) << kind;
  }
  EXPECT_TRUE(Contains(display, u"* SP 11JUN"));
}

TEST(RichPnrFile, HasAHeaderWhoseColumnsHoldOfficeAndTime) {
  const auto scenario = Read("rich_pnr");
  const ScenarioPnr& pnr = *scenario->PnrOnDisplay();
  const std::u16string line = testing::ToUsText(HeaderProperty(pnr, u"Line"));
  EXPECT_EQ(Columns(line, 14, 9), u"PARXX0100");
  EXPECT_EQ(Columns(line, 50, 4), u"0930");
  EXPECT_EQ(HeaderProperty(pnr, u"RecordLocator"), Value(u"RCH001"));
  EXPECT_TRUE(Contains(LineOf(pnr.display, 1), u" AXR ---"));
}

TEST(RichPnrFile, HasAConfirmationNumberInItsColumns) {
  const auto scenario = Read("rich_pnr");
  const std::u16string segment = TextOf(*scenario->PnrOnDisplay()->collections.at(7).at(1));
  EXPECT_EQ(Trimmed(Columns(segment, 27, 5)), u"GK3");
  EXPECT_EQ(Columns(segment, 53, 6), u"K7PQ2R");
}

TEST(RichPnrFile, HasAnMisElementThatTheHostWrapped) {
  const auto scenario = Read("rich_pnr");
  const std::u16string text = TextOf(*scenario->PnrOnDisplay()->collections.at(64).at(1));
  EXPECT_EQ(text.size(), 84u);
  EXPECT_EQ(FromColumn(text, 81), u"BOAT");
  EXPECT_EQ(Columns(text, 78, 3), u"   ");
}

TEST(QueueWorkedThroughFile, GetsShorterUntilItIsEmpty) {
  World world;
  world.Load(FileOf("queue_worked_through").u16string());
  const auto session = world.MakeSession();
  const auto sent = [&](std::u16string_view entry) {
    return ToUtf8(TrimmedRight(session->Send(entry, true)->Line(1)));
  };
  EXPECT_EQ(sent(u"QT"), "QUEUE 8C1: 3");
  EXPECT_TRUE(sent(u"QS/8C1").ends_with(" AAA111"));
  EXPECT_EQ(sent(u"RMSEEN"), "RP/PARXX0100");
  EXPECT_TRUE(sent(u"QN").ends_with(" BBB222"));
  EXPECT_EQ(sent(u"QT"), "QUEUE 8C1: 2");
  EXPECT_EQ(sent(u"RMSEEN"), "SIMULTANEOUS CHANGES TO PNR");
  EXPECT_TRUE(sent(u"QN").ends_with(" CCC333"));
  EXPECT_EQ(sent(u"QN"), "QUEUE 8C1 IS EMPTY");
  EXPECT_EQ(sent(u"QT"), "QUEUE 8C1: 0");
  EXPECT_EQ(world.Report(), u"");
}

// A file that serves many scripts must not tell each of them what it did not use.
TEST_P(EveryScenarioFile, LeavesNothingToTellWhenItIsNotUsed) {
  World world;
  world.Load(FileOf(GetParam()).u16string());
  EXPECT_EQ(ToUtf8(world.Report()), "");
}

TEST(GroupPnrFile, HasALineThatTellsTheGroupsSize) {
  const auto scenario = Read("group_pnr");
  const std::u16string_view line = LineOf(scenario->PnrOnDisplay()->display, 3);
  EXPECT_EQ(Columns(line, 5, 2), u"25");
  EXPECT_EQ(Trimmed(FromColumn(line, ColumnOf(line, u"NM:"))), u"NM: 2");
  EXPECT_EQ(CountOf(*scenario->PnrOf(u"RTGRP025"), 2), 2u);
}

TEST(PagedAvailabilityFile, HasADisplayForEachWayToSayThatMoreFollows) {
  struct Row {
    std::u16string_view entry;
    std::u16string_view mark;
    int pages;
  };
  World world;
  world.Load(FileOf("paged_availability").u16string());
  const auto session = world.MakeSession();
  for (const Row& row :
       {Row{u"AN15JUNPARLON", u">                                                 PAGE  1/ 3", 3},
        Row{u"TQN", u")> 1/ 2", 2}, Row{u"HEAN", u"MORE     ", 3}, Row{u"QT", u"+", 2}, Row{u"DO1", u"", 2}}) {
    EXPECT_TRUE(Contains(session->Send(row.entry, true)->Buffer(), row.mark)) << ToUtf8(row.entry);
    world.ClearJournal();
    for (int page = 1; page < row.pages; ++page) {
      session->Send(u"MD", true);
    }
    session->Send(u"MD", true);  // one too many
    EXPECT_EQ(world.Journal(),
              Replaced(std::u16string(static_cast<std::size_t>(row.pages) - 1, u'.'), u".", u"send MD\r\n") +
                  u"send MD (unanswered)\r\n")
        << ToUtf8(row.entry);
  }
}

TEST(PagedAvailabilityFile, HasContinuationMarksAtTheHeadOfTheLastRow) {
  const auto scenario = Read("paged_availability");
  const auto& help = scenario->replies[2];
  EXPECT_EQ(help.matcher.text, u"HEAN");
  EXPECT_EQ(help.answers[0]->type, 23);
  EXPECT_TRUE(StartsWith(help.answers[0]->pages[0].rows.back(), u"MORE     "));
  EXPECT_TRUE(StartsWith(help.answers[0]->pages[1].rows.back(), u"MORE     "));
  EXPECT_FALSE(Contains(help.answers[0]->pages[2].buffer, u"MORE"));
}

TEST(EmptyDesktopFile, HasNoSession) {
  EXPECT_TRUE(Read("empty_desktop")->sessions.empty());
}

TEST(OldTerminalFile, HasNoAlarmComponentAndAnswersTheLockEntries) {
  const auto scenario = Read("old_terminal");
  EXPECT_EQ(scenario->terminal.version, u"2.3P299");
  EXPECT_FALSE(scenario->alarm.present);
  EXPECT_EQ(scenario->replies[0].matcher.text, u"LOCK");
  EXPECT_EQ(scenario->replies[1].matcher.text, u"UNLOCK");
}

class FaultsFile : public SimulatedWorld {
 protected:
  void SetUp() override {
    world.Load(FileOf("faults").u16string());
    session = world.MakeSession();
  }

  std::shared_ptr<SimulatedSession> session;
};

TEST_F(FaultsFile, RejectsTheClearKey) {
  EXPECT_FALSE(session->SendKey(322));
  EXPECT_TRUE(session->SendKey(353));
}

TEST_F(FaultsFile, HasAnAnswerThatComesLateAndOneThatNeverComes) {
  const auto late = session->Send(u"LATE", true);
  EXPECT_EQ(late->Buffer() + late->Buffer() + late->Buffer(), u"");
  EXPECT_EQ(late->Buffer(), Row(u"AT LAST"));
  const auto never = session->Send(u"NEVER", true);
  constexpr int kMoreThanAnyLateAnswer = 1'000'001;
  for (int reading = 0; reading < kMoreThanAnyLateAnswer; ++reading) {
    ASSERT_TRUE(never->Buffer().empty()) << "reading " << reading;
  }
}

TEST_F(FaultsFile, HasEntriesThatFail) {
  EXPECT_TRUE(RaisesNumber(kUnspecifiedFailure, [&] { session->Send(u"FAIL", true); }));
  EXPECT_TRUE(RaisesNumber(static_cast<std::int32_t>(0x80010108), [&] { session->Send(u"RETRY", true); }));
  EXPECT_EQ(session->Send(u"RETRY", true)->Buffer(), Row(u"CONNECTED AGAIN"));
}

TEST_F(FaultsFile, HasAnAlarmWithoutItsMethod) {
  EXPECT_TRUE(RaisesNumber(438, [&] { world.MakeAlarmManager()->LockAlarm(true); }));
}

TEST_F(FaultsFile, HasAPnrThatCannotBeReadAndOneWithoutAHeader) {
  const auto pnr = world.MakePnr();
  const std::vector<Value> broken = {session->HostConnection(), u"RTBROKEN"};
  EXPECT_TRUE(RaisesNumber(kUnspecifiedFailure, [&] { pnr->Call(Member::Id(81), broken); }));
  const std::vector<Value> headless = {session->HostConnection(), u"RTNOHEAD"};
  pnr->Call(Member::Id(81), headless);
  EXPECT_EQ(pnr->Get(Member::Id(76)), Value(ObjectRef()));
}

}  // namespace
}  // namespace wendrill::simulator
