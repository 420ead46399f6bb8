#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "session/quillet.h"
#include "support/raises.h"
#include "support/test_world.h"

namespace wendrill::testing {
namespace {

class Transport : public ::testing::Test {
 protected:
  std::size_t TrafficBy(const std::function<void()>& work) const {
    const auto before = world.calls->Count();
    work();
    return world.calls->Count() - before;
  }

  TestWorld world;
  CQuillet quillet{world.module};
};

// The simulator's sessions answer every entry that is sent.
class SessionWithoutResponses final : public HostSession {
 public:
  std::shared_ptr<HostResponse> Send(std::u16string_view, bool) override { return nullptr; }
  std::shared_ptr<HostResponse> LastResponse() override { return nullptr; }
  std::u16string SessionName() override { return {}; }
  ObjectRef HostConnection() override { return {}; }
  bool SendKey(KeyCode) override { return true; }
  std::unique_ptr<EventConnection> OnReceivedResponse(std::function<void()>) override { return nullptr; }
};

using SendCommand = Transport;

TEST_F(SendCommand, ClearsSendsAndReturnsTheBuffer) {
  world.On(u"AN15JUN", {.buffer = u"** AVAILABILITY **"});
  EXPECT_EQ(quillet.SendCommand(u"AN15JUN"), u"** AVAILABILITY **");
  EXPECT_EQ(world.Journal(), "key 322, send AN15JUN");
  EXPECT_EQ(world.module.LastResponseObject, nullptr);
}

TEST_F(SendCommand, WithAnEmptyEntryReturnsTheEmptyTextAndSendsNothingNotEvenTheClearKey) {
  EXPECT_EQ(TrafficBy([&] { EXPECT_EQ(quillet.SendCommand(u""), u""); }), 0U);
}

TEST_F(SendCommand, NeitherWaitsNorRetries) {
  world.On(u"AN", {.buffer = u"TOO LATE", .late = 1});
  EXPECT_EQ(quillet.SendCommand(u"AN"), u"");
  EXPECT_EQ(world.Journal(), "key 322, send AN");
  EXPECT_EQ(world.pump.passes, 0U);
}

TEST_F(SendCommand, WithTheClearKeyRejectedRaises2505) {
  world.Refusing({kbClear});
  EXPECT_TRUE(
      Raises(2505, u"An error has occurred while communicating with Quillet.", [&] { quillet.SendCommand(u"AN"); }));
  EXPECT_EQ(world.Journal(), "key 322");
}

TEST_F(SendCommand, ThatGetsNoResponseObjectRaises2505) {
  world.module.SharedSession = std::make_shared<SessionWithoutResponses>();
  EXPECT_TRUE(Raises(2505, kCommunicationMessage, [&] { quillet.SendCommand(u"AN"); }));
}

TEST_F(SendCommand, TakesTheAlarmLockForAnAlarmEntryAndGivesItBack) {
  world.On(u"ER", {.buffer = u"OK"});
  EXPECT_EQ(quillet.SendCommand(u"ER"), u"OK");
  EXPECT_EQ(world.Journal(), "key 322, alarm lock, send ER, alarm unlock");
}

TEST_F(SendCommand, ReleasesTheAlarmLockWhenTheSendingFails) {
  world.On(u"ER", {.buffer = u"OK"});
  world.During(u"Send", [] { throw ForeignError(); });
  EXPECT_TRUE(Raises(2505, kCommunicationMessage, [&] { quillet.SendCommand(u"ER"); }));
  EXPECT_EQ(world.Journal(), "key 322, alarm lock, send ER, alarm unlock");
}

TEST_F(SendCommand, ToleratesATerminalThatIsNotReadyForTheLockAndSendsTheAlarmEntry) {
  world.Ready(1, 0);
  world.On(u"ER", {.buffer = u"OK"});
  EXPECT_EQ(quillet.SendCommand(u"ER"), u"OK");
  EXPECT_EQ(world.Journal(), "key 322, send ER");
}

TEST_F(SendCommand, WhoseLockFailsDoesNotSendAndRaises2505) {
  world.platform.lockAlarm = [](bool) { return Value(std::int16_t{-3}); };
  EXPECT_TRUE(Raises(2505, kCommunicationMessage, [&] { quillet.SendCommand(u"ER"); }));
  EXPECT_EQ(world.Journal(), "key 322, alarm lock");
}

TEST_F(SendCommand, WhoseUnlockFailsTriesItOnceMoreAndRaises2559) {
  world.platform.lockAlarm = [](bool lock) { return Value(std::int16_t(lock ? 0 : -3)); };
  world.On(u"ER", {.buffer = u"OK"});
  EXPECT_TRUE(Raises(2559, kCommunicationMessage, [&] { quillet.SendCommand(u"ER"); }));
  EXPECT_EQ(world.Journal(), "key 322, alarm lock, send ER, alarm unlock, alarm unlock");
}

struct EntryRow {
  const char16_t* entry;
  bool locks;
};

class AlarmEntry : public ::testing::TestWithParam<EntryRow> {};

TEST_P(AlarmEntry, IsMatchedOnItsHeadOnlyForQeAndTheThreeLetterHeads) {
  TestWorld world;
  CQuillet quillet(world.module);
  world.On(GetParam().entry, {.buffer = u"OK"});
  quillet.SendCommand(GetParam().entry);
  EXPECT_EQ(world.Journal().find("alarm lock") != std::string::npos, GetParam().locks) << ToUtf8(GetParam().entry);
}

INSTANTIATE_TEST_SUITE_P(Entries, AlarmEntry,
                         ::testing::Values(EntryRow{u"BT", true}, EntryRow{u"EF", true}, EntryRow{u"ET", true},
                                           EntryRow{u"ER", true}, EntryRow{u"ERK", false}, EntryRow{u"BTX", false},
                                           EntryRow{u"EFX", false}, EntryRow{u"ETK", false}, EntryRow{u"er", false},
                                           EntryRow{u" ER", false}, EntryRow{u"ER ", false}, EntryRow{u"QE", true},
                                           EntryRow{u"QE/25", true}, EntryRow{u"qe", false}, EntryRow{u"Q", false},
                                           EntryRow{u"TTP", true}, EntryRow{u"TTP/ET", true}, EntryRow{u"TT", false},
                                           EntryRow{u"FQDPARLON", true}, EntryRow{u"FXB", true}, EntryRow{u"FXL", true},
                                           EntryRow{u"FXC/P1", true}, EntryRow{u"FQPPAR", true}, EntryRow{u"FXA", true},
                                           EntryRow{u"FXP", false}, EntryRow{u"fxa", false}, EntryRow{u"AFXA", false}));

using SendCommandNoTransmit = Transport;

TEST_F(SendCommandNoTransmit, ReturnsTheEmptyTextEvenThoughTheEntryReachedTheScreen) {
  world.On(u"ER", {.buffer = u"ER ON SCREEN"});
  EXPECT_EQ(quillet.SendCommandNoTransmit(u"ER"), u"");
  EXPECT_EQ(world.Journal(), "type ER");
  EXPECT_EQ(world.module.LastResponseObject, nullptr);
}

TEST_F(SendCommandNoTransmit, WithAnEmptyEntryDoesNothing) {
  EXPECT_EQ(TrafficBy([&] { EXPECT_EQ(quillet.SendCommandNoTransmit(u""), u""); }), 0U);
}

TEST_F(SendCommandNoTransmit, WithoutASessionRaises2505) {
  quillet.StopLoop();
  EXPECT_TRUE(Raises(2505, kCommunicationMessage, [&] { quillet.SendCommandNoTransmit(u"AN"); }));
}

using SendCommandNoClear = Transport;

TEST_F(SendCommandNoClear, SendsWithoutTheClearKey) {
  world.On(u"AN", {.buffer = u"ANSWER"});
  EXPECT_EQ(quillet.SendCommandNoClear(u"AN"), u"ANSWER");
  EXPECT_EQ(world.Journal(), "send AN");
  EXPECT_EQ(world.pump.passes, 0U);
  EXPECT_EQ(world.module.LastResponseObject, nullptr);
}

TEST_F(SendCommandNoClear, WithAnEmptyEntryDoesNothing) {
  EXPECT_EQ(TrafficBy([&] { EXPECT_EQ(quillet.SendCommandNoClear(u""), u""); }), 0U);
}

TEST_F(SendCommandNoClear, ClearsWhileTheAlarmLockIsHeld) {
  world.On(u"ER", {.buffer = u"OK"});
  EXPECT_EQ(quillet.SendCommandNoClear(u"ER"), u"OK");
  EXPECT_EQ(world.Journal(), "alarm lock, key 322, send ER, alarm unlock");
}

TEST_F(SendCommandNoClear, WhoseClearKeyIsRejectedUnderTheLockRaises2530AndUnlocks) {
  world.Refusing({kbClear});
  EXPECT_TRUE(Raises(2530, kCommunicationMessage, [&] { quillet.SendCommandNoClear(u"ER"); }));
  EXPECT_EQ(world.Journal(), "alarm lock, key 322, alarm unlock");
}

TEST_F(SendCommandNoClear, WaitsForABufferThatFillsWhileMessagesRun) {
  // Empty at the first look and after two passes of the wait; the third pass finds it filled.
  world.On(u"AN", {.buffer = u"ANSWER", .late = 3});
  EXPECT_EQ(quillet.SendCommandNoClear(u"AN"), u"ANSWER");
  EXPECT_EQ(world.Journal(), "send AN");
  EXPECT_EQ(world.pump.passes, 3U);
}

TEST_F(SendCommandNoClear, SendsAtMostThreeTimesAndWaitsAtMostTwiceFortySixSeconds) {
  world.On(u"ER", {.buffer = u""});
  const double before = world.clock.now;
  EXPECT_TRUE(Raises(2530, u"An error has occurred while communicating with Quillet.",
                     [&] { quillet.SendCommandNoClear(u"ER"); }));
  EXPECT_EQ(world.Journal(), "alarm lock, key 322, send ER, send ER, send ER, alarm unlock");
  EXPECT_DOUBLE_EQ(world.clock.now - before, 92.0);
  EXPECT_EQ(world.pump.passes, 2U * 46U * 4U);
}

TEST_F(SendCommandNoClear, TakesTheAnswerOfTheSecondSending) {
  world.On(u"AN", {.buffer = u""}).On(u"AN", {.buffer = u"SECOND"});
  const double before = world.clock.now;
  EXPECT_EQ(quillet.SendCommandNoClear(u"AN"), u"SECOND");
  EXPECT_EQ(world.Journal(), "send AN, send AN");
  EXPECT_DOUBLE_EQ(world.clock.now - before, 46.0);
}

TEST_F(SendCommandNoClear, TakesTheAnswerOfTheThirdSending) {
  world.On(u"AN", {.buffer = u""}).On(u"AN", {.buffer = u""}).On(u"AN", {.buffer = u"THIRD"});
  EXPECT_EQ(quillet.SendCommandNoClear(u"AN"), u"THIRD");
  EXPECT_EQ(world.Journal(), "send AN, send AN, send AN");
}

TEST_F(SendCommandNoClear, TakesAnAnswerThatComesInTheSecondWait) {
  world.On(u"AN", {.buffer = u""}).On(u"AN", {.buffer = u"SECOND", .late = 3});
  EXPECT_EQ(quillet.SendCommandNoClear(u"AN"), u"SECOND");
  EXPECT_EQ(world.Journal(), "send AN, send AN");
}

// The start is rounded half to even before 46 seconds are added: 100.5 counts as 100, 101.5 as 102.
TEST_F(SendCommandNoClear, CountsItsWaitFromARoundedStart) {
  world.On(u"AN", {.buffer = u""}).On(u"AN", {.buffer = u"SECOND"});
  world.clock.now = 100.5;
  quillet.SendCommandNoClear(u"AN");
  EXPECT_DOUBLE_EQ(world.clock.now, 146.0);
}

TEST_F(SendCommandNoClear, CountsItsWaitFromAStartRoundedUpToTheEvenSecond) {
  world.On(u"AN", {.buffer = u""}).On(u"AN", {.buffer = u"SECOND"});
  world.clock.now = 101.5;
  quillet.SendCommandNoClear(u"AN");
  EXPECT_DOUBLE_EQ(world.clock.now, 148.0);
}

// 86,390 + 46 lies beyond the day: the clock falls back to 0 and stays below the deadline, so the wait goes on well
// past 46 seconds until the host answers.
TEST_F(SendCommandNoClear, DoesNotCorrectItsDeadlineAcrossMidnight) {
  world.On(u"AN", {.buffer = u"AT LAST", .late = 401});
  world.clock.now = 86390;
  world.pump.onPass = [&](std::size_t) {
    if (world.clock.now >= 86400) {
      world.clock.now -= 86400;
    }
  };
  EXPECT_EQ(quillet.SendCommandNoClear(u"AN"), u"AT LAST");
  EXPECT_EQ(world.Journal(), "send AN");
  EXPECT_EQ(world.pump.passes, 401U);  // 100 seconds and a quarter
}

TEST_F(SendCommandNoClear, ThatGetsNoResponseObjectRaises2530) {
  world.module.SharedSession = std::make_shared<SessionWithoutResponses>();
  EXPECT_TRUE(Raises(2530, kCommunicationMessage, [&] { quillet.SendCommandNoClear(u"AN"); }));
}

}  // namespace
}  // namespace wendrill::testing
