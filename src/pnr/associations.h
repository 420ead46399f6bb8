// The passenger association and the segment association at the end of an element's text: /S3/P1.
#pragma once

#include <cstddef>

#include "common/text.h"

namespace wendrill {

inline constexpr TextView kPassengerMark = u"/P";
inline constexpr TextView kSegmentMark = u"/S";

// The column (counted from 1) of the first `mark` that is directly followed by a digit; 0 when there is no such mark.
std::ptrdiff_t ColumnBeforeDigit(TextView text, TextView mark);

// The text after the passenger mark in column `passengerColumn`, trimmed; empty for column 0.
TextView PassengerAssociation(TextView text, std::ptrdiff_t passengerColumn);

// The text after the segment mark in column `segmentColumn`; empty for column 0. With a passenger mark the text ends
// before `passengerColumn` and is not trimmed. Without a passenger mark (`passengerColumn` 0) it ends at the end of the
// element and is trimmed. Raises 5 (a negative length) when the passenger mark is before the segment mark.
TextView SegmentAssociation(TextView text, std::ptrdiff_t segmentColumn, std::ptrdiff_t passengerColumn);

}  // namespace wendrill
