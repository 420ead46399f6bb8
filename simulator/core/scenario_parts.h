// The functions that read the tables of a scenario file, and the class that reads a PNR's display.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/scenario.h"
#include "core/table_reader.h"
#include "derive/derivation.h"

namespace wendrill::simulator {

// Reads the keys that [[reply]] and [unknown] have in common. `fallback` is the screen of a table that has none of
// `screen`, `pages`, `never` and `error`. It may be null for [[reply]], which needs one of these four keys.
std::shared_ptr<ScenarioAnswer> ReadAnswer(const TableReader& table, const char16_t* fallback);

// Reads the keys `session` and `when`: the session and the state in which a reply or PNR answers.
Circumstances ReadCircumstances(const TableReader& table);

// The table [derive]: how PNRs are read from their displays.
struct DeriveDefaults {
  bool on = true;
  DerivationSettings settings = {};
};
DeriveDefaults ReadDerive(const TableReader& table);

// Reads one [[pnr]] table with all its collections, written in the file or derived from the display. Adds a warning to
// `warnings` for each problem with the display.
ScenarioPnr ReadPnr(const TableReader& table, const DeriveDefaults& defaults, std::vector<std::u16string>& warnings);

// What a PNR's display shows, converted to contents of the PNR object model.
class DerivedContents {
 public:
  // Reads `pnr.display`, which must outlive this object. `display` is the string in the file from which `pnr.display`
  // was made: its lines appear in warnings.
  DerivedContents(const ScenarioPnr& pnr, PlacedText display, const DerivationSettings& settings);

  // Applies the [[pnr.change]] tables. Raises 5 for an element that the display does not have, and for a property that
  // the element's type does not have.
  void Change(const std::vector<TableReader>& changes);

  // Adds to `target` the derived contents of each collection for which the [[pnr]] table has no key, and sets the
  // record locator of `target` when the table has none. Adds a warning for each part of the display that could not be
  // read.
  void Fill(const TableReader& table, ScenarioPnr& target, std::vector<std::u16string>& warnings) const;

  // Adds a warning for each value in a collection of the [[pnr]] table that differs from what the display shows.
  void WarnOfContradictions(const TableReader& table, std::vector<std::u16string>& warnings) const;

  const DerivedHeader& Header() const { return derived_.header; }

 private:
  // One derived element as two objects: `object` has the properties of the element's own type, `plain` has only text
  // and number, as in the collection of all elements.
  struct Part {
    const DerivedElement* derived;
    std::shared_ptr<ScenarioObject> object;
    std::shared_ptr<ScenarioObject> plain;
    bool absent = false;  // a change has removed the element from the PNR
  };

  void Set(const TableReader& change, Part& part) const;
  void Compare(const TableReader& written, const DerivedElement& derived, std::vector<std::u16string>& warnings) const;
  std::u16string PlaceOf(std::int32_t row) const;

  PlacedText display_;
  // The line of the display's first row in the file. It is computed once, because that reads the whole display.
  std::int32_t firstRowsLine_;
  DerivedPnr derived_;
  std::vector<Part> parts_;
};

// A car's passenger association: an object whose collection Passengers contains one object for each element number.
std::shared_ptr<const ScenarioObject> PassengersOf(std::vector<Value> elementNumbers);

}  // namespace wendrill::simulator
