#include "core/scenario_keys.h"

#include <algorithm>
#include <map>

#include "derive/object_model.h"

namespace wendrill::simulator {
namespace {

constexpr std::int64_t kLargestScreen = 32767;  // the numbers of columns and lines are 16-bit integers
constexpr std::int64_t kMostLateReads = 1'000'000;
constexpr std::int64_t kLongestWait = 3600;  // in seconds

// Returns `key` with limits for the number of items in its array. `fullest` is nullopt for no upper limit.
KeyShape WithItems(KeyShape key, std::size_t fewest, std::optional<std::size_t> fullest) {
  key.fewest = fewest;
  key.fullest = fullest;
  return key;
}

TableShape StrictShape() {
  return {
      u"[strict]",
      {{u"on", KeyType::Flag, "true: an unanswered entry, an unused reply or a warning makes the run fail.", false}},
      {}};
}

TableShape DeriveShape() {
  return {u"[derive]",
          {
              {u"on", KeyType::Flag, "false: no PNR is read from its display, unless it says so.", true},
              {u"date", KeyType::Content,
               "The day near which the days of displays lie, which have no year; else the header's."},
              {u"keywords", KeyType::Words,
               "The collections of keywords that are not known, or read otherwise; \"-\" for Elements alone."},
          },
          {}};
}

TableShape TerminalShape() {
  return {
      u"[terminal]",
      {
          {u"version", KeyType::Text, "The terminal's version: release, P, build.", u"3.0P1"},
          WithItems({u"ready", KeyType::Wholes, "The terminal's and the host's answer to \"are you ready?\"; 0 is no."},
                    2, 2),
          {u"refuses", KeyType::Wholes, "Codes of keys that are not accepted; the clear key is 322."},
          {u"silent", KeyType::Wholes, "Codes of keys that are accepted but raise no event."},
      },
      {}};
}

TableShape AlarmShape() {
  return {u"[alarm]",
          {
              {u"present", KeyType::Flag, "false: the alarm component cannot be created (429).", true},
              {u"method", KeyType::Flag, "false: its method LockAlarm is missing (438).", true},
              {u"code", KeyType::Whole, "What LockAlarm returns; 0, 1 and 2 are successes.", std::int64_t{0}},
          },
          {}};
}

TableShape SessionShape() {
  return {u"[[session]]", {{u"name", KeyType::Text, "The session's name."}}, {{KeyRuleKind::OneOf, {u"name"}}}};
}

// The keys for the session and the state in which a reply or a PNR answers, and for the state after the answer.
const KeyShape kSession{u"session", KeyType::Text, "Answers only in the session of this name."};
const KeyShape kWhen{u"when", KeyType::Text, "Answers only while the scenario is in this state; it begins in \"\"."};
const KeyShape kThen{u"then", KeyType::Text, "Puts the scenario into this state after answering."};

// The keys for the host's answer to an entry, which [[reply]] and [unknown] have in common.
std::vector<KeyShape> AnswerKeys() {
  return {
      {u"screen", KeyType::Text, "What the host shows."},
      WithItems(
          {u"pages", KeyType::Texts, "What the host shows page by page: the entry brings the first, MD the next."}, 1,
          std::nullopt),
      {u"never", KeyType::Flag, "true: the host never answers; the buffer stays empty.", false},
      {u"type", KeyType::Whole, "The response's type.", std::int64_t{0}},
      {u"text", KeyType::Text, "The response's Text, where it differs from its buffer."},
      {u"columns", KeyType::Whole, "The width of the screen, and NumberOfColumns.", std::int64_t{80}, 1,
       kLargestScreen},
      {u"lines", KeyType::Whole, "NumberOfLines; the screen is not cut to it.", std::int64_t{24}, 0, kLargestScreen},
      {u"late", KeyType::Whole, "The buffer reads empty this many times before it fills.", std::int64_t{0}, 0,
       kMostLateReads},
      {u"after", KeyType::Number, "The buffer fills this many seconds after sending.", std::int64_t{0}, 0,
       kLongestWait},
      {u"error", KeyType::Failure, "Sending fails with this HRESULT or run-time error's number."},
      {u"raw", KeyType::Flag, "true: the text is the buffer verbatim, not filled up to rows.", false},
  };
}

TableShape ReplyShape() {
  TableShape shape{
      u"[[reply]]",
      {
          {u"entry", KeyType::Text, "Answers exactly this entry."},
          {u"starts", KeyType::Text, "Answers every entry that begins so."},
          {u"contains", KeyType::Text, "Answers every entry that holds this."},
          {u"like", KeyType::Text, "Answers every entry of this form: ? is one character, * any number of them."},
          kSession,
          kWhen,
          kThen,
      },
      {
          {KeyRuleKind::OneOf, {u"entry", u"starts", u"contains", u"like"}},
          {KeyRuleKind::OneOf, {u"screen", u"pages", u"never", u"error"}},
          {KeyRuleKind::Alone, {u"never", u"late", u"after"}},
      }};
  const auto answer = AnswerKeys();
  shape.keys.insert(shape.keys.end(), answer.begin(), answer.end());
  shape.keys.push_back({u"refuses", KeyType::Flag,
                        "true: the host refuses the entry; the rest of a packed entry is not carried out.", false});
  shape.keys.push_back({u"optional", KeyType::Flag, "true: never reported as unused.", false});
  return shape;
}

TableShape UnknownShape() {
  return {u"[unknown]",
          AnswerKeys(),
          {{KeyRuleKind::AtMostOne, {u"screen", u"pages", u"never", u"error"}},
           {KeyRuleKind::Alone, {u"never", u"late", u"after"}}}};
}

std::vector<KeyShape> PropertyKeys(const ObjectType& type) {
  std::vector<KeyShape> keys;
  for (const Property& property : type.properties) {
    const bool isAssociation = &type == &kCarSegment && property.id == kCarPassengers;
    keys.push_back({property.name, isAssociation ? KeyType::Numbers : KeyType::Content,
                    isAssociation ? "The numbers of the associated elements." : "A property of the element."});
  }
  return keys;
}

TableShape HeaderShape() {
  TableShape shape{u"[pnr.Header]",
                   {{u"absent", KeyType::Flag, "true: there is no header object.", false}},
                   {{KeyRuleKind::Alone, {u"absent"}}}};
  for (KeyShape& property : PropertyKeys(kHeader)) {
    property.meaning = "A property of the header.";
    shape.rules.front().keys.push_back(property.name);
    shape.keys.push_back(std::move(property));
  }
  return shape;
}

KeyShape KindKey(std::optional<std::u16string_view> fallback) {
  KeyShape kind{u"kind", KeyType::Text, "The collections that hold the air segment, and its type."};
  if (fallback) {
    kind.fallback = *fallback;
  }
  for (const SegmentKindName& each : kSegmentKindNames) {
    kind.choices.push_back(each.name);
  }
  return kind;
}

TableShape ShapeOfElement(const Collection& collection) {
  TableShape shape{u"[[pnr." + std::u16string(collection.name) + u"]]", {}, {}};
  if (collection.name == kAirSegmentsKey) {
    shape.keys.push_back(KindKey(u"timed"));
  }
  const auto properties = PropertyKeys(collection.elementType);
  shape.keys.insert(shape.keys.end(), properties.begin(), properties.end());
  return shape;
}

// The shape of [[pnr.change]], a table that removes an element that was read from a display, or sets properties of such
// an element. The keys of the table are `absent`, `kind` and the properties of all element types, because the type of
// the element is not known before the display is read.
TableShape ChangeShape() {
  TableShape shape{
      u"[[pnr.change]]",
      {{u"absent", KeyType::Flag, "true: the PNR does not have the element.", false}, KindKey(std::nullopt)},
      {{KeyRuleKind::OneOf, {u"ElementNo"}}, {KeyRuleKind::Alone, {u"absent", u"kind"}}}};
  for (const Collection& collection : kCollections) {
    for (KeyShape& property : PropertyKeys(collection.elementType)) {
      if (shape.Find(property.name) != nullptr) {
        continue;
      }
      if (property.name != u"ElementNo") {
        shape.rules[1].keys.push_back(property.name);
      }
      shape.keys.push_back(std::move(property));
    }
  }
  return shape;
}

TableShape PnrShape() {
  static const TableShape header = HeaderShape();
  static const TableShape change = ChangeShape();
  TableShape shape{
      u"[[pnr]]",
      {
          {u"RecordLocator", KeyType::Text, "The PNR is found by RT and this.", u""},
          {u"entries", KeyType::Texts, "The PNR is found by these entries too."},
          {u"on_display", KeyType::Flag, "true: it is the PNR on display at the start.", false},
          kSession,
          kWhen,
          kThen,
          {u"optional", KeyType::Flag, "true: never reported as unused.", false},
          {u"status", KeyType::Whole, "The status that reading the PNR on display gives.", std::int64_t{0}},
          {u"error", KeyType::Failure, "A retrieval of this PNR fails with this HRESULT or run-time error's number."},
          {u"display", KeyType::Text, "The display text, one line a row.", u""},
          {u"breaks", KeyType::Flag, "true: the display's lines end in CR LF instead of being filled to 80 columns.",
           false},
          {u"derive", KeyType::Flag,
           "Whether the PNR is read from its display; true unless it has a collection of its own.", true},
          {u"change", KeyType::Tables, "Changes elements that are read from the display.", {}, 0, 0, {}, &change},
          {u"Header", KeyType::Table, "The header; what it leaves out is made of the display.", {}, 0, 0, {}, &header},
      },
      {}};
  for (const Collection& collection : kCollections) {
    if (const auto key = KeyOfCollection(collection); !key.empty()) {
      shape.keys.push_back({key,
                            KeyType::Tables,
                            "A collection of the PNR, one table an element.",
                            {},
                            0,
                            0,
                            {},
                            &ElementShape(collection)});
    }
  }
  return shape;
}

}  // namespace

const KeyShape* TableShape::Find(std::u16string_view name) const {
  const auto found = std::find_if(keys.begin(), keys.end(), [name](const KeyShape& key) { return key.name == name; });
  return found == keys.end() ? nullptr : &*found;
}

const TableShape& ScenarioShape() {
  static const TableShape strict = StrictShape();
  static const TableShape derive = DeriveShape();
  static const TableShape terminal = TerminalShape();
  static const TableShape alarm = AlarmShape();
  static const TableShape session = SessionShape();
  static const TableShape reply = ReplyShape();
  static const TableShape unknown = UnknownShape();
  static const TableShape pnr = PnrShape();
  const auto table = [](std::u16string_view name, KeyType type, std::string_view meaning, const TableShape& shape) {
    return KeyShape{name, type, meaning, {}, 0, 0, {}, &shape};
  };
  static const TableShape scenario{
      u"the scenario",
      {
          table(u"terminal", KeyType::Table, "The terminal.", terminal),
          table(u"alarm", KeyType::Table, "The terminal's alarm.", alarm),
          table(u"session", KeyType::Tables, "The running sessions, in order; without one no session runs.", session),
          table(u"reply", KeyType::Tables, "What the host answers to an entry.", reply),
          table(u"unknown", KeyType::Table, "What brings an entry that no reply matches.", unknown),
          table(u"pnr", KeyType::Tables, "The host's PNRs.", pnr),
          table(u"derive", KeyType::Table, "How PNRs are read from their displays.", derive),
          table(u"strict", KeyType::Table, "Whether a run must be free of findings.", strict),
      },
      {}};
  return scenario;
}

const TableShape& ElementShape(const Collection& collection) {
  static const std::map<std::u16string_view, TableShape> shapes = [] {
    std::map<std::u16string_view, TableShape> all;
    for (const Collection& each : kCollections) {
      all.emplace(each.name, ShapeOfElement(each));
    }
    return all;
  }();
  return shapes.at(collection.name);
}

std::u16string_view KeyOfCollection(const Collection& collection) {
  const bool hasOwnKey =
      collection.name == kAirSegmentsKey || (collection.kind == SegmentKind::None && collection.id != kAllAirSegments);
  return hasOwnKey ? collection.name : std::u16string_view();
}

}  // namespace wendrill::simulator
