#include "session/quillet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "support/raises.h"
#include "support/test_world.h"

namespace wendrill::testing {
namespace {

TEST(QuilletCreation, WithNoSessionRunningFailsWithTheActivePnrMessageAlthoughNoPnrWasAskedFor) {
  TestWorld world;
  world.Sessions({});
  EXPECT_TRUE(Raises(2510, u"Could not retrieve an active PNR. Make sure there is an active PNR/Session.",
                     [&] { const CQuillet quillet(world.module); }));
  EXPECT_EQ(world.module.LiveInstanceCount, 0);
  EXPECT_EQ(world.module.SharedSession, nullptr);
  EXPECT_EQ(world.module.gobjPNR, nullptr);
}

TEST(QuilletCreation, OfTheFirstSetsUpTheSharedSessionAndPnr) {
  TestWorld world;
  const CQuillet quillet(world.module);
  EXPECT_EQ(world.module.LiveInstanceCount, 1);
  EXPECT_NE(world.module.SharedSession, nullptr);
  EXPECT_NE(world.module.gobjPNR, nullptr);
  EXPECT_THAT(world.calls->Calls(), ::testing::ElementsAre("CreateSessionList", "Count", "_NewEnum", "SessionName",
                                                           "CreatePnr", "CreateSession"));
}

TEST(QuilletCreation, OfASecondBuildsNoSessionListAndSharesTheSession) {
  TestWorld world;
  const CQuillet first(world.module);
  const auto shared = world.module.SharedSession;
  const auto callsBefore = world.calls->Count();
  const CQuillet second(world.module);
  EXPECT_EQ(world.module.LiveInstanceCount, 2);
  EXPECT_EQ(second.GetSessionList(), u"");
  EXPECT_EQ(world.module.SharedSession, shared);
  EXPECT_EQ(world.calls->Count(), callsBefore);
}

TEST(QuilletCreation, BeyondTheSixteenBitCountOverflows) {
  TestWorld world;
  world.module.LiveInstanceCount = std::numeric_limits<std::int16_t>::max();
  EXPECT_TRUE(RaisesNumber(6, [&] { const CQuillet quillet(world.module); }));
  EXPECT_EQ(world.module.LiveInstanceCount, std::numeric_limits<std::int16_t>::max());
}

TEST(QuilletCreation, ThatFailsInTheToolkitPassesItsErrorOnAndHoldsNothing) {
  for (std::size_t n = 1; n <= 6; ++n) {
    TestWorld world;
    const auto before = world.LiveObjects();
    world.calls->FailNth(n);
    EXPECT_TRUE(RaisesNumber(ForeignError().Number(), [&] { const CQuillet quillet(world.module); })) << "call " << n;
    EXPECT_EQ(world.LiveObjects(), before) << "call " << n;
    EXPECT_EQ(world.module.LiveInstanceCount, 0) << "call " << n;
  }
}

TEST(QuilletDestruction, OfAllReleasesTheSharedSessionAndTheNextCreationSetsEverythingUpAgain) {
  TestWorld world;
  const auto before = world.LiveObjects();
  {
    const CQuillet first(world.module);
    const CQuillet second(world.module);
  }
  EXPECT_EQ(world.module.LiveInstanceCount, 0);
  EXPECT_EQ(world.module.SharedSession, nullptr);
  EXPECT_EQ(world.module.gobjPNR, nullptr);
  EXPECT_EQ(world.module.LastResponseObject, nullptr);
  EXPECT_EQ(world.LiveObjects(), before);
  const CQuillet again(world.module);
  EXPECT_EQ(again.GetSessionList(), u"A");
  EXPECT_NE(world.module.SharedSession, nullptr);
}

TEST(QuilletDestruction, OfTheFirstWhileAnotherLivesKeepsTheSharedSession) {
  TestWorld world;
  auto first = std::make_unique<CQuillet>(world.module);
  const CQuillet second(world.module);
  first.reset();
  EXPECT_EQ(world.module.LiveInstanceCount, 1);
  EXPECT_NE(world.module.SharedSession, nullptr);
}

TEST(GetSessionList, WithTwoSessionsNamedAAndBReturnsThemJoinedWithASemicolon) {
  TestWorld world;
  world.Sessions({u"A", u"B"});
  const CQuillet quillet(world.module);
  EXPECT_EQ(quillet.GetSessionList(), u"A;B");
}

TEST(GetSessionList, DropsTheSemicolonWhileTheListIsStillEmpty) {
  TestWorld world;
  world.Sessions({u"", u"B", u""});
  const CQuillet quillet(world.module);
  EXPECT_EQ(quillet.GetSessionList(), u"B;");
}

TEST(Command, IsStoredTextWithoutHostTraffic) {
  TestWorld world;
  CQuillet quillet(world.module);
  const auto callsBefore = world.calls->Count();
  EXPECT_EQ(quillet.Command(), u"");
  quillet.SetCommand(u"RT ABC123");
  EXPECT_EQ(quillet.Command(), u"RT ABC123");
  EXPECT_EQ(world.calls->Count(), callsBefore);
}

TEST(ConnectSession, SharesTheNamedSessionWithEveryObject) {
  TestWorld world;
  world.Sessions({u"A", u"B"});
  CQuillet quillet(world.module);
  quillet.ConnectSession(u"B");
  ASSERT_NE(world.module.SharedSession, nullptr);
  EXPECT_EQ(world.module.SharedSession->SessionName(), u"B");
}

TEST(ConnectSession, WithAnUnknownNameRaises2535AndLeavesNoSharedSession) {
  TestWorld world;
  CQuillet quillet(world.module);
  EXPECT_TRUE(Raises(2535, u"Could not connect to Quillet Session.", [&] { quillet.ConnectSession(u"Z"); }));
  EXPECT_EQ(world.module.SharedSession, nullptr);
}

TEST(ConnectSession, OnAnObjectCreatedWhileAnotherLivedRaises2535AndLeavesNoSharedSession) {
  TestWorld world;
  const CQuillet first(world.module);
  CQuillet second(world.module);
  EXPECT_TRUE(Raises(2535, kConnectMessage, [&] { second.ConnectSession(u"A"); }));
  EXPECT_EQ(world.module.SharedSession, nullptr);
}

TEST(ConnectSession, WhenAllSessionsHaveEndedRaises2535AndLeavesNoSharedSession) {
  TestWorld world;
  CQuillet quillet(world.module);
  world.Sessions({});
  EXPECT_TRUE(Raises(2535, kConnectMessage, [&] { quillet.ConnectSession(u"A"); }));
  EXPECT_EQ(world.module.SharedSession, nullptr);
}

TEST(ConnectSession, AfterStopLoopLetsSendingMembersWorkAgain) {
  TestWorld world;
  world.On(u"AN", {.buffer = u"ANSWER"});
  CQuillet quillet(world.module);
  quillet.StopLoop();
  quillet.ConnectSession(u"A");
  EXPECT_EQ(quillet.SendCommand(u"AN"), u"ANSWER");
}

TEST(StopLoop, OnOneObjectLeavesTheOtherWithoutASession) {
  TestWorld world;
  CQuillet first(world.module);
  CQuillet second(world.module);
  first.StopLoop();
  EXPECT_EQ(world.module.SharedSession, nullptr);
  EXPECT_EQ(world.module.LastResponseObject, nullptr);
  EXPECT_TRUE(Raises(2505, kCommunicationMessage, [&] { second.SendCommand(u"AN"); }));
}

class LastResponse : public ::testing::Test {
 protected:
  TestWorld world;
  CQuillet quillet{world.module};
};

TEST_F(LastResponse, PropertiesReadTheSessionsOwnLastResponse) {
  world.Show(u"AN15JUN", {.buffer = u"FIRST\r\nSECOND", .type = 22, .text = u"THE TEXT", .columns = 64, .lines = 12});
  EXPECT_EQ(quillet.LastBuffer(), u"FIRST\r\nSECOND");
  EXPECT_EQ(quillet.LastResponseType(), 22);
  EXPECT_EQ(quillet.LastNumberOfColumns(), 64);
  EXPECT_EQ(quillet.LastNumberOfLines(), 12);
  EXPECT_EQ(quillet.LastHostCommand(), u"AN15JUN");
  EXPECT_EQ(quillet.LastText(), u"THE TEXT");
  EXPECT_EQ(quillet.GetLineFromLastBuffer(2), u"SECOND");
}

TEST_F(LastResponse, TypeIsNarrowedToSixteenBits) {
  world.Show(u"AN1", {.type = 32767});
  EXPECT_EQ(quillet.LastResponseType(), 32767);
  world.Show(u"AN2", {.type = -32768});
  EXPECT_EQ(quillet.LastResponseType(), -32768);
  world.Show(u"AN3", {.type = 32768});
  EXPECT_TRUE(RaisesNumber(6, [&] { quillet.LastResponseType(); }));
  world.Show(u"AN4", {.type = -32769});
  EXPECT_TRUE(RaisesNumber(6, [&] { quillet.LastResponseType(); }));
}

TEST_F(LastResponse, BeforeTheFirstResponseIsAnObjectThatIsNotSet) {
  EXPECT_TRUE(RaisesNumber(91, [&] { quillet.LastBuffer(); }));
}

TEST_F(LastResponse, WithoutASessionIsAnObjectThatIsNotSet) {
  world.Show(u"AN", {.buffer = u"X"});
  quillet.StopLoop();
  EXPECT_TRUE(RaisesNumber(91, [&] { quillet.LastBuffer(); }));
  EXPECT_TRUE(RaisesNumber(91, [&] { quillet.LastResponseType(); }));
  EXPECT_TRUE(RaisesNumber(91, [&] { quillet.LastNumberOfColumns(); }));
  EXPECT_TRUE(RaisesNumber(91, [&] { quillet.LastNumberOfLines(); }));
  EXPECT_TRUE(RaisesNumber(91, [&] { quillet.LastHostCommand(); }));
  EXPECT_TRUE(RaisesNumber(91, [&] { quillet.LastText(); }));
  EXPECT_TRUE(RaisesNumber(91, [&] { quillet.GetLineFromLastBuffer(1); }));
}

TEST_F(LastResponse, PassesTheToolkitsErrorOnUnchanged) {
  world.Show(u"AN", {.buffer = u"X"});
  for (std::size_t n = 1; n <= 2; ++n) {
    world.calls->FailNth(n);
    const auto error = ErrorOf([&] { quillet.LastBuffer(); });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->Number(), ForeignError().Number());
    EXPECT_EQ(error->Source(), ForeignError().Source());
    EXPECT_EQ(error->Description(), ForeignError().Description());
  }
}

}  // namespace
}  // namespace wendrill::testing
