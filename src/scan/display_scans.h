// Runs the scans of kDisplayKinds (scan/display_kinds.h) and keeps the elements that the scans find.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "common/module_state.h"
#include "common/param_bag.h"
#include "scan/display_kinds.h"
#include "scan/display_reader.h"
#include "scan/element_arrays.h"

namespace wendrill {

// Runs the scan of a kind and stores the elements in `arrays`, which must have just been reset. Depending on the kind,
// the scan reads `display` or the PNR object of `state`. Returns the number of elements found. Errors propagate
// unchanged: errors of the toolkit, 6 (overflow), and 5 (invalid argument) from fare elements in which "/P" comes
// before "/S".
std::int16_t RunScan(const DisplayKind& kind, DisplayReader& display, const ModuleState& state, ElementArrays& arrays);

// The scans of one CPNR, with one set of arrays for each kind.
class DisplayScans {
 public:
  // `state` must outlive this object.
  explicit DisplayScans(ModuleState& state);

  // Scans the whole display (for surface segments: the PNR object's collection of all elements) on each call, replaces
  // the contents of the kind's arrays and returns the number of elements found; 0 when there are no elements. No result
  // is cached: reading N elements one by one costs N + 1 scans, one for the count and one for each element. Each result
  // shows the PNR as it is displayed at the moment of the call.
  //
  // Returns 0 although the display contains elements in two cases:
  //   - The kind is special service requests or miscellaneous ticketing lines, and the prompt comes after the header
  //     line and before the first empty line.
  //   - The kind is special service requests, and a line after the header line and before the first empty line begins,
  //     after any blanks, with "SSR" or "*SSR" instead of an element number.
  //
  // The error of a failed scan depends on the kind:
  //   - Surface segments, ATX segments and air sequence numbers: every error propagates unchanged.
  //   - Validating airlines: any error, even 6 (overflow), gives the count 0.
  //   - All other kinds: raises the kind's own number (2020 to 2057) for any failure except 6 (overflow), which
  //     propagates unchanged.
  //
  // Lack of memory propagates unchanged for every kind. A scan overflows when it finds more than 32,767 elements or
  // reads beyond line 32,767. After an error the arrays contain what was stored before the error.
  std::int16_t Count(const DisplayKind& kind);

  // Scans again (see Count) and returns the position, counted from 0, that "intKeyIndex" asks for; nullopt for an index
  // at or above the count. A negative index gives a negative position. Raises 13 (type mismatch) for an index that is
  // not a number. A missing index (as 0), a Boolean and a date are compared like numbers, but raise 13 when they are
  // below the count, because their string forms are not numbers. Errors of Count propagate.
  std::optional<std::int16_t> PositionAskedFor(const DisplayKind& kind, ParamBag& bag);

  // Implements the kind's member of IGet: stores the element at "intKeyIndex" (counted from 0) under the kind's keys
  // into the caller's bag and returns Nothing. Raises the kind's getter number for an index at or above the count, and
  // 9 (index out of range) for an index outside the arrays, such as a negative index. Other errors propagate unchanged.
  // REQUIRES: IGet has a member for the kind.
  ParamBagRef Get(const DisplayKind& kind, const ParamBagRef& objParams);

  // The elements that the last scan of the kind stored. Before the first scan the arrays are empty.
  const ElementArrays& Arrays(const DisplayKind& kind) const;

 private:
  ModuleState& state_;
  std::array<ElementArrays, kDisplayKinds.size()> arrays_;
};

}  // namespace wendrill
