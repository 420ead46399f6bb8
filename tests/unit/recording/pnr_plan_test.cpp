// Which PNR is read when: by entries and from the display, in one session and in two, while PNRs change.
#include "recording/pnr_plan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "recording_terminal.h"

namespace wendrill::recording {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr char kChanging[] = R"(
session = [{ name = 'A' }, { name = 'B' }]
reply = [
  { entry = 'RM X', screen = '*' , then = 'changed' },
  { entry = 'IG', screen = 'IGNORED', then = '' },
  { entry = 'HE', screen = 'HELP' },
]
pnr = [
  { when = '', on_display = true, display = "RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0930Z   ABC123\n  1.SMITH/JO" },
  { when = 'changed', display = "RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0931Z   ABC123\n  1.SMITH/JO\n  2 RM X" },
  { display = "RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0930Z   XYZ789\n  1.JONES/AL", entries = ['SP2'] },
  { RecordLocator = 'BROKEN', error = 438 },
]
)";

TEST(PlannedPnrs, WithoutAChangeHaveNoState) {
  const std::string text = ExpectReplays(kChanging, [](RecordingTerminal& terminal) {
    terminal.ReadDisplay();
    terminal.Retrieve(u"RTXYZ789");
    terminal.ReadDisplay();
    terminal.Retrieve(u"SP2");
    terminal.Retrieve(u"RTABC123");
    terminal.ReadDisplay();
    terminal.Retrieve(u"RTNONE99");
    terminal.ReadDisplay();
  });
  EXPECT_THAT(text, AllOf(Not(HasSubstr("when =")), Not(HasSubstr("then =")), Not(HasSubstr("name = \"B\"")),
                          Not(HasSubstr("session = \"")), HasSubstr("entries = [\"SP2\"]\n"),
                          HasSubstr("on_display = true\n")));
}

TEST(PlannedPnrs, ThatChangeAfterAnEntryChangeWithItsAnswer) {
  const std::string text = ExpectReplays(kChanging, [](RecordingTerminal& terminal) {
    terminal.Retrieve(u"RTABC123");
    terminal.Send(u"HE");
    terminal.Send(u"RM X");
    terminal.ReadDisplay();
    terminal.Retrieve(u"RTABC123");
    terminal.Send(u"IG");
    terminal.ReadDisplay();
  });
  EXPECT_THAT(text, AllOf(HasSubstr("entry = \"RM X\"\nthen = \"1\"\n"), HasSubstr("entry = \"IG\"\nthen = \"2\"\n"),
                          HasSubstr("when = \"\"\n"), HasSubstr("when = \"1\"\n"), HasSubstr("when = \"2\"\n")));
}

TEST(PlannedPnrs, ChangeForBothSessions) {
  ExpectReplays(kChanging, [](RecordingTerminal& terminal) {
    terminal.ListSessions();
    terminal.ReadDisplay(u"A");
    terminal.ReadDisplay(u"B");
    terminal.Retrieve(u"RTABC123", u"A");
    terminal.Retrieve(u"RTXYZ789", u"B");
    terminal.Send(u"RM X", u"B");
    terminal.ReadDisplay(u"A");
    terminal.ReadDisplay(u"B");
    terminal.Send(u"IG", u"A");
    terminal.ReadDisplay(u"B");
    terminal.Retrieve(u"RTABC123", u"B");
    terminal.ReadDisplay(u"A");
  });
}

TEST(PlannedPnrs, ThatFailToBeReadDoSoAgain) {
  const std::string text = ExpectReplays(kChanging, [](RecordingTerminal& terminal) {
    terminal.Retrieve(u"RTXYZ789");
    terminal.Retrieve(u"RTBROKEN");
    terminal.ReadDisplay();  // still the one before
    terminal.Retrieve(u"RTBROKEN");
  });
  EXPECT_THAT(text, HasSubstr("entries = [\"RTBROKEN\"]\nerror = 438\n"));
}

// Between the readings nothing was sent: the reading itself brings the change about.
constexpr char kTurns[] = R"(
session = [{ name = 'A' }]
pnr = [
  { RecordLocator = 'ABC123', display = 'FIRST' },
  { RecordLocator = 'ABC123', display = 'SECOND' },
  { RecordLocator = 'ABC123', display = 'THIRD' },
]
)";

TEST(PlannedPnrs, ThatChangeBetweenTwoReadingsChangeWithTheReading) {
  const std::string text = ExpectReplays(kTurns, [](RecordingTerminal& terminal) {
    for (int i = 0; i < 4; ++i) {
      terminal.Retrieve(u"RTABC123");
    }
  });
  EXPECT_THAT(text, AllOf(HasSubstr("when = \"\"\nthen = \"1\"\n"), HasSubstr("when = \"1\"\nthen = \"2\"\n")));
}

TEST(PlannedPnrs, ThatWereReadSeveralTimesBeforeTheyChangeChangeWithTheLastReading) {
  ExpectReplays(kTurns, [](RecordingTerminal& terminal) {
    terminal.Retrieve(u"RTABC123");
    terminal.ReadDisplay();
    terminal.ReadDisplay();
    terminal.Retrieve(u"RTABC123");
    terminal.ReadDisplay();
    terminal.ReadDisplay();
    terminal.Retrieve(u"RTABC123");
    terminal.ReadDisplay();
  });
}

TEST(PlannedPnrs, ThatAppearAfterAMissHaveAnEmptyOneBeforeThem) {
  const std::string found = R"(
    session = [{ name = 'A' }]
    pnr = [
      { entries = ['SP1'], derive = false, Header = { Text = '', Line = '', RecordLocator = '' } },
      { entries = ['SP1'], RecordLocator = 'ABC123', display = 'FOUND' },
    ]
  )";
  ExpectReplays(found, [](RecordingTerminal& terminal) {
    terminal.Retrieve(u"SP1");
    terminal.Retrieve(u"SP1");
    terminal.ReadDisplay();
  });
  const std::string again = R"(
    session = [{ name = 'A' }]
    pnr = [
      { entries = ['SP1'], Header = { Text = '', Line = '', RecordLocator = '' } },
      { entries = ['SP1'], Header = { Text = '', Line = '', RecordLocator = '' } },
      { entries = ['SP1'], RecordLocator = 'ABC123', display = 'FOUND' },
      { entries = ['SP1'], Header = { Text = '', Line = '', RecordLocator = '' } },
    ]
  )";
  ExpectReplays(again, [](RecordingTerminal& terminal) {
    for (int i = 0; i < 4; ++i) {
      terminal.Retrieve(u"SP1");
    }
  });
}

TEST(PlannedPnrs, ThatAreNoLongerFoundAreNotFound) {
  ExpectReplays(R"(
    session = [{ name = 'A' }]
    reply = [{ entry = 'XI', screen = 'CANCELLED', then = 'gone' }]
    pnr = [{ RecordLocator = 'ABC123', display = 'THERE', when = '' }]
  )",
                [](RecordingTerminal& terminal) {
                  terminal.ReadDisplay();  // nothing
                  terminal.Retrieve(u"RTABC123");
                  terminal.Send(u"XI");
                  terminal.Retrieve(u"RTABC123");
                });
}

TEST(PlannedPnrs, OnDisplayOfAnotherLocatorTakeThePlaceOfTheOneThatWasRetrieved) {
  const std::string text = ExpectReplays(R"(
    session = [{ name = 'A' }]
    reply = [{ entry = 'JUMP', screen = 'OK', then = '1' }, { entry = 'BACK', screen = 'OK', then = '' }]
    pnr = [
      { RecordLocator = 'ABC123', display = 'ONE', when = '' },
      { RecordLocator = 'XYZ789', display = 'TWO', when = '1', on_display = true },
    ]
  )",
                                         [](RecordingTerminal& terminal) {
                                           terminal.Retrieve(u"RTABC123");
                                           terminal.Send(u"JUMP");
                                           terminal.ReadDisplay();
                                           terminal.ReadDisplay();
                                           terminal.Retrieve(u"RTXYZ789");
                                           terminal.Send(u"BACK");
                                           terminal.Retrieve(u"RTABC123");
                                           terminal.ReadDisplay();
                                         });
  EXPECT_THAT(text, AllOf(HasSubstr("on_display = true\n"), HasSubstr("entry = \"JUMP\"\nthen = \"1\"\n")));
}

TEST(PlannedPnrs, KeepTheStatusOfReadingTheDisplay) {
  const std::string text = ExpectReplays(R"(
    session = [{ name = 'A' }]
    pnr = [{ RecordLocator = 'ABC123', display = 'ONE', status = 7, on_display = true }]
  )",
                                         [](RecordingTerminal& terminal) {
                                           terminal.Retrieve(u"RTABC123");
                                           terminal.ReadDisplay();
                                         });
  EXPECT_THAT(text, HasSubstr("status = 7\n"));
}

// A page brings no state about: the answer that it belongs to does, or the PNR that was read since.
TEST(PlannedPnrs, ChangeBesidePages) {
  ExpectReplays(R"(
    session = [{ name = 'A' }]
    reply = [{ entry = 'AN', pages = ['1', '2', '3'] }]
    pnr = [
      { RecordLocator = 'ABC123', display = 'ONE', then = 'x', when = '' },
      { RecordLocator = 'ABC123', display = 'TWO', when = 'x' },
    ]
  )",
                [](RecordingTerminal& terminal) {
                  terminal.Send(u"AN");
                  terminal.Retrieve(u"RTABC123");
                  terminal.Send(u"MD");
                  terminal.ReadDisplay();
                  terminal.Send(u"MD");
                  terminal.ReadDisplay();
                });
}

TEST(PlannedPnrs, OfAHiddenEntryAreToldAsNotReproduced) {
  const Recorded recorded = Record(R"(
    session = [{ name = 'A' }]
    pnr = [{ entries = ['RT/SMITH'], display = 'ONE' }]
  )",
                                   [](RecordingTerminal& terminal) { terminal.Retrieve(u"RT/SMITH"); });
  EXPECT_TRUE(recorded.outcome.isWritten);
  EXPECT_THAT(recorded.text,
              AllOf(HasSubstr("# not reproduced: the PNR of \"RT/QBBBB\" in session A: the display differs\n"),
                    Not(HasSubstr("SMITH")), Not(HasSubstr("[[pnr]]"))));
}

}  // namespace
}  // namespace wendrill::recording
