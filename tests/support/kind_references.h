// The reference scanner and an example element for each display kind, for tests, benchmarks and fuzz targets.
#pragma once

#include <ostream>

#include "scan/display_kinds.h"
#include "support/reference_scanners.h"

namespace wendrill {

// Prints the kind's name where GoogleTest prints the parameter of a test.
inline void PrintTo(const DisplayKind* kind, std::ostream* out) {
  *out << kind->Name();
}

}  // namespace wendrill

namespace wendrill::testing {

struct KindReference {
  const DisplayKind* kind;
  ReferenceScan (*scan)(const ReadDisplay& read);
  const char16_t* element;  // an example: a line with an element of the kind
  bool isReadInRows;        // whether the scan finds elements by their positions in rows of 80, without line breaks
};

// The reference for a kind. Aborts the program when the kind has no reference.
const KindReference& ReferenceOf(const DisplayKind& kind);

// Converts the lines of a display to the elements of a PNR object's collection. In each line, the element number
// precedes the first "|" and the text follows it. A line without "|" is the text of an element whose number is empty.
std::vector<ReferenceElement> ElementsIn(std::u16string_view display);

}  // namespace wendrill::testing
