#include "scan/association_parts.h"

namespace wendrill {
namespace {

constexpr TextView kListedPassengerMark = u",P";

// The columns of an association part: the mark in columns 1 and 2, then the number of a segment or a passenger.
// 1234
// /S12
// /P1
// ,P1
constexpr std::ptrdiff_t kMarkWidth = std::ssize(kSegmentMark);
constexpr std::ptrdiff_t kMostSegmentDigits = 2;

}  // namespace

AssociationColumns FindAssociations(TextView element) {
  return {.passenger = ColumnOf(element, kPassengerMark), .segment = ColumnBeforeDigit(element, kSegmentMark)};
}

AssociationColumns FindAssociationsOrListedPassengers(TextView element) {
  AssociationColumns found = FindAssociations(element);
  if (found.passenger == 0) {
    found.passenger = ColumnOf(element, kListedPassengerMark);
  }
  return found;
}

TextView AssociationPart(TextView element, std::ptrdiff_t part, std::ptrdiff_t other) {
  if (part == 0) {
    return {};
  }
  const TextView upToOther = other > part ? FirstColumns(element, other - 1) : element;
  return Trimmed(FromColumn(upToOther, part + kMarkWidth));
}

TextView SegmentOrRest(TextView element, const AssociationColumns& found) {
  if (found.segment == 0 || found.passenger == 0) {
    return AssociationPart(element, found.segment, 0);
  }
  const TextView digits = Trimmed(Columns(element, found.segment + kMarkWidth, kMostSegmentDigits));
  return std::ssize(digits) == kMostSegmentDigits && !IsDigit(digits.back()) ? FirstColumns(digits, 1) : digits;
}

}  // namespace wendrill
