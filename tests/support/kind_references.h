// What the tests, the benchmarks and the fuzz targets know of a display kind beside its row.
#pragma once

#include <ostream>

#include "scan/display_kinds.h"
#include "support/reference_scanners.h"

namespace wendrill {

// Names the kind in the name of a parameterised test.
inline void PrintTo(const DisplayKind* kind, std::ostream* out) {
  *out << kind->Name();
}

}  // namespace wendrill

namespace wendrill::testing {

struct KindReference {
  const DisplayKind* kind;
  ReferenceScan (*scan)(const ReadDisplay& read);
  const char16_t* element;  // a line with an element of the kind
  bool isReadInRows;        // whether elements are found by positions, which line breaks would shift
};

// Ends the program for a kind without a reference.
const KindReference& ReferenceOf(const DisplayKind& kind);

// The lines of a display as the elements of a PNR object's collection: the number up to the first "|", the text after
// it.
std::vector<ReferenceElement> ElementsIn(std::u16string_view display);

}  // namespace wendrill::testing
