// One segment or element of the current PNR as a keyed record: the interface IGet.
#pragma once

#include <cstdint>

#include "common/module_state.h"
#include "common/param_bag.h"
#include "pnr/display_fares.h"
#include "pnr/get_member.h"

namespace wendrill {

class PnrRecords {
 public:
  explicit PnrRecords(ModuleState& state) : state_(state), fares_(state) {}
  PnrRecords(const PnrRecords&) = delete;
  PnrRecords& operator=(const PnrRecords&) = delete;

  // Reads "intKeyIndex" (counted from 0; see IndexForm) and stores the element's keys in the caller's bag in their
  // order; a key that does not apply keeps its value. Raises the member's own number for an index at or above the
  // kind's count. A negative index stores nothing, except that CarSegment stores every key empty and the two kinds read
  // from the display raise 9. Any other failure propagates with its own number, and the keys stored before it stay in
  // the bag. Intentional: ActiveAirSegments and FormOfPaymentElement return the caller's bag, the other members
  // Nothing, as published.
  ParamBagRef Get(GetMember member, const ParamBagRef& objParams);

  // Scan the display on each call. ValidatingAirlineElementsCount returns 0 on any failure; AirSequenceNrElementsCount
  // raises it.
  std::int16_t ValidatingAirlineElementsCount() { return fares_.ValidatingAirlineElementsCount(); }
  std::int16_t AirSequenceNrElementsCount() { return fares_.AirSequenceNrElementsCount(); }

 private:
  ModuleState& state_;
  DisplayFares fares_;
};

}  // namespace wendrill
