// The tables of accessors, one for each family of elements.
#pragma once

#include <span>

#include "pnr/accessor.h"

namespace wendrill {

std::span<const GetAccessor> AirSegmentAccessors();
std::span<const GetAccessor> CarAccessors();
std::span<const GetAccessor> HotelAccessors();
std::span<const GetAccessor> NameAndRemarkAccessors();  // names, remarks, contacts, addresses, options
std::span<const GetAccessor> FareAccessors();           // tickets, forms of payment, commissions

// Not a member of IGet: the generic element access uses it.
const Accessor& MisAccessor();

}  // namespace wendrill
