// The code that the scanners share: the loop over the lines of a display, the meanings of a line, and the two ways of
// counting elements.
#pragma once

#include <cstdint>

#include "common/numeric.h"
#include "common/text.h"
#include "scan/element_arrays.h"

namespace wendrill {

// Whether the scans of ATX segments and split-party lines continue after an empty line with the number `number`
// (counted from 1). True for lines 1 and 2, because displays may begin with empty lines. False for any later empty
// line, which ends these scans.
constexpr bool MayBeginEmpty(std::int16_t number) {
  return number <= 2;
}

enum class LineMeaning {
  Element,    // an element begins on this line
  Other,      // the line contains no element; the scan continues
  End,        // the scan ends with the number of elements stored
  Abandoned,  // the scan ends with the count 0, even if elements have been stored
};

enum class Counting {
  // An element is stored at the index `count`, and then `count` is incremented: the first element has index 0.
  WhenMovingOn,
  // `count` is incremented first, and then the element is stored at the index `count`: the first element has index 1,
  // the last has the index `count`, and index 0 of every array stays empty.
  //
  // Intentional: DisplayScans::PositionAskedFor treats these kinds like all others. It accepts an index that is below
  // the count, and rounds the index only afterwards. The consequences for a caller, with 4 elements:
  //   - The index 0 gives an empty element.
  //   - The indexes 1 to 3 give the first three elements.
  //   - The index 4 is rejected. The last element is reached only with a fraction, such as 3.6, which is below 4 and is
  //     then rounded to 4.
  //   - A negative index is accepted too, because only the upper bound is checked. ElementArrays::At rejects it with 9
  //     (index out of range).
  BeforeStoring,
};

// Reads line after line and stores the elements in `arrays`. Returns the number of elements; 0 when a line means
// Abandoned. `judge(line)` returns the meaning of a line. `store(line, index)` cuts the fields of an element out of
// `line` and stores them in the arrays at `index`. Lines is any class with a function Next() that returns the next
// line. Raises 6 (overflow) for more than 32,767 elements. Errors of Next, `judge` and `store` propagate.
template <Counting counting, typename Lines, typename Judge, typename Store>
std::int16_t ScanLines(Lines& lines, ElementArrays& arrays, Judge judge, Store store) {
  std::int16_t count = 0;
  for (;;) {
    const TextView line = lines.Next();
    const LineMeaning meaning = judge(line);
    if (meaning == LineMeaning::End) {
      return count;
    }
    if (meaning == LineMeaning::Abandoned) {
      return 0;
    }
    if (meaning == LineMeaning::Element) {
      if constexpr (counting == Counting::BeforeStoring) {
        count = Add16(count, 1);
      }
      arrays.GrowTo(count);
      store(line, count);
      if constexpr (counting == Counting::WhenMovingOn) {
        count = Add16(count, 1);
      }
    }
  }
}

}  // namespace wendrill
