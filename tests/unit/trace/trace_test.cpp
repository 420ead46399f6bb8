// The writer: the lines that the simulated desktop does not write by itself, the end, files, threads. All other lines:
// tests/unit/simulator/trace_test.cpp.
#include "trace/trace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <fstream>
#include <thread>

#include "support/raises.h"
#include "support/trace_file.h"

namespace wendrill::trace {
namespace {

using ::testing::ElementsAre;
using wendrill::testing::ErrorOf;
using wendrill::testing::TraceFile;

class TraceWriter : public ::testing::Test {
 protected:
  TraceFile file;
};

// The lines after the first.
std::vector<std::string> LaterLines(const TraceFile& file) {
  auto lines = file.Lines();
  lines.erase(lines.begin());
  return lines;
}

TEST_F(TraceWriter, ReplacesWhatTheFileHeld) {
  std::ofstream(file.Path()) << "older\n";
  Trace trace(file.WithoutTimes());
  trace.Begin(u"mine.vbs", u"near.toml");
  EXPECT_EQ(file.Text(), R"({"v":1,"kind":"run","script":"mine.vbs","scenario":"near.toml","started":""})"
                         "\n");
}

TEST_F(TraceWriter, FirstLineNamesWhatIsKept) {
  Settings settings = file.WithoutTimes();
  settings.kept = {redaction::Kind::Remarks, redaction::Kind::Names};
  Trace trace(settings);
  trace.Begin(u"mine.vbs", u"");
  EXPECT_THAT(file.Lines(), ElementsAre(R"({"v":1,"kind":"run","script":"mine.vbs","scenario":"","started":"",)"
                                        R"("kept":["names","remarks"]})"));
}

TEST_F(TraceWriter, FileThatCannotBeWritten) {
  const auto error = ErrorOf([&] { Trace({::testing::TempDir(), true, {}}); });  // a folder
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), 75);
  EXPECT_EQ(error->Source(), u"QuilletSimulator");
}

TEST_F(TraceWriter, ErrorsWithWhatIsKnownOfThem) {
  Trace trace(file.WithoutTimes());
  trace.Begin(u"mine.vbs", u"");
  trace.Write(Failed{
      .text = u"it broke", .number = -2147467259, .source = u"Here", .file = u"mine.vbs", .line = 12, .column = 3});
  trace.Write(Failed{.text = u"the script's process crashed"});
  EXPECT_THAT(LaterLines(file),
              ElementsAre(R"({"t":0,"n":1,"kind":"error","text":"it broke","number":-2147467259,"source":"Here",)"
                          R"("file":"mine.vbs","line":12,"column":3})",
                          R"({"t":0,"n":2,"kind":"error","text":"the script's process crashed"})"));
}

TEST_F(TraceWriter, EndWithoutASimulatorHasNoCounts) {
  Trace trace(file.WithoutTimes());
  trace.Begin(u"mine.vbs", u"");
  EXPECT_FALSE(trace.HasEnded());
  trace.Write(Ended{.status = 124});
  EXPECT_TRUE(trace.HasEnded());
  EXPECT_THAT(LaterLines(file), ElementsAre(R"({"t":0,"n":1,"kind":"end","status":124,"duration":0})"));
}

TEST_F(TraceWriter, NothingIsWrittenAfterTheEnd) {
  Trace trace(file.WithoutTimes());
  trace.Begin(u"mine.vbs", u"");
  trace.Write(Ended{.status = 0});
  trace.Write(AlarmSet{.lock = true});
  trace.Write(Ended{.status = 1});
  EXPECT_EQ(LaterLines(file).size(), 1u);
}

TEST_F(TraceWriter, TimesComeFromTheWatch) {
  double now = 100;
  Trace trace({file.Path(), true, {}}, [&now] { return now; });
  trace.Begin(u"mine.vbs", u"");
  now = 100.01234;
  trace.Write(AlarmSet{.lock = true});
  now = 101.5;
  EXPECT_DOUBLE_EQ(trace.Seconds(), 1.5);
  const std::vector<std::u16string> rows = {u"ROW"};
  Sent sent{.session = u"A", .entry = u"JI", .answered = true, .began = 1.2, .after = 2.0, .screen = Rows(rows)};
  trace.Write(sent);
  now = 160;
  trace.Write(Ended{.status = 0});
  EXPECT_THAT(LaterLines(file),
              ElementsAre(R"({"t":0.0123,"n":1,"kind":"alarm","lock":true})",
                          R"({"t":1.5,"n":2,"kind":"send","session":"A","entry":"JI","answered":true,"ms":2300.0,)"
                          R"("type":0,"screen":["ROW"]})",
                          R"({"t":60.0,"n":3,"kind":"end","status":0,"duration":60.0})"));
}

TEST_F(TraceWriter, WithoutTimesTheWatchIsNotShown) {
  double now = 100;
  Trace trace(file.WithoutTimes(), [&now] { return now += 1; });
  trace.Begin(u"mine.vbs", u"");
  EXPECT_EQ(trace.Seconds(), 0);
}

TEST_F(TraceWriter, EachLineIsInTheFileWhenTheCallReturns) {
  Trace trace(file.WithoutTimes());
  trace.Begin(u"mine.vbs", u"");
  const std::u16string longText(20'000, u'L');
  for (int i = 0; i < 20; ++i) {
    trace.Write(Typed{.session = u"A", .text = i % 2 == 0 ? std::u16string_view(longText) : u"short"});
    const std::string text = file.Text();
    EXPECT_TRUE(text.ends_with("\"}\n"));
    EXPECT_EQ(file.Lines().size(), static_cast<std::size_t>(i) + 2);
  }
  EXPECT_TRUE(trace.IsWhole());
}

#ifdef __linux__
TEST_F(TraceWriter, DiskThatIsFullEndsTheTraceAndNothingElse) {
  Trace trace({"/dev/full", false, {}});
  trace.Begin(u"mine.vbs", u"");
  EXPECT_FALSE(trace.IsWhole());
  trace.Write(AlarmSet{.lock = true});
  trace.Write(Ended{.status = 0});
  EXPECT_FALSE(trace.IsWhole());
}
#endif

TEST_F(TraceWriter, ThreadsDoNotMixTheirLines) {
  constexpr int kThreads = 4;
  constexpr int kLines = 200;
  {
    Trace trace(file.WithoutTimes());
    trace.Begin(u"mine.vbs", u"");
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
      threads.emplace_back([&trace] {
        for (int line = 0; line < kLines; ++line) {
          trace.Write(AlarmSet{.lock = true});
        }
      });
    }
    for (std::thread& thread : threads) {
      thread.join();
    }
  }
  const auto lines = LaterLines(file);
  ASSERT_EQ(lines.size(), static_cast<std::size_t>(kThreads * kLines));
  for (std::size_t i = 0; i < lines.size(); ++i) {
    EXPECT_EQ(lines[i], R"({"t":0,"n":)" + std::to_string(i + 1) + R"(,"kind":"alarm","lock":true})");
  }
}

}  // namespace
}  // namespace wendrill::trace
