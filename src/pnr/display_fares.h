// The fare elements that the toolkit does not model and that are read from the PNR display text instead: validating
// airlines (FV) and air sequence numbers (FB).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/module_state.h"
#include "common/param_bag.h"
#include "pnr/get_member.h"

namespace wendrill {

// One position of a kind's arrays; air sequence numbers have no airline.
struct FareLine {
  std::u16string element;
  std::u16string elementNr;
  std::u16string airline;
  std::u16string passenger;
  std::u16string segment;
};

// The arrays of one CPNR; every count fills them again.
class DisplayFares {
 public:
  explicit DisplayFares(ModuleState& state) : state_(state) {}

  // Scans the display from line 4 to the prompt or the first empty line, and reads the display text again for each
  // line. Never raises: a failure ends the scan with the result 0, and the arrays keep what was stored before it.
  std::int16_t ValidatingAirlineElementsCount();

  // Scans the display in rows of 80 columns, whatever line breaks it has, from row 2 to the prompt or its end. A
  // failure propagates unchanged.
  std::int16_t AirSequenceNrElementsCount();

  // Implements the two members of IGet that read these arrays: counts first, then stores the element at "intKeyIndex"
  // into the bag. Raises the member's own number for an index at or above the count, 9 for an index outside the arrays,
  // and 13 for a missing index when the count is above 0, because the index is converted via its string form.
  void Store(GetMember member, const ParamBagRef& objParams);

 private:
  struct Accessor;
  static const Accessor kAccessors[];

  // Counted from 0. After the first scan index 0 always exists, but its element may be empty.
  using FareLines = std::vector<FareLine>;

  std::int16_t ScanValidatingAirlines();

  ModuleState& state_;
  FareLines validatingAirlines_;
  FareLines airSequences_;
};

}  // namespace wendrill
