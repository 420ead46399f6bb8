// Searches a display for the elements that begin with given keywords.
#pragma once

#include <string_view>

#include "common/value.h"

namespace wendrill {

struct ElementLines {
  TextArray texts;    // the texts of the elements; the array counts from 1
  TextArray numbers;  // the element number of each text; the array counts from 1
};

// The elements of the display whose text, from column 5 on, begins with one of the prefixes. Columns 1 to 4 contain the
// element number. The search ends at the first empty line. An element that begins with several of the prefixes is
// returned once for each of these prefixes. CPNR::CollectElementLines documents the prefixes and the continuation
// lines. Raises 6 (overflow) beyond line 32,767, and 9 (index out of range) when `prefixes` is not empty and its lower
// bound is above 1.
ElementLines ElementLinesIn(std::u16string_view display, const TextArray& prefixes);

}  // namespace wendrill
