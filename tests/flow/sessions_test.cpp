// Creating the library's objects and choosing a session.
#include <gtest/gtest.h>

#include "session/encode_utils.h"
#include "simulated_desktop.h"

namespace wendrill::flow {
namespace {

class Sessions : public SimulatedDesktop {
 protected:
  void SetUp() override {
    LoadText(
        uR"(
      session = [{ name = "A" }, { name = "B" }]
      reply = [{ entry = "JD", screen = "STATUS" }]
    )");
  }
};

TEST_F(Sessions, CreatingAQuilletWithoutARunningSessionFailsWith2510AndTheActivePnrMessage) {
  LoadFile("empty_desktop");
  EXPECT_TRUE(Raises(2510, testing::kNoActivePnrMessage, [&] { CQuillet quillet(module); }));
  EXPECT_EQ(module.SharedSession, nullptr);
  EXPECT_EQ(module.gobjPNR, nullptr);
  EXPECT_EQ(module.LiveInstanceCount, 0);
  EXPECT_EQ(world.LiveObjects(), 0);
  EXPECT_EQ(NewJournal(), "");
}

TEST_F(Sessions, GetSessionListWithTwoSessionsNamedAAndBRunningReturnsThemJoined) {
  EXPECT_EQ(CQuillet(module).GetSessionList(), u"A;B");
}

TEST_F(Sessions, ASecondQuilletBuildsNoSessionList) {
  const CQuillet first(module);
  const CQuillet second(module);
  EXPECT_EQ(second.GetSessionList(), u"");
  EXPECT_EQ(first.GetSessionList(), u"A;B");
}

TEST_F(Sessions, DestroyingAllQuilletsReleasesTheSharedSessionAndTheNextCreationSetsUpAgain) {
  {
    const CQuillet first(module);
    const CQuillet second(module);
    EXPECT_GT(world.LiveObjects(), 0);
  }
  EXPECT_EQ(module.SharedSession, nullptr);
  EXPECT_EQ(world.LiveObjects(), 0);
  EXPECT_EQ(CQuillet(module).GetSessionList(), u"A;B");
}

TEST_F(Sessions, CreationTouchesTheTerminalWithNoKeyAndNoEntry) {
  const CQuillet quillet(module);
  EXPECT_EQ(NewJournal(), "");
}

TEST_F(Sessions, WithoutConnectSessionTheFirstSessionIsUsed) {
  const CQuillet quillet(module);
  EXPECT_EQ(module.SharedSession->SessionName(), u"A");
}

TEST_F(Sessions, ConnectSessionPicksASessionByItsName) {
  CQuillet quillet(module);
  quillet.ConnectSession(u"B");
  EXPECT_EQ(module.SharedSession->SessionName(), u"B");
}

TEST_F(Sessions, ConnectSessionWithAnUnknownNameRaises2535AndLeavesNoSharedSession) {
  CQuillet quillet(module);
  EXPECT_TRUE(Raises(2535, testing::kConnectMessage, [&] { quillet.ConnectSession(u"C"); }));
  EXPECT_EQ(module.SharedSession, nullptr);
  EXPECT_TRUE(Raises(2505, testing::kCommunicationMessage, [&] { quillet.SendCommand(u"JD"); }));
}

TEST_F(Sessions, ConnectSessionOnAQuilletThatIsNotTheFirstRaises2535AndLeavesNoSharedSession) {
  const CQuillet first(module);
  CQuillet second(module);
  EXPECT_TRUE(Raises(2535, testing::kConnectMessage, [&] { second.ConnectSession(u"A"); }));
  EXPECT_EQ(module.SharedSession, nullptr);
}

TEST_F(Sessions, ConnectSessionWhenTheLastSessionIsGoneRaises2535) {
  CQuillet quillet(module);
  LoadFile("empty_desktop");
  EXPECT_TRUE(Raises(2535, testing::kConnectMessage, [&] { quillet.ConnectSession(u"A"); }));
  EXPECT_EQ(module.SharedSession, nullptr);
}

TEST_F(Sessions, AfterAFailureConnectSessionConnectsAgain) {
  CQuillet quillet(module);
  quillet.StopLoop();
  quillet.ConnectSession(u"B");
  EXPECT_EQ(quillet.SendCommand(u"JD"), Row(u"STATUS"));
}

TEST_F(Sessions, WithTwoQuilletsStopLoopOnOneLeavesTheOtherWithoutASession) {
  CQuillet first(module);
  CQuillet second(module);
  first.StopLoop();
  EXPECT_TRUE(Raises(2505, testing::kCommunicationMessage, [&] { second.SendCommand(u"JD"); }));
  EXPECT_TRUE(RaisesNumber(91, [&] { second.LastBuffer(); }));
}

TEST_F(Sessions, TheSessionHandOutGivesTheSameConnectionTwice) {
  CEncodeUtils utils(module);
  EXPECT_NE(utils.EncodeSession(), nullptr);
  EXPECT_EQ(utils.EncodeSession(), utils.EncodeSession());
}

TEST_F(Sessions, TheSessionHandOutWithoutARunningSessionFails) {
  LoadFile("empty_desktop");
  const auto error = ErrorOf([&] { CEncodeUtils utils(module); });
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Number(), -2147220394);
  EXPECT_EQ(error->Source(), u"CEncodeUtils.Class_Initialize");
  EXPECT_EQ(error->Description(),
            u"Failed to connect to Selvarin Quillet Session.\r\rVerify that an Selvarin Quillet session is started.");
  EXPECT_EQ(world.LiveObjects(), 0);
}

}  // namespace
}  // namespace wendrill::flow
