// What may run inside a wait: the messages of the caller, and with them any member of any object.
#include <gtest/gtest.h>

#include <string>

#include "session/quillet.h"
#include "support/raises.h"
#include "support/screen.h"
#include "support/test_world.h"

namespace wendrill::testing {
namespace {

class InsideAWait : public ::testing::Test {
 protected:
  TestWorld world;
  CQuillet quillet{world.module};
};

TEST_F(InsideAWait, StopLoopMakesTheSendingMemberFailWithItsNumberAndUnlock) {
  world.On(u"ER", {.buffer = u""});
  CQuillet other(world.module);
  world.pump.onPass = [&](std::size_t pass) {
    if (pass == 2) {
      other.StopLoop();
    }
  };
  EXPECT_TRUE(Raises(2530, kCommunicationMessage, [&] { quillet.SendCommandNoClear(u"ER"); }));
  EXPECT_EQ(world.Journal(), "alarm lock, key 322, send ER, alarm unlock");
  EXPECT_EQ(world.module.SharedSession, nullptr);
}

TEST_F(InsideAWait, StopLoopDuringASendingKeepsTheSessionAliveUntilTheCallReturns) {
  world.On(u"AN", {.buffer = u"ANSWER"});
  world.During(u"Send", [&] { quillet.StopLoop(); });
  EXPECT_EQ(quillet.SendCommand(u"AN"), u"ANSWER");
  EXPECT_TRUE(Raises(2505, kCommunicationMessage, [&] { quillet.SendCommand(u"AN"); }));
}

TEST_F(InsideAWait, StopLoopWithTheClearKeyMakesTheSendingFail) {
  world.During(u"SendKey", [&] { quillet.StopLoop(); });
  EXPECT_TRUE(Raises(2505, kCommunicationMessage, [&] { quillet.SendCommand(u"AN"); }));
  EXPECT_EQ(world.Journal(), "key 322");
}

// The holder of the response is one for the process: the inner member releases it, and the outer one finds none.
TEST_F(InsideAWait, AnotherSendCommandSucceedsAndTheWaitingMemberFailsWithItsNumber) {
  world.On(u"AN", {.buffer = u""}).On(u"RT", {.buffer = u"INNER"});
  std::u16string inner;
  world.pump.onPass = [&](std::size_t pass) {
    if (pass == 1) {
      CQuillet other(world.module);
      inner = other.SendCommand(u"RT");
    }
  };
  EXPECT_TRUE(Raises(2530, kCommunicationMessage, [&] { quillet.SendCommandNoClear(u"AN"); }));
  EXPECT_EQ(inner, u"INNER");
  EXPECT_EQ(world.module.LiveInstanceCount, 1);
}

TEST_F(InsideAWait, TheEventHandlerCalledByHandEndsChangeSmodsWait) {
  world.On(u"0500", {});
  world.pump.onPass = [&](std::size_t) { quillet.mTmpSession_ReceivedResponse(); };
  quillet.ChangeSMOD(5);
  EXPECT_EQ(world.Journal(), "key 353, key 353, send 0500");
  EXPECT_EQ(world.pump.passes, 2U);
}

TEST_F(InsideAWait, StopLoopDuringChangeSmodRaises2520) {
  world.pump.onPass = [&](std::size_t) {
    quillet.StopLoop();
    world.RaiseReceivedResponse();
  };
  EXPECT_TRUE(Raises(2520, kGeneralMessage, [&] { quillet.ChangeSMOD(5); }));
  EXPECT_EQ(world.Journal(), "key 353, key 353");
  EXPECT_EQ(world.ConnectedHandlers(), 0U);
}

TEST_F(InsideAWait, AChangeSmodThatFailsInsideAnotherLetsTheOuterOneFailInsteadOfWaitingForever) {
  world.pump.onPass = [&](std::size_t pass) {
    if (pass == 1) {
      world.During(u"SendKey", [] { throw ForeignError(); });
      EXPECT_TRUE(Raises(2520, kGeneralMessage, [&] { quillet.ChangeSMOD(7); }));
    }
  };
  EXPECT_TRUE(Raises(2520, kGeneralMessage, [&] { quillet.ChangeSMOD(5); }));
  EXPECT_EQ(world.ConnectedHandlers(), 0U);
}

TEST_F(InsideAWait, StopLoopDuringACollectionMakesItFailAtTheNextPageAndUnlock) {
  world.On(u"QE/1", {.buffer = Screen({u"A", u")>1/3"})}).On(u"MD", {.buffer = Screen({u"B", u")>2/3"})});
  world.During(u"Send", [&] {
    if (world.JournalLines().back() == "send MD") {
      quillet.StopLoop();
    }
  });
  EXPECT_TRUE(Raises(2525, kCommunicationMessage, [&] { quillet.SendCommandGetAll(u"QE/1"); }));
  EXPECT_EQ(world.Journal(), "key 322, alarm lock, send QE/1, send MD, alarm unlock");
}

TEST_F(InsideAWait, StopLoopWithTheClearKeyOfACollectionSendsNothing) {
  world.During(u"SendKey", [&] { quillet.StopLoop(); });
  EXPECT_EQ(quillet.SendCommandGetAll(u"AN"), u"");
  EXPECT_EQ(world.Journal(), "key 322");
}

TEST_F(InsideAWait, StopLoopOfAnotherObjectWithTheClearKeyOfACollectionMakesItFail) {
  CQuillet other(world.module);
  world.During(u"SendKey", [&] { other.StopLoop(); });
  EXPECT_TRUE(Raises(2525, kCommunicationMessage, [&] { quillet.SendCommandGetAll(u"AN"); }));
}

TEST_F(InsideAWait, ACollectionOfAnotherObjectRunsWhole) {
  world.On(u"AN", {.buffer = u"LATE", .late = 3});
  world.On(u"HE", {.buffer = Screen({u"A", u")>1/2"})}).On(u"MD", {.buffer = Screen({u"B", u")>2/2"})});
  std::u16string inner;
  world.pump.onPass = [&](std::size_t pass) {
    if (pass == 1) {
      CQuillet other(world.module);
      inner = other.SendCommandGetAll(u"HE");
    }
  };
  EXPECT_TRUE(Raises(2530, kCommunicationMessage, [&] { quillet.SendCommandNoClear(u"AN"); }));
  EXPECT_EQ(inner, Screen({u"A", u"B", u")>2/2"}));
}

TEST_F(InsideAWait, CreatingAndDestroyingObjectsLeavesTheSharedSessionInPlace) {
  world.On(u"AN", {.buffer = u"ANSWER", .late = 3});
  world.pump.onPass = [&](std::size_t) { const CQuillet passing(world.module); };
  EXPECT_EQ(quillet.SendCommandNoClear(u"AN"), u"ANSWER");
  EXPECT_EQ(world.module.LiveInstanceCount, 1);
}

}  // namespace
}  // namespace wendrill::testing
