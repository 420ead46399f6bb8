#include <algorithm>

#include "common/text.h"
#include "core/scenario_parts.h"

namespace wendrill::simulator {
namespace {

constexpr std::size_t kDisplayColumns = kRowWidth;

std::u16string ReadDisplay(const TableReader& table, const PlacedText& block, bool breaks) {
  if (breaks) {
    return LinesWithBreaks(block.text);
  }
  if (const auto wide = FirstLineWiderThan(block.text, kDisplayColumns)) {
    table.RefuseAt(block.LineOfFile(*wide), u"row " + DecimalText(static_cast<std::int64_t>(*wide) + 1) +
                                                u" of \"display\" in " + table.Title() +
                                                u" is longer than the 80 columns of a display");
  }
  return PaddedScreen(block.text, kDisplayColumns).buffer;
}

// The default values of a PNR's header properties. `line` is the default of both Text and Line. Its value is:
//   - for a PNR that is read from its display: the header row, or the first row of a display without a header row;
//   - for any other PNR: the first row of its display;
//   - in both cases: the record locator when that row is empty or there is no display.
// So `line` is empty only when the row and the record locator are both empty. The library counts a PNR as found when
// the Text of its header is not empty.
struct HeaderDefaults {
  std::u16string_view line;
  std::u16string_view recordLocator;
  Value officeId = {};
  Value elementNo = {};

  Value Of(const Property& property) const {
    if (property.name == u"Text" || property.name == u"Line") {
      return line;
    }
    if (property.name == u"OfficeID") {
      return officeId;
    }
    if (property.name == u"ElementNo") {
      return elementNo;
    }
    return property.name == u"RecordLocator" ? Value(recordLocator) : Value();
  }
};

HeaderDefaults DefaultsOf(const ScenarioPnr& pnr, const DerivedHeader* derived) {
  const std::u16string_view line = derived == nullptr ? TrimmedRight(LineOf(pnr.display, 1)) : derived->line;
  HeaderDefaults defaults = {.line = line.empty() ? std::u16string_view(pnr.recordLocator) : line,
                             .recordLocator = pnr.recordLocator};
  if (derived != nullptr && derived->row > 0) {
    defaults.officeId = derived->officeId;
    defaults.elementNo = std::int32_t{0};
  }
  return defaults;
}

std::shared_ptr<const ScenarioObject> HeaderOf(const HeaderDefaults& defaults) {
  auto header = std::make_shared<ScenarioObject>();
  header->type = &kHeader;
  for (const Property& property : kHeaderProperties) {
    header->contents.emplace_back(defaults.Of(property));
  }
  return header;
}

std::shared_ptr<const ScenarioObject> ReadHeader(const TableReader& table, const HeaderDefaults& defaults) {
  auto header = std::make_shared<ScenarioObject>();
  header->type = &kHeader;
  for (const Property& property : kHeaderProperties) {
    header->contents.emplace_back(table.Has(property.name) ? table.Property(property.name) : defaults.Of(property));
  }
  return table.Flag(u"absent") ? nullptr : header;
}

SegmentKind ReadKind(const TableReader& table) {
  const std::u16string name = table.Text(u"kind");
  return std::find_if(std::begin(kSegmentKindNames), std::end(kSegmentKindNames),
                      [&name](const SegmentKindName& each) { return each.name == name; })
      ->kind;
}

std::shared_ptr<const ScenarioObject> ReadElement(const TableReader& table, const ObjectType& type, SegmentKind kind) {
  auto element = std::make_shared<ScenarioObject>();
  element->type = &type;
  element->kind = kind;
  for (const Property& property : type.properties) {
    if (&type == &kCarSegment && property.id == kCarPassengers) {
      element->contents.emplace_back(PassengersOf(table.Properties(property.name)));
    } else {
      element->contents.emplace_back(table.Property(property.name));
    }
  }
  return element;
}

// Adds each air segment to the collection of all air segments and, unless the segment has the kind `other`, to the
// collection of the segment's kind.
void ReadAirSegments(const TableReader& pnr, ScenarioPnr& target) {
  for (const TableReader& table : pnr.Tables(kAirSegmentsKey)) {
    const SegmentKind kind = ReadKind(table);
    const auto segment = ReadElement(table, kAirSegment, kind);
    for (const Collection& collection : kCollections) {
      if (collection.id == kAllAirSegments || collection.kind == kind) {
        target.collections[collection.id].push_back(segment);
      }
    }
  }
}

void ReadCollections(const TableReader& pnr, ScenarioPnr& target) {
  for (const Collection& collection : kCollections) {
    if (collection.name == kAirSegmentsKey) {
      ReadAirSegments(pnr, target);
    } else if (const auto key = KeyOfCollection(collection); !key.empty()) {
      for (const TableReader& table : pnr.Tables(key)) {
        target.collections[collection.id].push_back(ReadElement(table, collection.elementType, SegmentKind::None));
      }
    }
  }
}

bool HasCollection(const TableReader& table) {
  return std::any_of(std::begin(kCollections), std::end(kCollections), [&table](const Collection& collection) {
    const auto key = KeyOfCollection(collection);
    return !key.empty() && table.Has(key);
  });
}

}  // namespace

DeriveDefaults ReadDerive(const TableReader& table) {
  constexpr std::int32_t kFirstYear = 1900;
  constexpr std::int32_t kLastYear = 9000;
  DeriveDefaults defaults;
  defaults.on = table.Flag(u"on");
  if (table.Has(u"date")) {
    const Value value = table.Property(u"date");
    const Date* date = value.As<Date>();
    const bool isDay =
        date != nullptr && date->days >= DateOf({kFirstYear, 1, 1}).days && date->days < DateOf({kLastYear, 1, 1}).days;
    if (!isDay) {
      table.RefuseKey(u"date", u"must be a day such as 2008-06-12, in the years 1900 to 8999");
    }
    defaults.settings.date = DayOf(*date);
  }
  for (const auto& [word, name] : table.Words(u"keywords")) {
    const std::int32_t collection = CollectionOfKeywords(name);
    if (collection == kInElementsAlone && name != u"-") {
      std::u16string problem = u"has \"";
      problem.append(word).append(u"\" for \"").append(name);
      table.RefuseKey(u"keywords", problem.append(u"\", which is no collection that a keyword brings, nor \"-\""));
    }
    defaults.settings.keywords[word] = collection;
  }
  return defaults;
}

// The passenger association of a car: an object whose collection Passengers contains, for each element number, one
// object with the property ElementNo.
std::shared_ptr<const ScenarioObject> PassengersOf(std::vector<Value> elementNumbers) {
  auto passengers = std::make_shared<ScenarioList>();
  for (Value& number : elementNumbers) {
    auto passenger = std::make_shared<ScenarioObject>();
    passenger->type = &kPassenger;
    passenger->contents.emplace_back(std::move(number));
    passengers->push_back(std::move(passenger));
  }
  auto association = std::make_shared<ScenarioObject>();
  association->type = &kPassengerList;
  association->contents.emplace_back(std::shared_ptr<const ScenarioList>(std::move(passengers)));
  return association;
}

ScenarioPnr ReadPnr(const TableReader& table, const DeriveDefaults& defaults, std::vector<std::u16string>& warnings) {
  ScenarioPnr pnr;
  pnr.line = table.Line();
  pnr.recordLocator = table.Text(u"RecordLocator");
  pnr.entries = table.Texts(u"entries");
  pnr.onDisplay = table.Flag(u"on_display");
  pnr.where = ReadCircumstances(table);
  pnr.then = table.OptionalText(u"then");
  pnr.optional = table.Flag(u"optional");
  pnr.status = table.Whole(u"status");
  pnr.error = table.Failure(u"error");
  const PlacedText display = table.Block(u"display").value_or(PlacedText());
  const bool breaks = table.Flag(u"breaks");
  const auto header = table.Table(u"Header");
  ReadCollections(table, pnr);
  pnr.display = ReadDisplay(table, display, breaks);
  const bool mayDerive = !pnr.display.empty() && (table.Has(u"derive") ? table.Flag(u"derive") : defaults.on);
  const bool derives = mayDerive && (table.Has(u"derive") || !HasCollection(table));
  if (!derives && table.Has(u"change")) {
    table.RefuseKey(u"change", u"changes elements that are read from a display, and this PNR is not read from one");
  }
  std::optional<DerivedContents> derived;
  if (mayDerive) {
    derived.emplace(pnr, display, defaults.settings);
    derived->WarnOfContradictions(table, warnings);
  }
  if (derives) {
    derived->Change(table.Tables(u"change"));
    derived->Fill(table, pnr, warnings);
  }
  const HeaderDefaults headerDefaults = DefaultsOf(pnr, derives ? &derived->Header() : nullptr);
  pnr.header = header ? ReadHeader(*header, headerDefaults) : HeaderOf(headerDefaults);
  return pnr;
}

std::shared_ptr<const ScenarioPnr> EmptyPnr() {
  auto pnr = std::make_shared<ScenarioPnr>();
  pnr->header = HeaderOf({});
  return pnr;
}

}  // namespace wendrill::simulator
