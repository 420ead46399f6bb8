// A program that was told to close while a member waits: the member fails at once, so that the caller's own loop comes
// to the quit message.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "session/quillet.h"
#include "support/fake_platform.h"
#include "support/raises.h"
#include "support/screen.h"

namespace wendrill::testing {
namespace {

class AClosingProgram : public ::testing::Test {
 protected:
  // The quit message is there after so many passes of the pump.
  void QuitIn(std::size_t passes) {
    desk.pump.onPass = [this, passes](std::size_t pass) { desk.pump.quitPosted = pass >= passes; };
  }

  FakeDesk desk;
  FakeTerminal& terminal = *desk.terminal;
  CQuillet quillet{desk.module};
};

TEST_F(AClosingProgram, EndsTheResponseWaitWith2530WithoutSendingAgain) {
  terminal.On(u"AN", {.buffer = u""});
  QuitIn(3);
  EXPECT_TRUE(Raises(2530, kCommunicationMessage, [&] { quillet.SendCommandNoClear(u"AN"); }));
  EXPECT_EQ(desk.Journal(), "send AN");
  EXPECT_EQ(desk.pump.passes, 3U);
}

TEST_F(AClosingProgram, EndsTheSecondResponseWaitTheSameWay) {
  constexpr std::size_t kPassesOfOneWait = 46 * 4;
  terminal.On(u"AN", {.buffer = u""});
  QuitIn(kPassesOfOneWait + 1);
  EXPECT_TRUE(Raises(2530, kCommunicationMessage, [&] { quillet.SendCommandNoClear(u"AN"); }));
  EXPECT_EQ(desk.Journal(), "send AN, send AN");
  EXPECT_EQ(desk.pump.passes, kPassesOfOneWait + 1);
}

TEST_F(AClosingProgram, GetsTheAlarmLockBackFromTheResponseWait) {
  terminal.On(u"ER", {.buffer = u""});
  QuitIn(1);
  EXPECT_TRUE(Raises(2530, kCommunicationMessage, [&] { quillet.SendCommandNoClear(u"ER"); }));
  EXPECT_EQ(desk.Journal(), "alarm lock, key 322, send ER, alarm unlock");
  EXPECT_EQ(desk.pump.passes, 1U);
}

TEST_F(AClosingProgram, StillGetsAnswersThatNeedNoWait) {
  terminal.On(u"AN", {.buffer = u"ANSWER"});
  desk.pump.quitPosted = true;
  EXPECT_EQ(quillet.SendCommandNoClear(u"AN"), u"ANSWER");
  EXPECT_EQ(desk.pump.passes, 0U);
}

TEST_F(AClosingProgram, EndsTheModeSwitchWith2520AtItsFirstKey) {
  terminal.Accepting(kbPA2);
  QuitIn(2);
  EXPECT_TRUE(Raises(2520, kGeneralMessage, [&] { quillet.ChangeSMOD(5); }));
  EXPECT_EQ(desk.Journal(), "key 353");
  EXPECT_EQ(desk.pump.passes, 2U);
  EXPECT_EQ(terminal.ConnectedHandlers(), 0U);
}

TEST_F(AClosingProgram, EndsTheModeSwitchWith2520AtItsSecondKey) {
  terminal.Accepting(kbPA2);
  desk.pump.onPass = [this](std::size_t pass) {
    if (pass == 1) {
      terminal.RaiseReceivedResponse();
    }
    desk.pump.quitPosted = pass >= 3;
  };
  EXPECT_TRUE(Raises(2520, kGeneralMessage, [&] { quillet.ChangeSMOD(5); }));
  EXPECT_EQ(desk.Journal(), "key 353, key 353");
  EXPECT_EQ(desk.pump.passes, 3U);
  EXPECT_EQ(terminal.ConnectedHandlers(), 0U);
}

// The inner switch takes the outer one's session and its event with it: the outer one awaits nothing any more, and
// must neither wait for ever nor send the mode.
TEST_F(AClosingProgram, EndsAModeSwitchInsideTheSecondWaitOfAnother) {
  terminal.Accepting(kbPA2);
  desk.pump.onPass = [this](std::size_t pass) {
    if (pass == 1) {
      terminal.RaiseReceivedResponse();
    } else if (pass == 2) {
      desk.pump.quitPosted = true;
      EXPECT_TRUE(Raises(2520, kGeneralMessage, [&] { quillet.ChangeSMOD(7); }));
      desk.pump.quitPosted = false;
    }
  };
  EXPECT_TRUE(Raises(2520, kGeneralMessage, [&] { quillet.ChangeSMOD(5); }));
  EXPECT_EQ(desk.Journal(), "key 353, key 353, key 353");
  EXPECT_EQ(terminal.ConnectedHandlers(), 0U);
}

TEST_F(AClosingProgram, SwitchesTheModeWhenItGoesOnAfterAll) {
  terminal.Accepting(kbPA2).On(u"0500", {.buffer = u""});
  QuitIn(1);
  EXPECT_TRUE(Raises(2520, kGeneralMessage, [&] { quillet.ChangeSMOD(5); }));
  desk.pump.quitPosted = false;
  desk.pump.onPass = [this](std::size_t) { terminal.RaiseReceivedResponse(); };
  terminal.ClearJournal();
  quillet.ChangeSMOD(5);
  EXPECT_EQ(desk.Journal(), "key 353, key 353, send 0500");
}

TEST_F(AClosingProgram, EndsTheCollectionOfTicsPasWith2540) {
  quillet.SendCommandGetAll(u"");  // begins a collection: only then does the loop run
  const auto bag = std::make_shared<FakeBag>(desk.calls);
  bag->Given(u"strKeyCommand", u"TICS").Given(u"blnKeyGetAll", true);
  terminal.On(u"TICS", {.buffer = u"DAC:CONT +"});
  QuitIn(2);
  EXPECT_TRUE(Raises(2540, kCommunicationMessage, [&] { quillet.SendCommandTicsPas(bag); }));
  EXPECT_EQ(desk.Journal(), "send TICS");
  EXPECT_EQ(desk.pump.passes, 2U);
}

}  // namespace
}  // namespace wendrill::testing
