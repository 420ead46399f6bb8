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

// The arrays of one CPNR, filled anew by every count.
class DisplayFares {
 public:
  explicit DisplayFares(ModuleState& state) : state_(state) {}

  // Scans the display from line 4 to the prompt or the first empty line, reading the text anew for every line. A
  // failure ends the scan without an error: the result is 0, and the arrays keep what was stored before.
  std::int16_t ValidatingAirlineElementsCount();

  // Scans the display in rows of 80 columns, whatever line breaks it has, from row 2 to the prompt or its end. A
  // failure travels on as it came.
  std::int16_t AirSequenceNrElementsCount();

  // Of the two members of IGet that read these arrays: counts first, then stores the element at "intKeyIndex" into the
  // bag. The member's own number for an index at or beyond the count, 9 for one that finds no place in the arrays, 13
  // for one that is below the count but missing: it is converted via its string form.
  void Store(GetMember member, const ParamBagRef& objParams);

 private:
  struct Accessor;
  static const Accessor kAccessors[];

  // Counted from 0; from the first scan on there is always one position, though it may be an empty one.
  using FareLines = std::vector<FareLine>;

  std::int16_t ScanValidatingAirlines();

  ModuleState& state_;
  FareLines validatingAirlines_;
  FareLines airSequences_;
};

}  // namespace wendrill
