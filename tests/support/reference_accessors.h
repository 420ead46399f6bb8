// Slow, obvious accessors: what src/pnr does for the members of IGet and for MIS elements, said once more step by step,
// without tables and without any thought of speed. They are linked into tests only. The numeric test is the one thing
// that they borrow from the library: it is the platform's, and has tests of its own.
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

// An element as the toolkit has it. A property without a value fails when it is read.
struct ToolkitElement {
  std::optional<SegmentType> type;
  std::map<std::u16string, std::optional<Value>> properties;  // those that the member reads, by name or as u"8"
  std::vector<Value> passengers;                              // the element numbers of those that a car belongs to
};

// What one call of an accessor meets.
struct AccessorCase {
  std::vector<Value> indexes;            // what the reads of "intKeyIndex" answer in turn; the last one stays
  std::vector<ToolkitElement> elements;  // the collection that the member enumerates
  // The Count properties of the collections that bound the index. Only AirSegments has the last two.
  std::int32_t count = 0;
  std::int32_t flown = 0;
  std::int32_t open = 0;
  ToolkitElement header;
  std::vector<std::u16string> displays;    // what the reads of the display text answer in turn; the last one stays
  std::optional<std::size_t> failingRead;  // the read of the display text, counted from 0, that fails
};

struct ReferenceRecord {
  std::vector<std::pair<std::u16string, Value>> settings;  // the keys in the order in which they are set
  std::int32_t error = 0;                                  // 0: none
  bool returnsBag = false;
  std::size_t indexReads = 0;
  std::size_t displayReads = 0;
};

// What the text helper makes of a date here: the value that it was given, in brackets.
std::u16string BracketedDate(const Value& date);

// `member` is a member of IGet, or "MISElement".
ReferenceRecord ReferenceAccessor(std::string_view member, const AccessorCase& given);

}  // namespace wendrill::testing
