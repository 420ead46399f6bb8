// What a trace hides: planted names, telephone numbers, card numbers and remarks, each on every way into a trace.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include "common/text.h"
#include "simulated_world.h"
#include "support/trace_file.h"

namespace wendrill::simulator {
namespace {

using wendrill::testing::TraceFile;

// Names that only displays have; that only a collection has; that only entries have.
constexpr std::string_view kNames[] = {"zwickerstein", "piroska", "montgomery", "eloise", "bartholomew", "agatha"};
constexpr std::string_view kPhones[] = {"0612345678", "93887766"};
constexpr std::string_view kCards[] = {"4111111111111111", "5500005555555559", "3782 822463 10005"};
constexpr std::string_view kRemarks[] = {"wheelchair", "overdrawn"};

constexpr std::u16string_view kScenario =
    uR"(
[[session]]
name = "A"

[[reply]]
starts = "RM"
screen = "OK"

[[reply]]
entry = "NM1ZWICKERSTEIN/PIROSKA MR"
error = 2001

[[reply]]
entry = "RT/MONTGOMERY"
screen = '''
 1 MONTGOMERY/ELOISE MRS   AF 123  15JUN NCECDG
'''

[[pnr]]
RecordLocator = "ABC123"
display = '''
RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0930Z   ABC123
  1.ZWICKERSTEIN/PIROSKA MR
  2  AF 123 Y 15JUN 7 NCECDG HK1      0900 1030
  3 AP NCE 0612345678-H
  4 APE P.ZWICKERSTEIN@EXAMPLE.COM
  5 RM NEEDS A WHEELCHAIR
  6 RC PARXX0100-W/ACCOUNT OVERDRAWN
  7 SSR CTCM AF HK1/93887766/P1
'''

[[pnr]]
RecordLocator = "DEF456"
derive = false
display = "A PNR WITHOUT NAME ROWS"

[[pnr.Names]]
Text = "1.MONTGOMERY/ELOISE MRS"
ElementNo = "1"
LastName = "MONTGOMERY"
Initial = "ELOISE MRS"
)";

class RedactionOfTraces : public SimulatedWorld {
 protected:
  // A run in which every planted token comes up wherever a token can.
  void RunThrough(const trace::Settings& settings) {
    Load(kScenario);
    world.StartTrace(settings, u"Zwickerstein.vbs");
    const auto session = world.MakeSessionList()->Item(std::u16string(u"A"));
    const Value connection = session->HostConnection();
    const auto pnr = world.MakePnr();
    const auto retrieve = [&](std::u16string_view entry) {
      const Value arguments[] = {connection, std::u16string(entry)};
      pnr->Call(Member::Name(u"Retrieve"), arguments);
    };
    EXPECT_TRUE(RaisesNumber(2001, [&] { session->Send(u"NM1ZWICKERSTEIN/PIROSKA MR", true); }));
    session->Send(u"RT/montgomery", true);
    session->Send(u"RT/MONTGOMERY", true);
    session->Send(u"NM1BARTHOLOMEW/AGATHA MRS", true);
    session->Send(u"RM CALL 0612345678 THE WHEELCHAIR;RM CARD 4111111111111111", true);
    session->Send(u"FPCC5500005555555559/1226", true);
    session->Send(u"RM OVERDRAWN 3782 822463 10005", false);
    session->Send(u"AP 93887766", false);
    retrieve(u"RTABC123");
    retrieve(u"RTDEF456");
    retrieve(u"RT/BARTHOLOMEW");
    world.Expectations().Equal(u"name of Zwickerstein", std::u16string(u"Mr Zwickerstein"),
                               std::u16string(u"BARTHOLOMEW"), world.Texts());
    world.Expectations().Equal(u"remark", std::u16string(u"RM NEEDS A WHEELCHAIR"), std::u16string(u"5 RM OVERDRAWN"),
                               world.Texts());
    world.Expectations().Sent(u"RM ACCOUNT OVERDRAWN", 1, {});
    world.Expectations().Sent(u"AP 0612345678", 1, {});
    world.Expectations().InOrder(ValueArray{.items = {std::u16string(u"RM WHEELCHAIR"), std::u16string(u"JI"),
                                                      std::u16string(u"NM1BARTHOLOMEW/AGATHA")}},
                                 {}, world.Texts());
    world.Expectations().Screen(u"MONTGOMERY/ELOISE", false, 1, u"3 AP NCE 0612345678-H", world.Texts());
    world.Findings().Warn(u"line 9: nothing reads the remark \"RM ACCOUNT OVERDRAWN\" of Piroska");
    world.Tracing()->Write(
        trace::Failed{.text = u"no end after 5 s, in Send(\"RM WHEELCHAIR\"); last entry \"AP 93887766\"",
                      .source = u"Bartholomew",
                      .file = u"Zwickerstein.vbs"});
    world.EndTrace(1);
  }

  bool IsInFile(std::string_view token) const {
    std::string text = file.Text();
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return text.find(token) != std::string::npos;
  }

  void ExpectAll(const auto& tokens, bool are) const {
    for (const std::string_view token : tokens) {
      EXPECT_EQ(IsInFile(token), are) << token;
    }
  }

  TraceFile file;
};

TEST_F(RedactionOfTraces, NoPlantedTokenIsInATrace) {
  RunThrough(file.WithoutTimes());
  ExpectAll(kNames, false);
  ExpectAll(kPhones, false);
  ExpectAll(kCards, false);
  ExpectAll(kRemarks, false);
}

TEST_F(RedactionOfTraces, WhatIsNoPersonalDataStays) {
  RunThrough(file.WithoutTimes());
  for (const std::string_view text : {"\"locator\":\"abc123\"", "af 123 y 15jun 7 ncecdg hk1", "rp/parxx0100/parxx0100",
                                      "rtdef456", "no end after 5 s, in send(", "a pnr without name rows"}) {
    EXPECT_TRUE(IsInFile(text)) << text;
  }
}

TEST_F(RedactionOfTraces, AllOfItIsThereWhenAllIsKept) {
  using redaction::Kind;
  RunThrough({file.Path(), false, {Kind::Names, Kind::Cards, Kind::Contacts, Kind::Remarks}});
  ExpectAll(kNames, true);
  ExpectAll(kPhones, true);
  ExpectAll(kCards, true);
  ExpectAll(kRemarks, true);
}

TEST_F(RedactionOfTraces, OneKindThatIsKeptShowsNoOther) {
  RunThrough({file.Path(), false, {redaction::Kind::Remarks}});
  ExpectAll(kNames, false);
  ExpectAll(kRemarks, true);
  ExpectAll(kCards, false);
}

TEST_F(RedactionOfTraces, ScenarioThatIsLoadedLaterIsLearntToo) {
  world.StartTrace(file.WithoutTimes(), u"mine.vbs");
  Load(kScenario);
  world.MakeSessionList()->Item(std::u16string(u"A"))->Send(u"MAIL TO ELOISE MONTGOMERY", true);
  ExpectAll(kNames, false);
}

// The names are in the Text of a response and on the screen that answers an unknown entry, not on any other screen.
TEST_F(RedactionOfTraces, AllScreensAndTextsOfAScenarioAreLearntWhenItIsLoaded) {
  world.StartTrace(file.WithoutTimes(), u"mine.vbs");
  Load(
      u"session = [{ name = 'A' }]\nreply = [{ entry = 'JD', screen = 'DONE', text = '  1.OKONKWO/IFEOMA MRS' }]\n"
      u"unknown = { screen = '  1.DELACROIX/THIBAULT MR' }");
  world.MakeSessionList()->Item(std::u16string(u"A"))->Send(u"MAIL TO IFEOMA OKONKWO AND THIBAULT DELACROIX", true);
  for (const std::string_view name : {"okonkwo", "ifeoma", "delacroix", "thibault"}) {
    EXPECT_FALSE(IsInFile(name)) << name;
  }
}

TEST_F(RedactionOfTraces, RowsKeepTheirLengths) {
  RunThrough(file.WithoutTimes());
  const std::string text = file.Text();
  const std::size_t start = text.find(R"("locator":"ABC123","screen":["RP/)");
  ASSERT_NE(start, std::string::npos);
  const std::size_t row = text.find("\",\"", text.find("\"screen\"", start)) + 3;  // the second one, of names
  EXPECT_EQ(text.find('"', row) - row, 80u);
  EXPECT_EQ(text.substr(row, 4), "  1.");
  EXPECT_EQ(text.substr(row + 16, 1), "/");  // behind a surname of twelve letters
}

}  // namespace
}  // namespace wendrill::simulator
