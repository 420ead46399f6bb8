// The table of sections, in the order of the output. A section is one kind of elements: the library's accessor that
// reads them, and the names of their fields.
#pragma once

#include <span>
#include <string_view>
#include <variant>
#include <vector>

#include "common/text.h"
#include "pnr/accessor.h"
#include "scan/display_kinds.h"

namespace wendrill::tool {

enum class FieldForm { Text, Flag, Day };

// A field of an element.
struct Field {
  TextView key;           // the library's name of the field
  std::string_view name;  // the plain name of the field
  FieldForm form;
};

// The source of elements for which the library has no accessor: number and text of each element of a collection.
struct NumberAndText {
  std::int32_t collection;  // the identifier of the collection
};

using Source = std::variant<const Accessor*, const DisplayKind*, NumberAndText>;

struct Section {
  std::string_view kind;    // the plain name, which --kind takes
  std::string_view member;  // the member of IGet, or the kind's name in IGetPNR.Elements; empty when there is neither
  bool isFare = false;      // whether the section is inside "fares" in the output with plain names
  bool ofElements = false;  // whether the section is inside "Elements" in the output with the library's names
  bool isPlain = true;      // whether the output with plain names has the section
  bool isBag = true;        // whether the output with the library's names has the section
  Source source = NumberAndText{0};
  TextView mark = {};  // for a source of the type DisplayKind: a display without this text has no element of the kind
  std::vector<Field> fields = {};  // in the order of the library's keys
};

// All sections with their fields, in the order of the output.
std::span<const Section> Sections();

// Whether `kind` is the plain name of a section.
bool IsKind(std::string_view kind);

}  // namespace wendrill::tool
