// Other service information: " 12 OSI YY TEXT/P1". The display is cut into rows of 80 characters, even when it contains
// line breaks.
#include <algorithm>

#include "scan/association_parts.h"
#include "scan/display_kinds.h"
#include "scan/display_walk.h"

namespace wendrill {
namespace {

constexpr std::array kKeys = {
    ArrayKey{u"strKeyElement"}, ArrayKey{u"strKeyElementNr"}, ArrayKey{u"strKeyText"},
    ArrayKey{u"strKeyPasAsso"}, ArrayKey{u"strKeyAirline"},
};

struct Record : ElementRecord<kKeys> {
  using ElementRecord::ElementRecord;
};

//          1         2
// 1234567890123456789012345
//  12 OSI YY TEXT/P1         the row
// 12 OSI YY TEXT/P1          the element
constexpr ColumnRange kKeyword = {5, 3};  // columns of the row
constexpr std::ptrdiff_t kElementColumn = 2;
constexpr ColumnRange kElementNr = {1, 2};  // columns of the element, as are kAirline and kTextColumn
constexpr ColumnRange kAirline = {7, 3};
constexpr std::ptrdiff_t kTextColumn = 10;

constexpr std::ptrdiff_t kWidth = static_cast<std::ptrdiff_t>(kRowWidth);

// Cuts the display into rows of 80 characters. Next reads the display again and returns one row after another, from the
// second row on, and empty rows past the end of the text.
class RereadRows {
 public:
  explicit RereadRows(DisplayReader& display) : display_(display) {}

  TextView Next() {
    display_.Read();
    firstColumn_ += kWidth;
    return Columns(display_.Text(), firstColumn_, kWidth);
  }

 private:
  DisplayReader& display_;
  std::ptrdiff_t firstColumn_ = 1;  // the first column of the row that was read last, counted from 1 in the whole text
};

LineMeaning Judge(TextView row) {
  // Intentional: the prompt ends the scan only when the row is nothing but the prompt, which is possible only at the
  // end of the text. A row with the prompt and further characters is treated like any other row.
  if (row.empty() || row == kPrompt) {
    return LineMeaning::End;
  }
  return Columns(row, kKeyword) == u"OSI" ? LineMeaning::Element : LineMeaning::Other;
}

TextView DigitsBehindPassengerMark(TextView element) {
  const TextView part = AssociationPart(element, ColumnBeforeDigit(element, kPassengerMark), 0);
  const auto* end = std::ranges::find_if_not(part, IsDigit);
  return part.substr(0, static_cast<std::size_t>(end - part.begin()));
}

void Store(TextView row, Record record) {
  const TextView element = Trimmed(FromColumn(row, kElementColumn));
  record.Set(u"strKeyElement", element);
  record.Set(u"strKeyElementNr", Trimmed(Columns(element, kElementNr)));
  record.Set(u"strKeyAirline", Trimmed(Columns(element, kAirline)));
  record.Set(u"strKeyText", Trimmed(FromColumn(element, kTextColumn)));
  record.Set(u"strKeyPasAsso", DigitsBehindPassengerMark(element));
}

std::int16_t Scan(DisplayReader& display, ElementArrays& arrays) {
  RereadRows rows(display);
  return ScanLines<Counting::WhenMovingOn>(
      rows, arrays, Judge, [&](TextView row, std::int16_t index) { Store(row, Record(arrays, index)); });
}

}  // namespace

constexpr DisplayKind kOtherServiceElements = {
    .count = CountOf::OtherServiceElements,
    .askedAs = u"OSI",
    .keys = kKeys,
    .scan = Scan,
    .countNumber = 2030,
    .getterNumber = 2249,
};

}  // namespace wendrill
