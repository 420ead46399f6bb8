// What the fare elements FV and FB share.
#pragma once

#include "common/text.h"
#include "pnr/associations.h"

namespace wendrill {

// 123456
//  12 FV
inline bool HasFareCode(TextView line, TextView code) {
  constexpr ColumnRange kCode = {5, 2};
  return Columns(line, kCode) == code;
}

// Stores the associations in the record, the passenger association first. Raises 5, without storing the segment
// association, when the passenger association comes before the segment association.
template <typename Record>
void StoreFareAssociations(TextView element, Record& record) {
  const std::ptrdiff_t passenger = ColumnOf(element, kPassengerMark);
  record.Set(u"strKeyPasAsso", PassengerAssociation(element, passenger));
  record.Set(u"strKeySegAsso", SegmentAssociation(element, ColumnOf(element, kSegmentMark), passenger));
}

}  // namespace wendrill
