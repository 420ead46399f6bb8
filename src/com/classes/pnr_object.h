// The automation class CPNR, which forwards to the core's PublishedPnr. CPNR implements three interfaces: its default
// interface _CPNR, IGet and IGetPNR.
#pragma once

#include "com/server/automation_class.h"
#include "scan/published_pnr.h"
#include "wendrill23_slots.h"

namespace wendrill::com {

// Returns the dispatch table of _CPNR. Late-bound callers find the members of IGet and IGetPNR in this table too.
template <>
const DispatchTable& TableOf<_CPNR>();

class CPNRObject final : public AutomationClass<CPNRObject, &CLSID_CPNR, _CPNR, _IGet, _IGetPNR> {
 public:
  using Core = PublishedPnr;

  CPNRObject() : core_(TheLibrary().state) {}

  Core& TheCore() { return core_; }

 private:
  PublishedPnr core_;
};

}  // namespace wendrill::com
