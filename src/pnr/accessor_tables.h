// The tables of accessors, one for each family of elements.
#pragma once

#include <span>

#include "pnr/accessor.h"

namespace wendrill {

// The two keys of nearly every element.
inline constexpr Key kElement = {u"strKeyElement", AsReturned(u"Text")};
inline constexpr Key kElementNr = {u"strKeyElementNr", AsReturned(u"ElementNo")};

std::span<const GetAccessor> AirSegmentAccessors();
std::span<const GetAccessor> CarAccessors();
std::span<const GetAccessor> HotelAccessors();
std::span<const GetAccessor> NameAndRemarkAccessors();  // names, remarks, contacts, addresses, options
std::span<const GetAccessor> FareAccessors();           // tickets, forms of payment, commissions

// The accessor of a member that reads a toolkit collection; null for the others.
const Accessor* CollectionAccessor(GetMember member);

// Not a member of IGet: used by the generic element access only.
const Accessor& MisAccessor();

}  // namespace wendrill
