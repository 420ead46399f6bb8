// The passenger and segment associations at the end of an element's text: /S3/P1.
#pragma once

#include <cstddef>

#include "common/text.h"

namespace wendrill {

inline constexpr TextView kPassengerMark = u"/P";
inline constexpr TextView kSegmentMark = u"/S";

// The first column of the mark that a digit follows directly; 0 when there is none.
std::ptrdiff_t ColumnBeforeDigit(TextView text, TextView mark);

// What follows the passenger mark at that column, trimmed; empty for column 0.
TextView PassengerAssociation(TextView text, std::ptrdiff_t passengerColumn);

// What follows the segment mark at that column: up to the passenger mark, as it stands, or to the end, trimmed, when
// there is none; empty for column 0. A passenger mark in front of the segment mark raises 5 (a negative length).
TextView SegmentAssociation(TextView text, std::ptrdiff_t segmentColumn, std::ptrdiff_t passengerColumn);

}  // namespace wendrill
