// Writes the records of a display: as one JSON object, or as rows of CSV. Also writes the JSON schema of these objects.
#pragma once

#include <set>
#include <string>
#include <string_view>

#include "records.h"

namespace wendrill::tool {

// The kinds of elements that are written; an empty set selects all kinds.
struct Selection {
  std::set<std::string, std::less<>> kinds = {};
  bool Has(std::string_view kind) const { return kinds.empty() || kinds.contains(kind); }
};

// Appends the display that `reader` read last, as one JSON object without line breaks. `id` is a JSON value.
void AppendObject(std::string& text, std::string_view id, RecordReader& reader, Keys keys, const Selection& selection);

// Appends the JSON object for a display that cannot be read. `id` is a JSON value.
void AppendError(std::string& text, std::string_view id, const Unreadable& error);

// CSV as in RFC 4180: lines end in CR LF, and fields are quoted where necessary. CsvHeading returns the line of the
// column names. AppendCsv appends one line for each element of the kind in the display that `reader` read last; `id` is
// a JSON value.
std::string CsvHeading(std::string_view kind, Keys keys);
void AppendCsv(std::string& text, std::string_view id, RecordReader& reader, Keys keys, std::string_view kind);

// The JSON schema, as text, of the objects with plain names.
std::string SchemaText();

}  // namespace wendrill::tool
