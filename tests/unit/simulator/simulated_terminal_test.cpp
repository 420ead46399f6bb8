#include "core/simulated_terminal.h"

#include <gtest/gtest.h>

#include "simulated_world.h"

namespace wendrill::simulator {
namespace {

constexpr std::u16string_view kTwoSessions =
    uR"(
[[session]]
name = "A"
[[session]]
name = "B"
)";

class Terminal : public SimulatedWorld {
 protected:
  // A session of a scenario that has one, named A, and the replies given here.
  std::shared_ptr<SimulatedSession> SessionWith(std::u16string_view rest) {
    Load(u"session = [{ name = 'A' }]\n" + std::u16string(rest));
    return world.MakeSession();
  }

  static std::u16string Sent(SimulatedSession& session, std::u16string_view entry) {
    return session.Send(entry, true)->Buffer();
  }
};

// --- The list ----------------------------------------------------------------------------------------------------

TEST_F(Terminal, TheListHoldsTheSessionsInOrder) {
  Load(kTwoSessions);
  const auto list = world.MakeSessionList();
  EXPECT_EQ(list->Count(), 2);
  const auto sessions = list->Sessions();
  ASSERT_EQ(sessions.size(), 2u);
  EXPECT_EQ(sessions[0]->SessionName(), u"A");
  EXPECT_EQ(sessions[1]->SessionName(), u"B");
}

TEST_F(Terminal, AnItemIsFoundByItsNameOrItsPosition) {
  Load(kTwoSessions);
  const auto list = world.MakeSessionList();
  EXPECT_EQ(list->Item(u"B")->SessionName(), u"B");
  EXPECT_EQ(list->Item(std::int16_t{1})->SessionName(), u"A");
  EXPECT_EQ(list->Item(std::int32_t{2})->SessionName(), u"B");
  EXPECT_EQ(list->Item(2.0)->SessionName(), u"B");
}

TEST_F(Terminal, AnItemThatIsUnknownIsRejectedByName) {
  Load(kTwoSessions);
  const auto list = world.MakeSessionList();
  EXPECT_EQ(Refusal(9, [&] { list->Item(u"b"); }), "No session of the name \"b\" runs.");
  EXPECT_EQ(Refusal(9, [&] { list->Item(std::int32_t{0}); }), "No session runs at position 0.");
  EXPECT_EQ(Refusal(9, [&] { list->Item(std::int32_t{3}); }), "No session runs at position 3.");
  EXPECT_TRUE(RaisesNumber(9, [&] { list->Item(u"1"); }));  // a text is a name, not a position
}

TEST_F(Terminal, AnEmptyDesktopHasNoSessions) {
  Load(u"");
  const auto list = world.MakeSessionList();
  EXPECT_EQ(list->Count(), 0);
  EXPECT_TRUE(list->Sessions().empty());
}

TEST_F(Terminal, AListThatIsKeptSeesTheSessionsThatRunNow) {
  Load(kTwoSessions);
  const auto list = world.MakeSessionList();
  Load(u"");
  EXPECT_EQ(list->Count(), 0);
}

// --- The session -------------------------------------------------------------------------------------------------

TEST_F(Terminal, ANewSessionIsTheFirstThatRuns) {
  Load(kTwoSessions);
  EXPECT_EQ(world.Ports().CreateSession()->SessionName(), u"A");
}

TEST_F(Terminal, WithoutARunningSessionEveryMemberFailsAndSaysSo) {
  Load(u"");
  const auto session = world.MakeSession();
  const std::vector<std::function<void()>> calls = {
      [&] { session->Send(u"X", true); },         [&] { session->Send(u"X", false); },
      [&] { session->LastResponse(); },           [&] { session->SessionName(); },
      [&] { session->HostConnection(); },         [&] { session->SendKey(322); },
      [&] { session->OnReceivedResponse([] {}); }};
  for (const auto& call : calls) {
    EXPECT_EQ(Refusal(kUnspecifiedFailure, call), "No session of the terminal runs.");
  }
  EXPECT_EQ(world.Journal(), u"");  // nothing reached a terminal
}

TEST_F(Terminal, AnEntryIsAnsweredByTheReplyForIt) {
  const auto session = SessionWith(u"reply = [{ entry = 'AN', screen = 'ONE' }]");
  EXPECT_EQ(Sent(*session, u"AN"), Row(u"ONE"));
  EXPECT_EQ(world.Journal(), u"send AN\r\n");
}

TEST_F(Terminal, AReplyForAHeadAnswersEveryEntryThatBeginsWithIt) {
  const auto session = SessionWith(u"reply = [{ starts = 'AN', screen = 'ONE' }]");
  EXPECT_EQ(Sent(*session, u"AN15JUN"), Row(u"ONE"));
  EXPECT_EQ(Sent(*session, u"AN"), Row(u"ONE"));
  EXPECT_EQ(Sent(*session, u"A"), Row(u"ENTRY NOT UNDERSTOOD"));
}

TEST_F(Terminal, TheFirstReplyThatMatchesAnswers) {
  const auto session = SessionWith(
      uR"(
    reply = [{ entry = "AN1", screen = "EXACT" }, { starts = "AN", screen = "HEAD" }, { entry = "AN2", screen = "LATE" }]
  )");
  EXPECT_EQ(Sent(*session, u"AN1"), Row(u"EXACT"));
  EXPECT_EQ(Sent(*session, u"AN2"), Row(u"HEAD"));
}

TEST_F(Terminal, SeveralRepliesForOneEntryAnswerInTurnAndTheLastStays) {
  const auto session = SessionWith(
      uR"(
    reply = [{ entry = "AN", screen = "1" }, { entry = "XX", screen = "X" }, { entry = "AN", screen = "2" }]
  )");
  EXPECT_EQ(Sent(*session, u"AN"), Row(u"1"));
  EXPECT_EQ(Sent(*session, u"XX"), Row(u"X"));
  EXPECT_EQ(Sent(*session, u"AN"), Row(u"2"));
  EXPECT_EQ(Sent(*session, u"AN"), Row(u"2"));
}

TEST_F(Terminal, AReplyForTheEntryAndOneForTheSameHeadTakeNoTurnsWithEachOther) {
  const auto session = SessionWith(u"reply = [{ entry = 'AN', screen = '1' }, { starts = 'AN', screen = '2' }]");
  EXPECT_EQ(Sent(*session, u"AN"), Row(u"1"));
  EXPECT_EQ(Sent(*session, u"AN"), Row(u"1"));
}

TEST_F(Terminal, EachRunningSessionHasTurnsOfItsOwn) {
  Load(std::u16string(kTwoSessions) +
       u"[[reply]]\nentry = 'AN'\nscreen = '1'\n[[reply]]\nentry = 'AN'\nscreen = '2'\n");
  const auto list = world.MakeSessionList();
  const auto a = list->Item(u"A");
  const auto b = list->Item(u"B");
  EXPECT_EQ(a->Send(u"AN", true)->Buffer(), Row(u"1"));
  EXPECT_EQ(b->Send(u"AN", true)->Buffer(), Row(u"1"));
  EXPECT_EQ(list->Item(u"A")->Send(u"AN", true)->Buffer(), Row(u"2"));
}

TEST_F(Terminal, AnEntryThatNoReplyMatchesIsAnsweredAsUnknownAndStandsInTheJournalAsUnanswered) {
  const auto session = SessionWith(u"unknown = { screen = 'WHAT' }");
  EXPECT_EQ(Sent(*session, u"ZZ"), Row(u"WHAT"));
  EXPECT_EQ(world.Journal(), u"send ZZ (unanswered)\r\n");
}

TEST_F(Terminal, EachMdShowsTheNextPage) {
  const auto session = SessionWith(u"reply = [{ entry = 'AN', pages = ['1', '2', '3'] }]");
  EXPECT_EQ(Sent(*session, u"AN"), Row(u"1"));
  EXPECT_EQ(Sent(*session, u"MD"), Row(u"2"));
  EXPECT_EQ(Sent(*session, u"MD"), Row(u"3"));
  EXPECT_EQ(world.Journal(), u"send AN\r\nsend MD\r\nsend MD\r\n");
}

TEST_F(Terminal, AfterTheLastPageMdIsAnEntryLikeAnyOther) {
  const auto session =
      SessionWith(u"reply = [{ entry = 'AN', pages = ['1', '2'] }, { entry = 'MD', screen = 'NO MORE' }]");
  Sent(*session, u"AN");
  Sent(*session, u"MD");
  EXPECT_EQ(Sent(*session, u"MD"), Row(u"NO MORE"));
}

TEST_F(Terminal, MdWithoutPagesAndWithoutAReplyIsUnknown) {
  const auto session = SessionWith(u"reply = [{ entry = 'AN', screen = '1' }]");
  Sent(*session, u"AN");
  EXPECT_EQ(Sent(*session, u"MD"), Row(u"ENTRY NOT UNDERSTOOD"));
  EXPECT_EQ(world.Journal(), u"send AN\r\nsend MD (unanswered)\r\n");
}

TEST_F(Terminal, TheClearKeyDoesNotDisturbThePages) {
  const auto session = SessionWith(u"reply = [{ entry = 'AN', pages = ['1', '2'] }]");
  Sent(*session, u"AN");
  EXPECT_TRUE(session->SendKey(322));
  EXPECT_EQ(Sent(*session, u"MD"), Row(u"2"));
}

TEST_F(Terminal, AnotherEntryEndsThePages) {
  const auto session = SessionWith(u"reply = [{ entry = 'AN', pages = ['1', '2'] }, { entry = 'XX', screen = 'X' }]");
  Sent(*session, u"AN");
  Sent(*session, u"XX");
  EXPECT_EQ(Sent(*session, u"MD"), Row(u"ENTRY NOT UNDERSTOOD"));
}

TEST_F(Terminal, TheSameEntryBeginsItsPagesAgain) {
  const auto session = SessionWith(u"reply = [{ entry = 'AN', pages = ['1', '2'] }]");
  Sent(*session, u"AN");
  Sent(*session, u"MD");
  EXPECT_EQ(Sent(*session, u"AN"), Row(u"1"));
  EXPECT_EQ(Sent(*session, u"MD"), Row(u"2"));
}

TEST_F(Terminal, AnEntryThatIsTypedIsNotTransmitted) {
  const auto session = SessionWith(u"reply = [{ entry = 'AN', screen = '1' }]");
  EXPECT_EQ(session->Send(u"AN", false), nullptr);
  EXPECT_EQ(session->LastResponse(), nullptr);
  EXPECT_EQ(world.Journal(), u"type AN\r\n");
}

TEST_F(Terminal, AnEntryThatIsTypedLeavesTheLastResponseAndThePages) {
  const auto session = SessionWith(u"reply = [{ entry = 'AN', pages = ['1', '2'] }]");
  Sent(*session, u"AN");
  session->Send(u"MD", false);
  EXPECT_EQ(session->LastResponse()->HostCommand(), u"AN");
  EXPECT_EQ(Sent(*session, u"MD"), Row(u"2"));
}

TEST_F(Terminal, AReplyThatIsAnErrorFailsTheSendAndUsesItsTurnUp) {
  const auto session =
      SessionWith(u"reply = [{ entry = 'AN', error = 0x80004005 }, { entry = 'AN', screen = 'AGAIN' }]");
  EXPECT_EQ(Refusal(kUnspecifiedFailure, [&] { session->Send(u"AN", true); }),
            "The scenario lets the entry \"AN\" fail.");
  EXPECT_EQ(session->LastResponse(), nullptr);
  EXPECT_EQ(Sent(*session, u"AN"), Row(u"AGAIN"));
  EXPECT_EQ(world.Journal(), u"send AN\r\nsend AN\r\n");
}

TEST_F(Terminal, AnErrorLeavesTheScreenAndItsPages) {
  const auto session = SessionWith(u"reply = [{ entry = 'AN', pages = ['1', '2'] }, { entry = 'XX', error = 438 }]");
  Sent(*session, u"AN");
  EXPECT_TRUE(RaisesNumber(438, [&] { session->Send(u"XX", true); }));
  EXPECT_EQ(session->LastResponse()->HostCommand(), u"AN");
  EXPECT_EQ(Sent(*session, u"MD"), Row(u"2"));
}

TEST_F(Terminal, ASendThatWasMadeToFailStandsInTheJournalAndTakesNoTurn) {
  const auto session = SessionWith(u"reply = [{ entry = 'AN', screen = '1' }, { entry = 'AN', screen = '2' }]");
  world.FailNext(u"Send", kUnspecifiedFailure, 1);
  EXPECT_TRUE(RaisesNumber(kUnspecifiedFailure, [&] { session->Send(u"AN", true); }));
  EXPECT_EQ(Sent(*session, u"AN"), Row(u"1"));
  EXPECT_EQ(world.Journal(), u"send AN\r\nsend AN\r\n");
}

TEST_F(Terminal, AKeyIsAcceptedUnlessTheTerminalRejectsIt) {
  const auto session = SessionWith(u"[terminal]\nrefuses = [322, 257]\n");
  EXPECT_FALSE(session->SendKey(322));
  EXPECT_FALSE(session->SendKey(257));
  EXPECT_TRUE(session->SendKey(353));
  EXPECT_EQ(world.Journal(), u"key 322\r\nkey 257\r\nkey 353\r\n");
}

TEST_F(Terminal, ThereIsNoResponseBeforeTheFirstEntry) {
  const auto session = SessionWith(u"");
  EXPECT_EQ(session->LastResponse(), nullptr);
}

TEST_F(Terminal, TheLastResponseIsThatOfTheEntrySentLastWhoeverSentIt) {
  const auto session = SessionWith(u"");
  const auto other = world.MakeSession();
  Sent(*session, u"A1");
  Sent(*other, u"A2");
  EXPECT_EQ(session->LastResponse()->HostCommand(), u"A2");
}

TEST_F(Terminal, AskedTwiceTheLastResponseIsOneObject) {
  const auto session = SessionWith(u"");
  const auto response = session->Send(u"A1", true);
  EXPECT_EQ(session->LastResponse(), response);
  EXPECT_EQ(session->LastResponse(), session->LastResponse());
}

TEST_F(Terminal, TheConnectionIsOneObjectForEachRunningSession) {
  Load(kTwoSessions);
  const auto list = world.MakeSessionList();
  const auto connection = list->Item(u"A")->HostConnection();
  EXPECT_EQ(list->Item(u"A")->HostConnection(), connection);
  EXPECT_NE(list->Item(u"B")->HostConnection(), connection);
}

TEST_F(Terminal, TheConnectionHasNoMembers) {
  const auto connection = SessionWith(u"")->HostConnection();
  EXPECT_TRUE(RaisesNumber(438, [&] { connection->Get(Member::Name(u"Count")); }));
  EXPECT_TRUE(RaisesNumber(438, [&] { connection->Put(Member::Id(0), Value()); }));
  EXPECT_TRUE(RaisesNumber(438, [&] { connection->Call(Member::Id(0), {}); }));
  EXPECT_TRUE(RaisesNumber(438, [&] { connection->Walk(); }));
  EXPECT_FALSE(connection->Is(SegmentType::Timed));
}

// --- The response ------------------------------------------------------------------------------------------------

TEST_F(Terminal, AResponseTellsEverythingThatTheReplySays) {
  const auto session = SessionWith(
      uR"(
    reply = [{ entry = "AN", screen = "ABCDE\nF", text = "AS TEXT", type = 70000, columns = 5, lines = 12 }]
  )");
  const auto response = session->Send(u"AN", true);
  EXPECT_EQ(response->Buffer(), u"ABCDEF    ");
  EXPECT_EQ(response->HostCommand(), u"AN");
  EXPECT_EQ(response->ResponseType(), 70000);
  EXPECT_EQ(response->Text(), u"AS TEXT");
  EXPECT_EQ(response->NumberOfColumns(), 5);
  EXPECT_EQ(response->NumberOfLines(), 12);
  EXPECT_EQ(response->Line(1), u"ABCDE");
  EXPECT_EQ(response->Line(2), u"F    ");
}

TEST_F(Terminal, WhatAReplyLeavesOutHasItsUsualValue) {
  const auto session = SessionWith(u"reply = [{ entry = 'AN', screen = 'A' }]");
  const auto response = session->Send(u"AN", true);
  EXPECT_EQ(response->Text(), Row(u"A"));  // the buffer
  EXPECT_EQ(response->ResponseType(), 0);
  EXPECT_EQ(response->NumberOfColumns(), 80);
  EXPECT_EQ(response->NumberOfLines(), 24);
}

TEST_F(Terminal, ALineOutsideTheBufferIsRejected) {
  const auto session = SessionWith(u"reply = [{ entry = 'AN', screen = 'A' }]");
  const auto response = session->Send(u"AN", true);
  EXPECT_EQ(Refusal(9, [&] { response->Line(2); }), "The buffer has no line 2.");
  EXPECT_TRUE(RaisesNumber(9, [&] { response->Line(0); }));
  EXPECT_TRUE(RaisesNumber(9, [&] { response->Line(-1); }));
}

TEST_F(Terminal, ALateBufferReadsEmptyAsOftenAsTheReplySays) {
  const auto session = SessionWith(u"reply = [{ entry = 'AN', screen = 'A', late = 2 }]");
  const auto response = session->Send(u"AN", true);
  EXPECT_EQ(response->Buffer(), u"");
  EXPECT_EQ(session->LastResponse()->Buffer(), u"");  // the same answer, read through another hand
  EXPECT_EQ(response->Buffer(), Row(u"A"));
  EXPECT_EQ(response->Buffer(), Row(u"A"));
}

TEST_F(Terminal, EveryPageOfALateReplyIsLate) {
  const auto session = SessionWith(u"reply = [{ entry = 'AN', pages = ['1', '2'], late = 1 }]");
  session->Send(u"AN", true);
  const auto second = session->Send(u"MD", true);
  EXPECT_EQ(second->Buffer(), u"");
  EXPECT_EQ(second->Buffer(), Row(u"2"));
}

TEST_F(Terminal, AResponseOutlivesItsSessionAndItsScenario) {
  auto session = SessionWith(u"reply = [{ entry = 'AN', screen = 'A' }]");
  const auto response = session->Send(u"AN", true);
  session.reset();
  Load(u"");
  EXPECT_EQ(response->Buffer(), Row(u"A"));
}

// --- Events ------------------------------------------------------------------------------------------------------

class Events : public Terminal {
 protected:
  void SetUp() override { Load(kTwoSessions); }
};

TEST_F(Events, AnEntryReachesEveryListenerOfItsSessionWhenEventsAreDelivered) {
  const auto list = world.MakeSessionList();
  const auto a = list->Item(u"A");
  const auto b = list->Item(u"B");
  int heardByFirst = 0;
  int heardBySecond = 0;
  int heardByOther = 0;
  const auto first = a->OnReceivedResponse([&] { ++heardByFirst; });
  const auto second = list->Item(u"A")->OnReceivedResponse([&] { ++heardBySecond; });
  const auto other = b->OnReceivedResponse([&] { ++heardByOther; });
  a->Send(u"X", true);
  EXPECT_EQ(heardByFirst, 0);
  world.DeliverPending();
  EXPECT_EQ(heardByFirst, 1);
  EXPECT_EQ(heardBySecond, 1);
  EXPECT_EQ(heardByOther, 0);
  world.DeliverPending();
  EXPECT_EQ(heardByFirst, 1);
}

TEST_F(Events, OnlyKeysThatMakeTheHostAnswerBringAnEvent) {
  const auto session = world.MakeSession();
  int heard = 0;
  const auto connection = session->OnReceivedResponse([&] { ++heard; });
  for (const KeyCode key : {272, 320, 352, 353, 354}) {
    session->SendKey(key);
    world.DeliverPending();
  }
  EXPECT_EQ(heard, 5);
  for (const KeyCode key : {322, 257, 319}) {
    session->SendKey(key);
  }
  world.DeliverPending();
  EXPECT_EQ(heard, 5);
}

TEST_F(Events, ATypedEntryARejectedKeyAndAFailedSendBringNone) {
  Load(u"session = [{ name = 'A' }]\nterminal = { refuses = [353] }\nreply = [{ entry = 'X', error = 5 }]");
  const auto session = world.MakeSession();
  int heard = 0;
  const auto connection = session->OnReceivedResponse([&] { ++heard; });
  session->Send(u"A", false);
  session->SendKey(353);
  EXPECT_TRUE(RaisesNumber(5, [&] { session->Send(u"X", true); }));
  world.DeliverPending();
  EXPECT_EQ(heard, 0);
}

TEST_F(Events, WhoeverDisconnectsBeforeTheDeliveryHearsNothing) {
  const auto session = world.MakeSession();
  int heard = 0;
  auto connection = session->OnReceivedResponse([&] { ++heard; });
  session->Send(u"X", true);
  connection.reset();
  world.DeliverPending();
  EXPECT_EQ(heard, 0);
}

TEST_F(Events, AHandlerMayDisconnectItself) {
  const auto session = world.MakeSession();
  int heard = 0;
  std::unique_ptr<EventConnection> connection;
  connection = session->OnReceivedResponse([&] {
    connection.reset();
    ++heard;
  });
  session->Send(u"X", true);
  session->Send(u"X", true);
  world.DeliverPending();
  EXPECT_EQ(heard, 1);
}

TEST_F(Events, WhatAHandlerBringsAboutWaitsForTheNextDelivery) {
  const auto session = world.MakeSession();
  int heard = 0;
  const auto connection = session->OnReceivedResponse([&] {
    ++heard;
    session->Send(u"X", true);
  });
  session->Send(u"X", true);
  world.DeliverPending();
  EXPECT_EQ(heard, 1);
  world.DeliverPending();
  EXPECT_EQ(heard, 2);
}

TEST_F(Events, AListenerStaysConnectedWithoutTheSessionObject) {
  int heard = 0;
  const auto connection = world.MakeSession()->OnReceivedResponse([&] { ++heard; });
  world.MakeSession()->Send(u"X", true);
  world.DeliverPending();
  EXPECT_EQ(heard, 1);
}

TEST_F(Events, EveryQueuedEventIsTold) {
  int told = 0;
  world.OnEventQueued([&] { ++told; });
  const auto session = world.MakeSession();
  session->Send(u"X", true);
  EXPECT_EQ(told, 0);  // nobody listens
  const auto first = session->OnReceivedResponse([] {});
  const auto second = session->OnReceivedResponse([] {});
  session->SendKey(353);
  EXPECT_EQ(told, 2);
}

TEST_F(Events, TheNewestResponseIsTheOneThatTheEventIsAbout) {
  const auto session = world.MakeSession();
  EXPECT_EQ(session->NewestResponse(), nullptr);
  const auto response = session->Send(u"X", true);
  world.FailNext(u"*", 5, 1);
  EXPECT_EQ(session->NewestResponse(), response);  // no call of a member: the planned failure still waits
  EXPECT_TRUE(RaisesNumber(5, [&] { session->SessionName(); }));
}

}  // namespace
}  // namespace wendrill::simulator
