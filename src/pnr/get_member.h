// The members of the interface IGet.
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
  ValidatingAirlineElement,
  AirSequenceNrElement,
};

}  // namespace wendrill
