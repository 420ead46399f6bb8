// What may run inside a wait: the messages of the caller, and with them any member of any object.
#include <gtest/gtest.h>

#include <string>

#include "session/quillet.h"
#include "support/fake_platform.h"
#include "support/raises.h"
#include "support/screen.h"

namespace wendrill::testing {
namespace {

class InsideAWait : public ::testing::Test {
 protected:
  FakeDesk desk;
  FakeTerminal& terminal = *desk.terminal;
  CQuillet quillet{desk.module};
};

TEST_F(InsideAWait, StopLoopMakesTheSendingMemberFailWithItsNumberAndUnlock) {
  terminal.On(u"ER", {.buffer = u""});
  CQuillet other(desk.module);
  desk.pump.onPass = [&](std::size_t pass) {
    if (pass == 2) {
      other.StopLoop();
    }
  };
  EXPECT_TRUE(Raises(2530, kCommunicationMessage, [&] { quillet.SendCommandNoClear(u"ER"); }));
  EXPECT_EQ(desk.Journal(), "alarm lock, key 322, send ER, alarm unlock");
  EXPECT_EQ(desk.module.SharedSession, nullptr);
}

TEST_F(InsideAWait, StopLoopDuringASendingKeepsTheSessionAliveUntilTheCallReturns) {
  terminal.On(u"AN", {.buffer = u"ANSWER"});
  terminal.whileSending = [&](const std::u16string&) { quillet.StopLoop(); };
  EXPECT_EQ(quillet.SendCommand(u"AN"), u"ANSWER");
  EXPECT_TRUE(Raises(2505, kCommunicationMessage, [&] { quillet.SendCommand(u"AN"); }));
}

TEST_F(InsideAWait, StopLoopWithTheClearKeyMakesTheSendingFail) {
  terminal.whilePressing = [&](KeyCode) { quillet.StopLoop(); };
  EXPECT_TRUE(Raises(2505, kCommunicationMessage, [&] { quillet.SendCommand(u"AN"); }));
  EXPECT_EQ(desk.Journal(), "key 322");
}

// The holder of the response is one for the process: the inner member releases it, and the outer one finds none.
TEST_F(InsideAWait, AnotherSendCommandSucceedsAndTheWaitingMemberFailsWithItsNumber) {
  terminal.On(u"AN", {.buffer = u""}).On(u"RT", {.buffer = u"INNER"});
  std::u16string inner;
  desk.pump.onPass = [&](std::size_t pass) {
    if (pass == 1) {
      CQuillet other(desk.module);
      inner = other.SendCommand(u"RT");
    }
  };
  EXPECT_TRUE(Raises(2530, kCommunicationMessage, [&] { quillet.SendCommandNoClear(u"AN"); }));
  EXPECT_EQ(inner, u"INNER");
  EXPECT_EQ(desk.module.LiveInstanceCount, 1);
}

TEST_F(InsideAWait, TheEventHandlerCalledByHandEndsChangeSmodsWait) {
  terminal.On(u"0500", {}).Accepting(kbPA2);
  desk.pump.onPass = [&](std::size_t) { quillet.mTmpSession_ReceivedResponse(); };
  quillet.ChangeSMOD(5);
  EXPECT_EQ(desk.Journal(), "key 353, key 353, send 0500");
  EXPECT_EQ(desk.pump.passes, 2U);
}

TEST_F(InsideAWait, StopLoopDuringChangeSmodRaises2520) {
  terminal.Accepting(kbPA2);
  desk.pump.onPass = [&](std::size_t) {
    quillet.StopLoop();
    terminal.RaiseReceivedResponse();
  };
  EXPECT_TRUE(Raises(2520, kGeneralMessage, [&] { quillet.ChangeSMOD(5); }));
  EXPECT_EQ(desk.Journal(), "key 353, key 353");
  EXPECT_EQ(terminal.ConnectedHandlers(), 0U);
}

TEST_F(InsideAWait, AChangeSmodThatFailsInsideAnotherLetsTheOuterOneFailInsteadOfWaitingForever) {
  terminal.Accepting(kbPA2);
  desk.pump.onPass = [&](std::size_t pass) {
    if (pass == 1) {
      terminal.whilePressing = [](KeyCode) { throw ForeignError(); };
      EXPECT_TRUE(Raises(2520, kGeneralMessage, [&] { quillet.ChangeSMOD(7); }));
    }
  };
  EXPECT_TRUE(Raises(2520, kGeneralMessage, [&] { quillet.ChangeSMOD(5); }));
  EXPECT_EQ(terminal.ConnectedHandlers(), 0U);
}

TEST_F(InsideAWait, StopLoopDuringACollectionMakesItFailAtTheNextPageAndUnlock) {
  terminal.On(u"QE/1", {.buffer = Screen({u"A", u")>1/3"})}).On(u"MD", {.buffer = Screen({u"B", u")>2/3"})});
  terminal.whileSending = [&](const std::u16string& entry) {
    if (entry == u"MD") {
      quillet.StopLoop();
    }
  };
  EXPECT_TRUE(Raises(2525, kCommunicationMessage, [&] { quillet.SendCommandGetAll(u"QE/1"); }));
  EXPECT_EQ(desk.Journal(), "key 322, alarm lock, send QE/1, send MD, alarm unlock");
}

TEST_F(InsideAWait, StopLoopWithTheClearKeyOfACollectionSendsNothing) {
  terminal.whilePressing = [&](KeyCode) { quillet.StopLoop(); };
  EXPECT_EQ(quillet.SendCommandGetAll(u"AN"), u"");
  EXPECT_EQ(desk.Journal(), "key 322");
}

TEST_F(InsideAWait, StopLoopOfAnotherObjectWithTheClearKeyOfACollectionMakesItFail) {
  CQuillet other(desk.module);
  terminal.whilePressing = [&](KeyCode) { other.StopLoop(); };
  EXPECT_TRUE(Raises(2525, kCommunicationMessage, [&] { quillet.SendCommandGetAll(u"AN"); }));
}

TEST_F(InsideAWait, ACollectionOfAnotherObjectRunsWhole) {
  terminal.On(u"AN", {.buffer = u"LATE", .late = 3});
  terminal.On(u"HE", {.buffer = Screen({u"A", u")>1/2"})}).On(u"MD", {.buffer = Screen({u"B", u")>2/2"})});
  std::u16string inner;
  desk.pump.onPass = [&](std::size_t pass) {
    if (pass == 1) {
      CQuillet other(desk.module);
      inner = other.SendCommandGetAll(u"HE");
    }
  };
  EXPECT_TRUE(Raises(2530, kCommunicationMessage, [&] { quillet.SendCommandNoClear(u"AN"); }));
  EXPECT_EQ(inner, Screen({u"A", u"B", u")>2/2"}));
}

TEST_F(InsideAWait, CreatingAndDestroyingObjectsLeavesTheSharedSessionInPlace) {
  terminal.On(u"AN", {.buffer = u"ANSWER", .late = 3});
  desk.pump.onPass = [&](std::size_t) { const CQuillet passing(desk.module); };
  EXPECT_EQ(quillet.SendCommandNoClear(u"AN"), u"ANSWER");
  EXPECT_EQ(desk.module.LiveInstanceCount, 1);
}

}  // namespace
}  // namespace wendrill::testing
