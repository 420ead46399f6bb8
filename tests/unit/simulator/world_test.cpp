#include "core/world.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "core/operations.h"
#include "simulated_world.h"

namespace wendrill::simulator {
namespace {

// A scenario file that is gone after the test.
class ScenarioFile {
 public:
  ScenarioFile(const std::string& name, std::string_view text)
      : path_(std::filesystem::path(::testing::TempDir()) / (std::to_string(::getpid()) + name)) {
    std::ofstream(path_) << text;
  }
  ~ScenarioFile() { std::filesystem::remove(path_); }
  ScenarioFile(const ScenarioFile&) = delete;
  ScenarioFile& operator=(const ScenarioFile&) = delete;

  std::u16string Path() const { return path_.u16string(); }

 private:
  std::filesystem::path path_;
};

class EnvironmentScenario {
 public:
  explicit EnvironmentScenario(const std::u16string& path) { ::setenv(kScenarioVariable, ToUtf8(path).c_str(), 1); }
  ~EnvironmentScenario() { ::unsetenv(kScenarioVariable); }
  EnvironmentScenario(const EnvironmentScenario&) = delete;
  EnvironmentScenario& operator=(const EnvironmentScenario&) = delete;
};

class WorldTest : public SimulatedWorld {
 protected:
  void SetUp() override { ::unsetenv(kScenarioVariable); }

  std::int32_t SessionCount() { return world.MakeSessionList()->Count(); }
};

TEST_F(WorldTest, WithoutALoadTheBuiltInScenarioIsInForce) {
  EXPECT_EQ(SessionCount(), 2);
}

TEST_F(WorldTest, WithoutALoadTheEnvironmentsScenarioIsInForce) {
  const ScenarioFile file("environment.toml", "session = [{ name = 'E' }]");
  const EnvironmentScenario environment(file.Path());
  EXPECT_EQ(world.MakeSession()->SessionName(), u"E");
}

TEST_F(WorldTest, AnEmptyVariableNamesNoScenario) {
  const EnvironmentScenario environment(u"");
  EXPECT_EQ(SessionCount(), 2);
}

TEST_F(WorldTest, AnEnvironmentsScenarioThatIsWrongFailsWhatNeedsIt) {
  const EnvironmentScenario environment(u"/no/such/scenario.toml");
  EXPECT_NE(Refusal(53, [&] { world.Ports().CreateSessionList(); }).find("/no/such/scenario.toml"), std::string::npos);
  EXPECT_EQ(world.LiveObjects(), 0);
}

TEST_F(WorldTest, ALoadGoesBeforeTheEnvironment) {
  const EnvironmentScenario environment(u"/no/such/scenario.toml");
  Load(u"session = [{ name = 'L' }]");
  EXPECT_EQ(world.MakeSession()->SessionName(), u"L");
}

TEST_F(WorldTest, AFileIsLoaded) {
  const ScenarioFile file("loaded.toml", "session = [{ name = 'F' }]");
  world.Load(file.Path());
  EXPECT_EQ(world.MakeSession()->SessionName(), u"F");
}

TEST_F(WorldTest, AFileWhoseNameIsNotAsciiIsLoaded) {
  const ScenarioFile file("r\xC3\xA9servation.toml", "session = [{ name = 'F' }]");
  world.Load(file.Path());
  EXPECT_EQ(world.MakeSession()->SessionName(), u"F");
}

TEST_F(WorldTest, AFileThatIsWrongIsNamedWithItsPath) {
  const ScenarioFile file("wrong.toml", "[alarm]\ncolour = 1\n");
  EXPECT_EQ(Refusal(5, [&] { world.Load(file.Path()); }),
            ToUtf8(file.Path()) + ", line 2: unknown key \"colour\" in [alarm]; known keys are present, method, code");
}

TEST_F(WorldTest, ALoadThatFailsChangesNothing) {
  Load(u"session = [{ name = 'A' }]\nreply = [{ entry = 'X', screen = '1' }, { entry = 'X', screen = '2' }]");
  const auto session = world.MakeSession();
  session->Send(u"X", true);
  world.FailNext(u"SessionName", 5, 1);
  EXPECT_TRUE(RaisesNumber(5, [&] { Load(u"session = 1"); }));
  EXPECT_TRUE(RaisesNumber(53, [&] { world.Load(u"/no/such/scenario.toml"); }));
  EXPECT_EQ(world.Journal(), u"send X\r\n");
  EXPECT_TRUE(RaisesNumber(5, [&] { session->SessionName(); }));
  EXPECT_EQ(world.MakeSession()->Send(u"X", true)->Buffer(), Row(u"2"));
}

TEST_F(WorldTest, ALoadBringsFreshSessionsAndForgetsPlannedFailures) {
  Load(u"session = [{ name = 'A' }]\nreply = [{ entry = 'X', screen = '1' }, { entry = 'X', screen = '2' }]");
  world.MakeSession()->Send(u"X", true);
  world.FailNext(u"*", 5, 1);
  Load(u"session = [{ name = 'A' }]\nreply = [{ entry = 'X', screen = '1' }, { entry = 'X', screen = '2' }]");
  EXPECT_EQ(world.MakeSession()->LastResponse(), nullptr);
  EXPECT_EQ(world.MakeSession()->Send(u"X", true)->Buffer(), Row(u"1"));
}

TEST_F(WorldTest, APlannedFailureBeforeTheFirstUseIsKept) {
  world.FailNext(u"Count", 5, 1);
  EXPECT_TRUE(RaisesNumber(5, [&] { SessionCount(); }));
}

TEST_F(WorldTest, ASessionThatIsKeptGoesOnWithItsScenario) {
  Load(u"session = [{ name = 'A' }]\nreply = [{ entry = 'X', screen = 'OLD' }]");
  const auto session = world.MakeSession();
  Load(u"session = [{ name = 'B' }]\nreply = [{ entry = 'X', screen = 'NEW' }]");
  EXPECT_EQ(session->Send(u"X", true)->Buffer(), Row(u"OLD"));
  EXPECT_EQ(world.MakeSession()->Send(u"X", true)->Buffer(), Row(u"NEW"));
}

TEST_F(WorldTest, TheJournalStaysWhenAnotherScenarioIsLoadedAndIsClearedOnRequest) {
  Load(u"session = [{ name = 'A' }]");
  world.MakeSession()->SendKey(322);
  Load(u"session = [{ name = 'A' }]");
  EXPECT_EQ(world.Journal(), u"key 322\r\n");
  world.ClearJournal();
  EXPECT_EQ(world.Journal(), u"");
}

TEST_F(WorldTest, EveryObjectCountsAsLongAsItLives) {
  Load(
      uR"(
    session = [{ name = "A" }]
    [[pnr]]
    on_display = true
    [[pnr.Names]]
    Text = "1.SMITH"
  )");
  EXPECT_EQ(world.LiveObjects(), 0);
  {
    const auto list = world.MakeSessionList();
    EXPECT_EQ(world.LiveObjects(), 1);
    const auto session = list->Item(u"A");
    EXPECT_EQ(world.LiveObjects(), 2);
    const auto response = session->Send(u"X", true);
    EXPECT_EQ(world.LiveObjects(), 3);
    const auto connection = session->HostConnection();
    EXPECT_EQ(world.LiveObjects(), 4);
    const auto pnr = world.MakePnr();
    EXPECT_EQ(world.LiveObjects(), 5);
    const std::vector<Value> arguments = {connection};
    pnr->Call(Member::Id(80), arguments);
    const auto names = ToObject(pnr->Get(Member::Id(2)));
    EXPECT_EQ(world.LiveObjects(), 6);
    const auto name = names->Walk()->Next();
    EXPECT_EQ(world.LiveObjects(), 7);
    const auto header = ToObject(pnr->Get(Member::Id(76)));
    EXPECT_EQ(world.LiveObjects(), 8);
    const auto alarm = world.MakeAlarmManager();
    const auto helper = world.MakeTextHelper();
    const auto bag = world.MakeParamBag();
    EXPECT_EQ(world.LiveObjects(), 11);
  }
  EXPECT_EQ(world.LiveObjects(), 0);
}

TEST_F(WorldTest, ThePortsMakeTheSimulatedComponents) {
  Load(u"session = [{ name = 'A' }]");
  Platform& ports = world.Ports();
  EXPECT_EQ(ports.CreateSessionList()->Count(), 1);
  EXPECT_EQ(ports.CreateSession()->SessionName(), u"A");
  EXPECT_EQ(ports.CreatePnr()->Get(Member::Id(75)), Value(u""));
  EXPECT_EQ(ports.CreateAlarmManager()->LockAlarm(true), Value(std::int32_t{0}));
  EXPECT_EQ(ports.CreateTextHelper()->TerminalReady(), 1);
  EXPECT_TRUE(ports.CreateParamBag()->Get(u"a").IsEmpty());
  EXPECT_EQ(world.LiveObjects(), 0);
}

TEST_F(WorldTest, TwoWorldsHaveNothingInCommon) {
  World other;
  Load(u"session = [{ name = 'A' }]");
  other.LoadText(u"session = [{ name = 'B' }]");
  const auto session = world.MakeSession();
  session->SendKey(322);
  EXPECT_EQ(other.MakeSession()->SessionName(), u"B");
  EXPECT_EQ(other.Journal(), u"");
  EXPECT_EQ(other.LiveObjects(), 0);
}

// Every member that platform.idl declares, and every property of an element.
TEST_F(WorldTest, AFailureCanBePlannedForEveryMember) {
  for (const std::u16string_view name : {u"Buffer",
                                         u"HostCommand",
                                         u"ResponseType",
                                         u"Text",
                                         u"NumberOfColumns",
                                         u"NumberOfLines",
                                         u"Line",
                                         u"Send",
                                         u"LastResponse",
                                         u"SessionName",
                                         u"HostConnection",
                                         u"SendKey",
                                         u"ReceivedResponse",
                                         u"Item",
                                         u"Count",
                                         u"_NewEnum",
                                         u"Value",
                                         u"Header",
                                         u"RetrieveCurrent",
                                         u"Retrieve",
                                         u"LockAlarm",
                                         u"TerminalReady",
                                         u"HostReady",
                                         u"TerminalVersion",
                                         u"HostDateText",
                                         u"Set",
                                         u"Get",
                                         u"Exists",
                                         u"Keys",
                                         u"RemoveAll",
                                         u"Initial",
                                         u"ArrivalTime",
                                         u"Passengers",
                                         u"RoomRateCode",
                                         u"Percent",
                                         u"FreeFlow",
                                         u"OfficeID",
                                         u"AllAirSegments",
                                         u"INSElements",
                                         u"*"}) {
    EXPECT_TRUE(IsOperation(name)) << ToUtf8(name);
    world.FailNext(name, 5, 1);
  }
}

}  // namespace
}  // namespace wendrill::simulator
