// The kinds of the generic element access that are read from the toolkit's collections.
#pragma once

#include "pnr/accessor.h"

namespace wendrill {

extern const Accessor kAutoTicket;   // FA
extern const Accessor kEndorsement;  // FE
extern const Accessor kInsurance;    // INS
extern const Accessor kHotelLine;    // HTL

}  // namespace wendrill
