// Security entries: a block that begins with the line "  * ES/".
#include <algorithm>

#include "pnr/numbered_lines.h"
#include "scan/scanners.h"

namespace wendrill {
namespace {

using Record = ElementRecord<kSecurityKeys>;

constexpr TextView kMarker = u"  * ES/";
constexpr std::int16_t kMostEntries = 5;

// The line with the marker; empty when the display ends before it, at the prompt or with its text. Empty lines in front
// of it are passed over.
TextView FindMarkedLine(NumberedLines& lines) {
  while (!lines.AtEnd()) {
    const TextView line = lines.Next();
    if (Contains(line, kPrompt)) {
      return {};
    }
    if (StartsWith(TrimmedRight(line), kMarker)) {
      return line;
    }
  }
  return {};
}

// The kind alone that is counted after storing; the first entry stands at index 0 like those counted on moving on.
void Store(TextView entry, std::int16_t& count, ElementArrays& arrays) {
  arrays.GrowTo(count);
  Record record(arrays, count);
  record.Set(u"strKeyAccessMode", Trimmed(FirstColumns(entry, 1)));
  record.Set(u"strKeyOfficeID", Trimmed(FromColumn(entry, 3)));
  record.Set(u"strKeyItem", Trimmed(FromColumn(entry, 10)));
  ++count;
}

// An entry a line: the line with the marker is the first, whole as it stands.
std::int16_t StoreList(TextView line, NumberedLines& lines, ElementArrays& arrays) {
  std::int16_t count = 0;
  while (count < kMostEntries && !line.empty() && !Contains(line, kPrompt)) {
    Store(line, count, arrays);
    line = lines.Next();
  }
  return count;
}

// All entries on one line: the fields behind the marker, empty ones too.
std::int16_t StoreFields(TextView line, std::ptrdiff_t fields, ElementArrays& arrays) {
  std::int16_t count = 0;
  while (count < std::min<std::ptrdiff_t>(fields, kMostEntries)) {
    Store(FieldOf(line, count + 2, u"/"), count, arrays);
  }
  return count;
}

}  // namespace

ScanCount ScanSecurityElements(TextView display, ElementArrays& arrays) {
  NumberedLines lines(display);
  const TextView line = FindMarkedLine(lines);
  if (line.empty()) {
    return std::int16_t{0};
  }
  const std::ptrdiff_t slashes = std::ranges::count(line, u'/');
  return slashes < 2 ? StoreList(line, lines, arrays) : StoreFields(line, slashes, arrays);
}

}  // namespace wendrill
