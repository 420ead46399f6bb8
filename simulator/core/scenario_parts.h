// The readers of a scenario's tables.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/scenario.h"
#include "core/table_reader.h"
#include "derive/derivation.h"

namespace wendrill::simulator {

// Reads the keys that every table with an answer has. `fallback` is the screen for a table that has none of screen,
// pages, never and error.
std::shared_ptr<ScenarioAnswer> ReadAnswer(const TableReader& table, const char16_t* fallback);

// The keys that say in which session and state a reply or PNR answers.
Circumstances ReadCircumstances(const TableReader& table);

// [derive]: how PNRs are read from their displays.
struct DeriveDefaults {
  bool on = true;
  DerivationSettings settings = {};
};
DeriveDefaults ReadDerive(const TableReader& table);

// One [[pnr]] with all its collections, written or derived. What is wrong with a display is added to `warnings`.
ScenarioPnr ReadPnr(const TableReader& table, const DeriveDefaults& defaults, std::vector<std::u16string>& warnings);

// What a display shows, as the contents of a PNR.
class DerivedContents {
 public:
  // Reads `pnr.display`; `display` is the same text in the file.
  DerivedContents(const ScenarioPnr& pnr, PlacedText display, const DerivationSettings& settings);

  // Applies the [[pnr.change]] tables. Raises 5 for an element that the display does not have, or a property that the
  // element does not have.
  void Change(const std::vector<TableReader>& changes);

  // Fills the collections that `pnr` has no table for, the record locator if the table leaves it out, and warns of what
  // could not be read.
  void Fill(const TableReader& table, ScenarioPnr& target, std::vector<std::u16string>& warnings) const;

  // Warns of each value in a collection of the table that is not what the display shows.
  void WarnOfContradictions(const TableReader& table, std::vector<std::u16string>& warnings) const;

  const DerivedHeader& Header() const { return derived_.header; }

 private:
  // An element twice: with its own properties, and as the collection of all elements has it.
  struct Part {
    const DerivedElement* derived;
    std::shared_ptr<ScenarioObject> object;
    std::shared_ptr<ScenarioObject> plain;
    bool absent = false;
  };

  void Set(const TableReader& change, Part& part) const;
  void Compare(const TableReader& written, const DerivedElement& derived, std::vector<std::u16string>& warnings) const;
  std::u16string PlaceOf(std::int32_t row) const;

  PlacedText display_;
  std::int32_t firstRowsLine_;  // in the file; found once, because finding it reads the display
  DerivedPnr derived_;
  std::vector<Part> parts_;
};

// A car's passengers in the form of the object model: an object that contains the collection of associated elements.
std::shared_ptr<const ScenarioObject> PassengersOf(std::vector<Value> elementNumbers);

}  // namespace wendrill::simulator
