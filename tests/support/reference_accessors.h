// Slow, obvious reference implementations of the members of IGet and of reading MIS elements. They do step by step what
// src/pnr does, without tables and without regard to speed. They are linked into tests only. Apart from types and UTF-8
// conversions, they share only the numeric test with the library: IsNumeric, which has its own tests.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/value.h"
#include "toolkit/automation_object.h"

namespace wendrill::testing {

// An element as the toolkit would return it. A property without a value fails when it is read.
struct ToolkitElement {
  std::optional<SegmentType> type;
  // The properties that the member reads. The key is the property's name, or its DISPID as text, such as u"8".
  std::map<std::u16string, std::optional<Value>> properties;
  std::vector<Value> passengers;  // the element numbers of the passengers to whom a car belongs
};

// The input of one call of an accessor: the caller's index, and what the PNR object returns.
struct AccessorCase {
  std::vector<Value> indexes;  // the values that successive reads of "intKeyIndex" return; the last one repeats
  std::vector<ToolkitElement> elements;  // the collection that the member enumerates
  // The Count properties of the collections that limit the index: of the member's own collection, and of the flown and
  // the open air segments. The latter two are used for air segments only.
  std::int32_t count = 0;
  std::int32_t flown = 0;
  std::int32_t open = 0;
  ToolkitElement header;
  std::vector<std::u16string> displays;  // the texts that successive reads of the display return; the last one repeats
  std::optional<std::size_t> failingRead;  // the read of the display that fails, counted from 0; nullopt for none
};

// The result of one call of an accessor.
struct ReferenceRecord {
  std::vector<std::pair<std::u16string, Value>> settings;  // the keys in the order in which they are set
  std::int32_t error = 0;                                  // the number of the error; 0 when there is none
  bool returnsBag = false;       // whether the member returns the bag; else it returns Nothing
  std::size_t indexReads = 0;    // how often the index was read
  std::size_t displayReads = 0;  // how often the display was read
};

// The text that the text helper of these tests returns for a date: the text of Describe in angle brackets.
std::u16string BracketedDate(const Value& date);

// Calls the reference for `member`, a member of IGet or "MISElement". Aborts the program for any other name.
ReferenceRecord ReferenceAccessor(std::string_view member, const AccessorCase& given);

}  // namespace wendrill::testing
