// Every call that a member makes into the toolkit fails in turn: the number raised is the member's own, no lock is
// kept, nothing leaks, and the next entry works.
#include <gtest/gtest.h>

#include <functional>

#include "simulated_desktop.h"

namespace wendrill::flow {
namespace {

constexpr std::u16string_view kScenario =
    uR"toml(
session = [{ name = "A" }]
reply = [
  { entry = "LATE", screen = "AT LAST", late = 2 },
  { entry = "AN", pages = ["ONE\n)>1/2", "TWO\n)>2/2"] },
  { starts = "", screen = "DONE" },
]

[[pnr]]
RecordLocator = "ABC123"
entries = ["SP2", "ER"]
on_display = true
display = "RP/PARXX0100"
)toml";

struct MemberRun {
  const char* name;
  std::int32_t number;  // that the member raises; 0: it raises nothing
  std::function<void(CQuillet&)> run;

  // In how many of the failing runs the lock may still be held: a terminal that fails one of the two readiness
  // questions of the unlock counts as not ready, and keeps its lock.
  int heldAtMost = 0;
};

void PrintTo(const MemberRun& member, std::ostream* out) {
  *out << member.name;
}

class EveryCallFails : public ::testing::TestWithParam<MemberRun> {
 protected:
  // One desktop with a connected CQuillet.
  struct Desktop {
    Desktop() {
      world.LoadText(kScenario);
      world.Time().SetStep(std::chrono::seconds(10));
      quillet.emplace(module);
    }

    simulator::World world;
    ModuleState module{world.Ports(), world.Time(), world.Pump()};
    std::optional<CQuillet> quillet;
  };

  static std::int64_t CallsOfAnUndisturbedRun() {
    Desktop desktop;
    const std::int64_t before = desktop.world.Calls();
    GetParam().run(*desktop.quillet);
    return desktop.world.Calls() - before;
  }
};

void ExpectNumber(const std::optional<Error>& error, std::int32_t number, std::int32_t nth) {
  if (error) {
    EXPECT_EQ(error->Number(), number) << "call " << nth << ": " << ToUtf8(error->Description());
    EXPECT_EQ(error->Source(), u"Wendrill23") << "call " << nth;
  }
}

TEST_P(EveryCallFails, WithTheMembersNumberAndTheStateWhole) {
  const auto calls = static_cast<std::int32_t>(CallsOfAnUndisturbedRun());
  ASSERT_GT(calls, 0);
  int held = 0;
  for (std::int32_t nth = 1; nth <= calls; ++nth) {
    Desktop desktop;
    CQuillet& quillet = *desktop.quillet;
    desktop.world.FailNext(u"*", kUnspecifiedFailure, nth);
    ExpectNumber(ErrorOf([&] { GetParam().run(quillet); }), GetParam().number, nth);
    desktop.world.ClearJournal();
    EXPECT_EQ(quillet.LockUnLockAlarm(false), 0);
    held += desktop.world.Journal().empty() ? 0 : 1;
    EXPECT_NE(quillet.SendCommand(u"JD"), u"") << "call " << nth;
    desktop.quillet.reset();
    desktop.module.TextHelper.reset();
    EXPECT_EQ(desktop.world.LiveObjects(), 0) << "call " << nth;
  }
  EXPECT_LE(held, GetParam().heldAtMost);
}

// A failure that an alarm member meets becomes a code, so that LockAlarm and the locked entries may pass over it.
const MemberRun kMemberRuns[] = {
    {"SendCommand", 2505, [](CQuillet& quillet) { quillet.SendCommand(u"JD"); }},
    {"SendCommandLocked", 2505, [](CQuillet& quillet) { quillet.SendCommand(u"ER"); }, 2},
    {"SendCommandNoClear", 2530, [](CQuillet& quillet) { quillet.SendCommandNoClear(u"JD"); }},
    {"SendCommandNoClearLate", 2530, [](CQuillet& quillet) { quillet.SendCommandNoClear(u"LATE"); }},
    {"SendCommandNoClearLocked", 2530, [](CQuillet& quillet) { quillet.SendCommandNoClear(u"ER"); }, 2},
    {"SendCommandNoTransmit", 2505, [](CQuillet& quillet) { quillet.SendCommandNoTransmit(u"JD"); }},
    {"SendCommandGetAll", 2525, [](CQuillet& quillet) { quillet.SendCommandGetAll(u"AN"); }},
    {"SendKey", 2515, [](CQuillet& quillet) { quillet.SendKey(257); }},
    {"ChangeSMOD", 2520, [](CQuillet& quillet) { quillet.ChangeSMOD(5, 12); }},
    {"RetrieveCurrent", 2500, [](CQuillet& quillet) { quillet.RetrieveCurrent(); }},
    {"RetrieveRecLoc", 2501, [](CQuillet& quillet) { quillet.RetrieveRecLoc(u"ABC123"); }},
    {"SplitPNR", 2502, [](CQuillet& quillet) { quillet.SplitPNR(u"2"); }},
    {"ReadPNR", 2503, [](CQuillet& quillet) { quillet.ReadPNR(u"ER"); }, 2},
    {"LockAndUnLockAlarm", 0,
     [](CQuillet& quillet) {
       quillet.LockAlarm();
       quillet.UnLockAlarm();
     },
     2},
};

INSTANTIATE_TEST_SUITE_P(Members, EveryCallFails, ::testing::ValuesIn(kMemberRuns),
                         [](const auto& member) { return std::string(member.param.name); });

TEST(EveryCallOfACreationFails, AndLeavesNothingBehind) {
  constexpr std::int32_t kCalls = 3;  // Count, the walk, the name of the one session
  for (std::int32_t nth = 1; nth <= kCalls; ++nth) {
    simulator::World world;
    world.LoadText(kScenario);
    ModuleState module{world.Ports(), world.Time(), world.Pump()};
    world.FailNext(u"*", kUnspecifiedFailure, nth);
    EXPECT_TRUE(RaisesNumber(kUnspecifiedFailure, [&] { CQuillet quillet(module); })) << "call " << nth;
    EXPECT_EQ(module.LiveInstanceCount, 0);
    EXPECT_EQ(world.LiveObjects(), 0) << "call " << nth;
    EXPECT_EQ(CQuillet(module).GetSessionList(), u"A");
  }
}

}  // namespace
}  // namespace wendrill::flow
