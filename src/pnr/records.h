// One segment or element of the current PNR as a keyed record: the members of IGet that read the PNR object.
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

  // Reads "intKeyIndex" (counted from 0; see IndexForm) and stores the element's keys in the caller's bag in their
  // order; a key that does not apply keeps its value. Raises the member's own number for an index at or above the
  // kind's count. A negative index stores nothing, except that CarSegment stores every key empty. Any other failure
  // propagates with its own number, and the keys stored before it stay in the bag. Raises 5 for a member that reads the
  // display (scan/display_kinds.h). Intentional: two members, whose rows say so, return the caller's bag, the others
  // Nothing, as published.
  ParamBagRef Get(GetMember member, const ParamBagRef& objParams);

 private:
  ModuleState& state_;
};

}  // namespace wendrill
