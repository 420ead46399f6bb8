// What the scanners share: what a line means to a walk, and the two ways of counting the elements found.
#pragma once

#include <cstdint>
#include <optional>

#include "common/numeric.h"
#include "common/text.h"
#include "scan/element_arrays.h"

namespace wendrill {

// What the host prints where it waits for an entry.
inline constexpr TextView kPrompt = u"> ";

// A scan's result; nothing when the walk ended in a way that leaves no count.
using ScanCount = std::optional<std::int16_t>;

// Whether an empty line of this number may stand before a display's first text; a later one ends the walk of the kinds
// that ask.
constexpr bool MayBeginEmpty(std::int16_t number) {
  return number <= 2;
}

enum class LineMeaning {
  Element,    // an element starts here
  Other,      // the walk goes on
  End,        // the walk is complete
  Abandoned,  // the walk ends and leaves no count
};

enum class Counting {
  // An element is stored at the current count and counted when the walk moves on: the first stands at index 0.
  WhenMovingOn,
  // An element is counted, then stored at its number: the first stands at index 1, and index 0 of every array stays
  // empty. A getter's index runs from 0 to below the count, so that it reads nothing at 0 and never reaches the last
  // element: meant so.
  BeforeStoring,
};

// Walks over the lines and keeps the elements among them: `judge(line)` tells what a line means, `store(line, index)`
// cuts an element's fields out of its line into the arrays at that index. Lines is anything with Next(), the next line.
// 6 for more than 32,767 elements.
template <Counting counting, typename Lines, typename Judge, typename Store>
ScanCount ScanLines(Lines& lines, ElementArrays& arrays, Judge judge, Store store) {
  std::int16_t count = 0;
  for (;;) {
    const TextView line = lines.Next();
    const LineMeaning meaning = judge(line);
    if (meaning == LineMeaning::End) {
      return count;
    }
    if (meaning == LineMeaning::Abandoned) {
      return std::nullopt;
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
