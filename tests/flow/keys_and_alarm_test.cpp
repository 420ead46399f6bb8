// Keys, mode and alarm lock.
#include <gtest/gtest.h>

#include "simulated_desktop.h"

namespace wendrill::flow {
namespace {

using std::chrono::milliseconds;

class KeysAndAlarm : public SimulatedDesktop {
 protected:
  // A desktop with one session and the tables given here, and a CQuillet on it.
  CQuillet& QuilletOn(std::u16string_view tables) {
    LoadText(u"session = [{ name = 'A' }]\n" + std::u16string(tables));
    created_.emplace(module);
    return *created_;
  }

 private:
  std::optional<CQuillet> created_;
};

TEST_F(KeysAndAlarm, AKeyIsPressedAndWhetherItWasAcceptedIsNotReported) {
  CQuillet& quillet = QuilletOn(u"terminal = { refuses = [257] }");
  quillet.SendKey(257);
  quillet.SendKey(769);
  EXPECT_EQ(NewJournal(), "key 257; key 769");
}

TEST_F(KeysAndAlarm, AKeyWithoutASessionRaises2515) {
  CQuillet& quillet = QuilletOn(u"");
  quillet.StopLoop();
  EXPECT_TRUE(Raises(2515, testing::kGeneralMessage, [&] { quillet.SendKey(257); }));
}

TEST_F(KeysAndAlarm, ChangeSmodSendsModeAndFormWithTwoDigitsOrMore) {
  CQuillet& quillet = QuilletOn(u"reply = [{ starts = '', screen = 'OK' }]");
  quillet.ChangeSMOD(5);
  EXPECT_EQ(NewJournal(), "key 353; key 353; send 0500");
  quillet.ChangeSMOD(5, 12);
  EXPECT_EQ(NewJournal(), "key 353; key 353; send 0512");
  quillet.ChangeSMOD(123);
  EXPECT_EQ(NewJournal(), "key 353; key 353; send 12300");
}

TEST_F(KeysAndAlarm, ChangeSmodRunsTheMessageQueueUntilEachKeysEventHasArrived) {
  CQuillet& quillet = QuilletOn(u"reply = [{ starts = '', screen = 'OK' }]");
  std::vector<std::string> journalAtEachRun;
  world.Pump().OnRun([&] { journalAtEachRun.push_back(NewJournal()); });
  quillet.ChangeSMOD(5);
  EXPECT_EQ(journalAtEachRun, (std::vector<std::string>{"key 353", "key 353"}));
  EXPECT_EQ(NewJournal(), "send 0500");
}

TEST_F(KeysAndAlarm, ChangeSmodEndsWith2520InAProgramThatClosesAndLeavesNoListenerBehind) {
  CQuillet& quillet = QuilletOn(u"");
  const std::int32_t before = world.LiveObjects();
  world.Pump().PostQuit();
  EXPECT_TRUE(Raises(2520, testing::kGeneralMessage, [&] { quillet.ChangeSMOD(5); }));
  EXPECT_EQ(NewJournal(), "key 353");
  EXPECT_EQ(world.LiveObjects(), before);
}

TEST_F(KeysAndAlarm, ChangeSmodLeavesNoListenerBehind) {
  CQuillet& quillet = QuilletOn(u"reply = [{ starts = '', screen = 'OK' }]");
  const std::int32_t before = world.LiveObjects();
  quillet.ChangeSMOD(5);
  EXPECT_EQ(world.LiveObjects(), before);
  world.DeliverPending();
}

TEST_F(KeysAndAlarm, VersionsThatHaveTheComponentUseIt) {
  for (const std::u16string_view version : {u"2.3P300", u"3.0P1", u"2.3P301", u"3.1P0", u"10.0P0"}) {
    CQuillet& quillet = QuilletOn(u"terminal = { version = '" + std::u16string(version) + u"' }");
    EXPECT_EQ(quillet.LockUnLockAlarm(true), 0) << ToUtf8(version);
    EXPECT_EQ(NewJournal(), "alarm lock") << ToUtf8(version);
  }
}

TEST_F(KeysAndAlarm, OlderVersionsAndUnreadableOnesUseTheEntries) {
  for (const std::u16string_view version : {u"2.3P299", u"2.9P999", u"3.0", u"", u"3.0P1P2", u"XP1"}) {
    CQuillet& quillet = QuilletOn(u"terminal = { version = '" + std::u16string(version) + u"' }");
    EXPECT_EQ(quillet.LockUnLockAlarm(true), 0) << ToUtf8(version);
    EXPECT_EQ(NewJournal(), "key 322; send LOCK (unanswered)") << ToUtf8(version);
  }
}

TEST_F(KeysAndAlarm, TheEntriesAreFollowedByAPauseOf400Milliseconds) {
  LoadFile("old_terminal");
  CQuillet quillet(module);
  quillet.LockAlarm();
  quillet.UnLockAlarm();
  EXPECT_EQ(NewJournal(), "key 322; send LOCK; key 322; send UNLOCK");
  EXPECT_EQ(world.Time().Sleeps(), (std::vector<milliseconds>{milliseconds(400), milliseconds(400)}));
}

TEST_F(KeysAndAlarm, LockingTwiceInARowSendsNothingTheSecondTimeAndReturns0) {
  CQuillet& quillet = QuilletOn(u"");
  EXPECT_EQ(quillet.LockUnLockAlarm(true), 0);
  NewJournal();
  EXPECT_EQ(quillet.LockUnLockAlarm(true), 0);
  EXPECT_EQ(NewJournal(), "");
}

TEST_F(KeysAndAlarm, AComponentCodeOf5LeavesTheLockUnchangedAndLockAlarmRaisesNothing) {
  CQuillet& quillet = QuilletOn(u"alarm = { code = 5 }");
  EXPECT_EQ(quillet.LockUnLockAlarm(true), 5);
  quillet.LockAlarm();
  EXPECT_EQ(NewJournal(), "alarm lock; alarm lock");  // asked again: no lock is held
}

TEST_F(KeysAndAlarm, TheComponentsCodes1And2AreSuccesses) {
  for (const std::int16_t code : {std::int16_t{1}, std::int16_t{2}}) {
    CQuillet& quillet = QuilletOn(u"alarm = { code = " + DecimalText(code) + u" }");
    EXPECT_EQ(quillet.LockUnLockAlarm(true), code);
    EXPECT_EQ(quillet.LockUnLockAlarm(true), 0);
    EXPECT_EQ(NewJournal(), "alarm lock");
  }
}

TEST_F(KeysAndAlarm, ANegativeComponentCodeRaisesTheMembersNumber) {
  CQuillet& quillet = QuilletOn(u"alarm = { code = -3 }");
  EXPECT_TRUE(Raises(2558, testing::kCommunicationMessage, [&] { quillet.LockAlarm(); }));
}

TEST_F(KeysAndAlarm, AComponentWithoutTheMethodIsReplacedByTheEntries) {
  CQuillet& quillet = QuilletOn(u"alarm = { method = false }");
  EXPECT_EQ(quillet.LockUnLockAlarm(true), 0);
  EXPECT_EQ(NewJournal(), "alarm lock; key 322; send LOCK (unanswered)");
}

TEST_F(KeysAndAlarm, AComponentThatCannotBeCreatedIsPassedOverAndTheLockCountsAsHeld) {
  CQuillet& quillet = QuilletOn(u"alarm = { present = false }");
  EXPECT_EQ(quillet.LockUnLockAlarm(true), 0);
  EXPECT_EQ(quillet.LockUnLockAlarm(true), 0);
  EXPECT_EQ(NewJournal(), "");
}

TEST_F(KeysAndAlarm, ARejectedClearKeyInTheFallbackIsMinus7) {
  LoadFile("faults");
  CQuillet quillet(module);
  EXPECT_EQ(quillet.LockUnLockAlarm(true), -7);
  EXPECT_EQ(NewJournal(), "alarm lock; key 322");
  EXPECT_TRUE(Raises(2558, testing::kCommunicationMessage, [&] { quillet.LockAlarm(); }));
}

TEST_F(KeysAndAlarm, ATerminalThatIsNotReadyIsMinus8AndRaisesNothing) {
  for (const std::u16string_view ready : {u"[0, 1]", u"[1, 0]", u"[0, 0]"}) {
    CQuillet& quillet = QuilletOn(u"terminal = { ready = " + std::u16string(ready) + u" }");
    EXPECT_EQ(quillet.LockUnLockAlarm(true), -8);
    quillet.LockAlarm();
    quillet.UnLockAlarm();
    EXPECT_EQ(NewJournal(), "");
  }
}

}  // namespace
}  // namespace wendrill::flow
