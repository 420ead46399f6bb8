#include "pnr/associations.h"

#include "common/numeric.h"

namespace wendrill {

std::ptrdiff_t ColumnBeforeDigit(TextView text, TextView mark) {
  std::ptrdiff_t column = ColumnOf(text, mark);
  while (column > 0 && !IsNumeric(Columns(text, column + std::ssize(mark), 1))) {
    column = ColumnOf(text, mark, column + 1);
  }
  return column;
}

TextView PassengerAssociation(TextView text, std::ptrdiff_t passengerColumn) {
  return passengerColumn == 0 ? TextView() : Trimmed(FromColumn(text, passengerColumn + std::ssize(kPassengerMark)));
}

TextView SegmentAssociation(TextView text, std::ptrdiff_t segmentColumn, std::ptrdiff_t passengerColumn) {
  if (segmentColumn == 0) {
    return {};
  }
  const std::ptrdiff_t first = segmentColumn + std::ssize(kSegmentMark);
  return passengerColumn == 0 ? Trimmed(FromColumn(text, first)) : Columns(text, first, passengerColumn - first);
}

}  // namespace wendrill
