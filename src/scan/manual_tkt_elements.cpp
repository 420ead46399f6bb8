// Manual tickets: "12 FHE PAX 117-1234567890/S3/P1". A line is a manual ticket when its second word begins with "FH".
// The first word is the element number, which may have any number of digits.
#include "pnr/numbered_lines.h"
#include "scan/association_parts.h"
#include "scan/display_kinds.h"
#include "scan/display_walk.h"
#include "scan/ticket_number.h"

namespace wendrill {
namespace {

constexpr std::array kKeys = {
    ArrayKey{u"strKeyElement"},
    ArrayKey{u"strKeyElementNr"},
    ArrayKey{u"strKeyTktNbr"},
    ArrayKey{u"strKeyPasAsso"},
    ArrayKey{u"strKeySegAsso"},
    ArrayKey{u"strKeyAirline"},
    ArrayKey{u"blnKeyManual", ArrayType::Flag},
    ArrayKey{u"blnKeyAutomated", ArrayType::Flag},
    ArrayKey{u"blnKeyElectronic", ArrayType::Flag},
};

struct Record : ElementRecord<kKeys> {
  using ElementRecord::ElementRecord;
};

constexpr TextView kKeyword = u"FH";

// The line is split into words: 12 FHE 117-1234567890 or 12 FHE PAX 117-1234567890. The ticket type and the airline are
// cut by columns, the type out of the keyword and the airline out of the ticket number:
// 12345678901234
// FHE
// 117-1234567890
constexpr std::int32_t kNumberWord = 1;
constexpr std::int32_t kKeywordWord = 2;
constexpr std::int32_t kTicketWord = 3;   // the ticket number in a line without "PAX"
constexpr ColumnRange kType = {3, 1};     // in the keyword: A, E or M
constexpr ColumnRange kAirline = {1, 3};  // in the ticket number

TextView Keyword(TextView line) {
  return FieldOf(line, kKeywordWord, u" ");
}

LineMeaning Judge(TextView line) {
  // The prompt ends the scan only at the beginning of a line. The elements found before the prompt, or before a blank
  // line, are kept.
  if (StartsWith(line, kPrompt) || Trimmed(line).empty()) {
    return LineMeaning::End;
  }
  return StartsWith(Keyword(line), kKeyword) ? LineMeaning::Element : LineMeaning::Other;
}

void Store(TextView line, Record record) {
  const TextView element = Trimmed(line);
  const TextView ticket = TicketNumber(element, FieldOf(line, kTicketWord, u" "));
  const AssociationColumns found = FindAssociations(element);
  const TextView type = Columns(Keyword(line), kType);
  record.Set(u"strKeyElement", element);
  record.Set(u"strKeyElementNr", FieldOf(line, kNumberWord, u" "));
  record.Set(u"strKeyTktNbr", ticket);
  record.Set(u"strKeyPasAsso", AssociationPart(element, found.passenger, found.segment));
  record.Set(u"strKeySegAsso", AssociationPart(element, found.segment, found.passenger));
  record.Set(u"strKeyAirline", Columns(ticket, kAirline));
  record.SetFlag(u"blnKeyManual", type == u"M");
  record.SetFlag(u"blnKeyAutomated", type == u"A");
  record.SetFlag(u"blnKeyElectronic", type == u"E");
}

std::int16_t Scan(TextView display, ElementArrays& arrays) {
  NumberedLines lines(display);
  lines.Next();  // skips the header line
  return ScanLines<Counting::WhenMovingOn>(
      lines, arrays, Judge, [&](TextView line, std::int16_t index) { Store(line, Record(arrays, index)); });
}

}  // namespace

constexpr DisplayKind kManualTktElements = {
    .count = CountOf::ManualTktElements,
    .askedAs = u"FH",
    .keys = kKeys,
    .scan = Scan,
    .countNumber = 2020,
    .getterNumber = 2245,
};

}  // namespace wendrill
