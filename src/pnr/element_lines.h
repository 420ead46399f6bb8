// The elements of a display that begin with given keywords.
#pragma once

#include <string_view>

#include "common/value.h"

namespace wendrill {

struct ElementLines {
  TextArray texts;    // counted from 1
  TextArray numbers;  // counted from 1: the element number for each text
};

// Every element line of the display, up to the first empty line, whose text after the element number (columns 1 to 4)
// begins with one of the prefixes. A line appears once for each prefix that it begins with. See
// CPNR::CollectElementLines. Raises 6 (overflow) beyond line 32,767, 9 when the lower bound of `prefixes` is above 1.
ElementLines ElementLinesIn(std::u16string_view display, const TextArray& prefixes);

}  // namespace wendrill
