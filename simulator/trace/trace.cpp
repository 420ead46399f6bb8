#include "trace/trace.h"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <utility>

#include "common/error.h"
#include "common/text.h"
#include "trace/key_names.h"
#include "trace/kinds.h"

namespace wendrill::trace {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::int32_t kFileAccess = 75;
constexpr std::chrono::seconds kLongestWait{1};

// The precision of times in a trace, as the number of parts of a unit: seconds are rounded to four decimal places,
// milliseconds to three.
constexpr double kPartsOfSecond = 10'000;
constexpr double kPartsOfMillisecond = 1'000;

double Rounded(double number, double parts) {
  return std::round(number * parts) / parts;
}

// The current date and time in UTC, to the second, such as 2026-11-22T09:30:00Z.
std::string NowInUtc() {
  const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  const auto day = std::chrono::floor<std::chrono::days>(now);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(now - day);
  char text[32];
  std::snprintf(text, std::size(text), "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                static_cast<int>(time.seconds().count()));
  return text;
}

const char* NameOf(redaction::Kind kind) {
  switch (kind) {
    case redaction::Kind::Names:
      return "names";
    case redaction::Kind::Cards:
      return "cards";
    case redaction::Kind::Contacts:
      return "contacts";
    case redaction::Kind::Remarks:
      return "remarks";
  }
  return "";
}

const char* NameOf(About about) {
  switch (about) {
    case About::Unanswered:
      return "unanswered";
    case About::Unused:
      return "unused";
    case About::Warning:
      return "warning";
  }
  return "";
}

}  // namespace

// The JSON object of one line. AddEntry, AddText and AddTextUnlessEmpty hide the personal data in a text; AddParts and
// AddError call these functions. Add and AddTrue store their values unchanged.
class Trace::Line {
 public:
  explicit Line(TraceHiding& hiding) : hiding_(hiding) {}

  template <typename Plain>
  void Add(const char* member, Plain value) {
    json_[member] = std::move(value);
  }
  void AddEntry(const char* member, std::u16string_view entry) { json_[member] = ToUtf8(hiding_.Entry(entry)); }
  void AddText(const char* member, std::u16string_view text) { json_[member] = ToUtf8(hiding_.Message(text)); }
  void AddTextUnlessEmpty(const char* member, std::u16string_view text) {
    if (!text.empty()) {
      AddText(member, text);
    }
  }
  void AddTrue(const char* member, bool holds) {
    if (holds) {
      json_[member] = true;
    }
  }
  void AddParts(const std::vector<Part>& parts) {
    for (const Part& part : parts) {
      Line one(hiding_);
      one.AddEntry("entry", part.entry);
      one.Add("answered", part.answered);
      one.AddTrue("refused", part.refused);
      json_["parts"].push_back(std::move(one.json_));
    }
  }
  void AddError(const std::optional<Failure>& error) {
    if (error) {
      Line one(hiding_);
      one.Add("number", error->number);
      one.AddText("text", error->text);
      json_["error"] = std::move(one.json_);
    }
  }

  std::string Text() const { return json_.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n"; }

 private:
  TraceHiding& hiding_;
  Json json_ = Json::object();
};

double Trace::SteadySeconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

Trace::Trace(const Settings& settings, Watch watch)
    : hiding_(settings.kept),
      watch_(std::move(watch)),
      withTimes_(settings.withTimes),
      start_(watch_()),
      kept_(settings.kept),
      file_(settings.file, std::ios::binary | std::ios::trunc) {
  if (!file_) {
    throw Error(kFileAccess, u"QuilletSimulator",
                u"The trace file \"" + settings.file.u16string() + u"\" cannot be written.");
  }
}

Trace::~Trace() = default;

// Runs `work` while holding the lock. An exception from `work` counts as a failed write. Does not run `work` when:
//   - Another thread holds the lock for longer than kLongestWait.
//   - Write(Ended) has already written the last line of the trace.
//   - An earlier write failed.
template <typename Work>
void Trace::Guarded(Work work) noexcept {
  try {
    const std::unique_lock lock(mutex_, kLongestWait);
    if (!lock.owns_lock() || ended_ || !whole_) {
      return;
    }
    try {
      work();
    } catch (...) {
      whole_ = false;
    }
  } catch (...) {  // the mutex could not be locked, so nothing is written
  }
}

// Writes a line of any kind but "run", "call" and "end". `fill` adds the members that follow kCommonMembers.
template <typename Fill>
void Trace::WriteLine(const char* kind, Fill fill) noexcept {
  Guarded([&] {
    calls_.clear();
    Line line = Begun(kind);
    fill(line);
    Finish(line);
  });
}

Trace::Line Trace::Begun(const char* kind) {
  Line line(hiding_);
  AddTime(line, "t", Seconds(), kPartsOfSecond);
  line.Add("n", lines_ + 1);
  line.Add("kind", kind);
  return line;
}

void Trace::Finish(const Line& line) {
  Put(line.Text());
  ++lines_;
}

void Trace::AddTime(Line& line, const char* member, double time, double parts) const {
  if (withTimes_) {
    line.Add(member, Rounded(time, parts));
  } else {
    line.Add(member, 0);
  }
}

// Writes the line with a single call and flushes the stream, so that the file contains only whole lines even when the
// process ends suddenly.
void Trace::Put(const std::string& line) {
  file_.write(line.data(), static_cast<std::streamsize>(line.size()));
  file_.flush();
  whole_ = file_.good();
}

void Trace::Learn(std::u16string_view text) noexcept {
  Guarded([&] { hiding_.Learn(text); });
}

void Trace::Begin(std::u16string_view script, std::u16string_view scenario) noexcept {
  Guarded([&] {
    Line line(hiding_);
    line.Add("v", kFormatVersion);
    line.Add("kind", kRun.name);
    line.AddText("script", script);
    line.AddText("scenario", scenario);
    line.Add("started", withTimes_ ? NowInUtc() : std::string());
    if (!kept_.empty()) {
      Json names = Json::array();
      for (const redaction::Kind kind : kept_) {
        names.push_back(NameOf(kind));
      }
      line.Add("kept", std::move(names));
    }
    Put(line.Text());
  });
}

double Trace::Seconds() const {
  return withTimes_ ? watch_() - start_ : 0;
}

void Trace::AddScreen(Line& line, Rows rows) {
  std::vector<std::u16string> hidden = hiding_.Screen(rows);
  if (screensLine_ != 0 && hidden == screen_) {
    line.Add("same", screensLine_);
    return;
  }
  Json texts = Json::array();
  for (const std::u16string& row : hidden) {
    texts.push_back(ToUtf8(row));
  }
  line.Add("screen", std::move(texts));
  screen_ = std::move(hidden);
  screensLine_ = lines_ + 1;
}

void Trace::Write(const Sent& sent) noexcept {
  WriteLine("send", [&](Line& line) {
    ++sends_;
    line.AddText("session", sent.session);
    line.AddEntry("entry", sent.entry);
    line.Add("answered", sent.answered);
    line.AddTrue("refused", sent.refused);
    line.AddParts(sent.parts);
    line.AddError(sent.error);
    if (!sent.screen) {
      line.AddTrue("never", sent.never);
      return;
    }
    AddTime(line, "ms", (Seconds() - sent.began + sent.after) * 1000, kPartsOfMillisecond);
    if (sent.late > 0) {
      line.Add("late", sent.late);
    }
    line.Add("type", sent.type);
    AddScreen(line, *sent.screen);
  });
}

void Trace::Write(const KeyPressed& key) noexcept {
  WriteLine("key", [&](Line& line) {
    line.AddText("session", key.session);
    line.Add("code", key.code);
    if (const std::u16string_view name = KeyName(key.code); !name.empty()) {
      line.Add("name", ToUtf8(name));
    }
    if (!key.error) {
      line.Add("accepted", key.accepted);
    }
    line.AddError(key.error);
  });
}

void Trace::Write(const Typed& typed) noexcept {
  WriteLine("type", [&](Line& line) {
    line.AddText("session", typed.session);
    line.AddEntry("text", typed.text);
    line.AddError(typed.error);
  });
}

void Trace::Write(const AlarmSet& alarm) noexcept {
  WriteLine("alarm", [&](Line& line) {
    line.Add("lock", alarm.lock);
    line.AddError(alarm.error);
  });
}

void Trace::Write(const Retrieved& retrieved) noexcept {
  WriteLine("retrieve", [&](Line& line) {
    line.AddText("session", retrieved.session);
    if (retrieved.entry) {
      line.AddEntry("entry", *retrieved.entry);
    }
    line.AddTrue("on_display", !retrieved.entry);
    if (!retrieved.error) {
      line.Add("found", retrieved.found);
    }
    line.AddTextUnlessEmpty("locator", retrieved.locator);
    line.AddError(retrieved.error);
    if (!retrieved.display.empty()) {
      AddScreen(line, retrieved.display);
    }
  });
}

void Trace::Write(const EventDelivered& event) noexcept {
  WriteLine("event", [&](Line& line) {
    line.AddText("session", event.session);
    line.Add("handlers", event.handlers);
  });
}

// Whether the call is left out of the trace. A call is left out when a call with the same operation and the same
// argument was made since the last line of a kind other than "call". A call that failed, or whose `always` is true, is
// never left out.
//
// Reading a PNR takes thousands of calls, and a script that waits for the host reads the buffer again and again. The
// order and the number of such calls are of no use to the reader of a trace.
bool Trace::IsRepeated(const Called& called) {
  std::u16string key(called.operation);
  key.append(1, u'\0').append(called.argument);
  return !calls_.insert(std::move(key)).second && !called.always && !called.error;
}

void Trace::Write(const Called& called) noexcept {
  Guarded([&] {
    if (IsRepeated(called)) {
      return;
    }
    Line line = Begun("call");
    line.AddText("operation", called.operation);
    line.AddTextUnlessEmpty("argument", called.argument);
    line.AddError(called.error);
    Finish(line);
  });
}

void Trace::Write(const Failed& failed) noexcept {
  WriteLine("error", [&](Line& line) {
    line.AddText("text", failed.text);
    if (failed.number) {
      line.Add("number", *failed.number);
    }
    line.AddTextUnlessEmpty("source", failed.source);
    line.AddTextUnlessEmpty("file", failed.file);
    for (const auto& [member, place] : {std::pair("line", failed.line), std::pair("column", failed.column)}) {
      if (place > 0) {
        line.Add(member, place);
      }
    }
  });
}

void Trace::Write(const Expected& expected) noexcept {
  WriteLine("expect", [&](Line& line) {
    line.AddText("name", expected.name);
    line.Add("held", expected.failure.empty());
    line.AddTextUnlessEmpty("failure", expected.failure);
  });
}

void Trace::Write(const Warned& warned) noexcept {
  WriteLine("warning", [&](Line& line) {
    line.Add("about", NameOf(warned.about));
    if (warned.about == About::Unanswered) {
      line.AddEntry("text", warned.text);
    } else {
      line.AddText("text", warned.text);
    }
  });
}

void Trace::Write(const Ended& ended) noexcept {
  Guarded([&] {
    Line line = Begun("end");
    if (ended.status) {
      line.Add("status", *ended.status);
    }
    AddTime(line, "duration", Seconds(), kPartsOfSecond);
    if (ended.counts) {
      line.Add("sent", sends_);
      line.Add("unanswered", ended.counts->unanswered);
      // Without times, 0 in place of the number of calls: a script that waits makes more or fewer calls in each run.
      line.Add("calls", withTimes_ ? ended.counts->calls : 0);
      line.Add("expectations", ended.counts->expectations);
      line.Add("failed", ended.counts->failed);
      line.Add("findings", ended.counts->findings);
    }
    Finish(line);
    ended_ = true;
    file_.close();  // now, because Windows does not allow anyone to delete a file that is open
    whole_ = whole_ && file_.good();
  });
}

bool Trace::HasEnded() const {
  const std::lock_guard lock(mutex_);
  return ended_;
}

bool Trace::IsWhole() const {
  const std::lock_guard lock(mutex_);
  return whole_;
}

}  // namespace wendrill::trace
