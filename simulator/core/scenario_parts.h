// The functions that read single tables of a scenario file, and the class DerivedContents, which reads a PNR's display.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/scenario.h"
#include "core/table_reader.h"
#include "derive/derivation.h"

namespace wendrill::simulator {

// Reads the keys that [[reply]] and [unknown] have in common. `fallback` is the screen of a table that has none of
// `screen`, `pages`, `never` and `error`. For [[reply]], `fallback` may be null, because [[reply]] must have one of
// these four keys.
std::shared_ptr<ScenarioAnswer> ReadAnswer(const TableReader& table, const char16_t* fallback);

// Reads the keys `session` and `when`: the session and the state in which a reply or PNR answers.
Circumstances ReadCircumstances(const TableReader& table);

// The table [derive]: how PNRs are read from their displays.
struct DeriveDefaults {
  bool on = true;
  DerivationSettings settings = {};
};
DeriveDefaults ReadDerive(const TableReader& table);

// Reads one [[pnr]] table with all collections of the PNR. A collection comes from the file when the table has a key
// for it. Any other collection is read from the display or, when the PNR is not read from its display, stays empty.
// Adds a warning to `warnings` for each problem with the display.
ScenarioPnr ReadPnr(const TableReader& table, const DeriveDefaults& defaults, std::vector<std::u16string>& warnings);

// What a PNR's display shows, converted to contents of the PNR object model.
class DerivedContents {
 public:
  // Reads `pnr.display`, which must outlive this object. `display` is the string in the scenario file from which
  // `pnr.display` was made; warnings give the line numbers of this string.
  DerivedContents(const ScenarioPnr& pnr, PlacedText display, const DerivationSettings& settings);

  // Applies the [[pnr.change]] tables. Raises 5 (invalid argument) for an element that the display does not have, for a
  // property that the element's type does not have, and for `kind` on an element that is not an air segment.
  void Change(const std::vector<TableReader>& changes);

  // Adds to `target` the derived contents of each collection for which the [[pnr]] table has no key. Sets the record
  // locator of `target` from the display when the [[pnr]] table has no key RecordLocator. Adds to `warnings` the
  // warnings about the display, such as a row that could not be read.
  void Fill(const TableReader& table, ScenarioPnr& target, std::vector<std::u16string>& warnings) const;

  // Compares the elements that the [[pnr]] table lists with the elements that the display shows under the same numbers.
  // Adds a warning for each property whose value differs from the display, and for each element that the display shows
  // in another collection. An element that the display does not show causes no warning.
  void WarnOfContradictions(const TableReader& table, std::vector<std::u16string>& warnings) const;

  const DerivedHeader& Header() const { return derived_.header; }

 private:
  // One element of the display, as two objects. `object` has the properties of the element's type and is for the
  // collection of that type. `plain` has only Text and ElementNo and is for the collection of all elements.
  struct Part {
    const DerivedElement* derived;
    std::shared_ptr<ScenarioObject> object;
    std::shared_ptr<ScenarioObject> plain;
    bool absent = false;  // true: a [[pnr.change]] table has removed the element from the PNR
  };

  void Set(const TableReader& change, Part& part) const;
  void Compare(const TableReader& written, const DerivedElement& derived, std::vector<std::u16string>& warnings) const;
  std::u16string PlaceOf(std::int32_t row) const;

  PlacedText display_;
  // The line of the file that contains the first row of the display. Cached, because PlacedText::LineOfFile reads the
  // whole display at each call.
  std::int32_t firstRowsLine_;
  DerivedPnr derived_;
  std::vector<Part> parts_;
};

// The value of a car's property Passengers: an object with a collection, also named Passengers, that contains one
// object for each of the passengers' element numbers.
std::shared_ptr<const ScenarioObject> PassengersOf(std::vector<Value> elementNumbers);

}  // namespace wendrill::simulator
