// Reading scenarios: what a file may hold, and how everything else is rejected.
#include "core/scenario.h"

#include <gtest/gtest.h>

#include "simulated_world.h"

namespace wendrill::simulator {
namespace {

std::shared_ptr<const Scenario> Read(std::string_view toml) {
  return ParseScenario(toml, u"test.toml");
}

// The description with which a text is rejected.
std::string RefusalOf(std::string_view toml) {
  return Refusal(5, [toml] { Read(toml); });
}

TEST(ScenarioText, AnEmptyTextIsADesktopWithoutSessions) {
  const auto scenario = Read("");
  EXPECT_TRUE(scenario->sessions.empty());
  EXPECT_TRUE(scenario->replies.empty());
  EXPECT_TRUE(scenario->pnrs.empty());
  EXPECT_EQ(scenario->terminal.version, u"3.0P1");
  EXPECT_TRUE(scenario->alarm.present);
  EXPECT_TRUE(scenario->alarm.method);
  EXPECT_EQ(scenario->alarm.code, 0);
}

TEST(ScenarioText, TheTerminalAndItsAlarmAreRead) {
  const auto scenario = Read(R"(
    [terminal]
    version = "2.3P300"
    ready = [0, 7]
    refuses = [322, 353]
    [alarm]
    present = false
    method = false
    code = -8
  )");
  EXPECT_EQ(scenario->terminal.version, u"2.3P300");
  EXPECT_EQ(scenario->terminal.terminalReady, 0);
  EXPECT_EQ(scenario->terminal.hostReady, 7);
  EXPECT_EQ(scenario->terminal.refuses, (std::vector<std::int32_t>{322, 353}));
  EXPECT_FALSE(scenario->alarm.present);
  EXPECT_FALSE(scenario->alarm.method);
  EXPECT_EQ(scenario->alarm.code, -8);
}

TEST(ScenarioText, SessionsStandInTheFilesOrder) {
  const auto scenario = Read("[[session]]\nname = 'B'\n[[session]]\nname = 'A'\n");
  EXPECT_EQ(scenario->sessions, (std::vector<std::u16string>{u"B", u"A"}));
}

TEST(ScenarioText, TheBreakAfterTheOpeningQuotesAndTheOneBeforeTheClosingOnesMakeNoRows) {
  const auto scenario = Read("[[reply]]\nentry = 'A'\ncolumns = 3\nscreen = '''\nA\n\nB\n'''\n");
  EXPECT_EQ(scenario->replies[0].answers[0]->pages[0].buffer, u"A     B  ");
}

TEST(ScenarioText, WindowsLineEndsInTheFileMakeNoDifference) {
  const auto scenario = Read("[[reply]]\r\nentry = 'A'\r\ncolumns = 3\r\nscreen = '''\r\nA\r\nB\r\n'''\r\n");
  EXPECT_EQ(scenario->replies[0].answers[0]->pages[0].buffer, u"A  B  ");
}

TEST(ScenarioText, ARawScreenStaysVerbatim) {
  const auto scenario = Read("[[reply]]\nentry = 'A'\nraw = true\nscreen = \"A\\r\\nB>\"\n");
  EXPECT_EQ(scenario->replies[0].answers[0]->pages[0].buffer, u"A\r\nB>");
}

TEST(ScenarioText, LettersBeyondAsciiAreOneColumnEach) {
  const auto scenario = Read("[[reply]]\nentry = 'A'\ncolumns = 4\nscreen = 'MÜ¤'\n");
  EXPECT_EQ(scenario->replies[0].answers[0]->pages[0].buffer, u"M\u00DC\u00A4 ");
}

TEST(ScenarioText, RepliesForOneEntryStandAtThePlaceOfTheFirst) {
  const auto scenario = Read(R"(
    reply = [{ entry = "A", screen = "1" }, { starts = "A", screen = "2" }, { entry = "A", screen = "3" }]
  )");
  ASSERT_EQ(scenario->replies.size(), 2u);
  EXPECT_EQ(scenario->replies[0].answers.size(), 2u);
  EXPECT_EQ(scenario->replies[0].matcher, (EntryMatcher{MatchKind::Entry, u"A"}));
  EXPECT_EQ(scenario->replies[1].matcher, (EntryMatcher{MatchKind::Starts, u"A"}));
}

TEST(ScenarioText, AnEmptyHeadMatchesEveryEntry) {
  const auto scenario = Read("reply = [{ starts = '', screen = '1' }]");
  EXPECT_TRUE(scenario->replies[0].Matches(u"ANYTHING"));
  EXPECT_TRUE(scenario->replies[0].Matches(u""));
}

TEST(ScenarioText, UnknownMayBeAnythingThatAnAnswerIs) {
  const auto scenario = Read("[unknown]\nscreen = 'CHECK'\ntype = 3\nlate = 2\ncolumns = 40\n");
  EXPECT_EQ(scenario->unknown->type, 3);
  EXPECT_EQ(scenario->unknown->late, 2);
  EXPECT_EQ(scenario->unknown->pages[0].buffer.size(), 40u);
}

TEST(ScenarioText, UnknownWithoutAScreenShowsTheUsualOne) {
  const auto scenario = Read("[unknown]\ntype = 3\n");
  EXPECT_EQ(scenario->unknown->type, 3);
  EXPECT_EQ(scenario->unknown->pages[0].rows[0].substr(0, 21), u"ENTRY NOT UNDERSTOOD ");
}

TEST(ScenarioText, AnErrorIsAStatusOrTheNumberOfARunTimeError) {
  const auto scenario = Read("reply = [{ entry = 'A', error = 0x80004005 }, { entry = 'B', error = 438 }]");
  EXPECT_EQ(scenario->replies[0].answers[0]->error, static_cast<std::int32_t>(0x80004005));
  EXPECT_EQ(scenario->replies[1].answers[0]->error, 438);
}

// --- Refusals: each names the file, the line, and the key ---------------------------------------------------------

TEST(ScenarioRefusal, AnUnknownKeyIsNamedWithItsLineAndTheKnownOnes) {
  EXPECT_EQ(RefusalOf("[[session]]\nname = 'A'\n\n[alarm]\npresent = true\ncolour = 3\n"),
            "test.toml, line 6: unknown key \"colour\" in [alarm]; known keys are present, method, code");
}

TEST(ScenarioRefusal, AnUnknownKeyOfAReplyIsNamedWithTheKnownOnes) {
  EXPECT_EQ(RefusalOf("[[reply]]\nentry = 'A'\nscreen = 'B'\n[[reply]]\nentry = 'C'\ncolour = 1\n"),
            "test.toml, line 6: unknown key \"colour\" in [[reply]]; known keys are entry, starts, contains, like, "
            "session, when, then, screen, pages, never, type, text, columns, lines, late, after, error, raw, refuses, "
            "optional");
}

TEST(ScenarioRefusal, AnUnknownTableIsNamed) {
  EXPECT_EQ(RefusalOf("[[session]]\nname = 'A'\n[[replies]]\nentry = 'A'\n"),
            "test.toml, line 3: unknown key \"replies\" in the scenario; known keys are terminal, alarm, session, "
            "reply, unknown, pnr, derive, strict");
}

TEST(ScenarioRefusal, OfSeveralUnknownKeysTheFirstInTheFileIsNamed) {
  EXPECT_NE(RefusalOf("[alarm]\nzebra = 1\nant = 2\n").find("line 2: unknown key \"zebra\""), std::string::npos);
}

TEST(ScenarioRefusal, AWrongTypeIsNamedWithTheRightOne) {
  EXPECT_EQ(RefusalOf("[[reply]]\nentry = 'A'\nscreen = 'B'\ncolumns = '80'\n"),
            "test.toml, line 4: \"columns\" in [[reply]] must be an integer, not a string");
  EXPECT_EQ(RefusalOf("[alarm]\ncode = 1.5\n"),
            "test.toml, line 2: \"code\" in [alarm] must be an integer, not a number with a fraction");
  EXPECT_EQ(RefusalOf("[alarm]\npresent = 1\n"),
            "test.toml, line 2: \"present\" in [alarm] must be true or false, not an integer");
  EXPECT_EQ(RefusalOf("[terminal]\nversion = 3.0\n"),
            "test.toml, line 2: \"version\" in [terminal] must be a string, not a number with a fraction");
  EXPECT_EQ(RefusalOf("[terminal]\nrefuses = 322\n"),
            "test.toml, line 2: \"refuses\" in [terminal] must be an array of integers, not an integer");
  EXPECT_EQ(RefusalOf("[terminal]\nrefuses = [322,\n 'PA2']\n"),
            "test.toml, line 3: \"refuses\" in [terminal] must be an integer, not a string");
  EXPECT_EQ(RefusalOf("[[reply]]\nentry = 2008-06-12\nscreen = ''\n"),
            "test.toml, line 2: \"entry\" in [[reply]] must be a string, not a date");
  EXPECT_EQ(RefusalOf("[[reply]]\nentry = 'A'\npages = 'B'\n"),
            "test.toml, line 3: \"pages\" in [[reply]] must be an array of strings, not a string");
}

TEST(ScenarioRefusal, ATableInThePlaceOfSeveralSaysHowToWriteThem) {
  EXPECT_EQ(RefusalOf("[session]\nname = 'A'\n"),
            "test.toml, line 1: \"session\" in the scenario must be an array of tables, [[session]], not a table");
  EXPECT_EQ(RefusalOf("[[terminal]]\nversion = 'A'\n"),
            "test.toml, line 1: \"terminal\" in the scenario must be a table, [terminal], not an array");
}

TEST(ScenarioRefusal, ASyntaxErrorIsNamedWithItsLine) {
  const std::string refusal = RefusalOf("[[session]]\nname = 'A'\n[[reply]]\nentry = = 'A'\n");
  EXPECT_EQ(refusal.rfind("test.toml, line 4: ", 0), 0u) << refusal;
}

TEST(ScenarioRefusal, AKeyThatIsGivenTwiceIsNamed) {
  const std::string refusal = RefusalOf("[alarm]\ncode = 1\ncode = 2\n");
  EXPECT_EQ(refusal.rfind("test.toml, line 3: ", 0), 0u) << refusal;
  EXPECT_NE(refusal.find("code"), std::string::npos) << refusal;
}

TEST(ScenarioRefusal, BytesThatAreNoTextAreRejected) {
  const std::string refusal = RefusalOf("[alarm]\n# \xFF\xFE\ncode = 1\n");
  EXPECT_EQ(refusal.rfind("test.toml, line 2: ", 0), 0u) << refusal;
}

TEST(ScenarioRefusal, AStrayLetterBetweenTwoKeysIsNamedWithItsLine) {
  // Also letters in the blocks where Unicode has blanks, which the TOML library looks at more closely.
  for (const char* letter : {"x", "\u00FC", "\u1681", "\u2010", "\u3001"}) {
    const std::string refusal = RefusalOf("[alarm]\ncode = 1 " + std::string(letter) + "\npresent = true\n");
    EXPECT_EQ(refusal.rfind("test.toml, line 2: ", 0), 0u) << refusal;
    const std::string first = RefusalOf("[alarm]\n" + std::string(letter) + "\ncode = 1\n");
    EXPECT_EQ(first.rfind("test.toml, line ", 0), 0u) << first;
  }
}

TEST(ScenarioRefusal, ASessionNeedsAName) {
  EXPECT_EQ(RefusalOf("\n[[session]]\n"), "test.toml, line 2: [[session]] needs \"name\"");
}

TEST(ScenarioRefusal, AReplyNeedsItsEntryOrItsHeadAndNotBoth) {
  EXPECT_EQ(RefusalOf("[[reply]]\nscreen = 'A'\n"),
            R"(test.toml, line 1: [[reply]] needs one of "entry", "starts", "contains" and "like")");
  for (const char* second : {"starts", "contains", "like"}) {
    EXPECT_EQ(RefusalOf("[[reply]]\nentry = 'A'\n" + std::string(second) + " = 'A'\nscreen = 'A'\n"),
              R"(test.toml, line 1: [[reply]] has more than one of "entry", "starts", "contains" and "like")");
  }
}

TEST(ScenarioRefusal, AReplyNeedsOneAnswerAndNoMore) {
  EXPECT_EQ(RefusalOf("[[reply]]\nentry = 'A'\n"),
            R"(test.toml, line 1: [[reply]] needs one of "screen", "pages", "never" and "error")");
  constexpr char kExpected[] =
      R"(test.toml, line 1: [[reply]] has more than one of "screen", "pages", "never" and "error")";
  EXPECT_EQ(RefusalOf("[[reply]]\nentry = 'A'\nscreen = 'A'\npages = ['A']\n"), kExpected);
  EXPECT_EQ(RefusalOf("[[reply]]\nentry = 'A'\nscreen = 'A'\nerror = 5\n"), kExpected);
}

TEST(ScenarioRefusal, PagesNeedOne) {
  EXPECT_EQ(RefusalOf("[[reply]]\nentry = 'A'\npages = []\n"),
            "test.toml, line 3: \"pages\" in [[reply]] must have at least 1 item");
}

TEST(ScenarioRefusal, ARowThatIsTooWideIsNamedWithTheLineItIsOn) {
  const std::string wide(81, 'X');
  constexpr char kExpected[] =
      "test.toml, line 5: row 2 of a screen in [[reply]] has 81 characters, the screen 80 columns";
  EXPECT_EQ(RefusalOf("[[reply]]\nentry = 'A'\nscreen = '''\nONE\n" + wide + "\nTHREE'''\n"), kExpected);
  EXPECT_EQ(RefusalOf("[[reply]]\nentry = 'A'\nscreen = '''\nONE\n" + wide + "\nTHREE\n'''\n"), kExpected);
  EXPECT_EQ(RefusalOf("[[reply]]\nentry = 'A'\n\nscreen = '''ONE\n" + wide + "'''\n"), kExpected);
}

TEST(ScenarioRefusal, ARowOfALaterPageIsNamedToo) {
  EXPECT_EQ(RefusalOf("[[reply]]\nentry = 'A'\ncolumns = 3\npages = ['''\nABC\n''',\n'''\nABC\nABCD\n''']\n"),
            "test.toml, line 9: row 2 of a screen in [[reply]] has 4 characters, the screen 3 columns");
}

TEST(ScenarioRefusal, ARawScreenMayBeAsWideAsItLikes) {
  const auto scenario = Read("[[reply]]\nentry = 'A'\nraw = true\nscreen = '" + std::string(200, 'X') + "'\n");
  EXPECT_EQ(scenario->replies.at(0).answers.at(0)->pages.at(0).buffer, std::u16string(200, u'X'));
}

TEST(ScenarioRefusal, NumbersOutsideTheirRangeAreNamed) {
  EXPECT_EQ(RefusalOf("[[reply]]\nentry = 'A'\nscreen = ''\ncolumns = 0\n"),
            "test.toml, line 4: \"columns\" in [[reply]] must be an integer from 1 to 32767, not 0");
  EXPECT_EQ(RefusalOf("[[reply]]\nentry = 'A'\nscreen = ''\nlate = -1\n"),
            "test.toml, line 4: \"late\" in [[reply]] must be an integer from 0 to 1000000, not -1");
  EXPECT_EQ(RefusalOf("[alarm]\ncode = 2147483648\n"),
            "test.toml, line 2: \"code\" in [alarm] must be an integer from -2147483648 to 2147483647, not "
            "2147483648");
}

TEST(ScenarioRefusal, AnErrorMustBeAFailure) {
  const std::string refusal = RefusalOf("[[reply]]\nentry = 'A'\nerror = 0\n");
  EXPECT_EQ(refusal.rfind("test.toml, line 3: \"error\" in [[reply]] must be the status of a failure", 0), 0u)
      << refusal;
}

TEST(ScenarioRefusal, ReadyNeedsTwoAnswers) {
  EXPECT_EQ(RefusalOf("[terminal]\nready = [1]\n"),
            "test.toml, line 2: \"ready\" in [terminal] must have at least 2 items");
  EXPECT_EQ(RefusalOf("[terminal]\nready = [1, 1, 1]\n"),
            "test.toml, line 2: \"ready\" in [terminal] must have at most 2 items");
}

TEST(ScenarioRefusal, AFileThatIsNotThereIsNamed) {
  EXPECT_EQ(Refusal(53, [] { ReadScenarioFile(u"/no/such/folder/x.toml"); }),
            "The scenario file \"/no/such/folder/x.toml\" was not found or cannot be opened.");
}

TEST(ScenarioRefusal, AFolderIsNoFile) {
  EXPECT_NE(Refusal(53, [] { ReadScenarioFile(u"/"); }).find("\"/\""), std::string::npos);
}

}  // namespace
}  // namespace wendrill::simulator
