// The parts of an element's text that associate it with passengers ("/P1") and segments ("/S3"), in either order.
#pragma once

#include <cstddef>

#include "common/text.h"
#include "pnr/associations.h"

namespace wendrill {

// The columns (counted from 1) at which the parts begin; 0 for a part that the element does not have.
struct AssociationColumns {
  std::ptrdiff_t passenger = 0;  // the first "/P"
  std::ptrdiff_t segment = 0;    // the first "/S" followed by a digit
};
AssociationColumns FindAssociations(TextView element);

// The same for special service requests and miscellaneous ticketing lines, in which the first ",P" is the passenger
// part when there is no "/P", as in the seat list "/12A,P1/12B,P2".
AssociationColumns FindAssociationsOrListedPassengers(TextView element);

// The text after the mark in column `part`, up to the part in column `other` when that part comes later; trimmed. Empty
// when `part` is 0.
TextView AssociationPart(TextView element, std::ptrdiff_t part, std::ptrdiff_t other);

// The segment association of special service requests and miscellaneous ticketing lines: one or two digits when the
// element has a passenger part, else the whole rest of the text; trimmed.
TextView SegmentOrRest(TextView element, const AssociationColumns& found);

}  // namespace wendrill
