// Special service requests: "12 *SSR VGML SK HK1/S3/P1".
#include <algorithm>

#include "pnr/numbered_lines.h"
#include "scan/association_parts.h"
#include "scan/display_kinds.h"
#include "scan/display_walk.h"

namespace wendrill {
namespace {

// Intentional: the seat flag blnKeySeat is stored and returned as the string "True" or "False", not as a Boolean,
// although the other flag, blnKeyAsterix, is a Boolean.
constexpr std::array kKeys = {
    ArrayKey{u"strKeyElement"},
    ArrayKey{u"strKeyElementNr"},
    ArrayKey{u"strKeyStatus"},
    ArrayKey{u"strKeyPasAsso"},
    ArrayKey{u"strKeySegAsso"},
    ArrayKey{u"strKeyCode"},
    ArrayKey{u"strKeyAirline"},
    ArrayKey{u"strKeyFFNnumber"},
    ArrayKey{u"strKeyFreeText"},
    ArrayKey{u"strKeySeatNbr"},
    ArrayKey{u"blnKeySeat", ArrayType::Text, u"False"},
    ArrayKey{u"blnKeyAsterix", ArrayType::Flag},
};

struct Record : ElementRecord<kKeys> {
  using ElementRecord::ElementRecord;
};

constexpr TextView kKeyword = u"SSR";  // "*SSR", the keyword with an asterisk, contains this keyword too
constexpr TextView kFlaggedKeyword = u"*SSR";

// An element with a number of one digit and without an asterisk, and its columns:
//          1         2         3
// 123456789012345678901234567890
// 5 SSR VGML SK HK1 TEXT/S3/P1
constexpr ColumnRange kElementNr = {1, 2};
constexpr ColumnRange kAsterisk = {3, 3};  // the "*" may be in any of these columns
constexpr ColumnRange kCode = {7, 5};
constexpr ColumnRange kAirline = {12, 3};
constexpr ColumnRange kStatus = {15, 3};
constexpr std::ptrdiff_t kFreeTextColumn = 19;

// kCode, kAirline and kStatus are the columns in an element with a number of one digit and without an asterisk. In
// other elements, the columns are:
//   - Code, airline and status: one column further right for a second digit, and one further right for an asterisk.
//   - Free text: one column further right for an asterisk. Intentional: not further right for a second digit.
//   - Free text of an element with the code OTHS and without a status: always from column 16 on. Intentional: not
//     further right for a second digit or an asterisk.
//
// 12 SSR VGML SK HK1 TEXT/S3/P1
// 12 *SSR VGML SK HK1 TEXT/S3/P1
// 12 SSR OTHS YY TEXT/P1
constexpr std::ptrdiff_t kFreeTextWithoutStatusColumn = 16;
constexpr std::ptrdiff_t kNeededColumn = 18;  // an element without text from this column on has no free text

// A line that begins with at least four blanks continues the element. Its text is read from column 8 on:
// 123456789012
//        CHILD
constexpr TextView kContinuationIndent = u"    ";
constexpr std::ptrdiff_t kContinuationColumn = 8;

constexpr TextView kFrequentFlyer = u"FQTV";
constexpr TextView kOtherService = u"OTHS";
constexpr std::array<TextView, 10> kSeatCodes = {u"SEAT", u"SMSA", u"SMSB", u"SMST", u"SMSW",
                                                 u"NSSA", u"NSSB", u"NSST", u"NSSW", u"RQST"};
constexpr std::array<TextView, 4> kCodesWithSeatNumbers = {u"NSST", u"RQST", u"SMST", u"NSSW"};
constexpr std::array<TextView, 7> kStatusCodes = {u"HK", u"HN", u"HX", u"KK", u"NN", u"SS", u"UC"};

constexpr std::ptrdiff_t kStatusCodeWidth = 2;

constexpr TextView kSeatFlag = u"True";

template <std::size_t count>
bool IsOneOf(const std::array<TextView, count>& codes, TextView text) {
  return std::ranges::find(codes, text) != codes.end();
}

// Whether `status` is a status code such as HK1: one of kStatusCodes and a digit.
bool IsStatusCode(TextView status) {
  return std::ssize(status) == kStatus.count && IsOneOf(kStatusCodes, FirstColumns(status, kStatusCodeWidth)) &&
         IsDigit(status.back());
}

// Whether a line that contains "SSR" has text other than blanks before the keyword "SSR" or "*SSR". Any such text is
// taken for an element number. A remark that contains "SSR" is therefore counted as an element, and the scan continues
// after the remark. A line that begins with the keyword ends the scan with the count 0.
bool HasElementNumber(TextView line) {
  const TextView element = TrimmedLeft(line);
  return !StartsWith(element, kKeyword) && !StartsWith(element, kFlaggedKeyword);
}

// Returns the meaning of a line of the display. REQUIRES: called with the lines of the display in order.
class Judge {
 public:
  explicit Judge(TextView display) : prompt_(display, kPrompt), keyword_(display, kKeyword) {}

  LineMeaning operator()(TextView line) {
    if (line.empty()) {
      return LineMeaning::End;
    }
    if (prompt_.IsIn(line)) {
      // Intentional: the prompt discards the elements found before the prompt, and the count is 0. Elements are counted
      // only when an empty line or the end of the text comes before the prompt.
      return LineMeaning::Abandoned;
    }
    if (!keyword_.IsIn(line)) {
      return LineMeaning::Other;
    }
    return HasElementNumber(line) ? LineMeaning::Element : LineMeaning::Abandoned;
  }

 private:
  MarkInLines prompt_;
  MarkInLines keyword_;
};

// Joins an element's first line and its indented continuation lines, each after one blank, to one line in `element`.
// Advances `lines` past the continuation lines.
void PutTogether(std::u16string& element, TextView line, NumberedLines& lines) {
  element = Trimmed(line);
  while (StartsWith(lines.Rest(), kContinuationIndent)) {
    element.append(1, kBlank).append(Trimmed(FromColumn(lines.Next(), kContinuationColumn)));
  }
}

// The text of an element, its number and whether it has an asterisk. The columns of the fields code, airline and status
// depend on the length of the number and on the asterisk.
struct Layout {
  TextView element;
  TextView number;
  bool hasAsterisk;

  explicit Layout(TextView text)
      : element(text),
        number(Trimmed(Columns(text, kElementNr))),
        hasAsterisk(Contains(Columns(text, kAsterisk), u"*")) {}

  TextView Field(ColumnRange range) const {
    return Trimmed(Columns(element, Shifted(range, std::ssize(number) - 1 + (hasAsterisk ? 1 : 0))));
  }
};

// The status of an element. When the status has only two letters, as in "HK/P1", the third status column contains the
// "/" of the association part after the status. StatusOf removes that "/".
TextView StatusOf(const Layout& layout) {
  const TextView status = layout.Field(kStatus);
  const bool hasSlash = std::ssize(status) == kStatus.count && status.back() == u'/';
  return hasSlash ? FirstColumns(status, kStatusCodeWidth) : status;
}

struct SeatList {
  std::u16string numbers;
  std::u16string passengers;
};

void RemoveLeadingComma(std::u16string& list) {
  if (StartsWith(list, u",")) {
    list.erase(0, 1);
  }
}

// The seat numbers and the passenger numbers of an element, as two lists with commas: "12A,12B" and "1,2" for
// "/12A,P1/12B,P2". SeatsOf reads the fields after the first "/", up to the first field that does not begin with a
// digit.
SeatList SeatsOf(TextView element) {
  SeatList seats;
  TextView rest = element;
  for (std::ptrdiff_t slash = ColumnOf(rest, u"/"); slash != 0; slash = ColumnOf(rest, u"/")) {
    rest = FromColumn(rest, slash + 1);
    if (rest.empty() || !IsDigit(rest.front())) {
      break;
    }
    const TextView seat = Before(rest, u"/");
    seats.numbers.append(u",").append(FieldOf(seat, 1, u","));
    seats.passengers.append(u",").append(FieldOf(seat, 2, u","));
  }
  RemoveLeadingComma(seats.numbers);
  RemoveLeadingComma(seats.passengers);
  std::erase(seats.passengers, u'P');
  return seats;
}

// Whether the free text is only the rest of an association part: "P1" or "S3", when a "/" is in the column directly
// before the free text. `column` is the first column of the free text.
bool IsLeftover(TextView element, TextView freeText, std::ptrdiff_t column) {
  return freeText.size() == 2 && (freeText.front() == u'P' || freeText.front() == u'S') && IsDigit(freeText.back()) &&
         Columns(element, column - 1, 1) == u"/";
}

TextView FreeTextOf(TextView element, const Layout& layout, bool isOtherServiceWithoutStatus) {
  if (Trimmed(FromColumn(element, kNeededColumn)).empty()) {
    return {};
  }
  if (isOtherServiceWithoutStatus) {
    return Trimmed(Before(FromColumn(element, kFreeTextWithoutStatusColumn), u"/"));
  }
  const std::ptrdiff_t column = kFreeTextColumn + (layout.hasAsterisk ? 1 : 0);
  const TextView freeText = Trimmed(FromColumn(element, column));
  return IsLeftover(element, freeText, column) ? TextView() : freeText;
}

void StoreSeats(TextView element, TextView code, Record& record, std::u16string& passengers) {
  record.Set(u"blnKeySeat", kSeatFlag);
  if (IsOneOf(kCodesWithSeatNumbers, code)) {
    SeatList seats = SeatsOf(element);
    record.Set(u"strKeySeatNbr", seats.numbers);
    passengers = std::move(seats.passengers);
  }
}

void Store(TextView element, Record record) {
  const Layout layout(element);
  const TextView code = layout.Field(kCode);
  TextView status = StatusOf(layout);
  const bool isOtherServiceWithoutStatus = code == kOtherService && !IsStatusCode(status);
  if (isOtherServiceWithoutStatus) {
    status = {};  // the columns of the status contain free text in this case
  }
  std::u16string passengers;
  if (IsOneOf(kSeatCodes, code)) {
    StoreSeats(element, code, record, passengers);
  }
  const AssociationColumns found = FindAssociationsOrListedPassengers(element);
  if (passengers.empty()) {
    passengers = AssociationPart(element, found.passenger, found.segment);
  }
  record.Set(u"strKeyElementNr", layout.number);
  record.SetFlag(u"blnKeyAsterix", layout.hasAsterisk);
  record.Set(u"strKeyCode", code);
  record.Set(u"strKeyAirline", layout.Field(kAirline));
  record.Set(u"strKeyStatus", status);
  record.Set(u"strKeyFFNnumber", code == kFrequentFlyer ? Trimmed(FieldOf(element, 2, u"/")) : TextView());
  record.Set(u"strKeyFreeText", FreeTextOf(element, layout, isOtherServiceWithoutStatus));
  record.Set(u"strKeySegAsso", SegmentOrRest(element, found));
  record.Set(u"strKeyPasAsso", passengers);
  record.Set(u"strKeyElement", element);
}

std::int16_t Scan(TextView display, ElementArrays& arrays) {
  NumberedLines lines(display);
  lines.Next();            // skips the header line
  std::u16string element;  // declared outside the loop to reuse its memory
  return ScanLines<Counting::WhenMovingOn>(lines, arrays, Judge(display), [&](TextView line, std::int16_t index) {
    PutTogether(element, line, lines);
    Store(element, Record(arrays, index));
  });
}

}  // namespace

constexpr DisplayKind kSpecialServiceElements = {
    .count = CountOf::SpecialServiceElements,
    .askedAs = u"SSR",
    .keys = kKeys,
    .scan = Scan,
    .countNumber = 2035,
    .getterNumber = 2247,
};

}  // namespace wendrill
