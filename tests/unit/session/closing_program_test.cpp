// A program that was told to close while a member waits: the member fails at once, so that the caller's own loop comes
// to the quit message.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "session/quillet.h"
#include "support/raises.h"
#include "support/screen.h"
#include "support/test_world.h"

namespace wendrill::testing {
namespace {

class AClosingProgram : public ::testing::Test {
 protected:
  // The quit message is there after so many passes of the pump.
  void QuitIn(std::size_t passes) {
    world.pump.onPass = [this, passes](std::size_t pass) { world.pump.quitPosted = pass >= passes; };
  }

  TestWorld world;
  CQuillet quillet{world.module};
};

TEST_F(AClosingProgram, EndsTheResponseWaitWith2530WithoutSendingAgain) {
  world.On(u"AN", {.buffer = u""});
  QuitIn(3);
  EXPECT_TRUE(Raises(2530, kCommunicationMessage, [&] { quillet.SendCommandNoClear(u"AN"); }));
  EXPECT_EQ(world.Journal(), "send AN");
  EXPECT_EQ(world.pump.passes, 3U);
}

TEST_F(AClosingProgram, EndsTheSecondResponseWaitTheSameWay) {
  constexpr std::size_t kPassesOfOneWait = 46 * 4;
  world.On(u"AN", {.buffer = u""});
  QuitIn(kPassesOfOneWait + 1);
  EXPECT_TRUE(Raises(2530, kCommunicationMessage, [&] { quillet.SendCommandNoClear(u"AN"); }));
  EXPECT_EQ(world.Journal(), "send AN, send AN");
  EXPECT_EQ(world.pump.passes, kPassesOfOneWait + 1);
}

TEST_F(AClosingProgram, GetsTheAlarmLockBackFromTheResponseWait) {
  world.On(u"ER", {.buffer = u""});
  QuitIn(1);
  EXPECT_TRUE(Raises(2530, kCommunicationMessage, [&] { quillet.SendCommandNoClear(u"ER"); }));
  EXPECT_EQ(world.Journal(), "alarm lock, key 322, send ER, alarm unlock");
  EXPECT_EQ(world.pump.passes, 1U);
}

TEST_F(AClosingProgram, StillGetsAnswersThatNeedNoWait) {
  world.On(u"AN", {.buffer = u"ANSWER"});
  world.pump.quitPosted = true;
  EXPECT_EQ(quillet.SendCommandNoClear(u"AN"), u"ANSWER");
  EXPECT_EQ(world.pump.passes, 0U);
}

TEST_F(AClosingProgram, EndsTheModeSwitchWith2520AtItsFirstKey) {
  QuitIn(2);
  EXPECT_TRUE(Raises(2520, kGeneralMessage, [&] { quillet.ChangeSMOD(5); }));
  EXPECT_EQ(world.Journal(), "key 353");
  EXPECT_EQ(world.pump.passes, 2U);
  EXPECT_EQ(world.ConnectedHandlers(), 0U);
}

TEST_F(AClosingProgram, EndsTheModeSwitchWith2520AtItsSecondKey) {
  world.pump.onPass = [this](std::size_t pass) {
    if (pass == 1) {
      world.RaiseReceivedResponse();
    }
    world.pump.quitPosted = pass >= 3;
  };
  EXPECT_TRUE(Raises(2520, kGeneralMessage, [&] { quillet.ChangeSMOD(5); }));
  EXPECT_EQ(world.Journal(), "key 353, key 353");
  EXPECT_EQ(world.pump.passes, 3U);
  EXPECT_EQ(world.ConnectedHandlers(), 0U);
}

// The inner switch takes the outer one's session and its event with it: the outer one awaits nothing any more, and
// must neither wait for ever nor send the mode.
TEST_F(AClosingProgram, EndsAModeSwitchInsideTheSecondWaitOfAnother) {
  world.pump.onPass = [this](std::size_t pass) {
    if (pass == 1) {
      world.RaiseReceivedResponse();
    } else if (pass == 2) {
      world.pump.quitPosted = true;
      EXPECT_TRUE(Raises(2520, kGeneralMessage, [&] { quillet.ChangeSMOD(7); }));
      world.pump.quitPosted = false;
    }
  };
  EXPECT_TRUE(Raises(2520, kGeneralMessage, [&] { quillet.ChangeSMOD(5); }));
  EXPECT_EQ(world.Journal(), "key 353, key 353, key 353");
  EXPECT_EQ(world.ConnectedHandlers(), 0U);
}

TEST_F(AClosingProgram, SwitchesTheModeWhenItGoesOnAfterAll) {
  world.On(u"0500", {.buffer = u""});
  QuitIn(1);
  EXPECT_TRUE(Raises(2520, kGeneralMessage, [&] { quillet.ChangeSMOD(5); }));
  world.pump.quitPosted = false;
  world.pump.onPass = [this](std::size_t) { world.RaiseReceivedResponse(); };
  world.ClearJournal();
  quillet.ChangeSMOD(5);
  EXPECT_EQ(world.Journal(), "key 353, key 353, send 0500");
}

TEST_F(AClosingProgram, EndsTheCollectionOfTicsPasWith2540) {
  quillet.SendCommandGetAll(u"");  // begins a collection: only then does the loop run
  const auto bag = std::make_shared<FakeBag>(world.calls);
  bag->Given(u"strKeyCommand", u"TICS").Given(u"blnKeyGetAll", true);
  world.On(u"TICS", {.buffer = u"DAC:CONT +"});
  QuitIn(2);
  EXPECT_TRUE(Raises(2540, kCommunicationMessage, [&] { quillet.SendCommandTicsPas(bag); }));
  EXPECT_EQ(world.Journal(), "send TICS");
  EXPECT_EQ(world.pump.passes, 2U);
}

}  // namespace
}  // namespace wendrill::testing
