#include "session/quillet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "support/fake_platform.h"
#include "support/raises.h"

namespace wendrill::testing {
namespace {

TEST(QuilletCreation, WithNoSessionRunningFailsWithTheActivePnrMessageAlthoughNoPnrWasAskedFor) {
  FakeDesk desk;
  desk.terminal->Sessions({});
  EXPECT_TRUE(Raises(2510, u"Could not retrieve an active PNR. Make sure there is an active PNR/Session.",
                     [&] { const CQuillet quillet(desk.module); }));
  EXPECT_EQ(desk.module.LiveInstanceCount, 0);
  EXPECT_EQ(desk.module.SharedSession, nullptr);
  EXPECT_EQ(desk.module.gobjPNR, nullptr);
}

TEST(QuilletCreation, OfTheFirstSetsUpTheSharedSessionAndPnr) {
  FakeDesk desk;
  const CQuillet quillet(desk.module);
  EXPECT_EQ(desk.module.LiveInstanceCount, 1);
  EXPECT_NE(desk.module.SharedSession, nullptr);
  EXPECT_NE(desk.module.gobjPNR, nullptr);
  EXPECT_THAT(desk.calls->Calls(), ::testing::ElementsAre("create session list", "list.Count", "list.Sessions",
                                                          "session.SessionName", "create PNR", "create session"));
}

TEST(QuilletCreation, OfASecondBuildsNoSessionListAndSharesTheSession) {
  FakeDesk desk;
  const CQuillet first(desk.module);
  const auto shared = desk.module.SharedSession;
  const auto callsBefore = desk.calls->Count();
  const CQuillet second(desk.module);
  EXPECT_EQ(desk.module.LiveInstanceCount, 2);
  EXPECT_EQ(second.GetSessionList(), u"");
  EXPECT_EQ(desk.module.SharedSession, shared);
  EXPECT_EQ(desk.calls->Count(), callsBefore);
}

TEST(QuilletCreation, BeyondTheSixteenBitCountOverflows) {
  FakeDesk desk;
  desk.module.LiveInstanceCount = std::numeric_limits<std::int16_t>::max();
  EXPECT_TRUE(RaisesNumber(6, [&] { const CQuillet quillet(desk.module); }));
  EXPECT_EQ(desk.module.LiveInstanceCount, std::numeric_limits<std::int16_t>::max());
}

TEST(QuilletCreation, ThatFailsInTheToolkitPassesItsErrorOnAndHoldsNothing) {
  for (std::size_t n = 1; n <= 6; ++n) {
    FakeDesk desk;
    const auto before = desk.calls->liveObjects;
    desk.calls->FailNth(n);
    EXPECT_TRUE(RaisesNumber(ForeignError().Number(), [&] { const CQuillet quillet(desk.module); })) << "call " << n;
    EXPECT_EQ(desk.calls->liveObjects, before) << "call " << n;
    EXPECT_EQ(desk.module.LiveInstanceCount, 0) << "call " << n;
  }
}

TEST(QuilletDestruction, OfAllReleasesTheSharedSessionAndTheNextCreationSetsEverythingUpAgain) {
  FakeDesk desk;
  const auto before = desk.calls->liveObjects;
  {
    const CQuillet first(desk.module);
    const CQuillet second(desk.module);
  }
  EXPECT_EQ(desk.module.LiveInstanceCount, 0);
  EXPECT_EQ(desk.module.SharedSession, nullptr);
  EXPECT_EQ(desk.module.gobjPNR, nullptr);
  EXPECT_EQ(desk.module.LastResponseObject, nullptr);
  EXPECT_EQ(desk.calls->liveObjects, before);
  const CQuillet again(desk.module);
  EXPECT_EQ(again.GetSessionList(), u"A");
  EXPECT_NE(desk.module.SharedSession, nullptr);
}

TEST(QuilletDestruction, OfTheFirstWhileAnotherLivesKeepsTheSharedSession) {
  FakeDesk desk;
  auto first = std::make_unique<CQuillet>(desk.module);
  const CQuillet second(desk.module);
  first.reset();
  EXPECT_EQ(desk.module.LiveInstanceCount, 1);
  EXPECT_NE(desk.module.SharedSession, nullptr);
}

TEST(GetSessionList, WithTwoSessionsNamedAAndBReturnsThemJoinedWithASemicolon) {
  FakeDesk desk;
  desk.terminal->Sessions({u"A", u"B"});
  const CQuillet quillet(desk.module);
  EXPECT_EQ(quillet.GetSessionList(), u"A;B");
}

TEST(GetSessionList, DropsTheSemicolonWhileTheListIsStillEmpty) {
  FakeDesk desk;
  desk.terminal->Sessions({u"", u"B", u""});
  const CQuillet quillet(desk.module);
  EXPECT_EQ(quillet.GetSessionList(), u"B;");
}

TEST(Command, IsStoredTextWithoutHostTraffic) {
  FakeDesk desk;
  CQuillet quillet(desk.module);
  const auto callsBefore = desk.calls->Count();
  EXPECT_EQ(quillet.Command(), u"");
  quillet.SetCommand(u"RT ABC123");
  EXPECT_EQ(quillet.Command(), u"RT ABC123");
  EXPECT_EQ(desk.calls->Count(), callsBefore);
}

TEST(ConnectSession, SharesTheNamedSessionWithEveryObject) {
  FakeDesk desk;
  desk.terminal->Sessions({u"A", u"B"});
  CQuillet quillet(desk.module);
  quillet.ConnectSession(u"B");
  ASSERT_NE(desk.module.SharedSession, nullptr);
  EXPECT_EQ(desk.module.SharedSession->SessionName(), u"B");
}

TEST(ConnectSession, WithAnUnknownNameRaises2535AndLeavesNoSharedSession) {
  FakeDesk desk;
  CQuillet quillet(desk.module);
  EXPECT_TRUE(Raises(2535, u"Could not connect to Quillet Session.", [&] { quillet.ConnectSession(u"Z"); }));
  EXPECT_EQ(desk.module.SharedSession, nullptr);
}

TEST(ConnectSession, OnAnObjectCreatedWhileAnotherLivedRaises2535AndLeavesNoSharedSession) {
  FakeDesk desk;
  const CQuillet first(desk.module);
  CQuillet second(desk.module);
  EXPECT_TRUE(Raises(2535, kConnectMessage, [&] { second.ConnectSession(u"A"); }));
  EXPECT_EQ(desk.module.SharedSession, nullptr);
}

TEST(ConnectSession, WhenAllSessionsHaveEndedRaises2535AndLeavesNoSharedSession) {
  FakeDesk desk;
  CQuillet quillet(desk.module);
  desk.terminal->Sessions({});
  EXPECT_TRUE(Raises(2535, kConnectMessage, [&] { quillet.ConnectSession(u"A"); }));
  EXPECT_EQ(desk.module.SharedSession, nullptr);
}

TEST(ConnectSession, AfterStopLoopLetsSendingMembersWorkAgain) {
  FakeDesk desk;
  desk.terminal->On(u"AN", {.buffer = u"ANSWER"});
  CQuillet quillet(desk.module);
  quillet.StopLoop();
  quillet.ConnectSession(u"A");
  EXPECT_EQ(quillet.SendCommand(u"AN"), u"ANSWER");
}

TEST(StopLoop, OnOneObjectLeavesTheOtherWithoutASession) {
  FakeDesk desk;
  CQuillet first(desk.module);
  CQuillet second(desk.module);
  first.StopLoop();
  EXPECT_EQ(desk.module.SharedSession, nullptr);
  EXPECT_EQ(desk.module.LastResponseObject, nullptr);
  EXPECT_TRUE(Raises(2505, kCommunicationMessage, [&] { second.SendCommand(u"AN"); }));
}

class LastResponse : public ::testing::Test {
 protected:
  FakeDesk desk;
  CQuillet quillet{desk.module};
};

TEST_F(LastResponse, PropertiesReadTheSessionsOwnLastResponse) {
  desk.terminal->Show(u"AN15JUN",
                      {.buffer = u"FIRST\r\nSECOND", .type = 22, .text = u"THE TEXT", .columns = 64, .lines = 12});
  EXPECT_EQ(quillet.LastBuffer(), u"FIRST\r\nSECOND");
  EXPECT_EQ(quillet.LastResponseType(), 22);
  EXPECT_EQ(quillet.LastNumberOfColumns(), 64);
  EXPECT_EQ(quillet.LastNumberOfLines(), 12);
  EXPECT_EQ(quillet.LastHostCommand(), u"AN15JUN");
  EXPECT_EQ(quillet.LastText(), u"THE TEXT");
  EXPECT_EQ(quillet.GetLineFromLastBuffer(2), u"SECOND");
}

TEST_F(LastResponse, TypeIsNarrowedToSixteenBits) {
  desk.terminal->Show(u"", {.type = 32767});
  EXPECT_EQ(quillet.LastResponseType(), 32767);
  desk.terminal->Show(u"", {.type = -32768});
  EXPECT_EQ(quillet.LastResponseType(), -32768);
  desk.terminal->Show(u"", {.type = 32768});
  EXPECT_TRUE(RaisesNumber(6, [&] { quillet.LastResponseType(); }));
  desk.terminal->Show(u"", {.type = -32769});
  EXPECT_TRUE(RaisesNumber(6, [&] { quillet.LastResponseType(); }));
}

TEST_F(LastResponse, BeforeTheFirstResponseIsAnObjectThatIsNotSet) {
  EXPECT_TRUE(RaisesNumber(91, [&] { quillet.LastBuffer(); }));
}

TEST_F(LastResponse, WithoutASessionIsAnObjectThatIsNotSet) {
  desk.terminal->Show(u"", {.buffer = u"X"});
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
  desk.terminal->Show(u"", {.buffer = u"X"});
  for (std::size_t n = 1; n <= 2; ++n) {
    desk.calls->FailNth(n);
    const auto error = ErrorOf([&] { quillet.LastBuffer(); });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->Number(), ForeignError().Number());
    EXPECT_EQ(error->Source(), ForeignError().Source());
    EXPECT_EQ(error->Description(), ForeignError().Description());
  }
}

}  // namespace
}  // namespace wendrill::testing
