// The trace of a simulated desktop: which line each thing that reaches it leaves.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/text.h"
#include "simulated_world.h"
#include "support/trace_file.h"

namespace wendrill::simulator {
namespace {

using ::testing::ElementsAre;
using wendrill::testing::TraceFile;

constexpr std::u16string_view kScenario =
    uR"(
[[session]]
name = "A"

[[session]]
name = "B"

[terminal]
refuses = [322]

[[reply]]
entry = "AN15JUN"
type = 7
screen = "AVAILABILITY"

[[reply]]
entry = "AGAIN"
screen = "AVAILABILITY"

[[reply]]
entry = "SLOW"
after = 2.5
late = 2
screen = "THERE"

[[reply]]
entry = "NEVER"
never = true

[[reply]]
entry = "BREAKS"
error = 2001

[[reply]]
entry = "NO"
refuses = true
screen = "REFUSED"

[[pnr]]
RecordLocator = "ABC123"
display = "PNR\n"
on_display = true
derive = false
)";

class TraceOfWorld : public SimulatedWorld {
 protected:
  // Starts a trace with the scenario above in force.
  void Start() {
    Load(kScenario);
    world.StartTrace(file.WithoutTimes(), u"mine.vbs");
  }

  std::shared_ptr<HostSession> Session(std::u16string_view name = u"A") {
    return world.MakeSessionList()->Item(std::u16string(name));
  }

  // The lines of all kinds but "call", after the first line and after those that were asked for before.
  std::vector<std::string> NewLines() {
    std::vector<std::string> lines;
    const auto all = file.Lines();
    for (; seen_ < all.size(); ++seen_) {
      if (all[seen_].find(R"("kind":"call")") == std::string::npos) {
        lines.push_back(WithoutNumber(all[seen_]));
      }
    }
    return lines;
  }

  // The number of a line says how many calls were before it; what it says is in the rest.
  static std::string WithoutNumber(const std::string& line) {
    const std::size_t start = line.find(R"("n":)");
    const std::size_t end = line.find(',', start);
    return line.substr(0, start) + line.substr(end + 1);
  }

  static std::string Blanks(std::string text) {
    text.resize(80, ' ');
    return text;
  }

  TraceFile file;

 private:
  std::size_t seen_ = 1;
};

TEST_F(TraceOfWorld, BeginsWithWhatRuns) {
  Start();
  EXPECT_THAT(file.Lines(),
              ElementsAre(R"({"v":1,"kind":"run","script":"mine.vbs","scenario":"test.toml","started":""})"));
}

TEST_F(TraceOfWorld, NamesTheBuiltInScenarioWithoutPuttingItInForce) {
  world.StartTrace(file.WithoutTimes(), u"mine.vbs");
  EXPECT_EQ(file.Lines().at(0),
            R"({"v":1,"kind":"run","script":"mine.vbs","scenario":"built-in scenario","started":""})");
  Load(u"[[session]]\nname = \"A\"\n");
  EXPECT_EQ(ToUtf8(world.Report()), "");  // nothing of the built-in scenario is reported as unused
}

TEST_F(TraceOfWorld, FileThatCannotBeWrittenIsRejectedAndNothingIsTraced) {
  const auto error = ErrorOf([&] { world.StartTrace({file.Path() / "no" / "folder.jsonl", true, {}}, u"mine.vbs"); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), 75);
  EXPECT_NE(error->Description().find(u"folder.jsonl\" cannot be written."), std::u16string::npos);
  EXPECT_EQ(world.Tracing(), nullptr);
}

TEST_F(TraceOfWorld, SentEntryWithItsScreen) {
  Start();
  Session()->Send(u"AN15JUN", true);
  EXPECT_THAT(NewLines(), ElementsAre(R"({"t":0,"kind":"send","session":"A","entry":"AN15JUN","answered":true,)"
                                      R"("ms":0,"type":7,"screen":[")" +
                                      Blanks("AVAILABILITY") + "\"]}"));
}

TEST_F(TraceOfWorld, ScreenEqualToTheLastOneRefersToItsLine) {
  Start();
  const auto session = Session();       // n 1: call Item
  session->Send(u"AN15JUN", true);      // n 2
  session->Send(u"AGAIN", true);        // n 3
  Session(u"B")->Send(u"AGAIN", true);  // n 4: call Item, n 5
  session->Send(u"NO", true);           // n 6
  session->Send(u"AGAIN", true);        // n 7
  const auto lines = file.Lines();
  ASSERT_EQ(lines.size(), 8u);
  EXPECT_NE(
      lines[3].find(R"("n":3,"kind":"send","session":"A","entry":"AGAIN","answered":true,"ms":0,"type":0,"same":2})"),
      std::string::npos);
  EXPECT_NE(
      lines[5].find(R"("n":5,"kind":"send","session":"B","entry":"AGAIN","answered":true,"ms":0,"type":0,"same":2})"),
      std::string::npos);
  EXPECT_NE(lines[7].find("\"screen\":[\"AVAILABILITY "), std::string::npos);  // another one was shown between
}

TEST_F(TraceOfWorld, UnansweredEntryShowsTheUnknownScreen) {
  Start();
  Session()->Send(u"HUH", true);
  EXPECT_THAT(NewLines(), ElementsAre(R"({"t":0,"kind":"send","session":"A","entry":"HUH","answered":false,)"
                                      R"("ms":0,"type":0,"screen":[")" +
                                      Blanks("ENTRY NOT UNDERSTOOD") + "\"]}"));
}

TEST_F(TraceOfWorld, PackedEntryNamesThePartsThatWereCarriedOut) {
  Start();
  Session()->Send(u"AN15JUN;HUH;NO;AGAIN", true);
  EXPECT_THAT(NewLines(),
              ElementsAre(R"({"t":0,"kind":"send","session":"A","entry":"AN15JUN;HUH;NO;AGAIN","answered":false,)"
                          R"("refused":true,"parts":[{"entry":"AN15JUN","answered":true},)"
                          R"({"entry":"HUH","answered":false},{"entry":"NO","answered":true,"refused":true}],)"
                          R"("ms":0,"type":0,"screen":[")" +
                          Blanks("REFUSED") + "\"]}"));
}

TEST_F(TraceOfWorld, LateResponseShowsWhatWillCome) {
  Start();
  Session()->Send(u"SLOW", true);
  EXPECT_THAT(NewLines(), ElementsAre(R"({"t":0,"kind":"send","session":"A","entry":"SLOW","answered":true,)"
                                      R"("ms":0,"late":2,"type":0,"screen":[")" +
                                      Blanks("THERE") + "\"]}"));
}

TEST_F(TraceOfWorld, TimeUntilALateResponseIsThatOfTheScenarioAtLeast) {
  Load(kScenario);
  world.StartTrace({file.Path(), true, {}}, u"mine.vbs");
  Session()->Send(u"SLOW", true);
  const std::string line = file.Lines().back();
  const double milliseconds = std::stod(line.substr(line.find("\"ms\":") + 5));
  EXPECT_GE(milliseconds, 2500.0);
  EXPECT_LT(milliseconds, 62500.0);  // a minute for the call itself
}

TEST_F(TraceOfWorld, ResponseThatNeverComesHasNoScreen) {
  Start();
  Session()->Send(u"NEVER", true);
  EXPECT_THAT(NewLines(),
              ElementsAre(R"({"t":0,"kind":"send","session":"A","entry":"NEVER","answered":true,"never":true})"));
}

TEST_F(TraceOfWorld, FailedSendsTellTheirErrors) {
  Start();
  const auto session = Session();
  EXPECT_TRUE(RaisesNumber(2001, [&] { session->Send(u"BREAKS", true); }));
  world.FailNext(u"Send", 70, 1);
  EXPECT_TRUE(RaisesNumber(70, [&] { session->Send(u"AGAIN", true); }));
  EXPECT_THAT(NewLines(),
              ElementsAre(R"({"t":0,"kind":"send","session":"A","entry":"BREAKS","answered":true,)"
                          R"("error":{"number":2001,"text":"The scenario lets the entry \"BREAKS\" fail."}})",
                          R"({"t":0,"kind":"send","session":"A","entry":"AGAIN","answered":true,)"
                          R"("error":{"number":70,"text":"Send was made to fail, as planned."}})"));
}

TEST_F(TraceOfWorld, PackedEntryThatFailsNamesItsPartsUpToTheFailure) {
  Start();
  EXPECT_TRUE(RaisesNumber(2001, [&] { Session()->Send(u"AGAIN;BREAKS;AN15JUN", true); }));
  EXPECT_THAT(NewLines(),
              ElementsAre(R"({"t":0,"kind":"send","session":"A","entry":"AGAIN;BREAKS;AN15JUN","answered":true,)"
                          R"("parts":[{"entry":"AGAIN","answered":true},{"entry":"BREAKS","answered":true}],)"
                          R"("error":{"number":2001,"text":"The scenario lets the entry \"BREAKS\" fail."}})"));
}

TEST_F(TraceOfWorld, SendWithoutASessionThatRunsTellsItsError) {
  Load(u"[terminal]\nversion = \"1\"\n");
  world.StartTrace(file.WithoutTimes(), u"mine.vbs");
  const auto session = world.MakeSession();
  EXPECT_TRUE(RaisesNumber(kUnspecifiedFailure, [&] { session->Send(u"JI", true); }));
  EXPECT_THAT(NewLines(), ElementsAre(R"({"t":0,"kind":"send","session":"","entry":"JI","answered":false,)"
                                      R"("error":{"number":-2147467259,"text":"No session of the terminal runs."}})"));
}

TEST_F(TraceOfWorld, KeysWithTheirNames) {
  Start();
  const auto session = Session();
  session->SendKey(352);
  session->SendKey(322);  // the scenario lets the terminal refuse it
  session->SendKey(1);
  session->SendKey(369);  // two constants have this code
  world.FailNext(u"SendKey", 70, 1);
  EXPECT_TRUE(RaisesNumber(70, [&] { session->SendKey(352); }));
  EXPECT_THAT(NewLines(),
              ElementsAre(R"({"t":0,"kind":"key","session":"A","code":352,"name":"kbPA1","accepted":true})",
                          R"({"t":0,"kind":"key","session":"A","code":322,"name":"kbClear","accepted":false})",
                          R"({"t":0,"kind":"key","session":"A","code":1,"accepted":true})",
                          R"({"t":0,"kind":"key","session":"A","code":369,"name":"kbClean","accepted":true})",
                          R"({"t":0,"kind":"key","session":"A","code":352,"name":"kbPA1",)"
                          R"("error":{"number":70,"text":"SendKey was made to fail, as planned."}})"));
}

TEST_F(TraceOfWorld, TextThatIsTypedAndNotSent) {
  Start();
  Session()->Send(u"HELLO", false);
  EXPECT_THAT(NewLines(), ElementsAre(R"({"t":0,"kind":"type","session":"A","text":"HELLO"})"));
}

TEST_F(TraceOfWorld, Alarm) {
  Start();
  const auto alarm = world.MakeAlarmManager();
  alarm->LockAlarm(true);
  alarm->LockAlarm(false);
  world.FailNext(u"LockAlarm", 70, 1);
  EXPECT_TRUE(RaisesNumber(70, [&] { alarm->LockAlarm(false); }));
  EXPECT_THAT(NewLines(), ElementsAre(R"({"t":0,"kind":"alarm","lock":true})", R"({"t":0,"kind":"alarm","lock":false})",
                                      R"({"t":0,"kind":"alarm","lock":false,)"
                                      R"("error":{"number":70,"text":"LockAlarm was made to fail, as planned."}})"));
}

TEST_F(TraceOfWorld, RetrievalsWithWhatTheyFound) {
  Start();
  const Value connection = Session()->HostConnection();
  const auto pnr = world.MakePnr();
  const auto retrieve = [&](std::u16string_view entry) {
    const Value arguments[] = {connection, std::u16string(entry)};
    pnr->Call(Member::Name(u"Retrieve"), arguments);
  };
  const Value current[] = {connection};
  pnr->Call(Member::Name(u"RetrieveCurrent"), current);
  retrieve(u"RTABC123");
  retrieve(u"RTNOSUCH");
  world.FailNext(u"Retrieve", 70, 1);
  EXPECT_TRUE(RaisesNumber(70, [&] { retrieve(u"RTABC123"); }));
  EXPECT_THAT(NewLines(), ElementsAre(R"({"t":0,"kind":"retrieve","session":"A","on_display":true,"found":true,)"
                                      R"("locator":"ABC123","screen":[")" +
                                          Blanks("PNR") + "\"]}",
                                      R"({"t":0,"kind":"retrieve","session":"A","entry":"RTABC123","found":true,)"
                                      R"("locator":"ABC123","same":3})",
                                      R"({"t":0,"kind":"retrieve","session":"A","entry":"RTNOSUCH","found":false})",
                                      R"({"t":0,"kind":"retrieve","session":"","entry":"RTABC123",)"
                                      R"("error":{"number":70,"text":"Retrieve was made to fail, as planned."}})"));
}

TEST_F(TraceOfWorld, EventsWithTheNumberOfTheirHandlers) {
  Start();
  const auto first = Session(u"A");
  const auto second = Session(u"B");
  const auto one = first->OnReceivedResponse([] {});
  auto two = first->OnReceivedResponse([] {});
  const auto three = second->OnReceivedResponse([] {});
  first->SendKey(272);
  second->SendKey(272);
  world.DeliverPending();
  two = nullptr;
  first->SendKey(272);
  world.DeliverPending();
  world.DeliverPending();  // nothing is pending
  const std::string key = R"({"t":0,"kind":"key","session":"%","code":272,"name":"kbEnter","accepted":true})";
  const auto keyIn = [&](const char* session) { return std::string(key).replace(key.find('%'), 1, session); };
  EXPECT_THAT(NewLines(), ElementsAre(keyIn("A"), keyIn("B"), R"({"t":0,"kind":"event","session":"A","handlers":2})",
                                      R"({"t":0,"kind":"event","session":"B","handlers":1})", keyIn("A"),
                                      R"({"t":0,"kind":"event","session":"A","handlers":1})"));
}

TEST_F(TraceOfWorld, OtherCallsOnceBetweenTwoLinesOfOtherKinds) {
  Start();
  const auto session = Session();
  const auto response = session->Send(u"AN15JUN", true);
  for (int i = 0; i < 3; ++i) {
    response->Buffer();
    response->ResponseType();
  }
  session->SendKey(1);
  response->Buffer();
  const auto lines = file.Lines();
  ASSERT_EQ(lines.size(), 7u);
  EXPECT_EQ(lines[1], R"({"t":0,"n":1,"kind":"call","operation":"Item"})");
  EXPECT_EQ(lines[3], R"({"t":0,"n":3,"kind":"call","operation":"Buffer"})");
  EXPECT_EQ(lines[4], R"({"t":0,"n":4,"kind":"call","operation":"ResponseType"})");
  EXPECT_EQ(lines[6], R"({"t":0,"n":6,"kind":"call","operation":"Buffer"})");
}

TEST_F(TraceOfWorld, EachCallThatFailsHasALine) {
  Start();
  const auto response = Session()->Send(u"AN15JUN", true);
  response->Buffer();
  for (int i = 0; i < 2; ++i) {
    world.FailNext(u"Buffer", 70, 1);
    EXPECT_TRUE(RaisesNumber(70, [&] { response->Buffer(); }));
  }
  const std::string failed =
      R"("kind":"call","operation":"Buffer","error":{"number":70,"text":"Buffer was made to fail, as planned."}})";
  const std::string planned = R"("kind":"call","operation":"Control.FailNext","argument":"Buffer"})";
  const auto lines = file.Lines();
  ASSERT_EQ(lines.size(), 8u);
  EXPECT_EQ(lines[4], R"({"t":0,"n":4,)" + planned);
  EXPECT_EQ(lines[5], R"({"t":0,"n":5,)" + failed);
  EXPECT_EQ(lines[6], R"({"t":0,"n":6,)" + planned);
  EXPECT_EQ(lines[7], R"({"t":0,"n":7,)" + failed);
}

TEST_F(TraceOfWorld, AnErrorOfTheWatcherIsTheCallsError) {
  Start();
  const auto response = Session()->Send(u"AN15JUN", true);
  world.Watch([](std::u16string_view, std::u16string_view) { Fail(2505, u"no end after 1 s"); });
  EXPECT_TRUE(RaisesNumber(2505, [&] { response->Text(); }));
  EXPECT_EQ(file.Lines().back(), R"({"t":0,"n":3,"kind":"call","operation":"Text",)"
                                 R"("error":{"number":2505,"text":"no end after 1 s"}})");
}

TEST_F(TraceOfWorld, ScenariosThatTheScriptLoads) {
  Start();
  Load(u"[[session]]\nname = \"A\"\n");
  world.Load((std::filesystem::path(TEST_DATA) / "near.toml" / ".." / "built_in.toml").lexically_normal().u16string());
  const auto lines = file.Lines();
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[1], R"({"t":0,"n":1,"kind":"call","operation":"Control.LoadText","argument":"test.toml"})");
  EXPECT_EQ(lines[2], R"({"t":0,"n":2,"kind":"call","operation":"Control.Load","argument":"built_in.toml"})");
}

TEST_F(TraceOfWorld, ExpectationsAndTheirHookBoth) {
  Start();
  std::vector<std::u16string> told;
  world.OnExpectation([&](const Expectation& one) { told.push_back(one.name); });
  world.Expectations().Fails(u"signing in", 0, 0);
  world.Expectations().Fails(u"signing out", 5, 0);
  EXPECT_THAT(NewLines(), ElementsAre(R"({"t":0,"kind":"expect","name":"signing in","held":true})",
                                      R"({"t":0,"kind":"expect","name":"signing out","held":false,)"
                                      R"("failure":"got error 5, expected no error"})"));
  EXPECT_THAT(told, ElementsAre(u"signing in", u"signing out"));
}

TEST_F(TraceOfWorld, EndsWithTheFindingsAndTheCounts) {
  Load(u"[[session]]\nname = \"A\"\n\n[[reply]]\nentry = \"JI\"\nscreen = \"IN\"\n");
  world.StartTrace(file.WithoutTimes(), u"mine.vbs");
  const auto session = Session();
  session->Send(u"HUH", true);
  session->Send(u"HUH", true);
  world.Findings().Warn(u"nothing reads intKeyIndx");
  world.Expectations().Fails(u"signing in", 5, 0);
  world.Expectations().Fails(u"signing out", 0, 0);
  NewLines();
  world.EndTrace(3);
  session->Send(u"TOO LATE", true);
  EXPECT_THAT(NewLines(),
              ElementsAre(R"({"t":0,"kind":"warning","about":"unanswered","text":"HUH"})",
                          R"({"t":0,"kind":"warning","about":"unused","text":"line 4, entry = \"JI\""})",
                          R"({"t":0,"kind":"warning","about":"warning","text":"nothing reads intKeyIndx"})",
                          R"({"t":0,"kind":"end","status":3,"duration":0,"sent":2,"unanswered":1,"calls":0,)"
                          R"("expectations":2,"failed":1,"findings":3})"));
}

TEST_F(TraceOfWorld, EndsWithTheDesktopWhenNobodyElseEndsIt) {
  {
    World desktop;
    desktop.LoadText(u"[[session]]\nname = \"A\"\n", u"test.toml");
    desktop.StartTrace(file.WithoutTimes(), u"program.exe");
  }
  EXPECT_THAT(file.Lines(),
              ElementsAre(R"({"v":1,"kind":"run","script":"program.exe","scenario":"test.toml","started":""})",
                          R"({"t":0,"n":1,"kind":"end","duration":0,"sent":0,"unanswered":0,"calls":0,)"
                          R"("expectations":0,"failed":0,"findings":0})"));
}

TEST_F(TraceOfWorld, WithTimesTheyNeverGoBack) {
  Load(kScenario);
  world.StartTrace({file.Path(), true, {}}, u"mine.vbs");
  const auto session = Session();
  double last = 0;
  for (int i = 0; i < 50; ++i) {
    session->SendKey(1);
    const std::string line = file.Lines().back();
    const double seconds = std::stod(line.substr(line.find("\"t\":") + 4));
    EXPECT_GE(seconds, last);
    last = seconds;
  }
  EXPECT_THAT(file.Lines().at(0),
              ::testing::MatchesRegex(".*\"started\":\"20[0-9][0-9]-[01][0-9]-[0-3][0-9]T[0-2][0-9]:[0-5][0-9]:"
                                      "[0-5][0-9]Z\"\\}"));
}

TEST_F(TraceOfWorld, HostileTextsStayValidLines) {
  Start();
  const auto session = Session();
  session->Send(u"\"\\\r\n\t\x01\x7F</script>\u2028", true);
  session->Send(std::u16string(u"\xD800X\xDC00") + u"\U0001F600", true);
  session->Send(std::u16string(u"NUL\0NUL", 7), true);
  session->Send(std::u16string(100'000, u'L'), false);
  const auto lines = NewLines();
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_NE(lines[0].find(R"("entry":"\"\\\r\n\t\u0001)"
                          "\x7F"
                          R"(</script>)"
                          "\xE2\x80\xA8\""),
            std::string::npos);
  EXPECT_NE(lines[1].find("\"entry\":\"\xEF\xBF\xBDX\xEF\xBF\xBD\xF0\x9F\x98\x80\""), std::string::npos);
  EXPECT_NE(lines[2].find(R"("entry":"NUL\u0000NUL")"), std::string::npos);
  EXPECT_NE(lines[3].find("\"text\":\"" + std::string(100'000, 'L') + "\""), std::string::npos);
}

TEST_F(TraceOfWorld, WithoutATraceTheDesktopDoesTheSame) {
  Load(kScenario);
  const auto session = Session();
  EXPECT_EQ(session->Send(u"AN15JUN", true)->Text(), Row(u"AVAILABILITY"));
  EXPECT_EQ(session->Send(u"TYPED", false), nullptr);
  EXPECT_TRUE(session->SendKey(352));
  EXPECT_FALSE(session->SendKey(322));
  EXPECT_EQ(world.Tracing(), nullptr);
  world.EndTrace(0);  // no trace: nothing to end
}

}  // namespace
}  // namespace wendrill::simulator
