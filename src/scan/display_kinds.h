// The kinds of elements for which the toolkit's object model has no collection of their own. Their scanners search the
// PNR's display. Exception: the scanner of surface segments searches the PNR object's collection of all elements.
//
// Each kind is one DisplayKind object. The kind's own .cpp file defines the object, the keys, and the scanner that
// stores values under the keys. A new kind needs its own .cpp file, a declaration in this file, an item of
// kDisplayKinds, and members in the published interface definition. The library, the tests, the benchmarks and the fuzz
// targets iterate over kDisplayKinds.
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

// The three types of scan functions: ScanText scans a display text that was read once, ScanAgain reads the display
// again for each line or row, and ScanPnr reads the PNR object instead of the display. A scan receives arrays that have
// just been reset, stores the elements in the arrays and returns the number of elements found. Errors propagate
// unchanged: errors of the toolkit, 6 (overflow), and 5 (invalid argument) from fare elements in which "/P" comes
// before "/S".
using ScanText = std::int16_t (*)(TextView display, ElementArrays& arrays);         // scans a text
using ScanAgain = std::int16_t (*)(DisplayReader& display, ElementArrays& arrays);  // reads the display for each line
using ScanPnr = std::int16_t (*)(const ModuleState& state, ElementArrays& arrays);  // reads the PNR object

// A value of DisplayKind::countNumber: any failure except lack of memory gives the count 0 and raises no error.
inline constexpr std::int32_t kCountsAsNone = -1;

struct DisplayKind {
  CountOf count;                         // the property of CPNR that counts the elements
  std::optional<TextView> askedAs = {};  // the kind's name in IGetPNR::Elements; nullopt for a kind that IGet reads
  std::optional<GetMember> getter = {};  // the member of IGet; nullopt for a kind that IGetPNR::Elements reads
  std::span<const ArrayKey> keys;        // the keys of an element, in the order in which a getter copies their values
  std::variant<ScanText, ScanAgain, ScanPnr> scan;

  // The error numbers of the kind. The value kNoNumber lets every failure propagate unchanged. The value kCountsAsNone
  // is possible for countNumber alone.
  //   - countNumber: the count raises the number for any failure except 6 (overflow) and lack of memory.
  //   - getterNumber: IGetPNR::Elements raises the number for any failure except lack of memory. IGet raises the number
  //     only for an index at or above the count.
  std::int32_t countNumber;
  std::int32_t getterNumber;

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

// The kind whose field `field` equals `value`, for example KindWith(&DisplayKind::count, count); null when no kind has
// that value.
template <typename Field, typename Wanted>
const DisplayKind* KindWith(Field field, Wanted value) {
  const auto kind = std::ranges::find(kDisplayKinds, value, field);
  return kind == kDisplayKinds.end() ? nullptr : *kind;
}

}  // namespace wendrill
