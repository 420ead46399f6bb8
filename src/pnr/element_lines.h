// The elements on display that begin with given keywords.
#pragma once

#include <string_view>

#include "common/value.h"

namespace wendrill {

struct ElementLines {
  TextArray texts;    // counted from 1
  TextArray numbers;  // the element numbers, beside the texts
};

// Every element line of the display, up to the first empty line, that begins behind its number (columns 1 to 4) with
// one of the prefixes, once for each prefix that it begins with. See CPNR::CollectElementLines. 6 (overflow) beyond
// line 32,767; 9 when the prefixes are counted from above 1.
ElementLines ElementLinesIn(std::u16string_view display, const TextArray& prefixes);

}  // namespace wendrill
