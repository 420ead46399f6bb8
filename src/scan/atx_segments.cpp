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

using Record = ElementRecord<kKeys>;

LineMeaning Judge(TextView line, std::int16_t number) {
  if (Contains(line, kPrompt)) {
    return LineMeaning::End;
  }
  if (line.empty()) {
    return MayBeginEmpty(number) ? LineMeaning::Other : LineMeaning::End;
  }
  return Columns(line, 5, 4) == u"ATX " ? LineMeaning::Element : LineMeaning::Other;
}

TextView FreeText(TextView segment) {
  const std::ptrdiff_t dash = ColumnOf(segment, u"-");
  return dash == 0 ? TextView() : Trimmed(FromColumn(segment, dash + 1));
}

void Store(TextView line, Record record) {
  const TextView segment = Trimmed(FromColumn(line, 3));
  record.Set(u"strKeySegment", line);
  record.Set(u"strKeySegmentNr", Trimmed(FirstColumns(line, 2)));
  record.Set(u"strKeyProvider", Trimmed(Columns(segment, 5, 2)));
  record.Set(u"strKeyStatus", Trimmed(Columns(segment, 8, 3)));
  record.Set(u"strKeyDepCity", Trimmed(Columns(segment, 12, 3)));
  record.Set(u"strKeyArrCity", Trimmed(Columns(segment, 15, 3)));
  record.Set(u"strKeyDepDate", Trimmed(Columns(segment, 19, 5)));
  record.Set(u"strKeyFreeText", FreeText(segment));
}

ScanCount Scan(TextView display, ElementArrays& arrays) {
  NumberedLines lines(display);
  return ScanLines<Counting::BeforeStoring>(
      lines, arrays, [&](TextView line) { return Judge(line, lines.Number()); },
      [&](TextView line, std::int16_t index) { Store(line, Record(arrays, index)); });
}

}  // namespace

constexpr DisplayKind kATXSegments = {
    .name = "ATXSegments",
    .askedAs = u"ATX",
    .keys = kKeys,
    .scan = Scan,
    .countNumber = kNoNumber,
    .getterNumber = kNoNumber,
    .storesCount = false,
};

}  // namespace wendrill
