// Functions for the fare elements FV (validating airline) and FB (air sequence number).
#pragma once

#include "common/text.h"
#include "pnr/associations.h"

namespace wendrill {

// Whether the line has the fare code `code` ("FV" or "FB") in columns 5 and 6:
// 123456
//  12 FV
inline bool HasFareCode(TextView line, TextView code) {
  constexpr ColumnRange kCode = {5, 2};
  return Columns(line, kCode) == code;
}

// Stores the passenger association of a fare element in the record, then its segment association. When "/P" comes
// before "/S", raises 5 (invalid argument: a negative length) after the passenger association has been stored.
template <typename Record>
void StoreFareAssociations(TextView element, Record& record) {
  const std::ptrdiff_t passenger = ColumnOf(element, kPassengerMark);
  record.Set(u"strKeyPasAsso", PassengerAssociation(element, passenger));
  record.Set(u"strKeySegAsso", SegmentAssociation(element, ColumnOf(element, kSegmentMark), passenger));
}

}  // namespace wendrill
