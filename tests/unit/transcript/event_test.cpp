#include "transcript/event.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace wendrill::transcript {
namespace {

using testing::ElementsAre;

JournalLine LineOf(std::string_view json) {
  const auto event = Event::Read(json);
  return event ? event->Line() : JournalLine{"no event", {}, {}};
}

struct Row {
  std::string_view json;
  std::string_view text;
  std::string_view problem;
  std::string_view details;
};

TEST(JournalLines, SayWhatEachKindIsAbout) {
  const Row rows[] = {
      {R"({"v":1,"kind":"run","script":"a.vbs","scenario":"b.toml","started":"2026-11-22T09:30:00Z","kept":["names","cards"]})",
       "a.vbs", "", "scenario b.toml · started 2026-11-22T09:30:00Z · kept names; cards"},
      {R"({"t":1,"n":2,"kind":"send","session":"A","entry":"AN","answered":true,"ms":1.2,"type":22,"screen":["x"]})",
       "AN", "", "1.2 ms · type 22"},
      {R"({"kind":"send","entry":"AN","answered":false,"same":3})", "AN", "unanswered", ""},
      {R"({"kind":"send","entry":"A;B","answered":false,"refused":true,"parts":[{"entry":"A","answered":true},{"entry":"B","answered":false}]})",
       "A;B", "unanswered, refused", "parts entry A, answered; entry B, not answered"},
      {R"({"kind":"send","entry":"AN","answered":true,"error":{"number":-2147467259,"text":"Gone."}})", "AN",
       "failed: Gone. (-2147467259)", ""},
      {R"({"kind":"send","entry":"AN","answered":true,"never":true})", "AN", "no response", ""},
      {R"({"kind":"key","code":322,"name":"kbClear","accepted":true})", "kbClear", "", "code 322"},
      {R"({"kind":"key","code":353,"accepted":false})", "353", "not accepted", ""},
      {R"({"kind":"type","session":"A","text":"HELLO"})", "HELLO", "", ""},
      {R"({"kind":"alarm","lock":true})", "lock", "", ""},
      {R"({"kind":"alarm","lock":false,"error":{"number":438,"text":"No."}})", "unlock", "failed: No. (438)", ""},
      {R"({"kind":"retrieve","entry":"RTABC123","found":true,"locator":"ABC123"})", "RTABC123", "", "locator ABC123"},
      {R"({"kind":"retrieve","on_display":true,"found":false})", "the PNR on display", "not found", ""},
      {R"({"kind":"event","session":"A","handlers":2})", "ReceivedResponse", "", "handlers 2"},
      {R"({"kind":"call","operation":"Item","argument":"strKeyAirline"})", "Item strKeyAirline", "", ""},
      {R"({"kind":"call","operation":"ClearJournal"})", "ClearJournal", "", ""},
      {R"({"kind":"error","text":"Not set.","number":91,"source":"V","file":"a.vbs","line":4,"column":2})", "Not set.",
       "error", "number 91 · source V · file a.vbs · line 4 · column 2"},
      {R"({"kind":"expect","name":"office","held":true})", "office", "", ""},
      {R"({"kind":"expect","name":"office","held":false,"failure":"got 1"})", "office", "failed", "failure got 1"},
      {R"({"kind":"warning","about":"unused","text":"line 7"})", "line 7", "", "about unused"},
      {R"({"kind":"end","status":0,"duration":2.5})", "status 0", "", "duration 2.5"},
      {R"({"kind":"end","status":124,"duration":2.5})", "status 124", "not 0", "duration 2.5"},
      {R"({"kind":"end","duration":2.5})", "the end", "", "duration 2.5"},
  };
  for (const Row& row : rows) {
    const JournalLine line = LineOf(row.json);
    EXPECT_EQ(line.text, row.text) << row.json;
    EXPECT_EQ(line.problem, row.problem) << row.json;
    EXPECT_EQ(line.details, row.details) << row.json;
  }
}

TEST(JournalLines, ShowKindsAndMembersThatAreNotKnown) {
  const JournalLine line = LineOf(R"({"kind":"print","page":[1,{"a":true,"b":null}],"text":"two","x":1.5})");
  EXPECT_EQ(line.text, "two");
  EXPECT_EQ(line.details, "page 1; a, b null · x 1.5");
  EXPECT_EQ(line.problem, "");
}

TEST(JournalLines, TakeMembersOfOtherTypes) {
  EXPECT_EQ(LineOf(R"({"kind":"send","entry":7,"answered":"no","error":"broken"})").problem, "failed: broken");
  EXPECT_EQ(LineOf(R"({"kind":"send","entry":7,"answered":"no"})").details, "answered no");
  EXPECT_EQ(LineOf(R"({"kind":5})").text, "");
  EXPECT_EQ(LineOf("{}").text, "");
  EXPECT_EQ(LineOf(R"({"kind":"send","error":{"code":1}})").problem, "failed: code 1");
}

TEST(JournalLines, TakeValuesOfAnyDepth) {
  std::string deep = R"({"kind":"x","value":)";
  for (int depth = 0; depth < 100000; ++depth) {
    deep += '[';
  }
  deep += std::string(100000, ']') + "}";
  EXPECT_EQ(LineOf(deep).details, "value ...");
}

TEST(EventLines, ThatAreNoObjectsAreNoEvents) {
  for (const std::string_view line :
       {R"({"t":0.02,"n":4,"ki)", "[]", "7", "null", "\"text\"", "{} {}", "{\"a\":\"\xFF\"}"}) {
    EXPECT_FALSE(Event::Read(line)) << line;
  }
}

TEST(EventLines, WithHalfASurrogatePairAreRepaired) {
  const auto event = Event::Read(R"({"kind":"send","entry":"X\ud800Y"})");
  ASSERT_TRUE(event);
  EXPECT_EQ(event->Text("entry"), "X\uFFFDY");
  EXPECT_EQ(event->Data(), R"({"kind":"send","entry":"X\ufffdY"})");
}

TEST(EventMembers, AreReadWhereTheyAreOfTheirType) {
  const auto event = Event::Read(R"({"t":0.5,"n":17,"same":16,"screen":["one",2,"three"]})");
  EXPECT_EQ(event->Seconds(), 0.5);
  EXPECT_EQ(event->Number(), 17);
  EXPECT_EQ(event->Same(), 16);
  EXPECT_THAT(*event->Screen(), ElementsAre("one", "2", "three"));
  const auto other = Event::Read(R"({"t":"late","n":1.5,"same":null,"screen":"one"})");
  EXPECT_EQ(other->Seconds(), 0);
  EXPECT_EQ(other->Number(), std::nullopt);
  EXPECT_EQ(other->Same(), std::nullopt);
  EXPECT_EQ(other->Screen(), std::nullopt);
  EXPECT_EQ(other->Line().details, "");
}

}  // namespace
}  // namespace wendrill::transcript
