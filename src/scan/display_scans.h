// Runs the scans of kDisplayKinds (scan/display_kinds.h) and keeps the elements that they find.
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
// the scan reads `display` or the PNR object of `state`. Returns the number of elements found. Errors of the toolkit
// and overflow (6) propagate unchanged.
std::int16_t RunScan(const DisplayKind& kind, DisplayReader& display, const ModuleState& state, ElementArrays& arrays);

// The scans of one CPNR, with one set of arrays for each kind.
class DisplayScans {
 public:
  // `state` must outlive this object.
  explicit DisplayScans(ModuleState& state);

  // Scans the whole display on each call, replaces the contents of the kind's arrays and returns the number of elements
  // found. Returns 0 when there are no elements. For special service requests and miscellaneous ticketing lines,
  // returns 0 also when the prompt comes before the first empty line. No result is cached: reading N elements one by
  // one costs N + 1 scans, and each result shows the PNR as it is displayed at the moment of the call.
  //
  // Raises the kind's own number (2020 to 2057) for any failure but overflow (6). Overflow propagates unchanged; a
  // display of more than 32,767 lines or elements raises it. Two exceptions: for surface segments, ATX segments and air
  // sequence numbers every error propagates unchanged; for validating airlines any failure gives the count 0. After an
  // error the arrays contain what was stored before the error.
  std::int16_t Count(const DisplayKind& kind);

  // Scans again and returns the position that "intKeyIndex" (counted from 0) asks for; nullopt for an index at or above
  // the count. Raises 13 for a missing index when the count is above 0: the missing index compares as 0, but its string
  // form is not a number.
  std::optional<std::int16_t> PositionAskedFor(const DisplayKind& kind, ParamBag& bag);

  // Implements the member of IGet for a kind that has one: stores the element at "intKeyIndex" (counted from 0) under
  // the kind's keys into the caller's bag and returns Nothing. Raises the kind's getter number for an index at or above
  // the count, and 9 for an index outside the arrays, such as a negative one. Other errors propagate unchanged.
  ParamBagRef Get(const DisplayKind& kind, const ParamBagRef& objParams);

  // The elements that the last scan of the kind stored. Before the first scan the arrays have no entries.
  const ElementArrays& Arrays(const DisplayKind& kind) const;

 private:
  ModuleState& state_;
  std::array<ElementArrays, kDisplayKinds.size()> arrays_;
};

}  // namespace wendrill
