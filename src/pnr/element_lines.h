// Searches a display for the elements that begin with given keywords.
#pragma once

#include <string_view>

#include "common/value.h"

namespace wendrill {

struct ElementLines {
  TextArray texts;    // an array that counts from 1
  TextArray numbers;  // the element number of each text; an array that counts from 1
};

// The elements of the display whose text begins with one of the prefixes. The text follows the element number (columns
// 1 to 4). The search ends at the first empty line. An element is returned once for each prefix with which it begins.
// CPNR::CollectElementLines documents the prefixes and the continuation lines. Raises 6 (overflow) beyond line 32,767,
// and 9 when `prefixes` is not empty and its lower bound is above 1.
ElementLines ElementLinesIn(std::u16string_view display, const TextArray& prefixes);

}  // namespace wendrill
