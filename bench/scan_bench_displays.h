// What the scanners are measured on.
#pragma once

#include <memory>
#include <string>

#include "common/value.h"
#include "scan/display_kinds.h"

namespace wendrill::bench {

enum class Hits {
  None,         // no line is an element of the kind
  EveryFourth,  // one line in four is
};

// A display of that many rows of 80 columns, each ended by CR LF; it runs out into an empty line.
std::u16string DisplayOf(const DisplayKind& kind, Hits hits, int rows);

// A PNR that is nothing but that display: it hands a copy out at every read, as a component does. Its element
// collection has an element for every row.
ObjectRef PnrOf(std::u16string display);

}  // namespace wendrill::bench
