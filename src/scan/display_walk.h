// What the scanners share: the loop over the lines, what a line means to it, and the two ways of counting elements.
#pragma once

#include <cstdint>

#include "common/numeric.h"
#include "common/text.h"
#include "scan/element_arrays.h"

namespace wendrill {

// Whether a line with this number may be empty without ending the scan, because displays may begin with empty lines.
// Used by the kinds whose scan any later empty line ends.
constexpr bool MayBeginEmpty(std::int16_t number) {
  return number <= 2;
}

enum class LineMeaning {
  Element,    // an element starts here
  Other,      // the scan goes on
  End,        // the scan is complete
  Abandoned,  // the scan ends with the count 0, whatever has been stored
};

enum class Counting {
  // An element is stored at the index `count` and counted when the scan moves on: the first element has index 0.
  WhenMovingOn,
  // An element is counted first: the first element has index 1, and index 0 of every array stays empty. Intentional: a
  // getter accepts indexes from 0 to count - 1, so that it reads an empty element at 0 and never reaches the last one.
  BeforeStoring,
};

// Reads line after line and stores the elements among them. `judge(line)` returns what a line means; `store(line,
// index)` cuts an element's fields out of its line and stores them in the arrays at that index. Lines is any class with
// Next(), which returns the next line. Raises 6 for more than 32,767 elements.
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
