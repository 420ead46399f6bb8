// The members of IGet that read the PNR object: each member stores the values of one segment or element of the current
// PNR in a parameter bag.
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

  // Reads "intKeyIndex" (counted from 0; see IndexForm) and stores the values of the element at this index in the
  // caller's bag, in the order of the accessor's keys. Under a key that does not apply to the element, the bag keeps
  // the value that it had before the call. PNRHeader reads no index: see StorePnrHeader in pnr/header.h.
  //
  // Raises the member's own number for an index at or above the count of the kind. When the index is below the count
  // but no element has the index, as for a negative index, CarSegment stores "" or False under each of its keys, and
  // every other member stores nothing. Raises 5 (invalid argument) for a member that reads the display
  // (scan/display_kinds.h). Any other failure propagates with its own number; keys that were stored before the failure
  // stay in the bag.
  //
  // Intentional: only ActiveAirSegments and FormOfPaymentElement return the caller's bag. All other members return
  // Nothing. The members are published with these different results.
  ParamBagRef Get(GetMember member, const ParamBagRef& objParams);

 private:
  ModuleState& state_;
};

}  // namespace wendrill
