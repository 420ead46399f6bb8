#include "core/report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulated_world.h"

namespace wendrill::simulator {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Report : public SimulatedWorld {
 protected:
  // Loads a scenario whose first line is line 1 of the text.
  void LoadNear(std::u16string_view toml) { world.LoadText(toml, u"C:\\tests\\near.toml"); }

  void Send(std::u16string_view entry, std::u16string_view session = u"A") {
    world.MakeSessionList()->Item(std::u16string(session))->Send(entry, true);
  }
  void Retrieve(std::u16string_view entry) {
    const std::vector<Value> arguments = {world.MakeSession()->HostConnection(), std::u16string(entry)};
    world.MakePnr()->Call(Member::Name(u"Retrieve"), arguments);
  }

  // The report with LF for CR LF.
  std::string Text() const { return ToUtf8(Replaced(world.Report(), u"\r\n", u"\n")); }
};

TEST_F(Report, IsEmptyBeforeAScenarioIsNeededAndAfterARunWithoutFindings) {
  EXPECT_EQ(Text(), "");
  LoadNear(u"session = [{ name = 'A' }]\nreply = [{ entry = 'X', screen = '1' }]");
  Send(u"X");
  EXPECT_EQ(Text(), "");
  EXPECT_EQ(world.Findings().Findings(), 0);
}

TEST_F(Report, TellsUnansweredEntriesAndUnusedReplies) {
  LoadNear(
      u"[[session]]\nname = 'A'\n"
      u"[[reply]]\nentry = \"AN15JUNPARLON\"\nscreen = '1'\n"
      u"[[reply]]\nentry = \"NEVERUSED\"\nscreen = '1'\n");
  Send(u"AN15JUNPARLON");
  Send(u"AN15JUNPARLOM");
  EXPECT_EQ(Text(), R"(near.toml: 1 entry was not answered
  AN15JUNPARLOM  sent first in session A
  nearest: line 3, entry = "AN15JUNPARLON"; column 13: "M" sent, "N" expected
near.toml: 1 reply was never used
  line 6, entry = "NEVERUSED"
)");
  EXPECT_THAT(world.Findings().Unanswered(), ElementsAre(u"AN15JUNPARLOM"));
  EXPECT_THAT(world.Findings().Unused(), ElementsAre(u"line 6, entry = \"NEVERUSED\""));
  EXPECT_THAT(world.Findings().Warnings(), IsEmpty());
  EXPECT_EQ(world.Findings().Findings(), 2);
}

TEST_F(Report, TellsAnEntryOnceHoweverOftenItIsSent) {
  LoadNear(u"session = [{ name = 'A' }, { name = 'B' }]");
  Send(u"ZZ", u"B");
  Send(u"YY");
  Send(u"ZZ");
  Send(u"ZZ");
  EXPECT_EQ(Text(), R"(near.toml: 2 entries were not answered
  ZZ  sent 3 times, first in session B
  YY  sent first in session A
)");
}

TEST_F(Report, ALineBreakInAnEntryDoesNotEndTheLine) {
  LoadNear(u"session = [{ name = 'A' }]");
  Send(u"A\r\nB");
  EXPECT_EQ(Text(), "near.toml: 1 entry was not answered\n  A\\r\\nB  sent first in session A\n");
}

// --- The nearest reply -------------------------------------------------------------------------------------------

class NearestReply : public Report {
 protected:
  // What the report says under an entry that no reply answers; the replies are optional, so that it says nothing else.
  std::string NearestTo(std::u16string_view entry, std::u16string_view replies) {
    World own;
    own.LoadText(u"session = [{ name = 'A' }, { name = 'B' }]\n" + std::u16string(replies), u"near.toml");
    own.MakeSession()->Send(entry, true);
    const std::string text = ToUtf8(Replaced(own.Report(), u"\r\n", u"\n"));
    const std::string heading =
        "near.toml: 1 entry was not answered\n  " + ToUtf8(entry) + "  sent first in session A\n";
    return text.rfind(heading, 0) == 0 ? text.substr(heading.size()) : "not the heading: " + text;
  }
};

TEST_F(NearestReply, TheColumnIsThatOfTheFirstDifference) {
  EXPECT_EQ(NearestTo(u"AN15JUNPAR", u"[[reply]]\nentry = 'AN15JUNPARL'\nscreen = ''\noptional = true\n"),
            "  nearest: line 2, entry = \"AN15JUNPARL\"; column 11: nothing sent, \"L\" expected\n");
  EXPECT_EQ(NearestTo(u"AN15JUNPARLX", u"[[reply]]\nentry = 'AN15JUNPARL'\nscreen = ''\noptional = true\n"),
            "  nearest: line 2, entry = \"AN15JUNPARL\"; column 12: \"X\" sent, nothing expected\n");
  EXPECT_EQ(NearestTo(u"AN15JNUPARL", u"[[reply]]\nentry = 'AN15JUNPARL'\nscreen = ''\noptional = true\n"),
            "  nearest: line 2, entry = \"AN15JUNPARL\"; column 6: \"N\" sent, \"U\" expected\n");
}

TEST_F(NearestReply, CapitalsAndABlankAtTheEndAreNamed) {
  EXPECT_EQ(NearestTo(u"an15jun", u"[[reply]]\nentry = 'AN15JUN'\nscreen = ''\noptional = true\n"),
            "  nearest: line 2, entry = \"AN15JUN\"; differs in capitals only\n");
  EXPECT_EQ(NearestTo(u"an15jun", u"[[reply]]\nstarts = 'AN'\nscreen = ''\noptional = true\n"),
            "  nearest: line 2, starts = \"AN\"; differs in capitals only\n");
  EXPECT_EQ(NearestTo(u"ER ", u"[[reply]]\nentry = 'ER'\nscreen = ''\noptional = true\n"),
            "  nearest: line 2, entry = \"ER\"; a blank at the end was sent\n");
  EXPECT_EQ(NearestTo(u"ER", u"[[reply]]\nentry = 'ER '\nscreen = ''\noptional = true\n"),
            "  nearest: line 2, entry = \"ER \"; a blank at the end was not sent\n");
}

TEST_F(NearestReply, AReplyForAnotherSessionOrStateIsNamedWithIt) {
  EXPECT_EQ(NearestTo(u"JD", u"[[reply]]\nentry = 'JD'\nsession = 'B'\nscreen = ''\noptional = true\n"),
            "  nearest: line 2, entry = \"JD\", session = \"B\"; answers in session B alone\n");
  EXPECT_EQ(NearestTo(u"JD",
                      u"[[reply]]\nentry = 'JD'\nwhen = 'open'\nscreen = ''\noptional = true\n"
                      u"[[reply]]\nentry = 'QS'\nthen = 'open'\nscreen = ''\noptional = true\n"),
            "  nearest: line 2, entry = \"JD\", when = \"open\"; the state was \"\"\n");
}

TEST_F(NearestReply, EveryFormOfAReplyIsCompared) {
  EXPECT_EQ(NearestTo(u"RNTEXT", u"[[reply]]\nstarts = 'RMT'\nscreen = ''\noptional = true\n"),
            "  nearest: line 2, starts = \"RMT\"; column 2: \"N\" sent, \"M\" expected\n");
  EXPECT_EQ(NearestTo(u"AN15JUNPARLON", u"[[reply]]\ncontains = 'PRALON'\nscreen = ''\noptional = true\n"),
            "  nearest: line 2, contains = \"PRALON\"\n");
  EXPECT_EQ(NearestTo(u"NN1SMITH/JOHN", u"[[reply]]\nlike = 'NM1????\?/*'\nscreen = ''\noptional = true\n"),
            "  nearest: line 2, like = \"NM1????\?/*\"; column 2: \"N\" sent, \"M\" expected\n");
}

TEST_F(NearestReply, TheThreeNearestAreNamedTheNearestFirst) {
  EXPECT_EQ(NearestTo(u"ABCDEFGHI",
                      u"reply = [\n"
                      u"{ entry = 'XXXDEFGHI', screen = '', optional = true },\n"
                      u"{ entry = 'XBCDEFGHI', screen = '', optional = true },\n"
                      u"{ entry = 'ABCDEFGYX', screen = '', optional = true },\n"
                      u"{ entry = 'ABCDEFGXY', screen = '', optional = true },\n"
                      u"{ entry = 'XXXXEFGHI', screen = '', optional = true } ]\n"),
            "  nearest: line 4, entry = \"XBCDEFGHI\"; column 1: \"A\" sent, \"X\" expected\n"
            "  nearest: line 5, entry = \"ABCDEFGYX\"; column 8: \"H\" sent, \"Y\" expected\n"
            "  nearest: line 6, entry = \"ABCDEFGXY\"; column 8: \"H\" sent, \"X\" expected\n");
}

TEST_F(NearestReply, WhatIsFarOrHasNothingInCommonIsNotNamed) {
  EXPECT_EQ(NearestTo(u"ZZ",
                      u"reply = [{ entry = 'ER', screen = '', optional = true }, { starts = 'AN', screen = '', "
                      u"optional = true }]\n"),
            "");
  EXPECT_EQ(NearestTo(u"ABCDEF", u"reply = [{ entry = 'ABCXYZ', screen = '', optional = true }]\n"), "");
}

TEST_F(NearestReply, ALongEntryIsComparedByItsFirstDifferenceAlone) {
  const std::u16string head(200, u'A');
  const std::u16string sent = head + std::u16string(101, u'B');
  EXPECT_EQ(NearestTo(sent, u"reply = [{ entry = '" + head + std::u16string(50, u'C') +
                                u"', screen = '', optional = true }]\n"),
            "  nearest: line 2, entry = \"" + ToUtf8(head) + std::string(50, 'C') +
                "\"; column 201: \"B\" sent, \"C\" expected\n");
}

TEST_F(NearestReply, APnrIsAmongThem) {
  EXPECT_EQ(
      NearestTo(u"RTABC124", u"pnr = [{ RecordLocator = 'ABC123', display = '1', derive = false, optional = true }]\n"),
      "  nearest: line 2, RecordLocator = \"ABC123\"; column 8: \"4\" sent, \"3\" expected\n");
}

// --- Retrievals, turns, unused parts -------------------------------------------------------------------------------

TEST_F(Report, TellsRetrievalsThatFoundNoPnr) {
  LoadNear(u"session = [{ name = 'A' }]\npnr = [{ RecordLocator = 'ABC123', optional = true }]");
  Retrieve(u"RTABC213");
  EXPECT_EQ(Text(), R"(near.toml: 1 retrieval found no PNR
  RTABC213  read first in session A
  nearest: line 2, RecordLocator = "ABC123"; column 6: "2" sent, "1" expected
)");
  EXPECT_EQ(world.Findings().Findings(), 0);  // strictness does not count them
}

TEST_F(Report, TellsSeveralRetrievalsInTheOrderInWhichTheyCame) {
  LoadNear(u"session = [{ name = 'A' }]");
  Retrieve(u"RTNOBODY");
  Retrieve(u"RTNEITHER");
  EXPECT_EQ(Text(), R"(near.toml: 2 retrievals found no PNR
  RTNOBODY  read first in session A
  RTNEITHER  read first in session A
)");
}

TEST_F(Report, TellsThatNoPnrWasOnDisplay) {
  LoadNear(u"session = [{ name = 'A' }]");
  const std::vector<Value> arguments = {world.MakeSession()->HostConnection()};
  world.MakePnr()->Call(Member::Name(u"RetrieveCurrent"), arguments);
  EXPECT_EQ(Text(), "near.toml: 1 retrieval found no PNR\n  the PNR on display  read first in session A\n");
}

TEST_F(Report, TellsTurnsBeyondTheLast) {
  LoadNear(
      u"session = [{ name = 'A' }]\nreply = [\n{ entry = 'AN', screen = '1' },\n{ entry = 'AN', screen = '2' } ]\n"
      u"pnr = [\n{ RecordLocator = 'ABC123' },\n{ RecordLocator = 'ABC123' } ]");
  for (int i = 0; i < 3; ++i) {
    Send(u"AN");
    Retrieve(u"RTABC123");
  }
  Retrieve(u"RTABC123");
  EXPECT_EQ(Text(), R"(near.toml: 2 replies had no turn left
  line 4, entry = "AN"; turn 3 of 2: the last reply answered again
  line 7, RecordLocator = "ABC123"; turn 4 of 2: the last PNR answered again
)");
  EXPECT_EQ(world.Findings().Findings(), 0);
}

TEST_F(Report, AReplyWithoutOthersTakesNoTurns) {
  LoadNear(u"session = [{ name = 'A' }]\nreply = [{ entry = 'AN', screen = '1' }]");
  Send(u"AN");
  Send(u"AN");
  EXPECT_EQ(Text(), "");
}

TEST_F(Report, TellsUnusedPnrsAndEveryUnusedTurn) {
  LoadNear(
      u"[[session]]\nname = 'A'\n"
      u"[[reply]]\nentry = 'AN'\nscreen = '1'\n"
      u"[[reply]]\nstarts = 'X'\nwhen = ''\nsession = 'A'\nscreen = '1'\n"
      u"[[reply]]\nentry = 'AN'\nscreen = '2'\n"
      u"[[pnr]]\nRecordLocator = 'ABC123'\n"
      u"[[pnr]]\nentries = ['SP2', 'SP3']\n"
      u"[[pnr]]\non_display = true\n"
      u"[[pnr]]\nRecordLocator = 'XYZ789'\noptional = true\n");
  Send(u"AN");
  EXPECT_EQ(Text(), R"(near.toml: 2 replies were never used
  line 6, starts = "X", session = "A", when = ""
  line 11, entry = "AN"
near.toml: 3 PNRs were never used
  line 14, RecordLocator = "ABC123"
  line 16, entries = "SP2"
  line 18, the PNR without a locator
)");
  EXPECT_EQ(world.Findings().Findings(), 5);
}

TEST_F(Report, APlannedFailureAnswersNothingAndUsesNothing) {
  LoadNear(u"session = [{ name = 'A' }]\nreply = [{ entry = 'AN', screen = '1', optional = true }]");
  world.FailNext(u"Send", 5, 1);
  EXPECT_TRUE(RaisesNumber(5, [&] { Send(u"ZZ"); }));
  EXPECT_EQ(Text(), "");
}

// --- Several scenarios, strictness, warnings -------------------------------------------------------------------------

TEST_F(Report, KeepsWhatEarlierScenariosLeftToTell) {
  world.LoadText(u"session = [{ name = 'A' }]", u"first.toml");
  Send(u"X");
  world.LoadText(u"session = [{ name = 'A' }]", u"second.toml");
  Send(u"Y");
  EXPECT_EQ(Text(), R"(first.toml: 1 entry was not answered
  X  sent first in session A
second.toml: 1 entry was not answered
  Y  sent first in session A
)");
  EXPECT_THAT(world.Findings().Unanswered(), ElementsAre(u"X", u"Y"));
}

TEST_F(Report, AScenarioThatIsLoadedAgainWithTheSameResultIsToldOnce) {
  for (int i = 0; i < 3; ++i) {
    world.LoadText(u"session = [{ name = 'A' }]", u"first.toml");
    Send(u"X");
  }
  world.LoadText(u"session = [{ name = 'A' }]", u"second.toml");
  EXPECT_EQ(Text(), "first.toml: 1 entry was not answered\n  X  sent first in session A\n");
}

TEST_F(Report, ASessionThatIsKeptGoesOnTellingOfItsScenario) {
  world.LoadText(u"session = [{ name = 'A' }]", u"first.toml");
  const auto session = world.MakeSession();
  world.LoadText(u"session = [{ name = 'A' }]", u"second.toml");
  session->Send(u"X", true);
  EXPECT_EQ(Text(), "first.toml: 1 entry was not answered\n  X  sent first in session A\n");
}

TEST_F(Report, StrictnessIsAskedForByAScenario) {
  LoadNear(u"session = [{ name = 'A' }]");
  EXPECT_FALSE(world.Findings().StrictAsked());
  LoadNear(u"[strict]\non = false\n");
  EXPECT_FALSE(world.Findings().StrictAsked());
  LoadNear(u"[strict]\non = true\n");
  EXPECT_TRUE(world.Findings().StrictAsked());
  LoadNear(u"");
  EXPECT_TRUE(world.Findings().StrictAsked());
}

TEST_F(Report, AWarningFromOutsideStandsAmongTheScenariosOwnAndOnce) {
  LoadNear(u"session = [{ name = 'A' }]\npnr = [{ display = '1', derive = false, optional = true }]");
  world.Findings().Warn(u"something else");
  world.Findings().Warn(u"something else");
  world.Findings().Warn(u"");
  EXPECT_EQ(Text(), R"(near.toml: 2 warnings
  line 2, the PNR without a locator is never reached: it has no RecordLocator and no entries, and is not on display
  something else
)");
  EXPECT_EQ(world.Findings().Findings(), 2);
}

TEST_F(Report, AWarningBeforeAnyScenarioIsKept) {
  world.Findings().Warn(u"early");
  EXPECT_EQ(Text(), "no scenario: 1 warning\n  early\n");
  LoadNear(u"");
  EXPECT_EQ(Text(), "near.toml: 1 warning\n  early\n");
}

TEST_F(Report, TheBuiltInScenarioLeavesNothingToTellWhenItIsNotUsed) {
  ::unsetenv(kScenarioVariable);
  world.MakeSessionList();
  EXPECT_EQ(Text(), "");
}

}  // namespace
}  // namespace wendrill::simulator
