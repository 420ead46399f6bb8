// The tables of accessors, one table for each family of elements.
#pragma once

#include <span>

#include "pnr/accessor.h"

namespace wendrill {

// The two keys that nearly every element has.
inline constexpr Key kElement = {u"strKeyElement", AsReturned(u"Text")};
inline constexpr Key kElementNr = {u"strKeyElementNr", AsReturned(u"ElementNo")};

std::span<const GetAccessor> AirSegmentAccessors();
std::span<const GetAccessor> CarAccessors();
std::span<const GetAccessor> HotelAccessors();
std::span<const GetAccessor> NameAndRemarkAccessors();  // names, remarks, contacts, addresses, options
std::span<const GetAccessor> FareAccessors();           // tickets, forms of payment, commissions

// The accessor of a member of IGet that reads a toolkit collection; null for PNRHeader and for a member that reads the
// display.
const Accessor* CollectionAccessor(GetMember member);

// The accessor of the MIS elements. IGet has no member for it; CPNR::GetMISElement uses it.
const Accessor& MisAccessor();

}  // namespace wendrill
