// The kinds of elements that are read from the PNR's display, because the toolkit's object model does not have them.
//
// A kind is a row, defined in the kind's own file beside the keys and the scanner that fills them. A new kind needs
// that file, a declaration and an entry below, and its published members. Library, tests, benchmarks and fuzz targets
// iterate over kDisplayKinds.
//
// Terms such as PNR, entry, segment and association: docs/glossary.md.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <variant>

#include "common/failures.h"
#include "common/module_state.h"
#include "common/text.h"
#include "scan/display_reader.h"
#include "scan/display_walk.h"
#include "scan/element_arrays.h"
#include "wendrill23_published.h"

namespace wendrill {

// A scan receives arrays that have just been reset, stores the elements in them and returns the number of elements
// found. Errors of the toolkit and overflow (6) propagate unchanged.
using ScanText = std::int16_t (*)(TextView display, ElementArrays& arrays);         // scans a display read before
using ScanAgain = std::int16_t (*)(DisplayReader& display, ElementArrays& arrays);  // reads the display for each line
using ScanPnr = std::int16_t (*)(const ModuleState& state, ElementArrays& arrays);  // reads the PNR object itself

// As a kind's countNumber: a failure is not raised, and the count is 0.
inline constexpr std::int32_t kCountsAsNone = -1;

struct DisplayKind {
  CountOf count;                         // the property of CPNR
  std::optional<TextView> askedAs = {};  // the kind's name in IGetPNR::Elements; no value for a kind that IGet reads
  std::optional<GetMember> getter = {};  // that member of IGet
  std::span<const ArrayKey> keys;        // in the order in which a getter copies them
  std::variant<ScanText, ScanAgain, ScanPnr> scan;
  std::int32_t countNumber;   // raised by the count for any failure but overflow (6), which propagates unchanged
  std::int32_t getterNumber;  // raised by Elements for any failure, by IGet for an index at or beyond the count

  std::string_view Name() const { return NameOf(count); }
};

extern const DisplayKind kSpecialServiceElements;
extern const DisplayKind kOtherServiceElements;
extern const DisplayKind kSecurityElements;
extern const DisplayKind kManualTktElements;
extern const DisplayKind kMiscTktInfoElements;
extern const DisplayKind kSURElements;
extern const DisplayKind kSPElements;
extern const DisplayKind kATXSegments;
extern const DisplayKind kMCOElements;
extern const DisplayKind kValidatingAirlineElements;
extern const DisplayKind kAirSequenceNrElements;

inline constexpr std::array kDisplayKinds = {
    &kSpecialServiceElements,
    &kOtherServiceElements,
    &kSecurityElements,
    &kManualTktElements,
    &kMiscTktInfoElements,
    &kSURElements,
    &kSPElements,
    &kATXSegments,
    &kMCOElements,
    &kValidatingAirlineElements,
    &kAirSequenceNrElements,
};

// The kind whose row has the value in the field, such as &DisplayKind::count; null when no row has it.
template <typename Field, typename Wanted>
const DisplayKind* KindWith(Field field, Wanted value) {
  const auto kind = std::ranges::find(kDisplayKinds, value, field);
  return kind == kDisplayKinds.end() ? nullptr : *kind;
}

}  // namespace wendrill
