// The passenger and segment associations at the end of an element's text: /S3/P1.
#pragma once

#include <cstddef>

#include "common/text.h"

namespace wendrill {

inline constexpr TextView kPassengerMark = u"/P";
inline constexpr TextView kSegmentMark = u"/S";

// The column of the first `mark` that is directly followed by a digit; 0 when there is no such mark.
std::ptrdiff_t ColumnBeforeDigit(TextView text, TextView mark);

// The text after the passenger mark at that column, trimmed; empty for column 0.
TextView PassengerAssociation(TextView text, std::ptrdiff_t passengerColumn);

// The text after the segment mark at that column: up to the passenger mark and not trimmed, or, without a passenger
// mark, up to the end and trimmed; empty for column 0. Raises 5 (a negative length) when the passenger mark is before
// the segment mark.
TextView SegmentAssociation(TextView text, std::ptrdiff_t segmentColumn, std::ptrdiff_t passengerColumn);

}  // namespace wendrill
