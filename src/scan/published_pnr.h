// All published members of CPNR under their published names: the members that the core class CPNR implements, the
// counts, and the members of IGet and IGetPNR. Each member is documented in the file that implements it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "common/module_state.h"
#include "common/param_bag.h"
#include "pnr/pnr.h"
#include "pnr/records.h"
#include "scan/display_scans.h"
#include "scan/elements_by_kind.h"
#include "wendrill23_published.h"

namespace wendrill {

class PublishedPnr : public PublishedMembers<PublishedPnr> {
 public:
  // `state` must outlive this object.
  explicit PublishedPnr(ModuleState& state)
      : state_(state), pnr_(state), records_(state), scans_(state), elements_(state, pnr_, scans_) {}
  PublishedPnr(const PublishedPnr&) = delete;
  PublishedPnr& operator=(const PublishedPnr&) = delete;

  // --- CPNR: see pnr/pnr.h ------------------------------------------------------------------------------------------

  const std::u16string& Command() const { return pnr_.Command(); }
  void SetCommand(std::u16string_view strCommand) { pnr_.SetCommand(strCommand); }
  ObjectRef PNR() const { return pnr_.PNR(); }
  void SetPNR(const ObjectRef& objPNR) { pnr_.SetPNR(objPNR); }
  std::u16string Text() { return pnr_.Text(); }
  std::u16string RecordLocator() { return pnr_.RecordLocator(); }
  std::u16string CreationOfficeID() { return pnr_.CreationOfficeID(); }
  std::u16string CreationAgentSign() { return pnr_.CreationAgentSign(); }
  std::u16string CreationDate() { return pnr_.CreationDate(); }

  // --- The counts, and IGet: see pnr/counts.h, pnr/records.h and scan/display_scans.h --------------------------------

  // Count and Get use DisplayScans for the kinds of kDisplayKinds. For all other kinds, Count calls wendrill::Count,
  // and Get calls PnrRecords. The base class PublishedMembers has one function for each published count, which calls
  // Count, and one function for each published member of IGet, which calls Get.
  std::int16_t Count(CountOf kind);
  ParamBagRef Get(GetMember member, const ParamBagRef& objParams);

  // --- IGetPNR: see scan/elements_by_kind.h --------------------------------------------------------------------------

  ParamBagRef Elements(const ParamBagRef& objParams) { return elements_.Elements(objParams); }

 private:
  ModuleState& state_;
  CPNR pnr_;
  PnrRecords records_;
  DisplayScans scans_;
  PnrElements elements_;
};

}  // namespace wendrill
