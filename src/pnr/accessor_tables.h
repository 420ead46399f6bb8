// The tables of accessors, one table for each family of elements.
#pragma once

#include <span>

#include "pnr/accessor.h"

namespace wendrill {

// The keys under which accessors store an element's text and its element number, both in the type that the toolkit
// returns.
inline constexpr Key kElement = {u"strKeyElement", AsReturned(u"Text")};
inline constexpr Key kElementNr = {u"strKeyElementNr", AsReturned(u"ElementNo")};

std::span<const GetAccessor> AirSegmentAccessors();
std::span<const GetAccessor> CarAccessors();
std::span<const GetAccessor> HotelAccessors();
std::span<const GetAccessor> NameAndRemarkAccessors();  // names, remarks, contacts, addresses, options
std::span<const GetAccessor> FareAccessors();           // tickets, forms of payment, commissions

// The accessor of a member of IGet that reads a toolkit collection. Null for the member that reads the PNR's header and
// for a member that reads the display, because these members have no accessor.
const Accessor* CollectionAccessor(GetMember member);

// The accessor of the MIS elements, for CPNR::GetMISElement. IGet has no member for MIS elements.
const Accessor& MisAccessor();

}  // namespace wendrill
