// Reads a PNR's display into the contents of the PNR object model: header, collections, properties.
//
// A display is the text that the host shows for a PNR, either in rows of 80 columns without line breaks or in lines:
//
//     RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0930Z   ABC123
//     PARXX0100/0001AA/12JUN08
//       1.SMITH/JOHN MR(ADT)   2.SMITH/ANN MRS(ADT)
//       3  AF 123 Y 15JUN 7 NCECDG HK2      0900 1030
//       4 RM WINDOW SEATS WANTED
//
// Each row is a name row, an element, a continuation of the element before it, or a row of another kind. An element is
// recognised by its keyword; an air segment has no keyword and is recognised by its pattern. Two headers contain the
// columns and keywords of a display. required_layout.h contains the columns and keywords that the library's members
// determine. own_layout.h contains the columns and keywords that are this project's own interpretation of displays.
//
// No display is rejected: text that cannot be read is left out and reported in a warning. The cost is linear in the
// length of the display. The text of an element is a view into the display; only an element with several rows has a
// copied text.
//
// tests/unit/derive/ compares the results with collections that were written by hand and, on random displays, with the
// library's own counts. fuzz/derivation_fuzz.cpp is the fuzz target.
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

// The numbers of the passengers with which an element is associated.
using PassengerNumbers = std::vector<std::u16string>;

// The content of a derived property; monostate when the display does not show the property.
using DerivedContent = std::variant<std::monostate, TextView, Date, std::int32_t, PassengerNumbers>;

// The largest number of properties of any element type in the object model.
inline constexpr std::size_t kMostProperties = std::size(kAirProperties);

struct DerivedElement {
  std::int32_t collection = kInElementsAlone;  // the collection's DISPID; for any air segment kAllAirSegments
  SegmentKind kind = SegmentKind::None;        // the kind of an air segment; None for any other element
  TextView keyword;      // "NAME" for a name, "AIR" for an air segment; for any other element as displayed, without "*"
  std::int32_t row = 0;  // the element's first row, counted from 1
  const ObjectType* type = &kPlainElement;
  std::array<DerivedContent, kMostProperties> contents = {};  // in the order of the type's properties

  TextView Text() const { return std::get<TextView>(contents[0]); }
  TextView Number() const { return std::get<TextView>(contents[1]); }
};

// The header of a display. When the display does not show a field, its text is empty or its date is nullopt.
struct DerivedHeader {
  std::int32_t row = 0;  // the row of the header, counted from 1; 0 when no row begins with "RP/"
  TextView line;         // the row of the header (the first row when there is no header), without trailing blanks
  TextView officeId;
  TextView queueOffice;
  TextView updateTime;  // in the format HHMM
  TextView recordLocator;
  std::optional<Date> date;
};

struct DerivedCreation {
  TextView office;
  TextView agent;
  std::optional<Date> date;
};

struct DerivationWarning {
  std::int32_t row = 0;  // the row that the warning is about, counted from 1
  std::u16string text;
};

struct DerivationSettings {
  // The date near which the days that are written without a year lie. When nullopt, Derive takes the date of the header
  // or, when the header has no date, the date of the creation line.
  std::optional<CalendarDay> date = {};

  // The DISPID of the collection for each keyword, or kInElementsAlone when elements with the keyword are only in the
  // collection of all elements. These keywords take precedence over kRequiredKeywords and kOwnKeywords.
  std::map<std::u16string, std::int32_t, std::less<>> keywords = {};
};

struct DerivedPnr {
  DerivedHeader header;
  DerivedCreation creation;
  std::vector<DerivedElement> elements;  // in the order of the display; names are elements too
  std::vector<DerivationWarning> warnings;
  // The texts that were joined from several rows. Views of these texts stay valid when the deque grows.
  std::deque<std::u16string> joined;

  DerivedPnr() = default;
  DerivedPnr(DerivedPnr&&) = default;
  DerivedPnr& operator=(DerivedPnr&&) = default;
};

// Reads a display. The views in the result are valid as long as both the text of `display` and the result exist.
DerivedPnr Derive(TextView display, const DerivationSettings& settings = {});

// Whether the collection contains the element. The collection kAllElements contains every element.
bool Holds(const Collection& collection, const DerivedElement& element);

// The DISPID of the collection of all elements.
inline constexpr std::int32_t kAllElements = 3;

// The DISPID of the collection with the name `name`. 0 when there is no collection of this name, and when none of the
// keywords in kRequiredKeywords and kOwnKeywords puts an element into the collection.
std::int32_t CollectionOfKeywords(std::u16string_view name);

}  // namespace wendrill::simulator
