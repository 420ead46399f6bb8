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

  // Reads "intKeyIndex" (counted from 0; IndexForm says how) and writes the element's keys into the caller's bag in
  // their order; keys that do not apply keep what the bag held. An index at or beyond the kind's count raises the
  // member's own number; a negative one stores nothing (CarSegment: every key empty; the two kinds read from the
  // display: 9). Any other failure arrives with its own number, and the keys stored before it stay. ActiveAirSegments
  // and FormOfPaymentElement return the caller's bag, the others Nothing: meant so.
  ParamBagRef Get(GetMember member, const ParamBagRef& objParams);

  // Scan the display anew. The first is 0 when anything fails on the way, the second passes the failure on.
  std::int16_t ValidatingAirlineElementsCount() { return fares_.ValidatingAirlineElementsCount(); }
  std::int16_t AirSequenceNrElementsCount() { return fares_.AirSequenceNrElementsCount(); }

 private:
  ModuleState& state_;
  DisplayFares fares_;
};

}  // namespace wendrill
