#include <gtest/gtest.h>

#include <string>

#include "common/error.h"
#include "session/quillet.h"
#include "support/raises.h"
#include "support/test_world.h"

namespace wendrill::testing {
namespace {

class AlarmLock : public ::testing::Test {
 protected:
  AlarmLock() { world.On(u"LOCK", {}).On(u"UNLOCK", {}); }

  // The alarm component answers so to a lock and to an unlock alike.
  void ComponentAnswers(const Value& code) {
    world.platform.lockAlarm = [code](bool) { return code; };
  }

  // Whether the object holds the lock: only then does an unlock have anything to do.
  bool Held() {
    world.ClearJournal();
    ComponentAnswers(std::int16_t{9});
    world.Version(u"3.0P1").During(u"CreateAlarmManager", {});
    return quillet.LockUnLockAlarm(false) == 9;
  }

  TestWorld world;
  CQuillet quillet{world.module};
};

TEST_F(AlarmLock, IsTakenAndGivenBackThroughTheComponent) {
  EXPECT_EQ(quillet.LockUnLockAlarm(true), 0);
  EXPECT_EQ(quillet.LockUnLockAlarm(false), 0);
  EXPECT_EQ(world.Journal(), "alarm lock, alarm unlock");
}

TEST_F(AlarmLock, TakenTwiceInARowSendsNothingTheSecondTimeAndReturnsZero) {
  EXPECT_EQ(quillet.LockUnLockAlarm(true), 0);
  EXPECT_EQ(quillet.LockUnLockAlarm(true), 0);
  EXPECT_EQ(world.Journal(), "alarm lock");
}

TEST_F(AlarmLock, NotHeldCostsNothingToGiveBack) {
  quillet.UnLockAlarm();
  EXPECT_EQ(world.Journal(), "");
}

TEST_F(AlarmLock, OfATerminalThatIsNotReadyIsMinusEightAndTolerated) {
  world.Ready(0, 1);
  EXPECT_EQ(quillet.LockUnLockAlarm(true), -8);
  quillet.LockAlarm();
  world.Ready(1, 0);
  EXPECT_EQ(quillet.LockUnLockAlarm(true), -8);
  quillet.LockAlarm();
  quillet.UnLockAlarm();
  EXPECT_EQ(world.Journal(), "");
}

TEST_F(AlarmLock, AsksForReadinessEvenWhenThereIsNothingToDo) {
  world.Ready(1, 0);
  EXPECT_EQ(quillet.LockUnLockAlarm(false), -8);
}

struct VersionRow {
  const char16_t* version;
  bool component;
};

class TerminalVersion : public ::testing::TestWithParam<VersionRow> {};

TEST_P(TerminalVersion, DecidesBetweenTheComponentAndTheEntries) {
  TestWorld world;
  CQuillet quillet(world.module);
  world.On(u"LOCK", {}).On(u"UNLOCK", {});
  world.Version(GetParam().version);
  EXPECT_EQ(quillet.LockUnLockAlarm(true), 0);
  EXPECT_EQ(quillet.LockUnLockAlarm(false), 0);
  EXPECT_EQ(world.Journal(), GetParam().component ? "alarm lock, alarm unlock"
                                                  : "key 322, send LOCK, sleep 400, key 322, send UNLOCK, sleep 400");
}

INSTANTIATE_TEST_SUITE_P(
    Versions, TerminalVersion,
    ::testing::Values(VersionRow{u"2.3P300", true}, VersionRow{u"2.3P299", false}, VersionRow{u"2.9P999", false},
                      VersionRow{u"3.0P1", true}, VersionRow{u"3.0", false}, VersionRow{u"", false},
                      VersionRow{u"3", false}, VersionRow{u"3.0P1P2", false}, VersionRow{u"3.0p1", false},
                      VersionRow{u"2.3P300.5", true}, VersionRow{u"2.30P300", true}, VersionRow{u"2.31P300", false},
                      VersionRow{u"2.2P999", false}, VersionRow{u"10.1P0", true}, VersionRow{u"2.999P300", false},
                      VersionRow{u"xP300", false}, VersionRow{u"2.3Px", false}, VersionRow{u"P300", false},
                      VersionRow{u"1E99P1", false}, VersionRow{u"3,0P1", true}));

TEST_F(AlarmLock, ComponentCodeFiveLeavesTheLockUnchangedAndReturnsFiveAndLockAlarmRaisesNothing) {
  ComponentAnswers(std::int16_t{5});
  EXPECT_EQ(quillet.LockUnLockAlarm(true), 5);
  quillet.LockAlarm();
  EXPECT_FALSE(Held());
}

TEST_F(AlarmLock, ComponentCodesOneAndTwoAreSuccesses) {
  ComponentAnswers(std::int16_t{1});
  EXPECT_EQ(quillet.LockUnLockAlarm(true), 1);
  EXPECT_TRUE(Held());
  ComponentAnswers(std::int16_t{2});
  EXPECT_EQ(quillet.LockUnLockAlarm(false), 2);
  EXPECT_FALSE(Held());
}

TEST_F(AlarmLock, ComponentCodesOfOtherNumberTypesAreNarrowed) {
  ComponentAnswers(std::int32_t{-3});
  EXPECT_EQ(quillet.LockUnLockAlarm(true), -3);
  ComponentAnswers(1.5);  // half to even: 2
  EXPECT_EQ(quillet.LockUnLockAlarm(true), 2);
}

TEST_F(AlarmLock, NegativeCodeOtherThanMinusEightRaises2558And2559) {
  ComponentAnswers(std::int16_t{-3});
  EXPECT_TRUE(Raises(2558, u"An error has occurred while communicating with Quillet.", [&] { quillet.LockAlarm(); }));
  ComponentAnswers(std::int16_t{0});
  quillet.LockAlarm();
  ComponentAnswers(std::int16_t{-1});
  EXPECT_TRUE(Raises(2559, u"An error has occurred while communicating with Quillet.", [&] { quillet.UnLockAlarm(); }));
}

TEST_F(AlarmLock, ComponentCodeMinusEightIsTolerated) {
  ComponentAnswers(std::int16_t{-8});
  quillet.LockAlarm();
  EXPECT_FALSE(Held());
}

TEST_F(AlarmLock, OfAComponentWithoutTheMethodFallsBackToTheEntries) {
  world.platform.lockAlarm = [](bool) -> Value { Raise(RunTimeError::MemberNotSupported); };
  EXPECT_EQ(quillet.LockUnLockAlarm(true), 0);
  EXPECT_EQ(world.Journal(), "alarm lock, key 322, send LOCK, sleep 400");
  EXPECT_TRUE(Held());
}

TEST_F(AlarmLock, OfAComponentThatCannotBeCreatedCountsAsHeld) {
  world.During(u"CreateAlarmManager", [] { Raise(RunTimeError::CannotCreateObject); });
  EXPECT_EQ(quillet.LockUnLockAlarm(true), 0);
  EXPECT_EQ(world.Journal(), "");
  EXPECT_TRUE(Held());
}

TEST_F(AlarmLock, OfAComponentThatFailsCountsAsHeld) {
  world.platform.lockAlarm = [](bool) -> Value { throw ForeignError(); };
  EXPECT_EQ(quillet.LockUnLockAlarm(true), 0);
  EXPECT_EQ(world.Journal(), "alarm lock");
  EXPECT_TRUE(Held());
}

TEST_F(AlarmLock, OfAComponentWhoseAnswerIsNoSixteenBitNumberCountsAsHeld) {
  ComponentAnswers(std::int32_t{40000});
  EXPECT_EQ(quillet.LockUnLockAlarm(true), 0);
  EXPECT_TRUE(Held());
}

TEST_F(AlarmLock, ByEntryCannotClearTheScreenIsMinusSeven) {
  world.Version(u"2.0P1");
  world.Refusing({kbClear});
  EXPECT_EQ(quillet.LockUnLockAlarm(true), -7);
  EXPECT_EQ(world.Journal(), "key 322");
  EXPECT_TRUE(Raises(2558, kCommunicationMessage, [&] { quillet.LockAlarm(); }));
  EXPECT_FALSE(Held());
}

TEST_F(AlarmLock, ByEntryWithoutASessionIsMinusSeven) {
  world.Version(u"2.0P1");
  quillet.StopLoop();
  EXPECT_EQ(quillet.LockUnLockAlarm(true), -7);
}

TEST_F(AlarmLock, ByAnEntryThatFailsCountsAsHeld) {
  world.Version(u"2.0P1");
  world.During(u"Send", [] { throw ForeignError(); });
  EXPECT_EQ(quillet.LockUnLockAlarm(true), 0);
  EXPECT_EQ(world.Journal(), "key 322, send LOCK, sleep 400");
  EXPECT_TRUE(Held());
}

TEST_F(AlarmLock, ByEntryPausesFourHundredMilliseconds) {
  world.Version(u"2.0P1");
  quillet.LockUnLockAlarm(true);
  ASSERT_EQ(world.clock.sleeps.size(), 1U);
  EXPECT_EQ(world.clock.sleeps.front().count(), 400);
}

// The calls of a lock in their order: make the helper, two questions, version, make the component, lock. Failing each
// in turn yields what passing it over means.
TEST_F(AlarmLock, PassesOverEveryFailureWithWhatThereIs) {
  struct Row {
    std::size_t failing;
    std::int16_t code;
    const char* journal;
  };
  // With the helper not made at the first question, the second makes it again; zero was answered all the same.
  for (const Row& row : {Row{1, -8, ""}, Row{2, -8, ""}, Row{3, -8, ""}, Row{4, 0, "key 322, send LOCK, sleep 400"},
                         Row{5, 0, ""}, Row{6, 0, "alarm lock"}, Row{7, 0, "alarm lock"}}) {
    TestWorld other;
    other.On(u"LOCK", {});
    CQuillet locker(other.module);
    other.calls->FailNth(row.failing);
    EXPECT_EQ(locker.LockUnLockAlarm(true), row.code) << "call " << row.failing;
    EXPECT_EQ(other.Journal(), row.journal) << "call " << row.failing;
  }
}

}  // namespace
}  // namespace wendrill::testing
