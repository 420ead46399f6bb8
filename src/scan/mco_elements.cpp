// MCO documents: "12 MCO YY PAR 12JUN/USD100.00/*SERVICE/P1". The indented ticketing lines directly after an MCO
// document belong to the document.
#include <utility>

#include "pnr/numbered_lines.h"
#include "scan/association_parts.h"
#include "scan/display_kinds.h"
#include "scan/display_walk.h"
#include "scan/ticket_number.h"

namespace wendrill {
namespace {

constexpr std::array kKeys = {
    ArrayKey{u"strKeyElement"},        ArrayKey{u"strKeyElementNr"},    ArrayKey{u"strKeyAirline"},
    ArrayKey{u"strKeyOrigin"},         ArrayKey{u"strKeyDepDate"},      ArrayKey{u"strKeyPasAsso"},
    ArrayKey{u"strKeyFare"},           ArrayKey{u"strKeyServiceType"},  ArrayKey{u"strKeyMCOFAElement"},
    ArrayKey{u"strKeyMCOFATicketNbr"}, ArrayKey{u"strKeyMCOFPElement"}, ArrayKey{u"strKeyMCOFMElement"},
};

struct Record : ElementRecord<kKeys> {
  using ElementRecord::ElementRecord;
};

constexpr TextView kKeyword = u"MCO";
// An MCO document with an element number of two digits, and one with a number of one digit:
//          1         2         3         4
// 1234567890123456789012345678901234567890
// 12 MCO YY PAR 12JUN/USD100.00/*SERVICE/P1
// 5 MCO YY PAR 12JUN/USD100.00/*SERVICE/P1
constexpr ColumnRange kElementNr = {1, 2};
constexpr ColumnRange kKeywordAfterOneDigit = {3, 3};
constexpr ColumnRange kKeywordAfterTwoDigits = {4, 3};
constexpr std::ptrdiff_t kElementColumn = 3;

constexpr TextView kTicketingIndent = u"   ";

// Whether a line is an MCO document: "MCO" is in columns 3 to 5 or 4 to 6, after an element number of one or two
// digits.
bool IsDocument(TextView line) {
  return Columns(line, kKeywordAfterOneDigit) == kKeyword || Columns(line, kKeywordAfterTwoDigits) == kKeyword;
}

// Skips the empty lines at the beginning of the display, because an empty line ends the scan. In a display of empty
// lines only, stops at the end of the display.
void SkipEmptyLines(NumberedLines& lines) {
  for (NumberedLines ahead = lines; !ahead.AtEnd() && ahead.Next().empty();) {
    lines = ahead;
  }
}

LineMeaning Judge(TextView line) {
  if (line.empty() || Contains(line, kPrompt)) {
    return LineMeaning::End;
  }
  return IsDocument(line) ? LineMeaning::Element : LineMeaning::Other;
}

void StoreService(TextView element, Record& record) {
  constexpr TextView kServiceMark = u"/*";
  const std::ptrdiff_t mark = ColumnOf(element, kServiceMark);
  const TextView service = mark == 0 ? TextView() : FromColumn(element, mark + std::ssize(kServiceMark));
  record.Set(u"strKeyServiceType", Trimmed(Before(service, kPassengerMark)));
  record.Set(u"strKeyPasAsso", AssociationPart(service, ColumnOf(service, kPassengerMark), 0));
}

void StoreDocument(TextView line, Record& record) {
  const TextView element = Trimmed(FromColumn(line, kElementColumn));
  record.Set(u"strKeyElement", element);
  record.Set(u"strKeyElementNr", Trimmed(Columns(line, kElementNr)));
  record.Set(u"strKeyAirline", FieldOf(element, 2, u" "));
  record.Set(u"strKeyOrigin", FieldOf(element, 3, u" "));
  record.Set(u"strKeyDepDate", Before(FieldOf(element, 4, u" "), u"/"));
  record.Set(u"strKeyFare", Trimmed(FieldOf(element, 2, u"/")));
  StoreService(element, record);
}

// Stores the ticketing lines FA, FP and FM of one MCO document. Of several lines with the same keyword, only the first
// line is stored.
class TicketingLines {
 public:
  explicit TicketingLines(Record& record) : record_(record) {}

  void Store(TextView line) {
    const TextView text = Trimmed(line);
    const TextView keyword = Keyword(text);
    if (keyword == u"FA" && IsFirst(hasFA_)) {
      record_.Set(u"strKeyMCOFAElement", text);
      record_.Set(u"strKeyMCOFATicketNbr", TicketNumber(text, WordBehind(text, keyword)));
    } else if (keyword == u"FP" && IsFirst(hasFP_)) {
      record_.Set(u"strKeyMCOFPElement", text);
    } else if (keyword == u"FM" && IsFirst(hasFM_)) {
      record_.Set(u"strKeyMCOFMElement", text);
    }
  }

 private:
  static bool IsFirst(bool& isThere) { return !std::exchange(isThere, true); }

  // The keyword of a ticketing line: its first word, or its second word when the line begins with an element number.
  // "FA" for "FA PAX 117-1234567890" and for "13 FA PAX 117-1234567890".
  static TextView Keyword(TextView text) {
    const TextView first = FieldOf(text, 1, u" ");
    return !first.empty() && IsDigit(first.front()) ? FieldOf(text, 2, u" ") : first;
  }

  static TextView WordBehind(TextView text, TextView keyword) {
    const TextView behind = FromColumn(text, ColumnOf(text, keyword) + std::ssize(keyword));
    return FieldOf(Trimmed(behind), 1, u" ");
  }

  Record& record_;
  bool hasFA_ = false;
  bool hasFP_ = false;
  bool hasFM_ = false;
};

// Stores the fields of one MCO document. `line` is the document's line; `lines` is positioned at the line after the
// document. Stores the first FA, FP and FM of the ticketing lines after the document, and advances `lines` past all
// ticketing lines. The ticketing lines end before the first line that is not indented by three blanks, is itself an MCO
// document, or contains the prompt.
void Store(TextView line, NumberedLines& lines, Record record) {
  StoreDocument(line, record);
  TicketingLines ticketing(record);
  for (NumberedLines ahead = lines;; lines = ahead) {
    const TextView following = ahead.Next();
    const bool isTicketing = StartsWith(following, kTicketingIndent) && !IsDocument(following);
    if (!isTicketing || Contains(following, kPrompt)) {
      return;
    }
    ticketing.Store(following);
  }
}

std::int16_t Scan(TextView display, ElementArrays& arrays) {
  NumberedLines lines(display);
  SkipEmptyLines(lines);
  return ScanLines<Counting::BeforeStoring>(
      lines, arrays, Judge, [&](TextView line, std::int16_t index) { Store(line, lines, Record(arrays, index)); });
}

}  // namespace

constexpr DisplayKind kMCOElements = {
    .count = CountOf::MCOElements,
    .askedAs = u"MCO",
    .keys = kKeys,
    .scan = Scan,
    .countNumber = 2057,
    .getterNumber = 2260,
};

}  // namespace wendrill
