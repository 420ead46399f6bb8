// The members of the toolkit's PNR object that the library identifies by DISPID.
#pragma once

#include <cstdint>

#include "toolkit/automation_object.h"

namespace wendrill {

inline constexpr Member kDefaultProperty = Member::Id(0);
inline constexpr Member kDisplayText = Member::Id(75);
inline constexpr Member kHeader = Member::Id(76);
inline constexpr Member kRetrieveOnDisplay = Member::Id(80);
inline constexpr Member kRetrieveByEntry = Member::Id(81);

// The DISPIDs of the properties that return the collections of elements of a PNR.
enum class Collection : std::int32_t {
  Names = 2,
  AirSegments = 7,
  FlownAirSegments = 9,
  OpenAirSegments = 13,
  CarSegments = 14,
  HotelSegments = 15,
  HTLElements = 17,
  BillingAddresses = 20,
  ConfidentialRemarks = 21,
  AutoTickets = 23,
  FareCommissions = 24,
  FEElements = 26,
  OriginalIssues = 30,
  FormsOfPayment = 37,
  MailingAddresses = 38,
  Options = 39,
  Contacts = 62,
  Tickets = 63,
  MISElements = 64,
  Remarks = 65,
  AllAirSegments = 78,
  INSElements = 93,
};

}  // namespace wendrill
