// The members of IGet that read the PNR object: each stores one segment or element of the current PNR under keys in a
// bag.
#pragma once

#include "common/module_state.h"
#include "common/param_bag.h"
#include "wendrill23_published.h"

namespace wendrill {

class PnrRecords {
 public:
  explicit PnrRecords(ModuleState& state) : state_(state) {}
  PnrRecords(const PnrRecords&) = delete;
  PnrRecords& operator=(const PnrRecords&) = delete;

  // Reads "intKeyIndex" (counted from 0; see IndexForm) and stores the keys of that element in the caller's bag, in the
  // order of the accessor's table. The bag keeps its value for a key that does not apply to the element. PNRHeader
  // reads no index: see StorePnrHeader in pnr/header.h.
  //
  // Raises the member's own number for an index at or above the kind's count. A negative index stores nothing, except
  // that CarSegment stores every key as "" or False. Any other failure propagates with its own number; the keys stored
  // before the failure stay in the bag. Raises 5 for a member that reads the display (scan/display_kinds.h).
  //
  // Intentional: ActiveAirSegments and FormOfPaymentElement return the caller's bag, all other members Nothing, as
  // published.
  ParamBagRef Get(GetMember member, const ParamBagRef& objParams);

 private:
  ModuleState& state_;
};

}  // namespace wendrill
