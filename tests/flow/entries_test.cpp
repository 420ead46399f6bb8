// Sending one entry and reading what it brought.
#include <gtest/gtest.h>

#include "simulated_desktop.h"

namespace wendrill::flow {
namespace {

using std::chrono::milliseconds;

class Entries : public SimulatedDesktop {
 protected:
  void SetUp() override {
    LoadText(
        uR"(
      session = [{ name = "A" }]
      reply = [
        { entry = "JD", screen = "STATUS\nOK", text = "AS TEXT", type = 7, columns = 64, lines = 12 },
        { starts = "", screen = "DONE" },
      ]
    )");
    quillet.emplace(module);
  }

  std::optional<CQuillet> quillet;
};

TEST_F(Entries, SendCommandClearsSendsAndReturnsTheBuffer) {
  EXPECT_EQ(quillet->SendCommand(u"XX"), Row(u"DONE"));
  EXPECT_EQ(NewJournal(), "key 322; send XX");
}

TEST_F(Entries, SendCommandWithAnEmptyEntryReturnsTheEmptyStringAndSendsNothing) {
  EXPECT_EQ(quillet->SendCommand(u""), u"");
  EXPECT_EQ(quillet->SendCommandNoClear(u""), u"");
  EXPECT_EQ(quillet->SendCommandNoTransmit(u""), u"");
  EXPECT_EQ(NewJournal(), "");
}

TEST_F(Entries, SendCommandNoTransmitReturnsTheEmptyStringThoughTheEntryReachedTheScreen) {
  EXPECT_EQ(quillet->SendCommandNoTransmit(u"XX"), u"");
  EXPECT_EQ(NewJournal(), "type XX");
}

TEST_F(Entries, SendCommandNoClearSendsWithoutTheClearKey) {
  EXPECT_EQ(quillet->SendCommandNoClear(u"XX"), Row(u"DONE"));
  EXPECT_EQ(NewJournal(), "send XX");
}

TEST_F(Entries, TheLastPropertiesReadTheSessionsLastResponse) {
  quillet->SendCommand(u"JD");
  EXPECT_EQ(quillet->LastBuffer(), u"STATUS" + std::u16string(58, u' ') + u"OK" + std::u16string(62, u' '));
  EXPECT_EQ(quillet->LastResponseType(), 7);
  EXPECT_EQ(quillet->LastNumberOfColumns(), 64);
  EXPECT_EQ(quillet->LastNumberOfLines(), 12);
  EXPECT_EQ(quillet->LastHostCommand(), u"JD");
  EXPECT_EQ(quillet->LastText(), u"AS TEXT");
  EXPECT_EQ(quillet->GetLineFromLastBuffer(2), u"OK" + std::u16string(62, u' '));
}

TEST_F(Entries, ATypedEntryLeavesTheLastResponse) {
  quillet->SendCommand(u"JD");
  quillet->SendCommandNoTransmit(u"XX");
  EXPECT_EQ(quillet->LastHostCommand(), u"JD");
}

TEST_F(Entries, ALineOutsideTheBufferFailsWithTheToolkitsError) {
  quillet->SendCommand(u"JD");
  EXPECT_TRUE(RaisesNumber(9, [&] { quillet->GetLineFromLastBuffer(3); }));
}

TEST_F(Entries, AResponseTypeBeyond16BitsRaisesOverflow) {
  LoadFile("faults");
  quillet->ConnectSession(u"A");
  quillet->SendCommandNoClear(u"WIDE");
  EXPECT_TRUE(RaisesNumber(6, [&] { quillet->LastResponseType(); }));
}

TEST_F(Entries, AlarmEntriesAreSentUnderTheLock) {
  for (const std::u16string_view entry : {u"BT", u"EF", u"ET", u"ER", u"QE", u"QE/8C1", u"TTP", u"TTP/RT", u"FQD",
                                          u"FXB", u"FXL", u"FXC", u"FQP", u"FXA"}) {
    quillet->SendCommand(entry);
    EXPECT_EQ(NewJournal(), "key 322; alarm lock; send " + ToUtf8(entry) + "; alarm unlock");
  }
}

TEST_F(Entries, AnAlarmEntryIsMatchedOnItsHeadOnlyForQeAndTheThreeLetterHeads) {
  for (const std::u16string_view entry : {u"ERK", u"er", u"ETK", u"BTX", u"EFX", u"qe", u"TT", u"ttp", u"FX"}) {
    quillet->SendCommand(entry);
    EXPECT_EQ(NewJournal(), "key 322; send " + ToUtf8(entry));
  }
}

TEST_F(Entries, UnderTheLockSendCommandNoClearClearsTheScreen) {
  quillet->SendCommandNoClear(u"ER");
  EXPECT_EQ(NewJournal(), "alarm lock; key 322; send ER; alarm unlock");
}

TEST_F(Entries, ATerminalThatIsNotReadyIsToleratedAndTheEntryIsSent) {
  LoadText(u"session = [{ name = 'A' }]\nterminal = { ready = [1, 0] }\nreply = [{ entry = 'ER', screen = 'DONE' }]");
  quillet->ConnectSession(u"A");
  EXPECT_EQ(quillet->LockUnLockAlarm(true), -8);
  EXPECT_EQ(quillet->SendCommand(u"ER"), Row(u"DONE"));
  EXPECT_EQ(NewJournal(), "key 322; send ER");
}

TEST_F(Entries, ANegativeAlarmCodeStopsTheEntry) {
  LoadText(u"session = [{ name = 'A' }]\nalarm = { code = -3 }");
  quillet->ConnectSession(u"A");
  EXPECT_TRUE(RaisesNumber(2505, [&] { quillet->SendCommand(u"ER"); }));
  EXPECT_EQ(NewJournal(), "key 322; alarm lock");
}

TEST_F(Entries, ARejectedClearKeyRaises2505AndNothingIsSent) {
  LoadFile("faults");
  quillet->ConnectSession(u"A");
  EXPECT_TRUE(Raises(2505, testing::kCommunicationMessage, [&] { quillet->SendCommand(u"LATE"); }));
  EXPECT_EQ(NewJournal(), "key 322");
}

TEST_F(Entries, SendCommandTakesTheBufferAsItIsWhenSendReturns) {
  LoadText(u"session = [{ name = 'A' }]\nreply = [{ entry = 'LATE', screen = 'AT LAST', late = 1 }]");
  quillet->ConnectSession(u"A");
  EXPECT_EQ(quillet->SendCommand(u"LATE"), u"");
  EXPECT_EQ(quillet->LastBuffer(), Row(u"AT LAST"));
}

TEST_F(Entries, SendCommandNoClearWaitsForALateBufferAndSendsOnce) {
  LoadFile("faults");
  quillet->ConnectSession(u"A");
  EXPECT_EQ(quillet->SendCommandNoClear(u"LATE"), Row(u"AT LAST"));
  EXPECT_EQ(NewJournal(), "send LATE");
}

TEST_F(Entries, AnEntryThatIsNeverAnsweredIsSentThreeTimesInTwoWaitsOf46Seconds) {
  LoadFile("faults");
  quillet->ConnectSession(u"A");
  world.Time().SetSeconds(1000);
  world.Time().SetStep(milliseconds(500));
  EXPECT_TRUE(Raises(2530, testing::kCommunicationMessage, [&] { quillet->SendCommandNoClear(u"NEVER"); }));
  EXPECT_EQ(NewJournal(), "send NEVER; send NEVER; send NEVER");
  const double waited = world.Time().SecondsSinceMidnight() - 1000;
  EXPECT_GE(waited, 92);
  EXPECT_LE(waited, 95);  // each wait reads the clock once before it and once after its deadline
}

TEST_F(Entries, AFailingSendRaises2505AndTheNextOneWorks) {
  LoadText(
      u"session = [{ name = 'A' }]\nreply = [{ entry = 'X', error = 0x80010108 }, { entry = 'X', screen = 'OK' }]");
  quillet->ConnectSession(u"A");
  EXPECT_TRUE(Raises(2505, testing::kCommunicationMessage, [&] { quillet->SendCommand(u"X"); }));
  EXPECT_EQ(quillet->SendCommand(u"X"), Row(u"OK"));
}

TEST_F(Entries, AFailingAlarmEntryGivesTheLockBack) {
  LoadText(u"session = [{ name = 'A' }]\nreply = [{ entry = 'ER', error = 0x80004005 }]");
  quillet->ConnectSession(u"A");
  EXPECT_TRUE(Raises(2505, testing::kCommunicationMessage, [&] { quillet->SendCommand(u"ER"); }));
  EXPECT_EQ(NewJournal(), "key 322; alarm lock; send ER; alarm unlock");
}

TEST_F(Entries, StopLoopInsideAWaitEndsInTheMembersError) {
  LoadFile("faults");
  quillet->ConnectSession(u"A");
  world.Pump().OnRun([&] { quillet->StopLoop(); });
  EXPECT_TRUE(Raises(2530, testing::kCommunicationMessage, [&] { quillet->SendCommandNoClear(u"NEVER"); }));
}

TEST_F(Entries, ResponsesAreReleasedAsSoonAsTheirTextIsRead) {
  quillet->SendCommand(u"JD");  // brings the shared text helper to life
  const std::int32_t before = world.LiveObjects();
  quillet->SendCommand(u"JD");
  quillet->SendCommandNoClear(u"JD");
  quillet->LastText();
  EXPECT_EQ(world.LiveObjects(), before);
}

}  // namespace
}  // namespace wendrill::flow
