// Who answers: forms of entries, sessions, states, turns; and which PNR is on display.
#include "core/running_session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "common/error.h"
#include "simulated_world.h"

namespace wendrill::simulator {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Sessions : public SimulatedWorld {
 protected:
  void LoadTwo(std::u16string_view toml) {
    Load(u"session = [{ name = 'A' }, { name = 'B' }]\n" + std::u16string(toml));
  }

  std::shared_ptr<HostSession> Session(std::u16string_view name) {
    return world.MakeSessionList()->Item(std::u16string(name));
  }
  std::u16string Sent(std::u16string_view entry, std::u16string_view session = u"A") {
    return std::u16string(TrimmedRight(Session(session)->Send(entry, true)->Buffer()));
  }

  // The display of the PNR that is read in a session; empty when there is none.
  std::u16string Retrieved(std::u16string_view entry, std::u16string_view session = u"A") {
    const auto pnr = world.MakePnr();
    const std::vector<Value> arguments = {Session(session)->HostConnection(), std::u16string(entry)};
    pnr->Call(Member::Name(u"Retrieve"), arguments);
    return DisplayOf(*pnr);
  }
  std::u16string OnDisplay(std::u16string_view session = u"A") {
    const auto pnr = world.MakePnr();
    const std::vector<Value> arguments = {Session(session)->HostConnection()};
    pnr->Call(Member::Name(u"RetrieveCurrent"), arguments);
    return DisplayOf(*pnr);
  }
  static std::u16string DisplayOf(SimulatedPnr& pnr) {
    return std::u16string(TrimmedRight(*pnr.Get(Member::Name(u"Text")).As<std::u16string>()));
  }
};

TEST_F(Sessions, TheFirstReplyWhoseFormFitsAnswers) {
  LoadTwo(
      uR"(
    reply = [
      { like = "NM1?????/*", screen = "LIKE" },
      { contains = "LON", screen = "CONTAINS" },
      { starts = "AN", screen = "STARTS" },
    ]
  )");
  EXPECT_EQ(Sent(u"NM1SMITH/JOHN"), u"LIKE");
  EXPECT_EQ(Sent(u"AN15JUNPARLON"), u"CONTAINS");
  EXPECT_EQ(Sent(u"AN15JUNPARNCE"), u"STARTS");
  EXPECT_EQ(Sent(u"NM1LEE/JOHN"), u"ENTRY NOT UNDERSTOOD");
}

TEST_F(Sessions, AReplyOfASessionAnswersInThatSessionAlone) {
  LoadTwo(u"reply = [{ entry = 'JD', session = 'B', screen = 'OF B' }, { entry = 'JD', screen = 'OF ALL' }]");
  EXPECT_EQ(Sent(u"JD", u"A"), u"OF ALL");
  EXPECT_EQ(Sent(u"JD", u"B"), u"OF B");
}

TEST_F(Sessions, TheStateBeginsEmptyAndBelongsToTheScenario) {
  LoadTwo(
      uR"(
    reply = [
      { entry = "QT", when = "", screen = "CLOSED" },
      { entry = "QT", when = "open", screen = "OPEN" },
      { entry = "QS", then = "open", screen = "STARTED" },
      { entry = "QF", then = "", screen = "FINISHED" },
    ]
  )");
  EXPECT_EQ(Sent(u"QT"), u"CLOSED");
  EXPECT_EQ(Sent(u"QS", u"B"), u"STARTED");
  EXPECT_EQ(Sent(u"QT"), u"OPEN");
  EXPECT_EQ(Sent(u"QF"), u"FINISHED");
  EXPECT_EQ(Sent(u"QT", u"B"), u"CLOSED");
}

TEST_F(Sessions, AnErrorChangesTheStateToo) {
  LoadTwo(
      u"reply = [{ entry = 'X', when = '', error = 438, then = 'again' }, { entry = 'X', when = 'again', screen = '2' "
      u"}]");
  EXPECT_TRUE(RaisesNumber(438, [&] { Sent(u"X"); }));
  EXPECT_EQ(Sent(u"X"), u"2");
}

TEST_F(Sessions, ALoadBeginsInTheFirstState) {
  const std::u16string toml =
      u"reply = [{ entry = 'X', when = '', screen = '1', then = 's' }, { entry = 'X', when = 's', screen = '2' }]";
  LoadTwo(toml);
  EXPECT_EQ(Sent(u"X"), u"1");
  LoadTwo(toml);
  EXPECT_EQ(Sent(u"X"), u"1");
  EXPECT_EQ(Sent(u"X"), u"2");
}

TEST_F(Sessions, TurnsAreCountedForEachStateAndFormOfTheirOwn) {
  LoadTwo(
      uR"(
    reply = [
      { entry = "X", when = "", screen = "1" },
      { entry = "X", when = "", screen = "2", then = "s" },
      { entry = "X", when = "s", screen = "3" },
      { entry = "X", when = "s", screen = "4" },
    ]
  )");
  EXPECT_EQ(Sent(u"X"), u"1");
  EXPECT_EQ(Sent(u"X"), u"2");
  EXPECT_EQ(Sent(u"X"), u"3");
  EXPECT_EQ(Sent(u"X"), u"4");
  EXPECT_EQ(Sent(u"X"), u"4");
}

TEST_F(Sessions, WhenAGroupHasNoTurnLeftTheNextOneThatMatchesAnswers) {
  LoadTwo(
      uR"(
    reply = [
      { entry = "AN", screen = "1" }, { entry = "AN", screen = "2" },
      { starts = "A", screen = "3" }, { starts = "A", screen = "4" },
    ]
  )");
  std::vector<std::u16string> answers;
  for (int i = 0; i < 5; ++i) {
    answers.push_back(Sent(u"AN"));
  }
  EXPECT_THAT(answers, ElementsAre(u"1", u"2", u"3", u"4", u"4"));
}

TEST_F(Sessions, AReplyThatIsAloneInItsGroupAlwaysAnswers) {
  LoadTwo(u"reply = [{ entry = 'AN', screen = '1' }, { starts = '', screen = '2' }]");
  EXPECT_EQ(Sent(u"AN"), u"1");
  EXPECT_EQ(Sent(u"AN"), u"1");
}

TEST_F(Sessions, ASilentKeyIsAcceptedAndRaisesNoEvent) {
  LoadTwo(u"[terminal]\nsilent = [353]\n");
  int heard = 0;
  const auto session = Session(u"A");
  const auto connection = session->OnReceivedResponse([&] { ++heard; });
  EXPECT_TRUE(session->SendKey(353));
  world.DeliverPending();
  EXPECT_EQ(heard, 0);
  session->SendKey(352);
  world.DeliverPending();
  EXPECT_EQ(heard, 1);
}

// --- PNRs --------------------------------------------------------------------------------------------------------

TEST_F(Sessions, PnrsTakeTurnsAndTheLastOneStays) {
  LoadTwo(
      uR"(
    pnr = [
      { RecordLocator = "ABC123", display = "1" },
      { RecordLocator = "ABC123", display = "2" },
      { entries = ["SP2"], display = "3" },
      { RecordLocator = "XYZ789", entries = ["SP2"], display = "4" },
    ]
  )");
  EXPECT_EQ(Retrieved(u"RTABC123"), u"1");
  EXPECT_EQ(Retrieved(u"RTABC123", u"B"), u"1");  // each session counts its own turns
  EXPECT_EQ(Retrieved(u"RTABC123"), u"2");
  EXPECT_EQ(Retrieved(u"RTABC123"), u"2");
  EXPECT_EQ(Retrieved(u"SP2"), u"3");
  EXPECT_EQ(Retrieved(u"SP2"), u"4");
  EXPECT_EQ(Retrieved(u"RTXYZ789"), u"4");
}

TEST_F(Sessions, APnrAnswersInItsSessionAndState) {
  LoadTwo(
      uR"(
    reply = [{ entry = "ER", screen = "DONE", then = "stored" }]
    pnr = [
      { RecordLocator = "ABC123", session = "B", display = "OF B" },
      { RecordLocator = "ABC123", when = "stored", display = "CHANGED" },
      { RecordLocator = "ABC123", display = "FIRST" },
    ]
  )");
  EXPECT_EQ(Retrieved(u"RTABC123"), u"FIRST");
  EXPECT_EQ(Retrieved(u"RTABC123", u"B"), u"OF B");
  Sent(u"ER");
  EXPECT_EQ(Retrieved(u"RTABC123"), u"CHANGED");
}

TEST_F(Sessions, ARetrievalSetsTheState) {
  LoadTwo(
      uR"(
    pnr = [{ RecordLocator = "ABC123", display = "1", then = "read" }]
    reply = [{ entry = "X", when = "read", screen = "READ" }]
  )");
  EXPECT_EQ(Sent(u"X"), u"ENTRY NOT UNDERSTOOD");
  Retrieved(u"RTABC123");
  EXPECT_EQ(Sent(u"X"), u"READ");
}

TEST_F(Sessions, ARetrievalPutsThePnrOnDisplayInItsSession) {
  LoadTwo(
      uR"(
    pnr = [{ RecordLocator = "ABC123", display = "1", on_display = true }, { RecordLocator = "XYZ789", display = "2" }]
  )");
  EXPECT_EQ(OnDisplay(), u"1");
  Retrieved(u"RTXYZ789");
  EXPECT_EQ(OnDisplay(), u"2");
  EXPECT_EQ(OnDisplay(u"B"), u"1");
}

TEST_F(Sessions, ARetrievalThatFindsNothingOrFailsLeavesThePnrOnDisplay) {
  LoadTwo(
      uR"(
    pnr = [{ RecordLocator = "ABC123", display = "1", on_display = true }, { RecordLocator = "BROKEN", error = 438 }]
  )");
  EXPECT_EQ(Retrieved(u"RTNONE"), u"");
  EXPECT_TRUE(RaisesNumber(438, [&] { Retrieved(u"RTBROKEN"); }));
  EXPECT_EQ(OnDisplay(), u"1");
}

TEST_F(Sessions, ThePnrOnDisplayAtTheStartIsTheFirstThatItsSessionMaySee) {
  LoadTwo(
      uR"(
    pnr = [
      { RecordLocator = "ABC123", session = "B", display = "OF B", on_display = true },
      { RecordLocator = "XYZ789", display = "OF ALL", on_display = true },
    ]
  )");
  EXPECT_EQ(OnDisplay(u"A"), u"OF ALL");
  EXPECT_EQ(OnDisplay(u"B"), u"OF B");
}

TEST_F(Sessions, WhatIsOnDisplayFollowsTheState) {
  LoadTwo(
      uR"(
    reply = [{ entry = "ER", screen = "DONE", then = "stored" }]
    pnr = [
      { RecordLocator = "ABC123", when = "", display = "FIRST" },
      { RecordLocator = "ABC123", when = "stored", display = "CHANGED" },
    ]
  )");
  Retrieved(u"RTABC123");
  EXPECT_EQ(OnDisplay(), u"FIRST");
  Sent(u"ER");
  EXPECT_EQ(OnDisplay(), u"CHANGED");
}

TEST_F(Sessions, WhereNoPnrOfTheLocatorAnswersThePnrOnDisplayOfTheStateTakesThePlace) {
  LoadTwo(
      uR"(
    reply = [{ entry = "QN", screen = "NEXT", then = "second" }, { entry = "QE", screen = "END", then = "empty" }]
    pnr = [
      { RecordLocator = "ABC123", when = "", display = "FIRST" },
      { RecordLocator = "XYZ789", when = "second", session = "A", display = "SECOND", on_display = true },
      { RecordLocator = "OTHER1", when = "second", session = "B", display = "OF B", on_display = true },
      { RecordLocator = "XYZ789", when = "empty", display = "NOT ON DISPLAY" },
    ]
  )");
  Retrieved(u"RTABC123");
  Sent(u"QN");
  EXPECT_EQ(OnDisplay(), u"SECOND");
  EXPECT_EQ(OnDisplay(u"B"), u"OF B");
  Sent(u"QE");
  EXPECT_EQ(OnDisplay(), u"FIRST");  // nothing takes its place
}

TEST_F(Sessions, APnrOfTheSameLocatorTakesThePlaceBeforeTheOneOnDisplay) {
  LoadTwo(
      uR"(
    reply = [{ entry = "ER", screen = "DONE", then = "stored" }]
    pnr = [
      { RecordLocator = "ABC123", when = "", display = "FIRST" },
      { RecordLocator = "XYZ789", when = "stored", display = "OTHER", on_display = true },
      { RecordLocator = "ABC123", when = "stored", display = "CHANGED" },
    ]
  )");
  Retrieved(u"RTABC123");
  Sent(u"ER");
  EXPECT_EQ(OnDisplay(), u"CHANGED");
}

TEST_F(Sessions, ASentRetrievalShowsThePnrAndPutsItOnDisplay) {
  LoadTwo(
      uR"(
    pnr = [
      { RecordLocator = "ABC123", entries = ["RT1"], display = "HEADER\nNAMES" },
      { RecordLocator = "XYZ789", display = "X\nY", breaks = true },
      { RecordLocator = "EMPTY1" },
    ]
  )");
  const auto response = Session(u"A")->Send(u"RTABC123", true);
  EXPECT_EQ(response->Buffer(), Row(u"HEADER") + Row(u"NAMES"));
  EXPECT_EQ(response->Line(2), Row(u"NAMES"));
  EXPECT_EQ(response->ResponseType(), 22);
  EXPECT_EQ(OnDisplay(), Row(u"HEADER") + u"NAMES");
  EXPECT_EQ(Sent(u"RT1"), Row(u"HEADER") + u"NAMES");
  EXPECT_EQ(Session(u"A")->Send(u"RTXYZ789", true)->Buffer(), u"X\r\nY\r\n");
  EXPECT_EQ(Sent(u"RTEMPTY1"), u"ENTRY NOT UNDERSTOOD");  // there is nothing to show
  EXPECT_EQ(world.Journal(),
            u"send RTABC123\r\nread pnr on display\r\nsend RT1\r\nsend RTXYZ789\r\nsend RTEMPTY1 (unanswered)\r\n");
}

TEST_F(Sessions, AReplyGoesBeforeThePnrsDisplay) {
  LoadTwo(
      uR"(
    reply = [{ entry = "RTABC123", screen = "REPLY" }]
    pnr = [{ RecordLocator = "ABC123", display = "1" }, { RecordLocator = "XYZ789", display = "2", on_display = true }]
  )");
  EXPECT_EQ(Sent(u"RTABC123"), u"REPLY");
  EXPECT_EQ(OnDisplay(), u"2");
}

// --- Waiting -----------------------------------------------------------------------------------------------------

TEST_F(Sessions, ANeverAnsweredEntryHasAnEmptyBufferForGoodAndNoEvent) {
  LoadTwo(u"reply = [{ entry = 'X', never = true }]");
  int heard = 0;
  const auto session = Session(u"A");
  const auto connection = session->OnReceivedResponse([&] { ++heard; });
  const auto response = session->Send(u"X", true);
  for (int i = 0; i < 1000; ++i) {
    EXPECT_EQ(response->Buffer(), u"");
  }
  EXPECT_EQ(response->Text(), u"");
  EXPECT_EQ(session->LastResponse(), response);
  world.DeliverPending();
  EXPECT_EQ(heard, 0);
}

TEST_F(Sessions, ABufferFillsAfterItsTimeOnTheSimulatedClock) {
  LoadTwo(u"reply = [{ entry = 'X', screen = 'AT LAST', after = 2.5 }]");
  world.Time().SetStep(std::chrono::milliseconds(0));
  const auto response = Session(u"A")->Send(u"X", true);
  world.Time().Sleep(std::chrono::milliseconds(2499));
  EXPECT_EQ(response->Buffer(), u"");
  EXPECT_EQ(response->Text(), u"");
  EXPECT_TRUE(RaisesNumber(9, [&] { response->Line(1); }));
  world.Time().Sleep(std::chrono::milliseconds(1));
  EXPECT_EQ(response->Buffer(), Row(u"AT LAST"));
  EXPECT_EQ(response->Line(1), Row(u"AT LAST"));
}

TEST_F(Sessions, AWaitGoesOnPastMidnight) {
  LoadTwo(u"reply = [{ entry = 'X', screen = 'AT LAST', after = 10 }]");
  world.Time().SetStep(std::chrono::milliseconds(0));
  world.Time().SetSeconds(86395);
  const auto response = Session(u"A")->Send(u"X", true);
  world.Time().Sleep(std::chrono::seconds(9));
  EXPECT_EQ(response->Buffer(), u"");
  world.Time().Sleep(std::chrono::seconds(1));
  EXPECT_EQ(response->Buffer(), Row(u"AT LAST"));
}

TEST_F(Sessions, EveryPageTakesItsTime) {
  LoadTwo(u"reply = [{ entry = 'X', pages = ['1', '2'], after = 1 }]");
  world.Time().SetStep(std::chrono::milliseconds(0));
  Session(u"A")->Send(u"X", true);
  const auto second = Session(u"A")->Send(u"MD", true);
  EXPECT_EQ(second->Buffer(), u"");
  world.Time().Sleep(std::chrono::seconds(1));
  EXPECT_EQ(second->Buffer(), Row(u"2"));
}

TEST_F(Sessions, AnotherClockMayMeasureTheWaits) {
  SimulatedClock other;
  other.SetStep(std::chrono::milliseconds(0));
  world.UseClock(other);
  LoadTwo(u"reply = [{ entry = 'X', screen = '1', after = 1 }]");
  const auto response = Session(u"A")->Send(u"X", true);
  world.Time().Sleep(std::chrono::seconds(5));
  EXPECT_EQ(response->Buffer(), u"");
  other.Sleep(std::chrono::seconds(1));
  EXPECT_EQ(response->Buffer(), Row(u"1"));
}

TEST(WaitingKeys, ExcludeEachOther) {
  const auto refusal = [](std::string_view keys) {
    return Refusal(5, [&] { ParseScenario("[[reply]]\nentry = 'A'\n" + std::string(keys), u"test.toml"); });
  };
  EXPECT_EQ(refusal("never = true\nlate = 1\n"),
            R"(test.toml, line 3: "never" in [[reply]] excludes "late" and "after")");
  EXPECT_EQ(refusal("never = true\nafter = 1\n"),
            R"(test.toml, line 3: "never" in [[reply]] excludes "late" and "after")");
  EXPECT_EQ(refusal("never = true\nscreen = ''\n"),
            R"(test.toml, line 1: [[reply]] has more than one of "screen", "pages", "never" and "error")");
  EXPECT_EQ(refusal("screen = ''\nafter = -1\n"),
            R"(test.toml, line 4: "after" in [[reply]] must be a number from 0 to 3600)");
  EXPECT_EQ(refusal("screen = ''\nafter = nan\n"),
            R"(test.toml, line 4: "after" in [[reply]] must be a number from 0 to 3600)");
  EXPECT_EQ(refusal("screen = ''\nafter = '1'\n"),
            R"(test.toml, line 4: "after" in [[reply]] must be a number, not a string)");
  EXPECT_EQ(ParseScenario("[[reply]]\nentry = 'A'\nnever = false\nscreen = ''\nlate = 1\n", u"t")->replies.size(), 1u);
}

}  // namespace
}  // namespace wendrill::simulator
