// The element kinds that are read from the PNR's display text, because the toolkit's object model does not have them.
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

// Runs the scan of a kind, over the display or over the PNR object of `state`, into arrays that have just been reset.
// Returns the number of elements found. Errors of the toolkit and overflow (6) propagate unchanged.
std::int16_t RunScan(const DisplayKind& kind, DisplayReader& display, const ModuleState& state, ElementArrays& arrays);

// The scans of one CPNR: the arrays of each kind.
class DisplayScans {
 public:
  // `state` must outlive this object.
  explicit DisplayScans(ModuleState& state);

  // Scans the whole display on each call, replaces the kind's arrays and returns the number of elements found; 0 when
  // there are no elements, and for some kinds when the display ends in the prompt. No result is cached: reading N
  // elements one by one costs N + 1 scans, and each result shows the PNR as it is displayed at that moment.
  //
  // Raises the kind's own number (2020 to 2057) for any failure but overflow (6), which propagates unchanged and which
  // a display of more than 32,767 lines or elements raises too. For surface segments, ATX segments and air sequence
  // numbers every error propagates unchanged; for validating airlines any failure gives the count 0. After an error the
  // arrays contain what was stored before it.
  std::int16_t Count(const DisplayKind& kind);

  // Counts, and returns the position that "intKeyIndex" asks for; no value for an index at or beyond the count. Raises
  // 13 for an index below the count that is missing: it is converted via its string form.
  std::optional<std::int16_t> PositionAskedFor(const DisplayKind& kind, ParamBag& bag);

  // The member of IGet for a kind that has one: stores the element at "intKeyIndex" (counted from 0) under the kind's
  // keys into the caller's bag and returns Nothing. Raises the kind's getter number for an index at or beyond the count
  // and 9 for an index outside the arrays, such as a negative one; other errors propagate unchanged.
  ParamBagRef Get(const DisplayKind& kind, const ParamBagRef& objParams);

  // What the last scan of the kind stored; no array exists before the first scan.
  const ElementArrays& Arrays(const DisplayKind& kind) const;

 private:
  ModuleState& state_;
  std::array<ElementArrays, kDisplayKinds.size()> arrays_;
};

}  // namespace wendrill
