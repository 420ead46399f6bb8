// The members of the interface IGet that read the toolkit's PNR object; the two that read the display are in src/scan.
#pragma once

namespace wendrill {

// In the order of the interface.
enum class GetMember {
  ActiveAirSegments,
  AirSegments,
  AllAirSegments,
  BillingAddressElements,
  CarSegment,
  ConfidentialRemarkElements,
  ContactElements,
  FareCommissionElement,
  FlownAirSegments,
  FormOfPaymentElement,
  HotelSegment,
  MailingAddressElements,
  NameElement,
  OpenAirSegments,
  OptionElements,
  PNRHeader,
  RemarkElement,
  TicketElement,
};

}  // namespace wendrill
