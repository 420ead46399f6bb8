// Security entries. A security entry is an item of the block that begins with the line "  * ES/"; it is no entry to the
// host.
#include <algorithm>

#include "pnr/numbered_lines.h"
#include "scan/display_kinds.h"
#include "scan/display_walk.h"

namespace wendrill {
namespace {

constexpr std::array kKeys = {
    ArrayKey{u"strKeyItem"},
    ArrayKey{u"strKeyOfficeID"},
    ArrayKey{u"strKeyAccessMode"},
};

struct Record : ElementRecord<kKeys> {
  using ElementRecord::ElementRecord;
};

constexpr TextView kMarker = u"  * ES/";
constexpr std::int16_t kMostEntries = 5;

// Columns of a security entry:
//          1
// 1234567890123
// B PARXX0 100A
constexpr ColumnRange kAccessMode = {1, 1};
constexpr std::ptrdiff_t kOfficeColumn = 3;  // the office identifier: from this column to the end
constexpr std::ptrdiff_t kItemColumn = 10;

// Returns the first line that begins with the marker "  * ES/"; an empty view when a line with the prompt or the end of
// the display comes first. Empty lines before the marked line are skipped.
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

// Stores a security entry at the index `count` and then increments `count`: the first security entry has index 0.
void Store(TextView entry, std::int16_t& count, ElementArrays& arrays) {
  arrays.GrowTo(count);
  Record record(arrays, count);
  record.Set(u"strKeyAccessMode", Trimmed(Columns(entry, kAccessMode)));
  record.Set(u"strKeyOfficeID", Trimmed(FromColumn(entry, kOfficeColumn)));
  record.Set(u"strKeyItem", Trimmed(FromColumn(entry, kItemColumn)));
  ++count;
}

// Stores one security entry for each line, at most five, beginning with `line`, which has the marker. An empty line or
// a line with the prompt ends the list. The marker is not removed from `line`: the columns of the first security entry
// are counted from the beginning of the marker. Returns the number of security entries.
std::int16_t StoreList(TextView line, NumberedLines& lines, ElementArrays& arrays) {
  std::int16_t count = 0;
  while (count < kMostEntries && !line.empty() && !Contains(line, kPrompt)) {
    Store(line, count, arrays);
    line = lines.Next();
  }
  return count;
}

// Stores the security entries when all of them are on one line, the line with the marker. Each field after the first
// "/" is a security entry, even an empty field. `fields` is the number of these fields; at most five fields are stored.
// Returns the number of security entries stored.
std::int16_t StoreFields(TextView line, std::ptrdiff_t fields, ElementArrays& arrays) {
  std::int16_t count = 0;
  while (count < std::min<std::ptrdiff_t>(fields, kMostEntries)) {
    Store(FieldOf(line, count + 2, u"/"), count, arrays);
  }
  return count;
}

std::int16_t Scan(TextView display, ElementArrays& arrays) {
  NumberedLines lines(display);
  const TextView line = FindMarkedLine(lines);
  if (line.empty()) {
    return 0;
  }
  const std::ptrdiff_t slashes = std::ranges::count(line, u'/');
  return slashes < 2 ? StoreList(line, lines, arrays) : StoreFields(line, slashes, arrays);
}

}  // namespace

constexpr DisplayKind kSecurityElements = {
    .count = CountOf::SecurityElements,
    .askedAs = u"ES",
    .keys = kKeys,
    .scan = Scan,
    // Intentional: 2035 is also the count number of the special service requests. Both counts are published with 2035.
    .countNumber = 2035,
    .getterNumber = 2253,
};

}  // namespace wendrill
