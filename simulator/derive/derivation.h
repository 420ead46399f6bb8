// Reads a PNR's display into what the PNR object model holds: header, collections, properties.
//
// A display is what the host prints for a PNR, in rows of 80 columns without breaks or in lines:
//
//     RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0930Z   ABC123
//     PARXX0100/0001AA/12JUN08
//       1.SMITH/JOHN MR(ADT)   2.SMITH/ANN MRS(ADT)
//       3  AF 123 Y 15JUN 7 NCECDG HK2      0900 1030
//       4 RM WINDOW SEATS WANTED
//
// Each row is a name row, an element, a continuation of the element before it, or none of these. Elements are told
// apart by their keyword; an air segment has none and is recognised by its form. The columns and keywords are in two
// tables: required_layout.h has what the library's members fix, own_layout.h this project's own reading.
//
// Nothing is refused: what cannot be read is left out and told in a warning. Cost is linear in the text; text is copied
// only where rows are joined.
//
// Tested by tests/unit/derive/, there also beside collections that were written by hand and, on random displays, beside
// the library's own counts, and by fuzz/derivation_fuzz.cpp.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "common/host_date.h"
#include "common/text.h"
#include "common/value.h"
#include "derive/object_model.h"
#include "derive/required_layout.h"

namespace wendrill::simulator {

// The numbers of the passengers that an element belongs to.
using PassengerNumbers = std::vector<std::u16string>;

// The content of a derived property; nothing where the display does not show it.
using DerivedContent = std::variant<std::monostate, TextView, Date, std::int32_t, PassengerNumbers>;

// The most properties that a type of the object model has.
inline constexpr std::size_t kMostProperties = std::size(kAirProperties);

struct DerivedElement {
  std::int32_t collection = kInElementsAlone;  // the identifier; kAllAirSegments for every air segment
  SegmentKind kind = SegmentKind::None;        // of air segments only
  TextView keyword;      // "NAME" for names, "AIR" for air segments, else as displayed, without "*"
  std::int32_t row = 0;  // its first, counted from 1
  const ObjectType* type = &kPlainElement;
  std::array<DerivedContent, kMostProperties> contents = {};  // in the order of the type's properties

  TextView Text() const { return std::get<TextView>(contents[0]); }
  TextView Number() const { return std::get<TextView>(contents[1]); }
};

// Each part is empty where the display does not show it.
struct DerivedHeader {
  std::int32_t row = 0;  // counted from 1; 0: no row begins with "RP/"
  TextView line;         // the row without trailing blanks; without a header the first row
  TextView officeId;
  TextView queueOffice;
  TextView updateTime;  // HHMM
  TextView recordLocator;
  std::optional<Date> date;
};

struct DerivedCreation {
  TextView office;
  TextView agent;
  std::optional<Date> date;
};

struct DerivationWarning {
  std::int32_t row = 0;  // counted from 1
  std::u16string text;
};

struct DerivationSettings {
  // The day near which days without a year are looked for; else the header's, else the creation line's.
  std::optional<CalendarDay> date = {};

  // The collections of further keywords, or of known ones; kInElementsAlone for none.
  std::map<std::u16string, std::int32_t, std::less<>> keywords = {};
};

struct DerivedPnr {
  DerivedHeader header;
  DerivedCreation creation;
  std::vector<DerivedElement> elements;  // in the order of the display, names included
  std::vector<DerivationWarning> warnings;
  std::deque<std::u16string> joined;  // the texts of elements of several rows; views stay valid while it grows

  DerivedPnr() = default;
  DerivedPnr(DerivedPnr&&) = default;
  DerivedPnr& operator=(DerivedPnr&&) = default;
};

// The views in the result are valid as long as `display` and the result itself.
DerivedPnr Derive(TextView display, const DerivationSettings& settings = {});

// Whether the collection with this identifier holds the element; kAllElements holds every one.
bool Holds(const Collection& collection, const DerivedElement& element);

// The identifier of the collection of all elements.
inline constexpr std::int32_t kAllElements = 3;

// The collections whose elements a keyword can bring, by name; 0 for any other name.
std::int32_t CollectionOfKeywords(std::u16string_view name);

}  // namespace wendrill::simulator
