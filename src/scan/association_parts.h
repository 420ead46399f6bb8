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
  std::ptrdiff_t passenger = 0;  // the first "/P"
  std::ptrdiff_t segment = 0;    // the first "/S" followed by a digit
};
AssociationColumns FindAssociations(TextView element);

// FindAssociations for the elements that may list their passengers: special service requests and miscellaneous
// ticketing lines. When the element has no "/P", its passenger part begins at the first ",P", as in the seat list
// "/12A,P1/12B,P2".
AssociationColumns FindAssociationsOrListedPassengers(TextView element);

// The text of the association part that begins in column `part`, after the mark, trimmed; empty when `part` is 0.
// `other` is the column of the other part. The text ends before the other part when that part comes later, else at the
// end of the element.
TextView AssociationPart(TextView element, std::ptrdiff_t part, std::ptrdiff_t other);

// The segment association of a special service request or a miscellaneous ticketing line, trimmed; empty when the
// element has no segment part. When the element also has a passenger part, the association is one or two digits. Else
// it is the whole rest of the text.
TextView SegmentOrRest(TextView element, const AssociationColumns& found);

}  // namespace wendrill
