// How many elements of each kind the current PNR holds, as the toolkit counts them.
#pragma once

#include <cstdint>

#include "common/module_state.h"

namespace wendrill {

// The count properties of CPNR without their ending "Count".
enum class CountOf {
  NameElements,
  TicketElements,
  RemarkElements,
  FormOfPaymentElements,
  HotelSegments,
  FareCommissionElements,
  OpenAirSegments,
  OrigianlIssueElements,  // the published spelling
  AirSegments,
  ActiveAirSegments,
  INSElements,
  MISElements,
  MailingAddressElements,
  ContactElements,
  ConfidentialRemarkElements,
  OptionElements,
  BillingAddressElements,
  AllAirSegments,
  FlownAirSegments,
  CarSegments,
  FEElements,
  AutoTktElements,
  HTLElements,
};

// The count, asked anew at every call. 91 without a PNR, 6 for a count beyond 16 bits, 13 for a group line whose number
// of names cannot be read; a failing toolkit call reaches the caller unchanged.
std::int16_t Count(ModuleState& state, CountOf kind);

}  // namespace wendrill
