// Miscellaneous ticketing information: "7 FS PAX N-100,S-120,T-TOUR/S3/P1".
#include "pnr/numbered_lines.h"
#include "scan/association_parts.h"
#include "scan/display_kinds.h"
#include "scan/display_walk.h"

namespace wendrill {
namespace {

constexpr std::array kKeys = {
    ArrayKey{u"strKeyElement"}, ArrayKey{u"strKeyElementNr"}, ArrayKey{u"strKeyText"},    ArrayKey{u"strKeyPasAsso"},
    ArrayKey{u"strKeySegAsso"}, ArrayKey{u"strKeyTourCode"},  ArrayKey{u"strKeyNetFare"}, ArrayKey{u"strKeySellFare"},
};

struct Record : ElementRecord<kKeys> {
  using ElementRecord::ElementRecord;
};

// An element with the passenger type "PAX", an element without a passenger type, and their columns:
//          1         2         3
// 123456789012345678901234567890
// 7 FS PAX N-100,S-120,T-TOUR/S3
// 7 FS N-100,S-120,T-TOUR/S3
constexpr ColumnRange kElementNr = {1, 2};
constexpr std::ptrdiff_t kInformationColumn = 6;
constexpr std::ptrdiff_t kInformationAfterPassengerTypeColumn = 10;
constexpr std::ptrdiff_t kValueWidth = 10;  // the maximum width of a fare or a tour code

LineMeaning Judge(TextView line) {
  if (Contains(line, kPrompt)) {
    // Intentional: the prompt discards the elements found before the prompt, and the count is 0. Elements are counted
    // only when an empty line or the end of the text comes before the prompt.
    return LineMeaning::Abandoned;
  }
  if (line.empty()) {
    return LineMeaning::End;
  }
  return Contains(line, u" FS ") ? LineMeaning::Element : LineMeaning::Other;
}

// The information of an element, trimmed: the text from the column of the information up to the next "/". The
// information begins in column 10 when the element contains "PAX" or "INF", and in column 6 otherwise. Intentional:
// these two columns are fixed although the width of the element number varies. They fit element numbers of one or two
// digits. After a longer number, the result begins with the end of "FS", "PAX" or "INF".
TextView InformationIn(TextView element) {
  const bool hasPassengerType = Contains(element, u"PAX") || Contains(element, u"INF");
  const std::ptrdiff_t column = hasPassengerType ? kInformationAfterPassengerTypeColumn : kInformationColumn;
  return Trimmed(Before(Trimmed(FromColumn(element, column)), u"/"));
}

// The fare or tour code after `mark` ("N-", "S-" or "T-"), trimmed: the text up to the next comma, at most 10
// characters. Empty when the information does not contain the mark.
TextView ValueBehind(TextView information, TextView mark) {
  const std::ptrdiff_t column = ColumnOf(information, mark);
  return column == 0 ? TextView() : Trimmed(Before(Columns(information, column + std::ssize(mark), kValueWidth), u","));
}

void Store(TextView line, Record record) {
  const TextView element = Trimmed(FirstColumns(line, static_cast<std::ptrdiff_t>(kRowWidth)));
  const TextView information = InformationIn(element);
  const AssociationColumns found = FindAssociationsOrListedPassengers(element);
  record.Set(u"strKeyElement", element);
  record.Set(u"strKeyElementNr", Trimmed(Columns(element, kElementNr)));
  record.Set(u"strKeyText", information);
  record.Set(u"strKeyPasAsso", AssociationPart(element, found.passenger, found.segment));
  record.Set(u"strKeySegAsso", SegmentOrRest(element, found));
  record.Set(u"strKeyTourCode", ValueBehind(information, u"T-"));
  record.Set(u"strKeyNetFare", ValueBehind(information, u"N-"));
  record.Set(u"strKeySellFare", ValueBehind(information, u"S-"));
}

std::int16_t Scan(TextView display, ElementArrays& arrays) {
  NumberedLines lines(display);
  lines.Next();  // skips the header line
  return ScanLines<Counting::WhenMovingOn>(
      lines, arrays, Judge, [&](TextView line, std::int16_t index) { Store(line, Record(arrays, index)); });
}

}  // namespace

constexpr DisplayKind kMiscTktInfoElements = {
    .count = CountOf::MiscTktInfoElements,
    .askedAs = u"FS",
    .keys = kKeys,
    .scan = Scan,
    .countNumber = 2025,
    .getterNumber = 2251,
};

}  // namespace wendrill
