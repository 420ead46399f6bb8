// Air sequence numbers, the FB elements: " 18 FB 0000000001 TTP/S2/P1". The display is cut into rows of 80 characters,
// even when it contains line breaks.
#include "pnr/associations.h"
#include "scan/display_kinds.h"
#include "scan/display_walk.h"
#include "scan/fare_lines.h"

namespace wendrill {
namespace {

constexpr std::array kKeys = {
    ArrayKey{u"strKeyElement"},
    ArrayKey{u"strKeyElementNr"},
    ArrayKey{u"strKeyPasAsso"},
    ArrayKey{u"strKeySegAsso"},
};

struct Record : ElementRecord<kKeys> {
  using ElementRecord::ElementRecord;
};

// A row of the display with an FB element, and its columns:
//          1         2
// 123456789012345678901234567
//  18 FB 0000000001 TTP/S2/P1
constexpr std::ptrdiff_t kElementColumn = 2;
constexpr ColumnRange kElementNr = {2, 2};
constexpr std::ptrdiff_t kWidth = static_cast<std::ptrdiff_t>(kRowWidth);

// Cuts the display into rows of 80 characters. Next returns one row after another, from the second row on, and empty
// rows past the end of the text.
class Rows {
 public:
  explicit Rows(TextView display) : rest_(display) {}

  TextView Next() {
    rest_ = FromColumn(rest_, kWidth + 1);
    return FirstColumns(rest_, kWidth);
  }

 private:
  TextView rest_;  // the display from the row that Next returned last; at first the whole display
};

LineMeaning Judge(TextView row) {
  if (HasFareCode(row, u"FB")) {
    return LineMeaning::Element;
  }
  return row.empty() || StartsWith(row, kPrompt) ? LineMeaning::End : LineMeaning::Other;
}

void Store(TextView row, Record record) {
  const TextView element = Trimmed(FromColumn(row, kElementColumn));
  record.Set(u"strKeyElement", element);
  record.Set(u"strKeyElementNr", Trimmed(Columns(row, kElementNr)));
  StoreFareAssociations(element, record);
}

std::int16_t Scan(TextView display, ElementArrays& arrays) {
  Rows rows(display);
  return ScanLines<Counting::WhenMovingOn>(
      rows, arrays, Judge, [&](TextView row, std::int16_t index) { Store(row, Record(arrays, index)); });
}

}  // namespace

constexpr DisplayKind kAirSequenceNrElements = {
    .count = CountOf::AirSequenceNrElements,
    .getter = GetMember::AirSequenceNrElement,
    .keys = kKeys,
    .scan = Scan,
    .countNumber = kNoNumber,
    .getterNumber = 2213,
};

}  // namespace wendrill
