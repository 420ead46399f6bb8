#include "core/simulated_helpers.h"

#include <gtest/gtest.h>

#include "simulated_world.h"

namespace wendrill::simulator {
namespace {

class Desktop : public SimulatedWorld {};

TEST_F(Desktop, TheAlarmAnswersItsCode) {
  Load(u"[alarm]\ncode = 5\n");
  EXPECT_EQ(world.MakeAlarmManager()->LockAlarm(true), Value(std::int32_t{5}));
}

TEST_F(Desktop, TheAlarmsCodeIsZeroUnlessTheScenarioSaysOtherwise) {
  Load(u"");
  EXPECT_EQ(world.MakeAlarmManager()->LockAlarm(true), Value(std::int32_t{0}));
}

TEST_F(Desktop, LockingAndUnlockingStandInTheJournal) {
  Load(u"");
  const auto alarm = world.MakeAlarmManager();
  alarm->LockAlarm(true);
  alarm->LockAlarm(false);
  EXPECT_EQ(world.Journal(), u"alarm lock\r\nalarm unlock\r\n");
}

TEST_F(Desktop, AnAlarmThatIsNotPresentCannotBeCreated) {
  Load(u"[alarm]\npresent = false\n");
  EXPECT_EQ(Refusal(429, [&] { world.Ports().CreateAlarmManager(); }), "The scenario has no alarm component.");
}

TEST_F(Desktop, AnAlarmWithoutItsMethodFailsWith438AndStandsInTheJournal) {
  Load(u"[alarm]\nmethod = false\n");
  const auto alarm = world.MakeAlarmManager();
  EXPECT_TRUE(RaisesNumber(438, [&] { alarm->LockAlarm(true); }));
  EXPECT_EQ(world.Journal(), u"alarm lock\r\n");
}

TEST_F(Desktop, AnAlarmThatWasMadeToFailStandsInTheJournal) {
  Load(u"");
  world.FailNext(u"LockAlarm", kUnspecifiedFailure, 1);
  EXPECT_TRUE(RaisesNumber(kUnspecifiedFailure, [&] { world.MakeAlarmManager()->LockAlarm(false); }));
  EXPECT_EQ(world.Journal(), u"alarm unlock\r\n");
}

TEST_F(Desktop, TheTextHelperAnswersReadinessAndVersion) {
  Load(u"[terminal]\nversion = '2.3P300'\nready = [1, 0]\n");
  const auto helper = world.MakeTextHelper();
  EXPECT_EQ(helper->TerminalReady(), 1);
  EXPECT_EQ(helper->HostReady(), 0);
  EXPECT_EQ(helper->TerminalVersion(), u"2.3P300");
}

TEST_F(Desktop, ATerminalThatTheScenarioDoesNotDescribeIsANewAndReadyOne) {
  Load(u"");
  const auto helper = world.MakeTextHelper();
  EXPECT_EQ(helper->TerminalReady(), 1);
  EXPECT_EQ(helper->HostReady(), 1);
  EXPECT_EQ(helper->TerminalVersion(), u"3.0P1");
}

TEST_F(Desktop, TheTextHelperGivesDatesTheHostsForm) {
  Load(u"");
  EXPECT_EQ(world.MakeTextHelper()->HostDateText(Date{39611}), u"12JUN08");
}

TEST_F(Desktop, ATextHelperThatIsKeptAnswersFromTheScenarioLoadedLast) {
  Load(u"[terminal]\nversion = '3.0P1'\n");
  const auto helper = world.MakeTextHelper();
  Load(u"[terminal]\nversion = '2.3P299'\n");
  EXPECT_EQ(helper->TerminalVersion(), u"2.3P299");
}

}  // namespace
}  // namespace wendrill::simulator
