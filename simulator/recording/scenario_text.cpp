#include "recording/scenario_text.h"

#include <algorithm>

#include "common/text.h"
#include "common/text_forms.h"
#include "core/host_keys.h"
#include "core/scenario_keys.h"
#include "recording/pnr_plan.h"
#include "recording/replies.h"
#include "recording/toml_text.h"

namespace wendrill::recording {
namespace {

using simulator::Collection;
using simulator::kCollections;

constexpr std::string_view kTop =
    "# A recording: what a terminal answered. docs/recording.md tells what is hidden in it, and what cannot be "
    "reproduced.\n";

std::string StateName(std::size_t state) {
  return Quoted(state == 0 ? std::u16string() : DecimalText(static_cast<std::int64_t>(state)));
}

std::string Whole(std::int64_t number) {
  return std::to_string(number);
}

class Writer {
 public:
  void Table(std::string_view head) { text_.append(text_.empty() ? "" : "\n").append(head).append("\n"); }
  void Key(std::string_view key, std::string_view value) { text_.append(key).append(" = ").append(value).append("\n"); }
  void Key(std::u16string_view key, std::string_view value) { Key(ToUtf8(key), value); }
  void KeyUnless(std::int64_t usual, std::string_view key, std::int64_t value) {
    if (value != usual) {
      Key(key, Whole(value));
    }
  }
  void FlagIf(bool holds, std::string_view key) {
    if (holds) {
      Key(key, "true");
    }
  }
  void Keys(std::string_view key, const std::vector<std::int32_t>& numbers) {
    if (!numbers.empty()) {
      std::string list;
      for (const std::int32_t number : numbers) {
        list.append(list.empty() ? "" : ", ").append(Whole(number));
      }
      Key(key, "[" + list + "]");
    }
  }

  std::string Take() { return std::move(text_); }

 private:
  std::string text_;
};

// --- The desktop -----------------------------------------------------------------------------------------------------

void WriteTerminal(const Calls& calls, RecordingHiding& hiding, Writer& writer) {
  std::vector<std::int32_t> refused;
  std::vector<std::int32_t> silent;
  for (const auto& [code, key] : calls.keys) {
    const bool isOfHost = std::ranges::find(simulator::kHostKeys, code) != std::end(simulator::kHostKeys);
    if (key.accepted == 0) {
      refused.push_back(code);
    } else if (isOfHost && key.withoutEvent > 0 && key.withEvent == 0) {
      silent.push_back(code);
    }
  }
  const bool hasReady = calls.terminalReady.First() || calls.hostReady.First();
  if (!calls.versions.First() && !hasReady && refused.empty() && silent.empty()) {
    return;
  }
  writer.Table("[terminal]");
  if (const auto version = calls.versions.First()) {
    writer.Key("version", Quoted(hiding.Words(*version)));
  }
  if (hasReady) {
    writer.Keys("ready", {calls.terminalReady.First().value_or(1), calls.hostReady.First().value_or(1)});
  }
  writer.Keys("refuses", refused);
  writer.Keys("silent", silent);
}

void WriteAlarm(const Calls& calls, Writer& writer) {
  const std::int32_t code = calls.alarmCodes.First().value_or(0);
  if (!calls.alarmIsAbsent && !calls.alarmHasNoMethod && code == 0) {
    return;
  }
  writer.Table("[alarm]");
  if (calls.alarmIsAbsent) {
    writer.Key("present", "false");
  }
  if (calls.alarmHasNoMethod) {
    writer.Key("method", "false");
  }
  writer.KeyUnless(0, "code", code);
}

// --- Replies ---------------------------------------------------------------------------------------------------------

void WriteScreens(const Answer& answer, std::size_t columns, Writer& writer) {
  const bool isRaw =
      !std::ranges::all_of(answer.pages, [columns](std::u16string_view page) { return IsOfWholeRows(page, columns); });
  if (answer.pages.size() == 1) {
    writer.Key("screen", TextOfScreen(answer.pages.front(), columns, isRaw));
  } else {
    std::string pages;
    for (const std::u16string_view page : answer.pages) {
      pages += TextOfScreen(page, columns, isRaw) + ",\n";
    }
    writer.Key("pages", "[\n" + pages + "]");
  }
  writer.FlagIf(isRaw, "raw");
}

void WriteAnswer(const Answer& answer, Writer& writer) {
  if (answer.error != 0) {
    writer.Key("error", ErrorLiteral(answer.error).value_or("0"));
    return;
  }
  const bool hasColumns = answer.columns > 0;
  writer.KeyUnless(0, "type", answer.type);
  writer.KeyUnless(kRowWidth, "columns", hasColumns ? answer.columns : static_cast<std::int64_t>(kRowWidth));
  constexpr std::int64_t kUsualLines = 24;
  writer.KeyUnless(kUsualLines, "lines", answer.lines >= 0 ? answer.lines : kUsualLines);
  writer.KeyUnless(0, "late", answer.late);
  if (answer.never) {
    writer.Key("never", "true");
    return;
  }
  if (answer.text) {
    writer.Key("text", Quoted(*answer.text));
  }
  WriteScreens(answer, hasColumns ? static_cast<std::size_t>(answer.columns) : kRowWidth, writer);
}

void WriteReply(const Reply& reply, bool isOneOfSeveralSessions, Writer& writer) {
  for (const auto& [event, answer] : reply.answers) {
    writer.Table("[[reply]]");
    writer.Key(reply.isForm ? "like" : "entry", Quoted(reply.form));
    if (isOneOfSeveralSessions) {
      writer.Key("session", Quoted(reply.session));
    }
    if (answer.then) {
      writer.Key("then", StateName(*answer.then));
    }
    WriteAnswer(answer, writer);
  }
}

// --- PNRs ------------------------------------------------------------------------------------------------------------

void WriteHeader(const std::optional<ReadObject>& header, Writer& writer) {
  writer.Table("[pnr.Header]");
  if (!header) {
    writer.Key("absent", "true");
    return;
  }
  for (const simulator::Property& property : simulator::kHeaderProperties) {
    const auto found = header->properties.find(std::u16string(property.name));
    const auto literal = found == header->properties.end() ? std::nullopt : Literal(found->second);
    if (literal) {
      writer.Key(property.name, *literal);
    } else if (property.name != u"ElementNo" && property.name != u"OfficeID") {
      writer.Key(property.name, Quoted({}));  // without the key, the simulator uses the display or the locator
    }
  }
}

void WriteElement(const Collection& collection, const ReadObject& element, Writer& writer) {
  writer.Table("[[pnr." + ToUtf8(simulator::KeyOfCollection(collection)) + "]]");
  if (&collection.elementType == &simulator::kAirSegment && element.kind != simulator::SegmentKind::Timed) {
    writer.Key(
        "kind",
        Quoted(std::ranges::find(simulator::kSegmentKindNames, element.kind, &simulator::SegmentKindName::kind)->name));
  }
  for (const simulator::Property& property : collection.elementType.properties) {
    const auto found = element.properties.find(std::u16string(property.name));
    if (found != element.properties.end()) {
      if (const auto literal = Literal(found->second)) {
        writer.Key(property.name, *literal);
      }
    }
  }
  if (!element.passengers.empty()) {
    std::string numbers;
    for (const Value& number : element.passengers) {
      numbers.append(numbers.empty() ? "" : ", ").append(Literal(number).value_or("0"));
    }
    writer.Key("Passengers", "[" + numbers + "]");
  }
}

std::int64_t NumberOf(const ReadObject& element) {
  const auto found = element.properties.find(u"ElementNo");
  try {
    return found == element.properties.end() ? 0 : ToInt32(found->second);
  } catch (const std::exception&) {  // the element number is not a number
    return 0;
  }
}

// The air segments in the order of the PNR: the elements of the collection of all air segments if that collection was
// read. Otherwise the elements of the collections for each kind of air segment, sorted by element number.
std::vector<ReadObject> AirSegments(const PnrContent& content) {
  if (const auto all = content.collections.find(simulator::kAllAirSegments); all != content.collections.end()) {
    return all->second;
  }
  std::vector<ReadObject> segments;
  for (const Collection& collection : kCollections) {
    const auto found = content.collections.find(collection.id);
    if (collection.kind != simulator::SegmentKind::None && found != content.collections.end()) {
      segments.insert(segments.end(), found->second.begin(), found->second.end());
    }
  }
  std::ranges::stable_sort(segments, {}, NumberOf);
  return segments;
}

void WriteCollections(const PnrContent& content, Writer& writer) {
  for (const Collection& collection : kCollections) {
    if (simulator::KeyOfCollection(collection).empty()) {
      continue;
    }
    const auto found = content.collections.find(collection.id);
    if (collection.name == simulator::kAirSegmentsKey) {
      for (const ReadObject& segment : AirSegments(content)) {
        WriteElement(collection, segment, writer);
      }
    } else if (found != content.collections.end()) {
      for (const ReadObject& element : found->second) {
        WriteElement(collection, element, writer);
      }
    }
  }
}

void WritePnr(const PlannedPnr& pnr, bool isOneOfSeveralSessions, bool isOneOfSeveralStates, Writer& writer) {
  writer.Table("[[pnr]]");
  const PnrContent& content = pnr.content;
  if (!content.isShown && !content.locator.empty()) {
    writer.Key("RecordLocator", Quoted(content.locator));
  }
  if (!pnr.entries.empty()) {
    std::string entries;
    for (const std::u16string& entry : pnr.entries) {
      entries.append(entries.empty() ? "" : ", ").append(Quoted(entry));
    }
    writer.Key("entries", "[" + entries + "]");
  }
  writer.FlagIf(pnr.onDisplay, "on_display");
  if (isOneOfSeveralSessions) {
    writer.Key("session", Quoted(pnr.session));
  }
  if (isOneOfSeveralStates) {
    writer.Key("when", StateName(pnr.state));
  }
  if (pnr.then) {
    writer.Key("then", StateName(*pnr.then));
  }
  writer.KeyUnless(0, "status", pnr.status.value_or(0));
  if (pnr.error != 0) {
    writer.Key("error", ErrorLiteral(pnr.error).value_or("0"));
    return;
  }
  if (!content.display.empty()) {
    if (!content.isShown) {
      writer.Key("derive", "false");
    }
    const DisplayText display = TextOfDisplay(content.display);
    writer.FlagIf(display.breaks, "breaks");
    writer.Key("display", display.text);
  }
  if (!content.isShown) {
    WriteHeader(content.header, writer);
    WriteCollections(content, writer);
  }
}

}  // namespace

std::string ScenarioText(const Calls& calls, const Story& story, RecordingHiding& hiding) {
  const Replies replies(story);
  const PnrPlan plan = PlanOf(story, replies);
  const bool hasSeveralSessions = story.sessions.size() > 1;
  Writer writer;
  WriteTerminal(calls, hiding, writer);
  WriteAlarm(calls, writer);
  for (const std::u16string& session : story.sessions) {
    writer.Table("[[session]]");
    writer.Key("name", Quoted(session));
  }
  for (const Reply& reply : replies.InOrder(plan.then)) {
    WriteReply(reply, hasSeveralSessions, writer);
  }
  for (const PlannedPnr& pnr : plan.pnrs) {
    WritePnr(pnr, hasSeveralSessions, plan.states > 1, writer);
  }
  return writer.Take();
}

std::string Heading(const std::set<redaction::Kind>& kept, std::span<const std::u16string> notReproduced) {
  struct KindName {
    redaction::Kind kind;
    std::string_view name;
  };
  constexpr KindName kNames[] = {{redaction::Kind::Names, "names"},
                                 {redaction::Kind::Cards, "cards"},
                                 {redaction::Kind::Contacts, "contacts"},
                                 {redaction::Kind::Remarks, "remarks"}};
  std::string text(kTop);
  std::string list;
  for (const KindName& each : kNames) {
    if (kept.contains(each.kind)) {
      list.append(list.empty() ? "" : ", ").append(each.name);
    }
  }
  if (!list.empty()) {
    text += "# not hidden: " + list + "\n";
  }
  for (const std::u16string& sentence : notReproduced) {
    text.append(kNotReproduced).append(ToUtf8(sentence)).append("\n");
  }
  return text + "\n";
}

}  // namespace wendrill::recording
