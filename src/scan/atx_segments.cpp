// ATX segments: "12  ATX YY HK1 PARLON 12JUN-FREE TEXT".
#include "pnr/numbered_lines.h"
#include "scan/display_kinds.h"
#include "scan/display_walk.h"

namespace wendrill {
namespace {

constexpr std::array kKeys = {
    ArrayKey{u"strKeySegment"},  ArrayKey{u"strKeySegmentNr"}, ArrayKey{u"strKeyDepCity"},  ArrayKey{u"strKeyArrCity"},
    ArrayKey{u"strKeyProvider"}, ArrayKey{u"strKeyDepDate"},   ArrayKey{u"strKeyFreeText"}, ArrayKey{u"strKeyStatus"},
};

struct Record : ElementRecord<kKeys> {
  using ElementRecord::ElementRecord;
};

// A line with an ATX segment, and its columns:
//              1         2         3
//     123456789012345678901234567890123456789
//     12  ATX YY HK1 PARLON 12JUN-FREE TEXT
constexpr ColumnRange kSegmentNr = {1, 2};
constexpr ColumnRange kKeyword = {5, 4};
constexpr std::ptrdiff_t kSegmentColumn = 3;

// The columns of the segment, which is the line from column 3 on, trimmed, so that the segment begins with the keyword
// "ATX". All fields are cut out of the segment, except the segment number and the full text (strKeySegment), which come
// from the line.
//              1         2         3
//     12345678901234567890123456789012345
//     ATX YY HK1 PARLON 12JUN-FREE TEXT
constexpr ColumnRange kProvider = {5, 2};
constexpr ColumnRange kStatus = {8, 3};
constexpr ColumnRange kDepCity = {12, 3};
constexpr ColumnRange kArrCity = {15, 3};
constexpr ColumnRange kDepDate = {19, 5};

LineMeaning Judge(TextView line, std::int16_t number) {
  if (Contains(line, kPrompt)) {
    return LineMeaning::End;
  }
  if (line.empty()) {
    return MayBeginEmpty(number) ? LineMeaning::Other : LineMeaning::End;
  }
  return Columns(line, kKeyword) == u"ATX " ? LineMeaning::Element : LineMeaning::Other;
}

TextView FreeText(TextView segment) {
  const std::ptrdiff_t dash = ColumnOf(segment, u"-");
  return dash == 0 ? TextView() : Trimmed(FromColumn(segment, dash + 1));
}

void Store(TextView line, Record record) {
  const TextView segment = Trimmed(FromColumn(line, kSegmentColumn));
  record.Set(u"strKeySegment", line);
  record.Set(u"strKeySegmentNr", Trimmed(Columns(line, kSegmentNr)));
  record.Set(u"strKeyProvider", Trimmed(Columns(segment, kProvider)));
  record.Set(u"strKeyStatus", Trimmed(Columns(segment, kStatus)));
  record.Set(u"strKeyDepCity", Trimmed(Columns(segment, kDepCity)));
  record.Set(u"strKeyArrCity", Trimmed(Columns(segment, kArrCity)));
  record.Set(u"strKeyDepDate", Trimmed(Columns(segment, kDepDate)));
  record.Set(u"strKeyFreeText", FreeText(segment));
}

std::int16_t Scan(TextView display, ElementArrays& arrays) {
  NumberedLines lines(display);
  return ScanLines<Counting::BeforeStoring>(
      lines, arrays, [&](TextView line) { return Judge(line, lines.Number()); },
      [&](TextView line, std::int16_t index) { Store(line, Record(arrays, index)); });
}

}  // namespace

constexpr DisplayKind kATXSegments = {
    .count = CountOf::ATXSegments,
    .askedAs = u"ATX",
    .keys = kKeys,
    .scan = Scan,
    .countNumber = kNoNumber,
    .getterNumber = kNoNumber,
};

}  // namespace wendrill
