// Everything that a CPNR publishes, under the published names: its own members, the counts, and the members of IGet and
// IGetPNR. What each does is written where it is implemented.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "common/module_state.h"
#include "common/param_bag.h"
#include "pnr/counts.h"
#include "pnr/pnr.h"
#include "pnr/records.h"
#include "scan/display_scans.h"
#include "scan/elements_by_kind.h"

namespace wendrill {

class PublishedPnr {
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

  // --- Elements that the toolkit counts: see pnr/counts.h ------------------------------------------------------------

  std::int16_t NameElementsCount() { return Count(state_, CountOf::NameElements); }
  std::int16_t TicketElementsCount() { return Count(state_, CountOf::TicketElements); }
  std::int16_t RemarkElementsCount() { return Count(state_, CountOf::RemarkElements); }
  std::int16_t FormOfPaymentElementsCount() { return Count(state_, CountOf::FormOfPaymentElements); }
  std::int16_t HotelSegmentsCount() { return Count(state_, CountOf::HotelSegments); }
  std::int16_t FareCommissionElementsCount() { return Count(state_, CountOf::FareCommissionElements); }
  std::int16_t OpenAirSegmentsCount() { return Count(state_, CountOf::OpenAirSegments); }
  std::int16_t OrigianlIssueElementsCount() { return Count(state_, CountOf::OrigianlIssueElements); }
  std::int16_t AirSegmentsCount() { return Count(state_, CountOf::AirSegments); }
  std::int16_t ActiveAirSegmentsCount() { return Count(state_, CountOf::ActiveAirSegments); }
  std::int16_t INSElementsCount() { return Count(state_, CountOf::INSElements); }
  std::int16_t MISElementsCount() { return Count(state_, CountOf::MISElements); }
  std::int16_t MailingAddressElementsCount() { return Count(state_, CountOf::MailingAddressElements); }
  std::int16_t ContactElementsCount() { return Count(state_, CountOf::ContactElements); }
  std::int16_t ConfidentialRemarkElementsCount() { return Count(state_, CountOf::ConfidentialRemarkElements); }
  std::int16_t OptionElementsCount() { return Count(state_, CountOf::OptionElements); }
  std::int16_t BillingAddressElementsCount() { return Count(state_, CountOf::BillingAddressElements); }
  std::int16_t AllAirSegmentsCount() { return Count(state_, CountOf::AllAirSegments); }
  std::int16_t FlownAirSegmentsCount() { return Count(state_, CountOf::FlownAirSegments); }
  std::int16_t CarSegmentsCount() { return Count(state_, CountOf::CarSegments); }
  std::int16_t FEElementsCount() { return Count(state_, CountOf::FEElements); }
  std::int16_t AutoTktElementsCount() { return Count(state_, CountOf::AutoTktElements); }
  std::int16_t HTLElementsCount() { return Count(state_, CountOf::HTLElements); }

  // --- Elements that are counted in the display: see scan/display_kinds.h and display_scans.h ------------------------

  std::int16_t ValidatingAirlineElementsCount() { return scans_.Count(kValidatingAirlineElements); }
  std::int16_t AirSequenceNrElementsCount() { return scans_.Count(kAirSequenceNrElements); }
  std::int16_t SpecialServiceElementsCount() { return scans_.Count(kSpecialServiceElements); }
  std::int16_t OtherServiceElementsCount() { return scans_.Count(kOtherServiceElements); }
  std::int16_t SecurityElementsCount() { return scans_.Count(kSecurityElements); }
  std::int16_t ManualTktElementsCount() { return scans_.Count(kManualTktElements); }
  std::int16_t MiscTktInfoElementsCount() { return scans_.Count(kMiscTktInfoElements); }
  std::int16_t SURElementsCount() { return scans_.Count(kSURElements); }
  std::int16_t SPElementsCount() { return scans_.Count(kSPElements); }
  std::int16_t ATXSegmentsCount() { return scans_.Count(kATXSegments); }
  std::int16_t MCOElementsCount() { return scans_.Count(kMCOElements); }

  // --- IGet: see pnr/records.h and scan/display_scans.h --------------------------------------------------------------

  ParamBagRef ActiveAirSegments(const ParamBagRef& objParams) {
    return records_.Get(GetMember::ActiveAirSegments, objParams);
  }
  ParamBagRef AirSegments(const ParamBagRef& objParams) { return records_.Get(GetMember::AirSegments, objParams); }
  ParamBagRef AllAirSegments(const ParamBagRef& objParams) {
    return records_.Get(GetMember::AllAirSegments, objParams);
  }
  ParamBagRef BillingAddressElements(const ParamBagRef& objParams) {
    return records_.Get(GetMember::BillingAddressElements, objParams);
  }
  ParamBagRef CarSegment(const ParamBagRef& objParams) { return records_.Get(GetMember::CarSegment, objParams); }
  ParamBagRef ConfidentialRemarkElements(const ParamBagRef& objParams) {
    return records_.Get(GetMember::ConfidentialRemarkElements, objParams);
  }
  ParamBagRef ContactElements(const ParamBagRef& objParams) {
    return records_.Get(GetMember::ContactElements, objParams);
  }
  ParamBagRef FareCommissionElement(const ParamBagRef& objParams) {
    return records_.Get(GetMember::FareCommissionElement, objParams);
  }
  ParamBagRef FlownAirSegments(const ParamBagRef& objParams) {
    return records_.Get(GetMember::FlownAirSegments, objParams);
  }
  ParamBagRef FormOfPaymentElement(const ParamBagRef& objParams) {
    return records_.Get(GetMember::FormOfPaymentElement, objParams);
  }
  ParamBagRef HotelSegment(const ParamBagRef& objParams) { return records_.Get(GetMember::HotelSegment, objParams); }
  ParamBagRef MailingAddressElements(const ParamBagRef& objParams) {
    return records_.Get(GetMember::MailingAddressElements, objParams);
  }
  ParamBagRef NameElement(const ParamBagRef& objParams) { return records_.Get(GetMember::NameElement, objParams); }
  ParamBagRef OpenAirSegments(const ParamBagRef& objParams) {
    return records_.Get(GetMember::OpenAirSegments, objParams);
  }
  ParamBagRef OptionElements(const ParamBagRef& objParams) {
    return records_.Get(GetMember::OptionElements, objParams);
  }
  ParamBagRef PNRHeader(const ParamBagRef& objParams) { return records_.Get(GetMember::PNRHeader, objParams); }
  ParamBagRef RemarkElement(const ParamBagRef& objParams) { return records_.Get(GetMember::RemarkElement, objParams); }
  ParamBagRef TicketElement(const ParamBagRef& objParams) { return records_.Get(GetMember::TicketElement, objParams); }
  ParamBagRef ValidatingAirlineElement(const ParamBagRef& objParams) {
    return scans_.Get(kValidatingAirlineElements, objParams);
  }
  ParamBagRef AirSequenceNrElement(const ParamBagRef& objParams) {
    return scans_.Get(kAirSequenceNrElements, objParams);
  }

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
