#include "transcript/event.h"

#include <algorithm>
#include <span>

#include "transcript/markup.h"

namespace wendrill::transcript {
namespace {

using Json = nlohmann::ordered_json;
using Members = std::vector<std::string_view>;

// The members of an event that JournalLine::details never contains: the version `v`, the members that the journal shows
// in columns, and the members about the screen.
constexpr std::string_view kColumns[] = {"v", "t", "n", "kind", "session", "screen", "same"};

// The members whose value can be the text of a journal line, in order of preference. Headline returns the value of the
// first such member that the event has, unless Headline makes a special text for the kind of the event.
constexpr std::string_view kSubjects[] = {"entry",  "text", "name",    "operation",
                                          "script", "code", "message", "description"};

// A Boolean member of an event that can mean a problem. When the member has the value `value`, the journal shows the
// text `problem` in the event's line.
struct ProblemFlag {
  std::string_view member;
  bool value;
  std::string_view problem;
};
constexpr ProblemFlag kProblemFlags[] = {
    {"answered", false, "unanswered"},   {"refused", true, "refused"},  {"never", true, "no response"},
    {"accepted", false, "not accepted"}, {"found", false, "not found"}, {"held", false, "failed"},
};

// The deepest nesting of arrays and objects that is shown; a deeper array or object is shown as "...". The limit keeps
// the recursion of ValueText bounded, because a trace from another program may have any depth.
constexpr int kDeepest = 8;

std::string ValueText(const Json& value, int depth = 0);

std::string Joined(std::string list, std::string_view separator, std::string_view next) {
  return list.append(list.empty() ? "" : separator).append(next);
}

std::string MemberText(const std::string& name, const Json& value, int depth = 0) {
  if (value.is_boolean()) {
    return value.get<bool>() ? name : "not " + name;
  }
  if (name == "ms") {
    return ValueText(value, depth) + " ms";
  }
  return name + " " + ValueText(value, depth);
}

std::string ValueText(const Json& value, int depth) {
  if (value.is_string()) {
    return value.get<std::string>();
  }
  if (value.is_structured() && depth == kDeepest) {
    return "...";
  }
  std::string text;
  if (value.is_array()) {
    for (const Json& element : value) {
      text = Joined(std::move(text), "; ", ValueText(element, depth + 1));
    }
    return text;
  }
  if (value.is_object()) {
    for (const auto& [name, member] : value.items()) {
      text = Joined(std::move(text), ", ", MemberText(name, member, depth + 1));
    }
    return text;
  }
  return value.dump();
}

// The text of an event's member `error`: the description, and the number in parentheses, as in "Overflow (6)". When
// `error` is not an object, or has neither a `text` nor a `number`, the text is that of ValueText.
std::string ErrorText(const Json& error) {
  if (!error.is_object()) {
    return ValueText(error);
  }
  std::string text = error.contains("text") ? ValueText(error["text"]) : std::string();
  if (error.contains("number")) {
    text = Joined(std::move(text), " ", "(" + ValueText(error["number"]) + ")");
  }
  return text.empty() ? ValueText(error) : text;
}

bool HasWord(std::span<const std::string_view> words, std::string_view word) {
  return std::ranges::find(words, word) != words.end();
}

}  // namespace

std::optional<Event> Event::Read(std::string_view line) {
  Json object = Json::parse(line, nullptr, false);
  std::string json(line);
  if (object.is_discarded()) {
    json = WithoutLoneSurrogates(line);
    object = Json::parse(json, nullptr, false);
  }
  if (!object.is_object()) {
    return std::nullopt;
  }
  return Event(std::move(json), std::move(object));
}

std::string Event::Text(std::string_view member) const {
  const auto found = object_.find(member);
  return found == object_.end() ? std::string() : ValueText(*found);
}

std::optional<std::int64_t> Event::Integer(std::string_view member) const {
  const auto found = object_.find(member);
  return found != object_.end() && found->is_number_integer() ? std::optional(found->get<std::int64_t>())
                                                              : std::nullopt;
}

double Event::Seconds() const {
  const auto found = object_.find("t");
  return found != object_.end() && found->is_number() ? found->get<double>() : 0;
}

std::optional<std::int64_t> Event::Number() const {
  return Integer("n");
}

std::optional<std::int64_t> Event::Same() const {
  return Integer("same");
}

std::optional<std::vector<std::string>> Event::Screen() const {
  const auto screen = object_.find("screen");
  if (screen == object_.end() || !screen->is_array()) {
    return std::nullopt;
  }
  std::vector<std::string> rows;
  for (const Json& row : *screen) {
    rows.push_back(ValueText(row));
  }
  return rows;
}

std::pair<std::string, Members> Event::Headline() const {
  const std::string kind = Text("kind");
  if (kind == "alarm" && object_.contains("lock")) {
    return {object_["lock"] == true ? "lock" : "unlock", {"lock"}};
  }
  if (kind == "event") {
    return {"ReceivedResponse", {}};
  }
  if (kind == "call" && object_.contains("argument")) {
    return {Text("operation") + " " + Text("argument"), {"operation", "argument"}};
  }
  if (kind == "retrieve" && object_.contains("on_display")) {
    return {"the PNR on display", {"on_display"}};
  }
  if (kind == "end") {
    return object_.contains("status") ? std::pair("status " + Text("status"), Members{"status"})
                                      : std::pair(std::string("the end"), Members{});
  }
  for (const std::string_view subject : kSubjects) {
    if (object_.contains(subject)) {
      return {Text(subject), {subject}};
    }
  }
  return {};
}

std::string Event::Problem() const {
  std::string problem;
  const std::string kind = Text("kind");
  if (kind == "error") {
    problem = "error";
  } else if (object_.contains("error")) {
    problem = "failed: " + ErrorText(object_["error"]);
  }
  for (const ProblemFlag& flag : kProblemFlags) {
    if (const auto found = object_.find(flag.member); found != object_.end() && *found == flag.value) {
      problem = Joined(std::move(problem), ", ", flag.problem);
    }
  }
  if (kind == "end" && object_.contains("status") && object_["status"] != 0) {
    problem = "not 0";
  }
  return problem;
}

JournalLine Event::Line() const {
  auto [text, members] = Headline();
  JournalLine line{std::move(text), Problem(), {}};
  const bool isFailure = Text("kind") != "error" && object_.contains("error");
  for (const auto& [name, value] : object_.items()) {
    const bool isFlag =
        value.is_boolean() && std::ranges::find(kProblemFlags, name, &ProblemFlag::member) != std::end(kProblemFlags);
    const bool isTold = isFlag || (isFailure && name == "error") || HasWord(kColumns, name) || HasWord(members, name);
    if (!isTold) {
      line.details = Joined(std::move(line.details), " · ", MemberText(name, value));
    }
  }
  return line;
}

}  // namespace wendrill::transcript
