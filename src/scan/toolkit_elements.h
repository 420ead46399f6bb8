// The accessors for the kinds of elements that IGetPNR::Elements reads from the toolkit's collections, not from the
// display.
#pragma once

#include "pnr/accessor.h"

namespace wendrill {

extern const Accessor kAutoTicket;   // FA: automatic tickets
extern const Accessor kEndorsement;  // FE: endorsements
extern const Accessor kInsurance;    // INS: insurance elements
extern const Accessor kHotelLine;    // HTL: hotel lines

}  // namespace wendrill
