// The displays on which the scanners are measured.
#pragma once

#include <memory>
#include <string>

#include "common/value.h"
#include "scan/display_kinds.h"

namespace wendrill::bench {

enum class Hits {
  None,         // no line is an element of the kind
  EveryFourth,  // every fourth line is an element of the kind
};

// A display of `rows` rows of 80 columns. Each row ends in CR LF, the last one too; the display of a kind whose
// elements are found by position has no line breaks.
std::u16string DisplayOf(const DisplayKind& kind, Hits hits, int rows);

// A PNR object with the given display and an element collection, which has an element for each row. Each read of the
// display text returns a copy, as with a component of the terminal. All other members are not supported.
ObjectRef PnrOf(std::u16string display);

}  // namespace wendrill::bench
