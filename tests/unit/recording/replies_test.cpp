// Answers become replies: turns, pages, forms of hidden entries, sessions, buffers that come late or never.
#include "recording/replies.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "recording_terminal.h"

namespace wendrill::recording {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

int CountOf(std::string_view part, std::string_view text) {
  int count = 0;
  for (std::size_t at = text.find(part); at != std::string_view::npos; at = text.find(part, at + part.size())) {
    ++count;
  }
  return count;
}

constexpr char kOneSession[] = "session = [{ name = 'A' }]\n";
constexpr char kTwoSessions[] = "session = [{ name = 'A' }, { name = 'B' }]\n";

std::string Replayed(std::string_view sessions, std::string_view replies, const Program& program) {
  return ExpectReplays(std::string(sessions).append(replies), program);
}

TEST(RecordedReplies, AreWrittenInTheOrderOfTheirFirstEntries) {
  const std::string text =
      Replayed(kOneSession, "reply = [{ entry = 'ER', screen = 'DONE' }, { entry = 'JD', screen = 'SIGNED IN' }]",
               [](RecordingTerminal& terminal) {
                 terminal.Send(u"JD");
                 terminal.Send(u"ER");
               });
  EXPECT_THAT(text, HasSubstr("\n[[session]]\nname = \"A\"\n\n[[reply]]\nentry = \"JD\"\nscreen = \"SIGNED IN\"\n\n"
                              "[[reply]]\nentry = \"ER\"\nscreen = \"DONE\"\n"));
}

TEST(RecordedReplies, TakeTurnsAndKeepTheLast) {
  const std::string text = Replayed(
      kOneSession,
      "reply = [{ entry = 'QT', screen = '2' }, { entry = 'QT', screen = '1' }, { entry = 'QT', screen = '0' }]",
      [](RecordingTerminal& terminal) {
        for (int i = 0; i < 6; ++i) {
          terminal.Send(u"QT");
        }
      });
  EXPECT_EQ(CountOf("entry = \"QT\"", text), 3);
}

TEST(RecordedReplies, OfEqualAnswersAreOne) {
  const std::string text = Replayed(kOneSession, "reply = [{ entry = 'JD', screen = 'A' }]", [](auto& terminal) {
    terminal.Send(u"JD");
    terminal.Send(u"JD");
  });
  EXPECT_EQ(CountOf("[[reply]]", text), 1);
}

TEST(RecordedReplies, WithAnAnswerThatComesAgainInBetweenKeepAllTurns) {
  const std::string text =
      Replayed(kOneSession,
               "reply = [{ entry = 'X', screen = '1' }, { entry = 'X', screen = '2' }, { entry = 'X', screen = '1' }]",
               [](RecordingTerminal& terminal) {
                 terminal.Send(u"X");
                 terminal.Send(u"X");
                 terminal.Send(u"X");
               });
  EXPECT_EQ(CountOf("entry = \"X\"", text), 3);
}

TEST(RecordedReplies, NameTheirSessionWhereSeveralRun) {
  const std::string text = Replayed(
      kTwoSessions, "reply = [{ entry = 'JD', session = 'B', screen = 'OF B' }, { entry = 'JD', screen = '1' }]",
      [](RecordingTerminal& terminal) {
        terminal.ListSessions();
        terminal.Send(u"JD", u"B");
        terminal.Send(u"JD", u"A");
      });
  EXPECT_THAT(text, AllOf(HasSubstr("entry = \"JD\"\nsession = \"B\"\nscreen = \"OF B\"\n"),
                          HasSubstr("entry = \"JD\"\nsession = \"A\"\nscreen = \"1\"\n")));
}

TEST(RecordedReplies, HaveThePagesThatFollowedWithMd) {
  const std::string text = Replayed(
      kTwoSessions,
      "reply = [{ entry = 'AN', pages = ['1', '2', '3'] }, { entry = 'HE', pages = ['H1', 'H2'], session = 'B' }]",
      [](RecordingTerminal& terminal) {
        terminal.ListSessions();
        terminal.Send(u"AN");
        terminal.Send(u"HE", u"B");
        terminal.Send(u"MD");
        terminal.Press(322);
        terminal.Send(u"MD", u"B");
        terminal.Send(u"MD");
        terminal.Send(u"MD");  // not understood: there is no fourth page
      });
  EXPECT_THAT(text,
              AllOf(HasSubstr("pages = [\n\"1\",\n\"2\",\n\"3\",\n"), HasSubstr("pages = [\n\"H1\",\n\"H2\",\n]")));
}

TEST(RecordedReplies, AnMdOfAnotherTypeOrSizeIsAReplyOfItsOwn) {
  const std::string text = Replayed(kOneSession,
                                    R"(
      reply = [
        { entry = 'AN', pages = ['1', '2'], type = 5 },
        { entry = 'MD', screen = 'OTHER TYPE', type = 6 },
        { entry = 'MD', screen = 'OTHER SIZE', type = 6, columns = 40 },
      ])",
                                    [](RecordingTerminal& terminal) {
                                      terminal.Send(u"AN");
                                      terminal.Send(u"MD");
                                      terminal.Send(u"MD");
                                      terminal.Send(u"MD");
                                    });
  EXPECT_THAT(text, AllOf(HasSubstr("type = 5\npages = [\n\"1\",\n\"2\",\n]"),
                          HasSubstr("entry = \"MD\"\ntype = 6\nscreen = \"OTHER TYPE\"\n"),
                          HasSubstr("entry = \"MD\"\ntype = 6\ncolumns = 40\nscreen = \"OTHER SIZE\"\n")));
}

TEST(RecordedReplies, AfterAFailedMdNoPageFollows) {
  Replayed(kOneSession,
           "reply = [{ entry = 'AN', screen = '1' }, { entry = 'MD', error = 438 }, { entry = 'MD', screen = '2' }]",
           [](RecordingTerminal& terminal) {
             terminal.Send(u"AN");
             terminal.Send(u"MD");
             terminal.Send(u"MD");
           });
}

TEST(RecordedReplies, OfHiddenEntriesHaveTheirForm) {
  const std::string text = Replayed(kOneSession, "reply = [{ starts = '', screen = 'OK' }]", [](auto& terminal) {
    terminal.Send(u"NM1SMITH/JOHN MR");
    terminal.Send(u"RM PAY NOW?");
    terminal.Send(u"AP 0493123456");
    terminal.Send(u"FPCC4111111111111111/1210");
    terminal.Send(u"QE*8");  // nothing is hidden in it: its * is not a form's
  });
  EXPECT_THAT(text, AllOf(HasSubstr("like = \"NM1????\?/???? MR\"\n"), HasSubstr("like = \"RM ??? ????\"\n"),
                          HasSubstr("like = \"AP ??????????\"\n"), HasSubstr("like = \"FPCC???????????????\?/1210\"\n"),
                          HasSubstr("entry = \"QE*8\"\n")));
}

TEST(RecordedReplies, OfTwoHiddenEntriesWithOneFormTakeTurns) {
  const std::string text = Replayed(
      kOneSession, "reply = [{ entry = 'NM1SMITH/JO', screen = '1' }, { entry = 'NM1JONES/AL', screen = '2' }]",
      [](auto& terminal) {
        terminal.Send(u"NM1SMITH/JO");
        terminal.Send(u"NM1JONES/AL");
      });
  EXPECT_THAT(text, AllOf(HasSubstr("like = \"NM1????\?/JO\""), HasSubstr("like = \"NM1????\?/AL\"")));
  const std::string turns = Replayed(
      kOneSession, "reply = [{ entry = 'NM1SMITH/JOE', screen = '1' }, { entry = 'NM1JONES/AMY', screen = '2' }]",
      [](auto& terminal) {
        terminal.Send(u"NM1SMITH/JOE");
        terminal.Send(u"NM1JONES/AMY");
        terminal.Send(u"NM1SMITH/JOE");
      });
  EXPECT_EQ(CountOf("like = \"NM1????\?/???\"", turns), 3);
}

TEST(RecordedReplies, AnEntryThatFitsTheFormOfAnotherKeepsItsOwnTurns) {
  Replayed(kOneSession,
           R"(reply = [
             { entry = 'RM XXXX', screen = '1' }, { entry = 'RM XXXX', screen = '2' },
             { entry = 'RM CALL', screen = '3' }])",
           [](RecordingTerminal& terminal) {
             terminal.Send(u"RM CALL");
             terminal.Send(u"RM XXXX");  // hidden already: an entry to the letter
             terminal.Send(u"RM XXXX");
             terminal.Send(u"RM XXXX");
             terminal.Send(u"RM CALL");
           });
}

TEST(RecordedReplies, APackedEntryIsAnsweredAsAWhole) {
  const std::string text =
      Replayed(kOneSession, "reply = [{ entry = 'RM PAY NOW', screen = '1' }, { entry = 'ER', screen = '2' }]",
               [](auto& terminal) {
                 terminal.Send(u"RM PAY NOW;ER");
                 terminal.Send(u"RM PAY NOW");
                 terminal.Send(u"ER");
               });
  EXPECT_THAT(text, HasSubstr("like = \"RM ??? ???;ER\"\n"));
}

TEST(RecordedReplies, ALateBufferReadsEmptyAsOften) {
  const std::string text = Replayed(kOneSession, "reply = [{ entry = 'X', screen = 'AT LAST', late = 7 }]",
                                    [](RecordingTerminal& terminal) { terminal.Send(u"X"); });
  EXPECT_THAT(text, HasSubstr("late = 7\nscreen = \"AT LAST\"\n"));
}

TEST(RecordedReplies, ABufferThatTheProgramReadOnlyEmptyNeverFills) {
  const std::string text = Replayed(kOneSession, "reply = [{ entry = 'X', screen = 'LATER', late = 7 }]",
                                    [](RecordingTerminal& terminal) { terminal.Send(u"X", u"A", 3); });
  EXPECT_THAT(text, AllOf(HasSubstr("never = true\n"), Not(HasSubstr("LATER"))));
}

TEST(RecordedReplies, AnEmptyBufferWhoseEventCameIsAnEmptyScreen) {
  const std::string text =
      Replayed(kOneSession, "reply = [{ entry = 'X', screen = '' }]", [](RecordingTerminal& terminal) {
        terminal.Listen();
        terminal.Send(u"X");
        terminal.DeliverEvents();
        terminal.StopListening();
      });
  EXPECT_THAT(text, AllOf(HasSubstr("entry = \"X\"\nscreen = ''\n"), Not(HasSubstr("never"))));
}

TEST(RecordedReplies, FailAsTheTerminalDid) {
  const std::string text = Replayed(
      kOneSession,
      "reply = [{ entry = 'X', error = 0x80004005 }, { entry = 'X', error = 438 }, { entry = 'X', screen = '1' }]",
      [](RecordingTerminal& terminal) {
        terminal.Send(u"X");
        terminal.Send(u"X");
        terminal.Send(u"X");
      });
  EXPECT_THAT(text, AllOf(HasSubstr("error = 0x80004005\n"), HasSubstr("error = 438\n")));
}

TEST(RecordedReplies, KeepTypeTextAndSize) {
  const std::string text = Replayed(
      kOneSession, "reply = [{ entry = 'X', screen = \"1\\n2\", columns = 40, lines = 12, type = -3, text = 'OTHER' }]",
      [](RecordingTerminal& terminal) { terminal.Send(u"X"); });
  EXPECT_THAT(text, HasSubstr("type = -3\ncolumns = 40\nlines = 12\ntext = \"OTHER\"\nscreen = '''\n1\n2\n'''\n"));
}

TEST(RecordedReplies, KeepScreensThatAreNoRows) {
  for (const char* screen : {"'SHORT'", "\"CR LF\\r\\nNEXT\\r\\n\"", "\"A\\u0000B\\u0001\\u007F\\t\"",
                             "\"\\\"'''\\\\\"", "'''\n\n\n'''", "\"\\n'''\\nBACK\\\\\\n\"", "' LEADING'"}) {
    for (const char* raw : {"true", "false"}) {
      const std::string isRaw = raw;
      if (isRaw == "false" && std::string(screen).find("\\r") != std::string::npos) {
        continue;  // its lines would be rows
      }
      Replayed(kOneSession, std::string("reply = [{ entry = 'X', raw = ") + raw + ", screen = " + screen + " }]",
               [](RecordingTerminal& terminal) { terminal.Send(u"X"); });
    }
  }
}

}  // namespace
}  // namespace wendrill::recording
