#include "recording/pnr_contents.h"

#include <algorithm>

#include "common/text.h"
#include "derive/derivation.h"
#include "recording/toml_text.h"

namespace wendrill::recording {
namespace {

using simulator::Collection;
using simulator::kCollections;
using simulator::PropertyContent;
using simulator::ScenarioList;
using simulator::ScenarioObject;
using simulator::SegmentKind;

constexpr std::u16string_view kText = u"Text";
constexpr std::u16string_view kElementNo = u"ElementNo";
constexpr std::u16string_view kRecordLocator = u"RecordLocator";

Value Normal(const Value& value) {
  const auto* number = value.As<std::int16_t>();
  return number == nullptr ? value : Value(static_cast<std::int32_t>(*number));
}

Value PropertyOf(const ReadObject& object, std::u16string_view name) {
  const auto found = object.properties.find(std::u16string(name));
  return found == object.properties.end() ? Value() : Normal(found->second);
}

bool AreSame(const std::vector<ReadObject>& left, const std::vector<ReadObject>& right) {
  return std::ranges::equal(
      left, right, [](const ReadObject& one, const ReadObject& other) { return recording::AreSame(one, other); });
}

bool AreSame(const std::optional<ReadObject>& left, const std::optional<ReadObject>& right) {
  return left.has_value() == right.has_value() && (!left || recording::AreSame(*left, *right));
}

bool HasNoText(const std::optional<ReadObject>& header) {
  const Value text = header ? PropertyOf(*header, kText) : Value();
  return text.IsEmpty() || text == Value(u"");
}

std::vector<Value> PassengersIn(const ScenarioObject& association) {
  std::vector<Value> numbers;
  for (const auto& passenger : *std::get<std::shared_ptr<const ScenarioList>>(association.contents[0])) {
    numbers.push_back(std::get<Value>(passenger->contents[0]));
  }
  return numbers;
}

const std::vector<ReadObject>& CollectionIn(const std::map<std::int32_t, std::vector<ReadObject>>& collections,
                                            std::int32_t id) {
  static const std::vector<ReadObject> none;
  const auto found = collections.find(id);
  return found == collections.end() ? none : found->second;
}

// Returns the kind of an element of `collection`:
// - None for an element that is not an air segment.
// - The kind of the collection, when all segments of the collection have one kind.
// - Otherwise the recorded kind of the segment, when that kind is known.
// - Otherwise Flown when the collection of flown segments contains the segment's element number, and Other when not.
SegmentKind KindOf(const ReadObject& segment, const Collection& collection,
                   const std::map<std::int32_t, std::vector<ReadObject>>& collections) {
  if (&collection.elementType != &simulator::kAirSegment) {
    return SegmentKind::None;
  }
  if (collection.kind != SegmentKind::None || segment.kind != SegmentKind::None) {
    return collection.kind != SegmentKind::None ? collection.kind : segment.kind;
  }
  constexpr std::int32_t kFlownSegments = 9;
  const auto& flown = CollectionIn(collections, kFlownSegments);
  const bool isFlown = std::ranges::any_of(flown, [&segment](const ReadObject& each) {
    return PropertyOf(each, kElementNo) == PropertyOf(segment, kElementNo);
  });
  return isFlown ? SegmentKind::Flown : SegmentKind::Other;
}

// The element of `shown` that has the element number of `element`; null when there is no such element.
const ReadObject* ElementWithNumberOf(const ReadObject& element, const std::vector<ReadObject>& shown) {
  const Value number = PropertyOf(element, kElementNo);
  const auto found =
      std::ranges::find_if(shown, [&number](const ReadObject& each) { return PropertyOf(each, kElementNo) == number; });
  return found == shown.end() ? nullptr : &*found;
}

}  // namespace

const Collection* CollectionOf(std::int32_t id) {
  const auto* found = std::ranges::find(kCollections, id, &Collection::id);
  return found == std::end(kCollections) ? nullptr : found;
}

bool AreSame(const ReadObject& left, const ReadObject& right) {
  const auto holds = [](const ReadObject& one, const ReadObject& other) {
    return std::ranges::all_of(one.properties, [&other](const auto& property) {
      return Normal(property.second) == PropertyOf(other, property.first);
    });
  };
  const auto sameNumbers = [](const Value& one, const Value& other) { return Normal(one) == Normal(other); };
  return left.kind == right.kind && holds(left, right) && holds(right, left) &&
         std::ranges::equal(left.passengers, right.passengers, sameNumbers);
}

ReadObject ObjectOf(const ScenarioObject& object) {
  ReadObject result;
  result.kind = object.type == &simulator::kAirSegment ? object.kind : SegmentKind::None;
  for (std::size_t i = 0; i < object.contents.size(); ++i) {
    if (const auto* value = std::get_if<Value>(&object.contents[i])) {
      if (!value->IsEmpty()) {
        result.properties.emplace(object.type->properties[i].name, *value);
      }
    } else if (const auto* association = std::get_if<std::shared_ptr<const ScenarioObject>>(&object.contents[i])) {
      result.passengers = PassengersIn(**association);
    }
  }
  return result;
}

bool PnrContent::IsEmpty() const {
  return display.empty() && HasNoText(header) &&
         std::ranges::all_of(collections, [](const auto& each) { return each.second.empty(); });
}

bool PnrContent::AgreesWith(const PnrContent& other) const {
  return display == other.display && AreSame(header, other.header) &&
         std::ranges::all_of(collections, [&other](const auto& each) {
           const auto its = other.collections.find(each.first);
           return its == other.collections.end() || AreSame(each.second, its->second);
         });
}

void PnrContent::Join(const PnrContent& other) {
  collections.insert(other.collections.begin(), other.collections.end());
  isShown = isShown && other.isShown;
}

std::shared_ptr<const PnrContent> ContentMaker::ContentOf(const ToldPnr& asTold) {
  ToldPnr told = asTold;
  for (auto& [id, elements] : told.collections) {
    for (ReadObject& element : elements) {
      element.kind = KindOf(element, *CollectionOf(id), asTold.collections);
    }
  }
  auto content = std::make_shared<PnrContent>();
  content->display = hiding_.Screen(told.pnr.display, kRowWidth);
  const Shown& before = ShownBy(told.pnr.display);
  const Shown& after = ShownBy(content->display);
  if (Shows(before, told) && after.isClean) {
    content->isShown = true;
    content->header = after.header;
    content->locator = after.locator;
    for (const auto& [id, elements] : told.collections) {
      content->collections[id] = CollectionIn(after.collections, id);
    }
    return content;
  }
  if (told.pnr.header) {
    HideHeader(*told.pnr.header, before, after, *content);
  }
  HideCollections(told, before, after, *content);
  return content;
}

// Returns what the simulator reads from the display when the display is in a recording: writes the display as scenario
// text and parses that text. Parses each distinct display only once. Returns an empty Shown for an empty display.
const ContentMaker::Shown& ContentMaker::ShownBy(const std::u16string& display) {
  const auto [place, isNew] = shown_.try_emplace(display);
  Shown& shown = place->second;
  if (!isNew || display.empty()) {
    return shown;
  }
  const DisplayText written = TextOfDisplay(display);
  const auto scenario = simulator::ParseScenario(
      "[[pnr]]\nbreaks = " + std::string(written.breaks ? "true" : "false") + "\ndisplay = " + written.text + "\n",
      u"display");
  const simulator::ScenarioPnr& pnr = scenario->pnrs.front();
  shown.isClean = scenario->warnings.empty() && pnr.display == display;
  shown.header = ObjectOf(*pnr.header);
  shown.locator = pnr.recordLocator;
  for (const auto& [id, elements] : pnr.collections) {
    for (const auto& element : elements) {
      shown.collections[id].push_back(ObjectOf(*element));
    }
  }
  return shown;
}

bool ContentMaker::Shows(const Shown& shown, const ToldPnr& told) {
  return shown.isClean && AreSame(shown.header, told.pnr.header) &&
         std::ranges::all_of(told.collections, [&shown](const auto& each) {
           return AreSame(CollectionIn(shown.collections, each.first), each.second);
         });
}

// Stores the properties of the header with personal data hidden. `before` was read from the original display, `after`
// from the display with personal data hidden.
// - A property that has the same value in `before` gets its value from `after`, so that the header and the hidden
//   display agree. For example, a city whose name is also the name of a passenger is not hidden in the display, and so
//   not in the property.
// - Any other property is hidden by HeaderProperty.
void ContentMaker::HideHeader(const ReadObject& header, const Shown& before, const Shown& after, PnrContent& content) {
  content.header.emplace();
  for (const simulator::Property& property : simulator::kHeaderProperties) {
    const Value value = PropertyOf(header, property.name);
    if (value.IsEmpty()) {
      continue;
    }
    const bool isShown = before.header && after.header && PropertyOf(*before.header, property.name) == value;
    content.header->properties.emplace(property.name, isShown ? PropertyOf(*after.header, property.name)
                                                              : hiding_.HeaderProperty(property.name, value));
  }
  const Value locator = PropertyOf(*content.header, kRecordLocator);
  if (const auto* text = locator.As<std::u16string>()) {
    content.locator = *text;
  }
}

void ContentMaker::HideCollections(const ToldPnr& told, const Shown& before, const Shown& after, PnrContent& content) {
  for (const auto& [id, elements] : told.collections) {
    const Collection& collection = *CollectionOf(id);
    const auto& shownBefore = CollectionIn(before.collections, id);
    const auto& shownAfter = CollectionIn(after.collections, id);
    auto& hidden = content.collections[id];
    for (const ReadObject& element : elements) {
      const ReadObject* one = ElementWithNumberOf(element, shownBefore);
      const ReadObject* other = ElementWithNumberOf(element, shownAfter);
      ReadObject& target = hidden.emplace_back();
      target.kind = element.kind;
      target.passengers = element.passengers;
      for (const simulator::Property& property : collection.elementType.properties) {
        const Value value = PropertyOf(element, property.name);
        if (value.IsEmpty()) {
          continue;
        }
        const bool isShown = one != nullptr && other != nullptr && PropertyOf(*one, property.name) == value;
        target.properties.emplace(property.name, isShown ? PropertyOf(*other, property.name)
                                                         : hiding_.Property(collection, property.name, value));
      }
    }
  }
}

}  // namespace wendrill::recording
