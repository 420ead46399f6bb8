// Manual tickets: "12 FHE PAX 117-1234567890/S3/P1", recognised by their second word, so that an element number of any
// width will do.
#include "pnr/numbered_lines.h"
#include "scan/association_parts.h"
#include "scan/scanners.h"
#include "scan/ticket_number.h"

namespace wendrill {
namespace {

using Record = ElementRecord<kManualTktKeys>;

constexpr TextView kKeyword = u"FH";

TextView Keyword(TextView line) {
  return FieldOf(line, 2, u" ");
}

LineMeaning Judge(TextView line) {
  // Unlike other kinds: the prompt ends the scan only at the beginning of a line, and both the prompt and an empty line
  // leave the count valid.
  if (StartsWith(line, kPrompt) || Trimmed(line).empty()) {
    return LineMeaning::End;
  }
  return StartsWith(Keyword(line), kKeyword) ? LineMeaning::Element : LineMeaning::Other;
}

void Store(TextView line, Record record) {
  const TextView element = Trimmed(line);
  const TextView ticket = TicketNumber(element, FieldOf(line, 3, u" "));
  const AssociationColumns found = FindAssociations(element);
  const TextView type = Columns(Keyword(line), 3, 1);
  record.Set(u"strKeyElement", element);
  record.Set(u"strKeyElementNr", FieldOf(line, 1, u" "));
  record.Set(u"strKeyTktNbr", ticket);
  record.Set(u"strKeyPasAsso", AssociationPart(element, found.passenger, found.segment));
  record.Set(u"strKeySegAsso", AssociationPart(element, found.segment, found.passenger));
  record.Set(u"strKeyAirline", FirstColumns(ticket, 3));
  record.SetFlag(u"blnKeyManual", type == u"M");
  record.SetFlag(u"blnKeyAutomated", type == u"A");
  record.SetFlag(u"blnKeyElectronic", type == u"E");
}

}  // namespace

ScanCount ScanManualTktElements(TextView display, ElementArrays& arrays) {
  NumberedLines lines(display);
  lines.Next();  // the header line is never examined
  return ScanLines<Counting::WhenMovingOn>(
      lines, arrays, Judge, [&](TextView line, std::int16_t index) { Store(line, Record(arrays, index)); });
}

}  // namespace wendrill
