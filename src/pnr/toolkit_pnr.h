// The current PNR object as the toolkit exposes it: its members are known by dispatch identifiers.
#pragma once

#include <cstdint>
#include <string>

#include "common/module_state.h"
#include "common/value.h"
#include "toolkit/automation_object.h"

namespace wendrill {

inline constexpr Member kDefaultProperty = Member::Id(0);
inline constexpr Member kDisplayText = Member::Id(75);
inline constexpr Member kHeader = Member::Id(76);

// The collections of elements, by their dispatch identifiers.
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

// The current PNR object. Raises 91 when there is no PNR object.
ObjectRef ToolkitPnr(const ModuleState& state);

// These functions read the current PNR object on each call. They raise the errors of ToolkitPnr and of the toolkit.
std::u16string DisplayText(const ModuleState& state);
ObjectRef HeaderObject(const ModuleState& state);
ObjectRef CollectionObject(const ModuleState& state, Collection collection);

}  // namespace wendrill
