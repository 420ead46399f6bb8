// Validating airlines, the FV elements: " 12 FV PAX *F*LH/S3/P1".
#include "pnr/associations.h"
#include "scan/display_kinds.h"
#include "scan/display_walk.h"
#include "scan/fare_lines.h"
#include "scan/reread_lines.h"

namespace wendrill {
namespace {

constexpr std::array kKeys = {
    ArrayKey{u"strKeyElement"}, ArrayKey{u"strKeyElementNr"}, ArrayKey{u"strKeyAirline"},
    ArrayKey{u"strKeyPasAsso"}, ArrayKey{u"strKeySegAsso"},
};

struct Record : ElementRecord<kKeys> {
  using ElementRecord::ElementRecord;
};

// Columns on the line of the display, and in the element, which is the line without leading and trailing blanks:
//                         1
//                1234567890123456789
// on the line:    12 FV PAX *F*LH/S3   the airline follows "PAX *F*"
//                 12 FV PAX AF/S3      the airline follows "PAX " or "INF "
// the element:   12 FV LH/S3           without PAX and INF: the airline is in column 7 after a number of two digits
//                5 FV LH/S3            without PAX and INF: the airline is in column 6 after a number of one digit
constexpr std::int16_t kFirstLine = 4;
constexpr ColumnRange kElementNr = {1, 3};
constexpr std::ptrdiff_t kAirlineWidth = 2;
constexpr std::ptrdiff_t kAirlineAfterTwoDigits = 7;
constexpr std::ptrdiff_t kAirlineAfterOneDigit = 6;
constexpr std::ptrdiff_t kWidthOfStarredWord = 7;  // "PAX *F*"
constexpr std::ptrdiff_t kWidthOfWord = 4;         // "PAX " or "INF "

LineMeaning Judge(TextView line) {
  if (HasFareCode(line, u"FV")) {
    return LineMeaning::Element;
  }
  return line.empty() || StartsWith(line, kPrompt) ? LineMeaning::End : LineMeaning::Other;
}

// The column (counted from 1) at which the airline begins in the element; 0 when the column is not known. Intentional:
// in an element without "PAX" and "INF", the column is known only after an element number of one or two digits. For
// three digits the result is 0 and no airline is stored, although the element number is stored.
std::ptrdiff_t AirlineColumn(TextView element, TextView elementNr) {
  if (const std::ptrdiff_t starred = ColumnOf(element, u"PAX *"); starred > 0) {
    return starred + kWidthOfStarredWord;
  }
  for (const TextView word : {TextView(u"PAX"), TextView(u"INF")}) {
    if (const std::ptrdiff_t column = ColumnOf(element, word); column > 0) {
      return column + kWidthOfWord;
    }
  }
  switch (elementNr.size()) {
    case 1:
      return kAirlineAfterOneDigit;
    case 2:
      return kAirlineAfterTwoDigits;
    default:
      return 0;
  }
}

// Stores the fields of the element one after another. Storing the last field, the segment association, raises 5
// (invalid argument) when "/P" comes before "/S" in the element. The fields stored before the error stay in the arrays.
void Store(TextView line, Record record) {
  const TextView elementNr = Trimmed(Columns(line, kElementNr));
  const TextView element = Trimmed(line);
  record.Set(u"strKeyElementNr", elementNr);
  record.Set(u"strKeyElement", element);
  if (const std::ptrdiff_t column = AirlineColumn(element, elementNr); column > 0) {
    record.Set(u"strKeyAirline", Columns(element, column, kAirlineWidth));
  }
  StoreFareAssociations(element, record);
}

std::int16_t Scan(DisplayReader& display, ElementArrays& arrays) {
  RereadLines lines(display, kFirstLine);
  return ScanLines<Counting::WhenMovingOn>(
      lines, arrays, Judge, [&](TextView line, std::int16_t index) { Store(line, Record(arrays, index)); });
}

}  // namespace

constexpr DisplayKind kValidatingAirlineElements = {
    .count = CountOf::ValidatingAirlineElements,
    .getter = GetMember::ValidatingAirlineElement,
    .keys = kKeys,
    .scan = Scan,
    .countNumber = kCountsAsNone,  // Intentional: a failure gives the count 0 and is not raised.
    .getterNumber = 2233,
};

}  // namespace wendrill
