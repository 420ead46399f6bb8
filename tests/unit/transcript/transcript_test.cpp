#include "transcript/transcript.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <string_view>

namespace wendrill::transcript {
namespace {

using testing::HasSubstr;
using testing::Not;

std::string PageOf(std::string_view trace) {
  std::istringstream input{std::string(trace)};
  std::ostringstream page;
  WriteTranscript(input, page);
  return page.str();
}

std::string Between(std::string_view page, std::string_view begin, std::string_view end) {
  const std::size_t from = page.find(begin);
  if (from == std::string_view::npos) {
    return "there is no " + std::string(begin);
  }
  const std::string_view rest = page.substr(from + begin.size());
  return std::string(rest.substr(0, rest.find(end)));
}

std::string JournalOf(std::string_view trace) {
  return Between(PageOf(trace), "<section id=\"journal\" aria-label=\"Journal\">", "</section>");
}

std::string DataTextOf(std::string_view page) {
  return Between(page, "<script type=\"application/json\" id=\"trace\">", "</script>");
}

nlohmann::json DataOf(std::string_view page) {
  return nlohmann::json::parse(DataTextOf(page));
}

int CountOf(std::string_view text, std::string_view part) {
  int count = 0;
  for (std::size_t at = text.find(part); at != std::string_view::npos; at = text.find(part, at + part.size())) {
    ++count;
  }
  return count;
}

constexpr std::string_view kRun =
    R"({"v":1,"kind":"run","script":"mine.vbs","scenario":"near.toml","started":"2026-11-22T09:30:00Z"})"
    "\n";
constexpr std::string_view kEnd = R"({"t":1,"n":99,"kind":"end","status":0,"duration":1})"
                                  "\n";

std::string RunOf(std::string_view lines) {
  return std::string(kRun).append(lines).append(kEnd);
}

TEST(Transcript, HasALineForEachEvent) {
  const std::string journal =
      JournalOf(RunOf(R"({"t":0.0123,"n":17,"kind":"send","session":"A","entry":"AN","answered":true}
)"));
  EXPECT_THAT(journal,
              HasSubstr("<li id=\"n=17\" class=\"event\"><a href=\"#n=17\" tabindex=\"-1\">    17    0.0123  A  "
                        "send      <code>AN</code></a></li>"));
  EXPECT_EQ(CountOf(journal, "<li "), 3);
}

TEST(Transcript, SaysWhatRanAndHowManyProblemsThereWere) {
  const std::string page = PageOf(RunOf(R"({"n":1,"kind":"send","entry":"AN","answered":false}
)"));
  EXPECT_THAT(page, HasSubstr("<h1>mine.vbs</h1>"));
  EXPECT_EQ(Between(page, "<p id=\"summary\">", "</p>"),
            "near.toml · started 2026-11-22T09:30:00Z · 3 events · 1 problem");
  EXPECT_THAT(page, HasSubstr("class=\"event bad\""));
  EXPECT_THAT(page, HasSubstr("<strong>unanswered</strong>"));
}

TEST(Transcript, MakesCallsQuietUnlessTheyFail) {
  const std::string journal = JournalOf(RunOf(R"({"n":1,"kind":"call","operation":"Count"}
{"n":2,"kind":"call","operation":"Item","error":{"number":9,"text":"No."}}
)"));
  EXPECT_THAT(journal, HasSubstr("<li id=\"n=1\" class=\"event quiet\">"));
  EXPECT_THAT(journal, HasSubstr("<li id=\"n=2\" class=\"event bad\">"));
}

TEST(Transcript, ShowsAScreenWithTheRowsThatChanged) {
  const std::string journal =
      JournalOf(RunOf(R"({"n":1,"kind":"send","session":"A","entry":"X","answered":true,"screen":["one  ","two"]}
{"n":2,"kind":"send","session":"A","entry":"Y","answered":true,"screen":["one","2","three"]}
{"n":3,"kind":"send","session":"A","entry":"Z","answered":true,"screen":["one"]}
)"));
  EXPECT_THAT(journal, HasSubstr("<figcaption>Screen of session A</figcaption><pre>\none\ntwo\n</pre>"));
  EXPECT_THAT(journal, HasSubstr("<figcaption>Screen of session A, changed in rows 2, 3</figcaption><pre>\none\n"
                                 "<mark>2</mark>\n<mark>three</mark>\n</pre>"));
  EXPECT_THAT(journal,
              HasSubstr("changed in rows 2, 3</figcaption><pre>\none\n<mark> </mark>\n<mark> </mark>\n</pre>"));
}

TEST(Transcript, ShowsAScreenThatIsTheSameOnce) {
  const std::string journal =
      JournalOf(RunOf(R"({"n":1,"kind":"send","session":"A","entry":"X","answered":true,"screen":["one"]}
{"n":2,"kind":"send","session":"A","entry":"Y","answered":true,"same":1}
)"));
  EXPECT_EQ(CountOf(journal, "<figure>"), 1);
  EXPECT_THAT(journal, HasSubstr("<p>The screen did not change: it is that of event 1.</p>"));
}

TEST(Transcript, ShowsAScreenAgainInAnotherSession) {
  const std::string journal =
      JournalOf(RunOf(R"({"n":1,"kind":"send","session":"A","entry":"X","answered":true,"screen":["one"]}
{"n":2,"kind":"send","session":"B","entry":"Y","answered":true,"same":1}
)"));
  EXPECT_THAT(journal, HasSubstr("<figcaption>Screen of session B</figcaption><pre>\none\n</pre>"));
}

TEST(Transcript, SaysWhereAScreenIsMissing) {
  EXPECT_THAT(JournalOf(RunOf("{\"n\":2,\"kind\":\"send\",\"entry\":\"Y\",\"answered\":true,\"same\":1}\n")),
              HasSubstr("<p>The screen is that of event 1, which is not in the trace.</p>"));
}

TEST(Transcript, KeepsHostileTextsAsText) {
  const std::string_view hostile[] = {"</script><script>x()</script>",
                                      "<img src=x onerror=x()>",
                                      "]]>",
                                      "<!--<script>",
                                      "\u2028\u2029",
                                      "@TRACE@ @TITLE@",
                                      "</pre></code>"};
  for (const std::string_view text : hostile) {
    const nlohmann::json event = {{"n", 1},        {"kind", text},     {"session", text},          {"entry", text},
                                  {"other", text}, {"screen", {text}}, {"error", {{"text", text}}}};
    const nlohmann::json run = {{"kind", "run"}, {"script", text}, {"scenario", text}, {"started", text}};
    const std::string page = PageOf(run.dump() + "\n" + event.dump() + "\n");
    EXPECT_EQ(DataOf(page), nlohmann::json::array({run, event})) << text;
    EXPECT_EQ(CountOf(page, "<script"), 2) << text;
    EXPECT_EQ(CountOf(page, "</script"), 2) << text;
    EXPECT_EQ(CountOf(page, "<img"), 0) << text;
    EXPECT_EQ(CountOf(page, "</pre>"), 1) << text;
    EXPECT_EQ(CountOf(DataTextOf(page), "\u2028"), 0) << text;
    EXPECT_EQ(CountOf(DataTextOf(page), "\u2029"), 0) << text;
  }
}

TEST(Transcript, TakesAVeryLongText) {
  const std::string text(3000000, 'X');
  const std::string page = PageOf("{\"kind\":\"send\",\"entry\":\"" + text + "\"}\n");
  EXPECT_THAT(page, HasSubstr("<code>" + text + "</code>"));
}

TEST(Transcript, TellsOfALineThatIsNoObjectAndGoesOn) {
  const std::string page =
      PageOf(RunOf("{\"n\":1,\"kind\":\"se\nnull\n\n{\"n\":2,\"kind\":\"key\",\"name\":\"kbPA1\"}\n"));
  EXPECT_THAT(page, HasSubstr("<li id=\"line=2\" class=\"event bad\"><a href=\"#line=2\""));
  EXPECT_THAT(page, HasSubstr("Line 2 of the trace is no object of JSON and was skipped."));
  EXPECT_THAT(page, HasSubstr("<p>{&quot;n&quot;:1,&quot;kind&quot;:&quot;se</p>"));
  EXPECT_THAT(page, HasSubstr("Line 3 of the trace"));
  EXPECT_THAT(page, HasSubstr("<code>kbPA1</code>"));
  EXPECT_EQ(DataOf(page).size(), 5U);
  EXPECT_EQ(DataOf(page)[1], (nlohmann::json{{"kind", "unreadable"}, {"line", 2}, {"text", "{\"n\":1,\"kind\":\"se"}}));
}

TEST(Transcript, TellsOfALineThatIsNotUtf8) {
  const std::string page = PageOf("{\"entry\":\"\xFF<\"}\n");
  EXPECT_THAT(page, HasSubstr("<p>{&quot;entry&quot;:&quot;\uFFFD&lt;&quot;}</p>"));
  EXPECT_EQ(DataOf(page)[0]["text"], "{\"entry\":\"\uFFFD<\"}");
}

TEST(Transcript, ShowsTheBeginningOfALongLineThatIsNoObject) {
  const std::string page = PageOf(std::string(199, 'x') + "ÜÜÜ\n");
  EXPECT_EQ(DataOf(page)[0]["text"], std::string(199, 'x'));
}

TEST(Transcript, OfARunThatWasCutOffSaysSo) {
  const std::string_view note = "The trace has no end: the run was cut off, or has not ended.";
  EXPECT_THAT(JournalOf(kRun), HasSubstr(note));
  EXPECT_THAT(JournalOf(RunOf("")), Not(HasSubstr(note)));
}

TEST(Transcript, OfAnEmptyTraceSaysSo) {
  for (const std::string_view trace : {"", "\n\r\n  \n", "\xEF\xBB\xBF"}) {
    const std::string page = PageOf(trace);
    EXPECT_THAT(page, HasSubstr("The trace has no events."));
    EXPECT_THAT(page, HasSubstr("<h1>Transcript</h1>"));
    EXPECT_EQ(DataOf(page), nlohmann::json::array());
  }
}

TEST(Transcript, TakesAByteOrderMarkAndLinesEndedByCrLf) {
  const std::string page = PageOf("\xEF\xBB\xBF{\"kind\":\"key\",\"name\":\"kbPA1\"}\r\n");
  EXPECT_EQ(DataOf(page), nlohmann::json::array({{{"kind", "key"}, {"name", "kbPA1"}}}));
}

TEST(Transcript, OfTwoRunsKeepsThemApart) {
  const std::string_view line = R"({"n":1,"kind":"send","session":"A","entry":"X","answered":true,"screen":["one"]})"
                                "\n";
  const std::string journal = JournalOf(RunOf(line) + RunOf(line));
  EXPECT_THAT(journal, HasSubstr("<h2>Run 2: mine.vbs</h2>"));
  EXPECT_EQ(CountOf(journal, "id=\"n=1\""), 1);
  EXPECT_EQ(CountOf(journal, "id=\"run=2,n=1\""), 1);
  EXPECT_EQ(CountOf(journal, "changed"), 0);  // the screen is the first of its run
}

TEST(Transcript, GivesEachEventALinkOfItsOwn) {
  const std::string journal = JournalOf("{\"n\":1,\"kind\":\"a\"}\n{\"n\":1,\"kind\":\"b\"}\n{\"kind\":\"c\"}\n");
  for (const std::string_view id : {"id=\"n=1\"", "id=\"line=2\"", "id=\"line=3\""}) {
    EXPECT_EQ(CountOf(journal, id), 1) << id;
  }
}

TEST(Transcript, LoadsNothingAndLetsThroughItsOwnStyleAndScriptAlone) {
  const std::string page = PageOf(RunOf(""));
  EXPECT_THAT(page, HasSubstr("content=\"default-src 'none'; style-src 'sha256-"));
  EXPECT_THAT(page, Not(HasSubstr("unsafe-inline")));
  for (const std::string_view address : {"http:", "https:", "//www", "src=", "url(", "@import", "style=\""}) {
    EXPECT_THAT(page, Not(HasSubstr(address)));
  }
}

}  // namespace
}  // namespace wendrill::transcript
