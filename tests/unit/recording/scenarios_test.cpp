// The scenarios that come with the simulator, each recorded with the calls of a program that suits it: the replay is
// the same, and so is the recording of the replay.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "common/text.h"
#include "recording_terminal.h"
#include "redaction/letters.h"

namespace wendrill::recording {
namespace {

constexpr std::int32_t kClear = 322;
constexpr std::int32_t kEnter = 272;
constexpr std::int32_t kPa1 = 352;

void WorkOnTheDesktop(RecordingTerminal& terminal) {
  terminal.ListSessions();
  terminal.AskVersion();
  terminal.AskReady();
  terminal.LockAlarm(true);
  terminal.Listen();
  terminal.Press(kClear);
  terminal.Press(kEnter);
  terminal.DeliverEvents();
  terminal.StopListening();
  terminal.LockAlarm(false);
}

void WorkWithTheBuiltInDesktop(RecordingTerminal& terminal) {
  WorkOnTheDesktop(terminal);
  terminal.ReadDisplay();
  terminal.Send(u"AN15JUNPARLON");
  terminal.Send(u"AN20JUNNCEPAR");
  terminal.Send(u"MD");
  terminal.Send(u"MD");  // unknown: no page follows
  terminal.Send(u"HE", u"B");
  terminal.Send(u"MD", u"B");
  terminal.Retrieve(u"RTABC123");
  terminal.Retrieve(u"SP2", u"B");
  terminal.Retrieve(u"RTNONE99");
  terminal.Send(u"RTABC123");
  terminal.Send(u"RM PAY AT AIRPORT");
  terminal.Send(u"RM SMITH PAYS WITH 4111111111111111");
  terminal.Send(u"NM1SMITH/PAUL MR");
  terminal.Send(u"ER");
  terminal.ReadDisplay();
  terminal.ReadDisplay(u"B");
  terminal.Send(u"RM A;ER");
}

void WorkThroughFaults(RecordingTerminal& terminal) {
  WorkOnTheDesktop(terminal);
  terminal.Send(u"LATE");
  terminal.Send(u"NEVER");
  terminal.Send(u"FAIL");
  terminal.Send(u"RETRY");
  terminal.Send(u"RETRY");
  terminal.Send(u"WIDE");
  terminal.Retrieve(u"RTBROKEN");
  terminal.Retrieve(u"RTNOHEAD");
  terminal.ReadDisplay();
}

void WorkThroughPages(RecordingTerminal& terminal) {
  for (const char16_t* entry : {u"AN15JUNPARLON", u"TQN", u"HEAN", u"QT", u"DO1"}) {
    terminal.Send(entry);
    terminal.Send(u"MD");
    if (entry == std::u16string_view(u"AN15JUNPARLON")) {
      terminal.Press(kClear);
      terminal.Send(u"MD");
    }
  }
}

void WorkThroughTheQueue(RecordingTerminal& terminal) {
  terminal.Send(u"QT");
  terminal.Send(u"QS/8C1");
  terminal.ReadDisplay();
  terminal.Send(u"QT");
  terminal.Send(u"RM SEEN");
  terminal.Send(u"QN");
  terminal.ReadDisplay();
  terminal.Send(u"RM SEEN");
  terminal.ReadDisplay();
  terminal.Send(u"QN");
  terminal.ReadDisplay();
  terminal.Send(u"QN");
  terminal.Send(u"QT");
}

void ReadOnePnr(RecordingTerminal& terminal) {
  WorkOnTheDesktop(terminal);
  terminal.ReadDisplay();
  terminal.Retrieve(u"RTRCH001");
  terminal.Retrieve(u"RTGRP025");
  terminal.Send(u"RTRCH001");
  terminal.Retrieve(u"SP2");
  terminal.ReadDisplay();
}

void WorkWithAnOldTerminal(RecordingTerminal& terminal) {
  WorkOnTheDesktop(terminal);
  terminal.Send(u"LOCK");
  terminal.Send(u"ER");
  terminal.Send(u"UNLOCK");
}

void LookAround(RecordingTerminal& terminal) {
  terminal.ListSessions();
  terminal.AskVersion();
  terminal.AskReady();
}

const std::map<std::string, Program>& Programs() {
  static const std::map<std::string, Program> programs{{"built_in.toml", WorkWithTheBuiltInDesktop},
                                                       {"empty_desktop.toml", LookAround},
                                                       {"faults.toml", WorkThroughFaults},
                                                       {"group_pnr.toml", ReadOnePnr},
                                                       {"old_terminal.toml", WorkWithAnOldTerminal},
                                                       {"paged_availability.toml", WorkThroughPages},
                                                       {"queue_worked_through.toml", WorkThroughTheQueue},
                                                       {"rich_pnr.toml", ReadOnePnr}};
  return programs;
}

std::string ScenarioNamed(const std::string& name) {
  return ContentOf(std::filesystem::path(TEST_DATA) / name);
}

class RecordedScenarios : public ::testing::TestWithParam<std::string> {};

TEST_P(RecordedScenarios, ReplayTheSameAndAreRecordedTheSame) {
  ExpectReplays(ScenarioNamed(GetParam()), Programs().at(GetParam()));
}

TEST_P(RecordedScenarios, HoldNoNameOfTheirPassengers) {
  const Recorded recorded = Record(ScenarioNamed(GetParam()), Programs().at(GetParam()));
  const std::u16string text = FromUtf8(recorded.text);
  redaction::LetterWords all(text);
  for (auto word = all.Next(); word; word = all.Next()) {
    EXPECT_THAT(std::u16string(word->In(text)),
                ::testing::Not(::testing::AnyOf(u"SMITH", u"JOHN", u"ANN", u"MILLER", u"TOM", u"LEA", u"MARTIN", u"EVE",
                                                u"LEO", u"PAUL")));
  }
  for (const char* number : {"4111111111111111", "0612345678", "1234567890/P1", "04 93 00"}) {
    EXPECT_EQ(recorded.text.find(number), std::string::npos) << number;
  }
}

INSTANTIATE_TEST_SUITE_P(All, RecordedScenarios, ::testing::ValuesIn([] {
                           std::vector<std::string> names;
                           for (const auto& entry : std::filesystem::directory_iterator(TEST_DATA)) {
                             names.push_back(entry.path().filename().string());
                           }
                           std::ranges::sort(names);
                           return names;
                         }()),
                         [](const auto& each) { return each.param.substr(0, each.param.find('.')); });

}  // namespace
}  // namespace wendrill::recording
