// The page that WriteTranscript writes can be read without its script: it contains the journal with every screen. The
// script (page.js) arranges the HTML elements of the journal in two panes and adds search, filters and a time axis.
// Each event is written twice: as HTML for the reader, and as JSON for the search of the script.
#include "transcript/transcript.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <istream>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "transcript/event.h"
#include "transcript/markup.h"
#include "transcript/page_text.h"
#include "transcript/screens.h"

namespace wendrill::transcript {
namespace {

// The largest number of events in one list (ol element) of the page. A browser computes the layout of a whole list as
// soon as the list comes into view. So a long journal is split into lists of this size.
constexpr std::size_t kEventsOfList = 200;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kMostShownOfBadLine = 200;  // in bytes

std::string Counted(std::size_t count, std::string_view one, std::string_view several) {
  return std::to_string(count) + " " + std::string(count == 1 ? one : several);
}

std::string SecondsText(double seconds) {
  std::array<char, 64> text{};
  const int length = std::snprintf(text.data(), text.size(), "%.4f", seconds);
  return {text.data(), std::min(static_cast<std::size_t>(length), text.size() - 1)};
}

// The beginning of a line that could not be read, at most kMostShownOfBadLine bytes. The cut is never within a
// character of several bytes.
std::string_view Beginning(std::string_view line) {
  std::size_t length = std::min(line.size(), kMostShownOfBadLine);
  while (length > 0 && length < line.size() && (static_cast<unsigned char>(line[length]) & 0xC0) == 0x80) {
    --length;
  }
  return line.substr(0, length);
}

class Page {
 public:
  void Add(std::string_view line, std::size_t number) {
    if (const auto event = Event::Read(line)) {
      AddEvent(*event, number);
    } else {
      AddUnreadable(line, number);
    }
  }

  std::string Html() {
    EndList();
    if (runs_ > 0 && !hasEnd_) {
      AddNote("The trace has no end: the run was cut off, or has not ended.");
    }
    if (events_ == 0) {
      AddNote("The trace has no events.");
    }
    std::string title;
    AppendText(title, title_.empty() ? "Transcript" : title_);
    const std::string summary = Summary();
    const Part parts[] = {
        {"TITLE", title},        {"SUMMARY", summary},
        {"STYLE", kPageStyle},   {"STYLE_HASH", kPageStyleHash},
        {"SCRIPT", kPageScript}, {"SCRIPT_HASH", kPageScriptHash},
        {"JOURNAL", journal_},   {"TRACE", trace_},
    };
    return Filled(kPageHtml, parts);
  }

 private:
  void AddEvent(const Event& event, std::size_t number) {
    const std::string kind = event.Text("kind");
    if (kind == "run") {
      BeginRun(event);
    }
    hasEnd_ = kind == "end";
    const JournalLine line = event.Line();
    BeginItem(IdOf(event, number), line.problem.empty() ? kind == "call" ? " quiet" : "" : " bad");
    AppendColumns(event.Number() ? std::to_string(*event.Number()) : std::string(), SecondsText(event.Seconds()),
                  event.Text("session"), kind);
    journal_ += "<code>";
    AppendText(journal_, line.text);
    journal_ += "</code>";
    if (!line.problem.empty()) {
      journal_ += " <strong>";
      AppendText(journal_, line.problem);
      journal_ += "</strong>";
    }
    journal_ += "</a>";
    if (!line.details.empty()) {
      journal_ += "<p>";
      AppendText(journal_, line.details);
      journal_ += "</p>";
    }
    AddScreen(event);
    journal_ += "</li>";
    AddData(event.Data());
  }

  void AddUnreadable(std::string_view line, std::size_t number) {
    const std::string name = std::to_string(number);
    BeginItem("line=" + name, " bad");
    AppendColumns({}, {}, {}, {});
    journal_ += "<code>Line " + name +
                " of the trace is no object of JSON and was skipped.</code> <strong>unreadable</strong></a>";
    nlohmann::json text = Beginning(line);
    const std::string json = text.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    text = nlohmann::json::parse(json);  // the text again, with U+FFFD in place of bytes that are not UTF-8
    journal_ += "<p>";
    AppendText(journal_, text.get_ref<const std::string&>());
    journal_ += "</p></li>";
    AddData(R"({"kind":"unreadable","line":)" + name + R"(,"text":)" + json + "}");
  }

  void BeginRun(const Event& event) {
    EndList();
    if (runs_ > 0 && !hasEnd_) {
      AddNote("The run before has no end: it was cut off.");
    }
    ++runs_;
    screens_ = {};
    numbers_.clear();
    const std::string script = event.Text("script");
    if (runs_ == 1) {
      title_ = script;
      facts_ = event.Text("scenario");
      started_ = event.Text("started");
    } else {
      journal_ += "<h2>Run " + std::to_string(runs_) + ": ";
      AppendText(journal_, script);
      journal_ += "</h2>\n";
    }
  }

  // The HTML id of an event. The event with the number 17 has the id "n=17" in the first run and "run=2,n=17" in the
  // second run. When the event has no number, or an earlier event of the run has the same number, the id is made of
  // `number`, the number of the line in the trace (counted from 1): "line=18".
  std::string IdOf(const Event& event, std::size_t number) {
    const auto n = event.Number();
    if (!n || !numbers_.insert(*n).second) {
      return "line=" + std::to_string(number);
    }
    return (runs_ > 1 ? "run=" + std::to_string(runs_) + "," : std::string()) + "n=" + std::to_string(*n);
  }

  // Begins the list item (li element) of an event, and counts the event. `looks` is empty, or a CSS class for the item
  // with a blank before it. When `looks` is " bad", the event also counts as a problem.
  void BeginItem(const std::string& id, std::string_view looks) {
    if (inList_ == kEventsOfList) {
      EndList();
    }
    journal_ += inList_++ == 0 ? "<ol>\n" : "";
    journal_.append(R"(<li id=")").append(id).append(R"(" class="event)").append(looks);
    journal_.append(R"("><a href="#)").append(id).append(R"(" tabindex="-1">)");
    ++events_;
    problems_ += looks == " bad" ? 1 : 0;
  }

  // Appends the columns that precede the text of a journal line, as one text in which blanks pad each column to its
  // width. An HTML element for each column would be too much for a page with a hundred thousand lines.
  void AppendColumns(std::string_view number, std::string_view time, std::string_view session, std::string_view kind) {
    std::string columns;
    for (const auto& [text, width] : {std::pair(number, 6U), std::pair(time, 10U)}) {
      columns.append(width - std::min<std::size_t>(width, text.size()), ' ').append(text);
    }
    columns += "  ";
    for (const auto& [text, width] : {std::pair(session, 3U), std::pair(kind, 10U)}) {
      columns.append(text).append(text.size() < width ? width - text.size() : 1, ' ');
    }
    AppendText(journal_, columns);
  }

  void EndList() {
    journal_ += inList_ > 0 ? "</ol>\n" : "";
    inList_ = 0;
  }

  void AddNote(std::string_view text) { journal_.append("<p class=\"note\">").append(text).append("</p>\n"); }

  void AddScreen(const Event& event) {
    const std::string session = event.Text("session");
    if (auto rows = event.Screen()) {
      AddFigure(screens_.Show(session, event.Number(), std::move(*rows)), session);
    } else if (const auto same = event.Same()) {
      const auto shown = screens_.ShowAgain(session, event.Number(), *same);
      if (!shown) {
        journal_ += "<p>The screen is that of event " + std::to_string(*same) + ", which is not in the trace.</p>";
      } else if (shown->isFirst || !shown->changed.empty()) {
        AddFigure(*shown, session);  // the session showed another screen between the event `same` and this event
      } else {
        journal_ += "<p>The screen did not change: it is that of event " + std::to_string(*same) + ".</p>";
      }
    }
  }

  void AddFigure(const ShownScreen& shown, std::string_view session) {
    journal_ += "<figure><figcaption>Screen";
    if (!session.empty()) {
      journal_ += " of session ";
      AppendText(journal_, session);
    }
    if (!shown.changed.empty()) {
      journal_ += shown.changed.size() == 1 ? ", changed in row " : ", changed in rows ";
      journal_ += RowList(shown.changed);
    } else if (!shown.isFirst) {
      journal_ += ", unchanged";
    }
    journal_ += "</figcaption><pre>";
    // When the session's previous screen had more rows, the rows that are gone are shown as marked blank rows. The pre
    // element begins with a line break of its own because browsers drop a line break at the start of a pre element:
    // without the added line break, an empty first row would disappear.
    const std::size_t count = std::max(shown.rows->size(), shown.changed.empty() ? 0 : shown.changed.back());
    auto changed = shown.changed.begin();
    journal_ += "\n";
    for (std::size_t at = 0; at < count; ++at) {
      const std::string_view row = RowAt(*shown.rows, at);
      if (changed != shown.changed.end() && *changed == at + 1) {
        ++changed;
        journal_ += "<mark>";
        AppendText(journal_, row.empty() ? " " : row);
        journal_ += "</mark>\n";
      } else {
        AppendText(journal_, row);
        journal_ += "\n";
      }
    }
    journal_ += "</pre></figure>";
  }

  void AddData(std::string_view json) {
    trace_ += events_ > 1 ? ",\n" : "";
    AppendData(trace_, json);
  }

  std::string Summary() const {
    std::string text;
    if (!facts_.empty()) {
      AppendText(text, facts_);
      text += " · ";
    }
    if (!started_.empty()) {
      text += "started ";
      AppendText(text, started_);
      text += " · ";
    }
    text += (runs_ > 1 ? Counted(runs_, "run", "runs") + " · " : std::string()) + Counted(events_, "event", "events");
    text += " · " + (problems_ == 0 ? std::string("no problems") : Counted(problems_, "problem", "problems"));
    return text;
  }

  std::string journal_;
  std::string trace_;
  std::string title_;
  std::string facts_;
  std::string started_;
  Screens screens_;
  std::set<std::int64_t> numbers_;
  std::size_t runs_ = 0;
  std::size_t events_ = 0;
  std::size_t problems_ = 0;
  std::size_t inList_ = 0;
  bool hasEnd_ = false;
};

}  // namespace

void WriteTranscript(std::istream& trace, std::ostream& page) {
  Page transcript;
  std::string line;
  for (std::size_t number = 1; std::getline(trace, line); ++number) {
    if (number == 1 && line.starts_with(kByteOrderMark)) {
      line.erase(0, kByteOrderMark.size());
    }
    if (line.find_first_not_of(" \t\r") != std::string::npos) {
      transcript.Add(line, number);
    }
  }
  page << transcript.Html();
}

}  // namespace wendrill::transcript
