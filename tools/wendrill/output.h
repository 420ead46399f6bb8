// Writes what was read from a display: an object of JSON, or rows of CSV.
#pragma once

#include <set>
#include <string>
#include <string_view>

#include "records.h"

namespace wendrill::tool {

// Which kinds of elements are written: all, unless some are named.
struct Selection {
  std::set<std::string, std::less<>> kinds = {};
  bool Has(std::string_view kind) const { return kinds.empty() || kinds.contains(kind); }
};

// One object without a line break, of the display that `reader` read last. `id` is JSON.
void AppendObject(std::string& text, std::string_view id, RecordReader& reader, Keys keys, const Selection& selection);

// The object of a display that cannot be read.
void AppendError(std::string& text, std::string_view id, const Unreadable& error);

// CSV as RFC 4180 has it: lines ended by CR LF, a field in quotes where it needs them. The first line has the names.
std::string CsvHeading(std::string_view kind, Keys keys);
void AppendCsv(std::string& text, std::string_view id, RecordReader& reader, Keys keys, std::string_view kind);

// The JSON schema of the objects, as text.
std::string SchemaText();

}  // namespace wendrill::tool
