// The parts of an element on display that tie it to passengers ("/P1") and to segments ("/S3"), in either order.
#pragma once

#include <cstddef>

#include "common/text.h"
#include "pnr/associations.h"

namespace wendrill {

// Where the parts begin: columns from 1, 0 for a part that the element does not have.
struct AssociationColumns {
  std::ptrdiff_t passenger = 0;  // the first "/P"
  std::ptrdiff_t segment = 0;    // the first "/S" that a digit follows
};
AssociationColumns FindAssociations(TextView element);

// The same for special service requests and miscellaneous ticketing lines: without a "/P" the first ",P" is the
// passenger part, as in the seat list "/12A,P1/12B,P2".
AssociationColumns FindAssociationsOrListedPassengers(TextView element);

// What stands behind the mark in column `part` (0: nothing), up to the part in column `other` when that one stands
// behind; trimmed.
TextView AssociationPart(TextView element, std::ptrdiff_t part, std::ptrdiff_t other);

// The segment as special service requests and miscellaneous ticketing lines have it: beside a passenger part one or two
// digits, without one the whole rest; trimmed.
TextView SegmentOrRest(TextView element, const AssociationColumns& found);

}  // namespace wendrill
