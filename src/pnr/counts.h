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

// The count, read from the toolkit on each call. Raises 91 without a PNR, 6 for a count that 16 bits do not hold, 13
// for a group line whose number of names cannot be read. An error of the toolkit propagates unchanged.
std::int16_t Count(ModuleState& state, CountOf kind);

}  // namespace wendrill
