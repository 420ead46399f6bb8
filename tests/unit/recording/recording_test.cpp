// What a recording is told beside entries and PNRs, what it cannot reproduce, and how it ends.
#include "recording/recording.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "common/text.h"
#include "recording_terminal.h"
#include "support/raises.h"

namespace wendrill::recording {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using wendrill::testing::RaisesNumber;

constexpr std::int32_t kClear = 322;
constexpr std::int32_t kEnter = 272;
constexpr std::int32_t kPa2 = 353;
constexpr char kOneSession[] = "session = [{ name = 'A' }]\n";

// A recording that a test tells by hand.
class Told : public ::testing::Test {
 protected:
  Outcome Finished() { return recording.Finish(); }
  std::string Text() const { return ContentOf(file); }
  ReadPnr PnrWith(std::u16string_view display) {
    ReadPnr pnr;
    pnr.display = display;
    pnr.header.emplace();
    pnr.header->properties[u"Text"] = u"HEADER";
    return pnr;
  }
  SendId Answered(std::u16string_view entry, std::u16string_view buffer) {
    const SendId answer = recording.Sent(u"A", entry);
    recording.BufferRead(answer, buffer);
    return answer;
  }

  OwnFolder folder;
  std::filesystem::path file = folder.File("out.toml");
  Recording recording{{file, {}, true}};
};

// --- The desktop -----------------------------------------------------------------------------------------------------

TEST(RecordedDesktops, HaveTheTerminalsVersionAndReadiness) {
  const std::string text =
      ExpectReplays("terminal = { version = '2.3P299', ready = [1, 0] }\n", [](RecordingTerminal& terminal) {
        terminal.AskVersion();
        terminal.AskReady();
      });
  EXPECT_THAT(text, HasSubstr("[terminal]\nversion = \"2.3P299\"\nready = [1, 0]\n"));
}

TEST(RecordedDesktops, HaveNoTableForWhatNobodyAsked) {
  const std::string text = ExpectReplays("terminal = { version = '2.3P299' }\n", [](auto& /*terminal*/) {});
  EXPECT_THAT(text, Not(HasSubstr("[")));
}

TEST(RecordedDesktops, HaveTheAlarmThatWasMet) {
  const Program lock = [](RecordingTerminal& terminal) {
    terminal.LockAlarm(true);
    terminal.LockAlarm(false);
  };
  EXPECT_THAT(ExpectReplays("alarm = { present = false }", lock), HasSubstr("[alarm]\npresent = false\n"));
  EXPECT_THAT(ExpectReplays("alarm = { method = false }", lock), HasSubstr("[alarm]\nmethod = false\n"));
  EXPECT_THAT(ExpectReplays("alarm = { code = -3 }", lock), HasSubstr("[alarm]\ncode = -3\n"));
  EXPECT_THAT(ExpectReplays("alarm = { code = 0 }", lock), Not(HasSubstr("[alarm]")));
}

TEST(RecordedDesktops, RefuseTheKeysThatWereRefused) {
  const std::string text =
      ExpectReplays("session = [{ name = 'A' }]\nterminal = { refuses = [322, 352] }", [](RecordingTerminal& terminal) {
        terminal.Press(kClear);
        terminal.Press(352);
        terminal.Press(kEnter);
        terminal.Press(kClear);
      });
  EXPECT_THAT(text, HasSubstr("refuses = [322, 352]\n"));
}

TEST(RecordedDesktops, AreSilentForKeysThatBroughtNoEvent) {
  const std::string text =
      ExpectReplays("session = [{ name = 'A' }]\nterminal = { silent = [353] }", [](RecordingTerminal& terminal) {
        terminal.Press(kPa2);  // nobody listens
        terminal.Listen();
        for (const std::int32_t key : {kPa2, kEnter, kClear, kPa2, kEnter}) {
          terminal.Press(key);
          terminal.DeliverEvents();
        }
        terminal.StopListening();
        terminal.Press(354);
      });
  EXPECT_THAT(text, HasSubstr("silent = [353]\n"));
}

TEST_F(Told, AKeyIsNotSilentThatBroughtAnEventOnce) {
  recording.Listening(u"A", true);
  recording.Key(u"A", kPa2, true);
  recording.Key(u"A", kPa2, true);
  recording.Event(u"A");
  recording.Listening(u"A", false);
  EXPECT_THAT(Finished().notReproduced, IsEmpty());
  EXPECT_THAT(Text(), Not(HasSubstr("silent")));
}

TEST_F(Told, WhatChangedIsNotReproduced) {
  recording.Sessions(std::vector<std::u16string>{u"A"});
  recording.Sessions(std::vector<std::u16string>{u"A", u"B"});
  recording.TerminalVersion(u"3.0P1");
  recording.TerminalVersion(u"3.0P2");
  recording.HostReady(0);
  recording.HostReady(1);
  recording.AlarmAnswered(true, 0);
  recording.AlarmAnswered(false, 7);
  recording.Key(u"A", kClear, false);
  recording.Key(u"A", kClear, true);
  const Outcome outcome = Finished();
  EXPECT_TRUE(outcome.isWritten);
  EXPECT_THAT(outcome.notReproduced, ElementsAre(u"the list of sessions changed; in a replay all of them run",
                                                 u"the terminal's version changed; a replay has the first",
                                                 u"whether the host is ready changed; a replay has the first",
                                                 u"the alarm's code changed; a replay has the first",
                                                 u"key 322 was refused at times; a replay accepts it"));
  EXPECT_THAT(Text(), HasSubstr("# not reproduced: the terminal's version changed; a replay has the first\n"));
}

TEST_F(Told, WhatNoScenarioCanSayIsNotReproduced) {
  recording.Failed(u"Count", 438);
  recording.Failed(u"Count", 438);
  recording.NotReproducible(u"Value of the PNR was assigned");
  EXPECT_THAT(Finished().notReproduced, ElementsAre(u"Count failed with 438", u"Value of the PNR was assigned"));
  EXPECT_THAT(Text(), HasSubstr("# not reproduced: Count failed with 438\n# not reproduced: Value of"));
}

// --- Entries ---------------------------------------------------------------------------------------------------------

TEST_F(Told, ABufferThatChangedIsNotReproduced) {
  const SendId answer = Answered(u"HE", std::u16string(u"ONE") + std::u16string(77, u' '));
  recording.BufferRead(answer, std::u16string(u"TWO") + std::u16string(77, u' '));
  EXPECT_THAT(Finished().notReproduced, ElementsAre(u"\"HE\" in session A: the buffer differs"));
  EXPECT_THAT(Text(), HasSubstr("screen = \"ONE\"\n"));
}

TEST_F(Told, AResponseThatNamesAnotherEntryIsNotReproduced) {
  const SendId answer = Answered(u"HE", u"ONE");
  recording.ResponseRead(answer, {u"HELP", u"ONE", 0, 80, 24});
  EXPECT_THAT(Finished().notReproduced, ElementsAre(u"\"HE\" in session A: the response named another entry"));
}

TEST_F(Told, ASizeThatNoScreenHasIsNotReproduced) {
  const SendId answer = Answered(u"HE", u"ONE");
  recording.ResponseRead(answer, {u"HE", u"ONE", 0, 0, -1});
  EXPECT_THAT(Finished().notReproduced,
              ElementsAre(u"\"HE\" in session A: the number of columns was 0, and is 80 in a replay",
                          u"\"HE\" in session A: the number of lines was -1, and is 24 in a replay"));
}

TEST_F(Told, AnErrorThatNoFailureHasIsNotReproduced) {
  recording.SendFailed(u"A", u"HE", 65536);
  recording.Sessions(std::vector<std::u16string>{u"A"});
  const Outcome outcome = Finished();
  EXPECT_TRUE(outcome.isWritten);
  EXPECT_THAT(outcome.notReproduced, ElementsAre(u"\"HE\" in session A: failed with 65536, but succeeded in a replay",
                                                 u"nothing answers \"HE\""));
}

TEST_F(Told, HalfASurrogatePairIsNotReproducedAndNothingBreaks) {
  Answered(u"HE\xD83D", u"A\xDE00");
  EXPECT_THAT(Finished().notReproduced, ElementsAre(u"\"HE\xD83D\" in session A: the buffer differs"));
  EXPECT_THAT(Text(), AllOf(HasSubstr("# not reproduced: \"HE\xEF\xBF\xBD\" in"), HasSubstr("like = \"HE?\"\n"),
                            HasSubstr("screen = \"A\xEF\xBF\xBD\"\n")));
}

TEST_F(Told, AnAnswerThatTheRecorderReadAfterTheProgramLetItGoIsThere) {
  const SendId unread = recording.Sent(u"A", u"IG");
  recording.BufferRead(unread, u"IGNORED", false);
  const SendId given = recording.Sent(u"A", u"ER");
  recording.BufferRead(given, u"");
  recording.BufferRead(given, u"DONE", false);
  EXPECT_THAT(Finished().notReproduced, IsEmpty());
  EXPECT_THAT(Text(), AllOf(HasSubstr("entry = \"IG\"\nscreen = \"IGNORED\"\nraw = true\n"),
                            HasSubstr("entry = \"ER\"\nnever = true\n"), Not(HasSubstr("DONE"))));
}

TEST_F(Told, AnAnswerThatNobodyReadIsNever) {
  recording.Sent(u"A", u"IG");
  EXPECT_THAT(Finished().notReproduced, IsEmpty());
  EXPECT_THAT(Text(), HasSubstr("entry = \"IG\"\nnever = true\n"));
}

TEST_F(Told, WithoutASessionTheReplayHasNone) {
  recording.Sessions(std::vector<std::u16string>{});
  recording.SendFailed(u"", u"HE", -2147467259);
  EXPECT_THAT(Finished().notReproduced, IsEmpty());
  EXPECT_THAT(Text(), Not(HasSubstr("[[")));
}

// --- PNRs ------------------------------------------------------------------------------------------------------------

TEST(RecordedPnrs, ThatTheirDisplaysShowAreTheirDisplaysAlone) {
  const std::string text = ExpectReplays(
      "session = [{ name = 'A' }]\n"
      "pnr = [{ on_display = true, display = \"RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0930Z   ABC123\\n"
      "  1.SMITH/JOHN MR\\n  2 RM CALL\" }]",
      [](RecordingTerminal& terminal) { terminal.ReadDisplay(); });
  EXPECT_THAT(text, HasSubstr("\n[[pnr]]\non_display = true\ndisplay = '''\n"
                              "RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0930Z   ABC123\n"
                              "  1.QBBBB/QBBB MR\n  2 RM XXXX\n'''\n"));
  EXPECT_TRUE(text.ends_with("'''\n"));
}

TEST(RecordedPnrs, WhoseCollectionsSaySomethingElseHaveThemByHand) {
  const std::string text = ExpectReplays(R"(
    session = [{ name = 'A' }]
    [[pnr]]
    on_display = true
    RecordLocator = 'ABC123'
    display = "RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0930Z   ABC123\n  1.SMITH/JOHN MR\n  2 RM CALL"
    [[pnr.Remarks]]
    Text = 'RM MAIL SMITH'
    ElementNo = 2
    FreeFlow = 'MAIL SMITH'
    [[pnr.Contacts]]
    Text = 'AP 0493123456'
    ElementNo = '3'
  )",
                                         [](RecordingTerminal& terminal) { terminal.ReadDisplay(); });
  EXPECT_THAT(text, AllOf(HasSubstr("derive = false\n"), HasSubstr("Text = \"RM XXXX XXXXX\"\nElementNo = 2\n"),
                          HasSubstr("FreeFlow = \"XXXX XXXXX\"\n"), HasSubstr("Text = \"AP 0000000000\"\n")));
}

TEST(RecordedPnrs, KeepTheTypesOfValues) {
  const std::string text = ExpectReplays(R"(
    session = [{ name = 'A' }]
    [[pnr]]
    on_display = true
    [pnr.Header]
    Text = 'T'
    ElementNo = 3
    OfficeID = true
    [[pnr.AirSegments]]
    kind = 'other'
    Text = 'ARNK'
    BoardPoint = 1.5
    OffPoint = false
    Class = 2008-06-12T18:00:00
    DepartureDate = 2008-06-12
    ArrivalTime = 18:00:00
    DepartureTime = -7
    DayChange = ''
    [[pnr.AirSegments]]
    kind = 'flown'
    ElementNo = '4'
    [[pnr.AirSegments]]
    kind = 'open'
    ElementNo = '5'
    [[pnr.Cars]]
    Text = 'CAR'
    Passengers = [1, '2']
  )",
                                         [](RecordingTerminal& terminal) { terminal.ReadDisplay(); });
  EXPECT_THAT(text, AllOf(HasSubstr("BoardPoint = 1.5\nOffPoint = false\nClass = 2008-06-12T18:00:00\n"
                                    "DepartureDate = 2008-06-12\nArrivalTime = 18:00:00\nDepartureTime = -7\n"),
                          HasSubstr("Passengers = [1, \"2\"]\n"), HasSubstr("kind = \"flown\"\n"),
                          HasSubstr("kind = \"open\"\n"), HasSubstr("kind = \"other\"\n"), HasSubstr("ElementNo = 3\n"),
                          HasSubstr("OfficeID = true\n")));
}

TEST(RecordedPnrs, OfWhichTheProgramReadLittleHaveWhatItRead) {
  const std::string text = ExpectReplays(R"(
    session = [{ name = 'A' }]
    [[pnr]]
    on_display = true
    display = "NO HEADER"
    derive = false
    [[pnr.Remarks]]
    Text = 'RM'
    [[pnr.Contacts]]
    Text = 'AP'
    [[pnr.AirSegments]]
    ElementNo = '2'
    [[pnr.AirSegments]]
    kind = 'open'
    ElementNo = '1'
  )",
                                         [](RecordingTerminal& terminal) {
                                           terminal.ReadOnly({65});
                                           terminal.ReadDisplay();
                                           terminal.ReadOnly({7, 13});
                                           terminal.ReadDisplay();
                                         });
  EXPECT_THAT(text, AllOf(HasSubstr("[[pnr.Remarks]]"), Not(HasSubstr("[[pnr.Contacts]]")),
                          HasSubstr("kind = \"open\"\nElementNo = \"1\"\n\n[[pnr.AirSegments]]\nElementNo = \"2\"\n")));
}

TEST(RecordedPnrs, KeepDisplaysWithLineBreaks) {
  const std::string text = ExpectReplays(
      "session = [{ name = 'A' }]\n"
      "pnr = [{ on_display = true, breaks = true, display = \"RP/PARXX0100/PARXX0100            AM/SU  "
      "12JUN08/0930Z   ABC123\\n  1.SMITH/JOHN MR\" }]",
      [](RecordingTerminal& terminal) { terminal.ReadDisplay(); });
  EXPECT_THAT(text, HasSubstr("breaks = true\n"));
}

TEST_F(Told, ADisplayThatIsNeitherRowsNorLinesIsNotReproduced) {
  recording.Retrieved(u"A", std::nullopt, PnrWith(u"SHORT"));
  EXPECT_THAT(Finished().notReproduced, ElementsAre(u"the PNR on display in session A: the display differs"));
}

TEST_F(Told, APropertyThatNoScenarioCanHoldIsNotReproduced) {
  const RetrievalId pnr = recording.Retrieved(u"A", std::nullopt, PnrWith(u""));
  ReadObject remark;
  remark.properties[u"Text"] = u"RM";
  remark.properties[u"FreeFlow"] = Null();
  recording.CollectionRead(pnr, 65, {remark});
  recording.CollectionRead(pnr, 9999, {remark});  // no collection
  EXPECT_THAT(Finished().notReproduced, ElementsAre(u"the PNR on display in session A: FreeFlow of Remarks 1 differs"));
}

TEST_F(Told, WhatFoundNothingWithoutAHeaderIsNotFound) {
  recording.Retrieved(u"A", u"RTNONE99", {});
  EXPECT_THAT(Finished().notReproduced, IsEmpty());
  EXPECT_THAT(Text(), Not(HasSubstr("[[pnr]]")));
}

TEST_F(Told, AnIntegerOf16BitsIsOneOf32) {
  ReadPnr pnr = PnrWith(u"");
  pnr.header->properties[u"ElementNo"] = std::int16_t{3};
  recording.Retrieved(u"A", std::nullopt, pnr);
  EXPECT_THAT(Finished().notReproduced, IsEmpty());
  EXPECT_THAT(Text(), HasSubstr("ElementNo = 3\n"));
}

// --- What is hidden --------------------------------------------------------------------------------------------------

constexpr char kPersons[] = R"(
session = [{ name = 'A' }]
reply = [{ entry = 'TQN', screen = "1 SMITH/JOHN MR\nMAIL JSMITH AND SMITH, CALL 0493123456\nFP CC4111 1111 1111 1111" }]
[[pnr]]
on_display = true
display = '''
RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0930Z   ABC123
  1.SMITH/JOHN MR   2.READ/AMY MRS
  3 AP NCE 0493123456
  4 SSR FQTV AF HK1/AF1234567890/P1
  5 RM JOHN PAYS WITH 5500005555555559
  6 FP CC4111111111111111/1210
'''
)";

void MeetPersons(RecordingTerminal& terminal) {
  terminal.Send(u"TQN");
  terminal.ReadDisplay();
  terminal.Send(u"NM1SMITH/JOHN MR");
  terminal.Send(u"FPCC4111111111111111/1210");
  terminal.Retrieve(u"RT/SMITH");
}

TEST(Persons, AreInNoRecording) {
  const Recorded recorded = Record(kPersons, MeetPersons);
  EXPECT_TRUE(recorded.outcome.isWritten);
  for (const char* token : {"SMITH/", "JOHN", "READ/", "AMY", "0493123456", "1234567890", "4111", "55000055"}) {
    EXPECT_THAT(recorded.text, Not(HasSubstr(token)));
  }
  EXPECT_THAT(recorded.text, HasSubstr("1.QBBBB/QBBB MR   2.QBBC/QBB MRS"));  // the host's order decides
}

TEST(Persons, AreThereWhereTheyAreKept) {
  const Recorded recorded = Record(kPersons, MeetPersons, {redaction::Kind::Names, redaction::Kind::Cards});
  EXPECT_THAT(recorded.text, AllOf(HasSubstr("# not hidden: names, cards\n"), HasSubstr("1.SMITH/JOHN MR"),
                                   HasSubstr("entry = \"FPCC4111111111111111/1210\""), HasSubstr("AP NCE 0000000000"),
                                   HasSubstr("RM XXXX XXXX XXXX XXXXXXXXXXXXXXXX")));
}

// The sentences of the recording itself may hold a passenger's name.
TEST_F(Told, APersonCalledLikeAWordOfTheRecordingIsHiddenThereToo) {
  const SendId answer = Answered(u"HE", u"  1.BUFFER/DIFFERS MR");
  recording.BufferRead(answer, u"OTHER");
  const Outcome outcome = Finished();
  EXPECT_TRUE(outcome.isWritten);
  EXPECT_THAT(Text(), AllOf(Not(HasSubstr("buffer")), Not(HasSubstr("differs")),
                            HasSubstr("# not reproduced: \"HE\" in session A: the qbbbbb qbbbbbb\n")));
}

TEST_F(Told, ARecordingThatWouldHoldANumberIsNotWritten) {
  Answered(u"FP", u"FP CC4111111111111111/1210");
  const RetrievalId pnr = recording.Retrieved(u"A", std::nullopt, PnrWith(u""));
  ReadObject payment;
  payment.properties[u"Text"] = 4111111111111111.0;
  recording.CollectionRead(pnr, 37, {payment});
  const Outcome outcome = Finished();
  EXPECT_FALSE(outcome.isWritten);
  EXPECT_EQ(outcome.problem, u"The recording would hold a name or a number that is to be hidden. It was not written.");
  EXPECT_TRUE(std::filesystem::is_empty(folder.File("")));
}

// --- The end ---------------------------------------------------------------------------------------------------------

TEST_F(Told, FinishingAgainReplacesTheFileByALongerOne) {
  Answered(u"HE", u"HELP");
  EXPECT_TRUE(Finished().isWritten);
  const std::string first = Text();
  EXPECT_TRUE(Finished().isWritten);
  EXPECT_EQ(Text(), first);
  Answered(u"IG", u"IGNORED");
  EXPECT_TRUE(Finished().isWritten);
  EXPECT_THAT(Text(), AllOf(HasSubstr("HELP"), HasSubstr("IGNORED")));
}

TEST_F(Told, AnotherRecordingDoesNotReplaceTheFile) {
  EXPECT_TRUE(Finished().isWritten);
  EXPECT_TRUE(RaisesNumber(58, [&] { Recording({file, {}, true}); }));
}

TEST_F(Told, AFileThatAppearedMeanwhileStays) {
  std::ofstream(file) << "precious";
  const Outcome outcome = Finished();
  EXPECT_FALSE(outcome.isWritten);
  EXPECT_THAT(ToUtf8(outcome.problem), HasSubstr("exists already"));
  EXPECT_EQ(Text(), "precious");
}

TEST_F(Told, ThereIsNoFileBeforeTheEnd) {
  Answered(u"HE", u"HELP");
  EXPECT_TRUE(std::filesystem::is_empty(folder.File("")));
}

}  // namespace
}  // namespace wendrill::recording
