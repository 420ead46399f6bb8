// The parts of a record, in the order in which they are written: which of the library's accessors reads each, and the
// names of its fields.
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

// One field under its plain name; in the order of the library's keys.
struct Field {
  TextView key;           // the library's
  std::string_view name;  // the plain one
  FieldForm form;
};

// An element without an accessor of its own: its number and text.
struct NumberAndText {
  std::int32_t collection;
};

using Source = std::variant<const Accessor*, const DisplayKind*, NumberAndText>;

struct Section {
  std::string_view kind;    // the plain name, which --kind takes
  std::string_view member;  // the member of IGet, or the name of a kind of Elements
  bool isFare = false;      // plain: within "fares"
  bool ofElements = false;  // library's names: within "Elements"
  bool isPlain = true;      // whether plain records have it; else only those with the library's names
  bool isBag = true;        // the other way round
  Source source = NumberAndText{0};
  TextView mark = {};  // of a kind read from the display: without this text the display has no such element
  std::vector<Field> fields = {};
};

// All sections, with their fields filled in.
std::span<const Section> Sections();

// Whether `kind` is the plain name of a section.
bool IsKind(std::string_view kind);

}  // namespace wendrill::tool
