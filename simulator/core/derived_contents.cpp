// Creates the contents of a PNR from its display, applies [[pnr.change]] to these contents, and compares the display
// with collections that the scenario writes by hand.
#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "common/text.h"
#include "common/text_forms.h"
#include "core/scenario_keys.h"
#include "core/scenario_parts.h"

namespace wendrill::simulator {
namespace {

std::u16string InQuotes(std::u16string_view text) {
  return u"\"" + std::u16string(text) + u"\"";
}

std::u16string NumberIn(const TableReader& table) {
  return ToText(table.Property(u"ElementNo"), UsTextForms());
}

std::vector<Value> ValuesOf(const PassengerNumbers& numbers) {
  return {numbers.begin(), numbers.end()};
}

struct ContentOf {
  PropertyContent operator()(std::monostate /*nothing*/) const { return Value(); }
  PropertyContent operator()(TextView text) const { return Value(text); }
  PropertyContent operator()(Date date) const { return Value(date); }
  PropertyContent operator()(std::int32_t number) const { return Value(number); }
  PropertyContent operator()(const PassengerNumbers& numbers) const { return PassengersOf(ValuesOf(numbers)); }
};

std::shared_ptr<ScenarioObject> ObjectOf(const DerivedElement& element, const ObjectType& type) {
  auto object = std::make_shared<ScenarioObject>();
  object->type = &type;
  object->kind = element.kind;
  for (std::size_t i = 0; i < type.properties.size(); ++i) {
    object->contents.push_back(std::visit(ContentOf{}, element.contents.at(i)));
  }
  return object;
}

SegmentKind KindNamed(std::u16string_view name) {
  return std::ranges::find(kSegmentKindNames, name, &SegmentKindName::name)->kind;
}

std::u16string_view NameOf(SegmentKind kind) {
  return std::ranges::find(kSegmentKindNames, kind, &SegmentKindName::kind)->name;
}

bool Holds(const Collection& collection, const ScenarioObject& object, std::int32_t ofElement) {
  if (collection.kind != SegmentKind::None) {
    return collection.kind == object.kind;
  }
  return collection.id == ofElement;
}

// A value that the scenario writes by hand and the different value that the display shows, both in their string form.
struct Difference {
  std::u16string written;
  std::u16string shown;
};

struct DifferenceFrom {
  const TableReader& table;
  std::u16string_view property;

  std::optional<Difference> operator()(std::monostate /*nothing*/) const { return std::nullopt; }
  std::optional<Difference> operator()(std::int32_t number) const { return (*this)(TextView(DecimalText(number))); }
  std::optional<Difference> operator()(TextView text) const {
    std::u16string written = ToText(table.Property(property), UsTextForms());
    return written == text ? std::nullopt : std::optional(Difference{std::move(written), std::u16string(text)});
  }
  std::optional<Difference> operator()(Date date) const {
    const Value written = table.Property(property);
    const Date* other = written.As<Date>();
    if (other == nullptr || *other == date) {
      return std::nullopt;
    }
    return Difference{UsTextForms().TextOf(*other), UsTextForms().TextOf(date)};
  }
  std::optional<Difference> operator()(const PassengerNumbers& numbers) const {
    Difference texts;
    for (const Value& number : table.Properties(property)) {
      texts.written.append(texts.written.empty() ? u"" : u",").append(ToText(number, UsTextForms()));
    }
    for (const std::u16string& number : numbers) {
      texts.shown.append(texts.shown.empty() ? u"" : u",").append(number);
    }
    return numbers.empty() || texts.written == texts.shown ? std::nullopt : std::optional(texts);
  }
};

}  // namespace

DerivedContents::DerivedContents(const ScenarioPnr& pnr, PlacedText display, const DerivationSettings& settings)
    : display_(std::move(display)), firstRowsLine_(display_.LineOfFile(0)), derived_(Derive(pnr.display, settings)) {
  for (const DerivedElement& element : derived_.elements) {
    parts_.push_back({&element, ObjectOf(element, *element.type), ObjectOf(element, kPlainElement)});
  }
}

std::u16string DerivedContents::PlaceOf(std::int32_t row) const {
  const std::int32_t line = firstRowsLine_ + (display_.line == display_.lastLine ? 0 : row - 1);
  return u"line " + DecimalText(line) + u", row " + DecimalText(row) + u" of the display";
}

void DerivedContents::Change(const std::vector<TableReader>& changes) {
  for (const TableReader& change : changes) {
    const std::u16string number = NumberIn(change);
    bool found = false;
    for (Part& part : parts_) {
      if (part.derived->Number() == number) {
        found = true;
        part.absent = part.absent || change.Flag(u"absent");
        Set(change, part);
      }
    }
    if (!found) {
      change.RefuseKey(u"ElementNo", u"is " + InQuotes(number) + u", and the display has no element of this number");
    }
  }
}

void DerivedContents::Set(const TableReader& change, Part& part) const {
  const ObjectType& type = *part.object->type;
  for (const KeyShape& key : ScenarioShape().Find(u"pnr")->table->Find(u"change")->table->keys) {
    const bool isProperty = key.name != u"absent" && key.name != u"kind" && key.name != u"ElementNo";
    if (!isProperty || !change.Has(key.name)) {
      continue;
    }
    const auto place = std::ranges::find(type.properties, key.name, &Property::name) - type.properties.begin();
    if (place == std::ssize(type.properties)) {
      change.RefuseKey(key.name, u"is no property of element " + std::u16string(part.derived->Number()) +
                                     u", which is a " + std::u16string(type.name));
    }
    const bool isAssociation = key.type == KeyType::Numbers;
    PropertyContent content = isAssociation ? PropertyContent(PassengersOf(change.Properties(key.name)))
                                            : PropertyContent(change.Property(key.name));
    if (key.name == u"Text") {
      part.plain->contents.front() = content;
    }
    part.object->contents[static_cast<std::size_t>(place)] = std::move(content);
  }
  if (change.Has(u"kind")) {
    if (&type != &kAirSegment) {
      change.RefuseKey(u"kind", u"is for air segments, and element " + std::u16string(part.derived->Number()) +
                                    u" is a " + std::u16string(type.name));
    }
    part.object->kind = KindNamed(change.Text(u"kind"));
  }
}

void DerivedContents::Fill(const TableReader& table, ScenarioPnr& target, std::vector<std::u16string>& warnings) const {
  for (const DerivationWarning& warning : derived_.warnings) {
    warnings.push_back(PlaceOf(warning.row) + u": " + warning.text);
  }
  if (!table.Has(u"RecordLocator")) {
    target.recordLocator = derived_.header.recordLocator;
  }
  for (const Collection& collection : kCollections) {
    const bool isAir = &collection.elementType == &kAirSegment;
    if (table.Has(isAir ? kAirSegmentsKey : collection.name)) {
      continue;
    }
    for (const Part& part : parts_) {
      if (part.absent) {
        continue;
      }
      if (collection.id == kAllElements) {
        target.collections[collection.id].push_back(part.plain);
      } else if (Holds(collection, *part.object, part.derived->collection)) {
        target.collections[collection.id].push_back(part.object);
      }
    }
  }
}

void DerivedContents::WarnOfContradictions(const TableReader& table, std::vector<std::u16string>& warnings) const {
  for (const Collection& collection : kCollections) {
    const auto key = KeyOfCollection(collection);
    if (key.empty() || !table.Has(key)) {
      continue;
    }
    const std::int32_t id = collection.name == kAirSegmentsKey ? kAllAirSegments : collection.id;
    for (const TableReader& written : table.Tables(key)) {
      const std::u16string number = NumberIn(written);
      const auto found = std::ranges::find(derived_.elements, number, &DerivedElement::Number);
      if (found == derived_.elements.end()) {
        continue;  // an element that the display does not show is no contradiction
      }
      if (id != kAllElements && found->collection != id) {
        warnings.push_back(u"line " + DecimalText(written.Line()) + u", " + written.Title() + u" " + number +
                           u": the display shows " + InQuotes(found->Text()) + u" in row " + DecimalText(found->row));
      } else {
        Compare(written, *found, warnings);
      }
    }
  }
}

void DerivedContents::Compare(const TableReader& written, const DerivedElement& derived,
                              std::vector<std::u16string>& warnings) const {
  const auto warn = [&](std::u16string_view property, const Difference& difference) {
    warnings.push_back(u"line " + DecimalText(written.Line()) + u", " + written.Title() + u" " +
                       std::u16string(derived.Number()) + u": " + std::u16string(property) + u" is " +
                       InQuotes(difference.written) + u", the display shows " + InQuotes(difference.shown) +
                       u" in row " + DecimalText(derived.row));
  };
  for (std::size_t i = 0; i < derived.type->properties.size(); ++i) {
    const std::u16string_view property = derived.type->properties[i].name;
    if (!written.Has(property)) {
      continue;
    }
    if (const auto difference = std::visit(DifferenceFrom{written, property}, derived.contents.at(i))) {
      warn(property, *difference);
    }
  }
  if (written.Has(u"kind") && KindNamed(written.Text(u"kind")) != derived.kind) {
    warn(u"kind", {written.Text(u"kind"), std::u16string(NameOf(derived.kind))});
  }
}

}  // namespace wendrill::simulator
