// The passenger association and the segment association at the end of an element's text: /S3/P1.
#pragma once

#include <cstddef>

#include "common/text.h"

namespace wendrill {

inline constexpr TextView kPassengerMark = u"/P";
inline constexpr TextView kSegmentMark = u"/S";

// The column (counted from 1) of the first `mark` that a digit directly follows; 0 when the text has no such mark.
std::ptrdiff_t ColumnBeforeDigit(TextView text, TextView mark);

// The text after the passenger mark "/P" in column `passengerColumn`, trimmed; empty when `passengerColumn` is 0.
TextView PassengerAssociation(TextView text, std::ptrdiff_t passengerColumn);

// The text after the segment mark "/S" in column `segmentColumn`; empty when `segmentColumn` is 0. When
// `passengerColumn` is not 0, the text ends before this column and is not trimmed. When `passengerColumn` is 0, the
// text ends at the end of the element and is trimmed. Raises 5 (invalid argument: a negative length) when the passenger
// mark is before the segment mark.
TextView SegmentAssociation(TextView text, std::ptrdiff_t segmentColumn, std::ptrdiff_t passengerColumn);

}  // namespace wendrill
