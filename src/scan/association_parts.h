// The parts of an element's text that link the element to passengers ("/P1") and to segments ("/S3"). The two parts may
// be in either order.
#pragma once

#include <cstddef>

#include "common/text.h"
#include "pnr/associations.h"

namespace wendrill {

// The columns (counted from 1) at which the two association parts of an element begin. A column is 0 when the element
// does not have that part.
struct AssociationColumns {
  // The first "/P". In the result of FindAssociationsOrListedPassengers for an element without "/P": the first ",P".
  std::ptrdiff_t passenger = 0;
  std::ptrdiff_t segment = 0;  // the first "/S" followed by a digit
};
AssociationColumns FindAssociations(TextView element);

// Finds the association parts of an element that may list its passengers: a special service request or a miscellaneous
// ticketing line. When the element has no "/P", its passenger part begins at the first ",P", as in the seat list
// "/12A,P1/12B,P2".
AssociationColumns FindAssociationsOrListedPassengers(TextView element);

// Returns the text of one association part of `element` without the two characters of its mark, trimmed: "3" for "/S3".
// Empty when `part` is 0. `part` is the column at which this part begins. `other` is the column at which the element's
// other association part begins; 0 when the element has no other part. The text ends before column `other` when `other`
// is greater than `part`, and at the end of the element when `other` is smaller.
TextView AssociationPart(TextView element, std::ptrdiff_t part, std::ptrdiff_t other);

// Returns the segment association of a special service request or a miscellaneous ticketing line, trimmed; empty when
// the element has no segment part. When the element also has a passenger part, the result is the one or two digits
// after the segment mark. Without a passenger part, the result is the whole text after the segment mark.
TextView SegmentOrRest(TextView element, const AssociationColumns& found);

}  // namespace wendrill
