#include "support/reference_scanners.h"

#include "support/reference_text.h"

namespace wendrill::testing {
namespace {

using Text = std::u16string;

// A scan whose arrays have an element at index 0 only. `texts`, `flags` and `textFlags` are the keys of the arrays. The
// entries of `flags` are Boolean values, those of `textFlags` are the strings "True" and "False".
ReferenceScan Reset(const std::vector<Text>& texts, const std::vector<Text>& flags = {},
                    const std::vector<Text>& textFlags = {}) {
  ReferenceScan scan;
  for (const Text& key : texts) {
    scan.arrays[key] = {{u""}, u"", false};
  }
  for (const Text& key : flags) {
    scan.arrays[key] = {{u"False"}, u"False", true};
  }
  for (const Text& key : textFlags) {
    scan.arrays[key] = {{u"False"}, u"False", false};
  }
  return scan;
}

// Appends initial values to every array until the array has an element at the index.
void Grow(ReferenceScan& scan, int index) {
  for (auto& [key, array] : scan.arrays) {
    while (static_cast<int>(array.entries.size()) <= index) {
      array.entries.push_back(array.initial);
    }
  }
}

Text& At(ReferenceScan& scan, const Text& key, int index) {
  return scan.arrays.at(key).entries.at(static_cast<std::size_t>(index));
}

Text Flag(bool truth) {
  return truth ? u"True" : u"False";
}

bool IsAnyOf(const Text& text, const std::vector<Text>& codes) {
  for (const Text& code : codes) {
    if (text == code) {
      return true;
    }
  }
  return false;
}

// The position of the first "/S" that is followed by a digit; 0 when there is none.
int FindSegmentMark(const Text& element) {
  for (int at = InStr(element, u"/S"); at != 0; at = InStr(at + 1, element, u"/S")) {
    if (IsDigitAt(element, at + 2)) {
      return at;
    }
  }
  return 0;
}

// The position of the first "/P", else of the first ",P"; 0 when the element has neither.
int FindPassengerMark(const Text& element) {
  const int slash = InStr(element, u"/P");
  return slash != 0 ? slash : InStr(element, u",P");
}

Text PassengerPart(const Text& element, int passenger, int segment) {
  if (passenger == 0) {
    return u"";
  }
  if (segment > passenger) {
    return Trim(Mid(element, passenger + 2, segment - passenger - 2));
  }
  return Trim(MidToEnd(element, passenger + 2));
}

Text SegmentPart(const Text& element, int passenger, int segment) {
  if (segment == 0) {
    return u"";
  }
  if (passenger == 0) {
    return Trim(MidToEnd(element, segment + 2));
  }
  const Text two = Trim(Mid(element, segment + 2, 2));
  return IsDigitAt(two, 2) ? two : Left(two, 1);
}

// The functions from here to StoreSpecialService read special service requests.

bool IsStatusCode(const Text& status) {
  return status.size() == 3 && IsAnyOf(Left(status, 2), {u"HK", u"HN", u"HX", u"KK", u"NN", u"SS", u"UC"}) &&
         IsDigitAt(status, 3);
}

bool IsSeatCode(const Text& code) {
  return IsAnyOf(code, {u"SEAT", u"SMSA", u"SMSB", u"SMST", u"SMSW", u"NSSA", u"NSSB", u"NSST", u"NSSW", u"RQST"});
}

void CollectSeats(ReferenceScan& scan, int index, const Text& element) {
  Text seats;
  Text passengers;
  for (int n = 2; IsDigitAt(Field(element, n, u"/"), 1); ++n) {
    seats += u"," + Field(Field(element, n, u"/"), 1, u",");
    passengers += u"," + Field(Field(element, n, u"/"), 2, u",");
  }
  if (Left(seats, 1) == u",") {
    seats = MidToEnd(seats, 2);
  }
  if (Left(passengers, 1) == u",") {
    passengers = MidToEnd(passengers, 2);
  }
  while (InStr(passengers, u"P") != 0) {
    passengers.erase(passengers.find(u'P'), 1);
  }
  At(scan, u"strKeySeatNbr", index) = seats;
  At(scan, u"strKeyPasAsso", index) = passengers;
}

Text FreeText(const Text& element, bool flagged, bool otherServiceWithoutStatus) {
  if (Trim(MidToEnd(element, 18)).empty()) {
    return u"";
  }
  if (otherServiceWithoutStatus) {
    return Trim(CutBefore(MidToEnd(element, 16), u"/"));
  }
  const int column = flagged ? 20 : 19;
  const Text freeText = Trim(MidToEnd(element, column));
  const bool isLeftover = freeText.size() == 2 && (Left(freeText, 1) == u"P" || Left(freeText, 1) == u"S") &&
                          IsDigitAt(freeText, 2) && Mid(element, column - 1, 1) == u"/";
  return isLeftover ? u"" : freeText;
}

void StoreSpecialService(ReferenceScan& scan, int index, const Text& element) {
  const Text number = Trim(Left(element, 2));
  const bool flagged = Mid(element, 4, 1) == u"*" || Mid(element, 5, 1) == u"*" || Mid(element, 3, 1) == u"*";
  int column = number.size() == 1 ? 7 : 8;
  if (flagged) {
    column += 1;
  }
  const Text code = Trim(Mid(element, column, 5));
  At(scan, u"strKeyElement", index) = element;
  At(scan, u"strKeyElementNr", index) = number;
  At(scan, u"blnKeyAsterix", index) = Flag(flagged);
  At(scan, u"strKeyCode", index) = code;
  if (IsSeatCode(code)) {
    At(scan, u"blnKeySeat", index) = u"True";
    if (IsAnyOf(code, {u"NSST", u"RQST", u"SMST", u"NSSW"})) {
      CollectSeats(scan, index, element);
    }
  }
  if (code == u"FQTV") {
    At(scan, u"strKeyFFNnumber", index) = Trim(Field(element, 2, u"/"));
  }
  At(scan, u"strKeyAirline", index) = Trim(Mid(element, column + 5, 3));
  Text status = Trim(Mid(element, column + 8, 3));
  if (Mid(status, 3, 1) == u"/") {
    status = Mid(element, column + 8, 2);
  }
  const bool otherServiceWithoutStatus = code == u"OTHS" && !IsStatusCode(status);
  if (otherServiceWithoutStatus) {
    status = u"";
  }
  At(scan, u"strKeyStatus", index) = status;
  At(scan, u"strKeyFreeText", index) = FreeText(element, flagged, otherServiceWithoutStatus);
  const int segment = FindSegmentMark(element);
  const int passenger = FindPassengerMark(element);
  At(scan, u"strKeySegAsso", index) = SegmentPart(element, passenger, segment);
  if (At(scan, u"strKeyPasAsso", index).empty()) {
    At(scan, u"strKeyPasAsso", index) = PassengerPart(element, passenger, segment);
  }
}

// An upper bound of the number of lines in the text. Every line but the last ends in a line break or has 80 characters.
int MostLines(const Text& text) {
  int breaks = 0;
  for (const char16_t character : text) {
    breaks += character == u'\r' || character == u'\n' ? 1 : 0;
  }
  return breaks + static_cast<int>(text.size()) / 80 + 1;
}

// The result of a scan that ends early: its count is 0, whatever the scan has found.
ReferenceScan& Abandon(ReferenceScan& scan) {
  scan.count = 0;
  return scan;
}

ReferenceScan& Complete(ReferenceScan& scan, int count) {
  scan.count = count;
  return scan;
}

}  // namespace

ReferenceScan ReferenceSpecialService(const ReadDisplay& read) {
  ReferenceScan scan = Reset({u"strKeyElement", u"strKeyElementNr", u"strKeyStatus", u"strKeyPasAsso", u"strKeySegAsso",
                              u"strKeyCode", u"strKeyAirline", u"strKeyFFNnumber", u"strKeyFreeText", u"strKeySeatNbr"},
                             {u"blnKeyAsterix"}, {u"blnKeySeat"});
  const Text text = read();
  int count = 0;
  bool previousLine = false;
  for (int n = 2;; ++n) {
    if (previousLine) {
      ++count;
    }
    const Text line = Line(text, n);
    if (InStr(line, u"> ") != 0) {
      return Abandon(scan);
    }
    if (line.empty()) {
      return Complete(scan, count);
    }
    previousLine = InStr(line, u"SSR") != 0;
    if (!previousLine) {
      continue;
    }
    Text element = Trim(line);
    if (Left(element, 3) == u"SSR" || Left(element, 4) == u"*SSR") {
      return Abandon(scan);  // the element has no number
    }
    Grow(scan, count);
    while (Left(Line(text, n + 1), 4) == u"    ") {
      element += u" " + Trim(MidToEnd(Line(text, n + 1), 8));
      ++n;
    }
    StoreSpecialService(scan, count, element);
  }
}

ReferenceScan ReferenceOtherService(const ReadDisplay& read) {
  ReferenceScan scan = Reset({u"strKeyElement", u"strKeyElementNr", u"strKeyText", u"strKeyPasAsso", u"strKeyAirline"});
  int count = 0;
  bool previousRow = false;
  for (int p = 81;; p += 80) {
    if (previousRow) {
      ++count;
    }
    const Text text = read();
    if (p > static_cast<int>(text.size()) || Mid(text, p, 3) == u"> ") {
      return Complete(scan, count);
    }
    previousRow = Mid(text, p + 4, 3) == u"OSI";
    if (!previousRow) {
      continue;
    }
    Grow(scan, count);
    const Text element = Trim(Mid(text, p + 1, 79));
    At(scan, u"strKeyElement", count) = element;
    At(scan, u"strKeyElementNr", count) = Trim(Left(element, 2));
    At(scan, u"strKeyAirline", count) = Trim(Mid(element, 7, 3));
    At(scan, u"strKeyText", count) = Trim(MidToEnd(element, 10));
    for (int at = InStr(element, u"/P"); at != 0; at = InStr(at + 1, element, u"/P")) {
      if (IsDigitAt(element, at + 2)) {
        for (int digit = at + 2; IsDigitAt(element, digit); ++digit) {
          At(scan, u"strKeyPasAsso", count) += Mid(element, digit, 1);
        }
        break;
      }
    }
  }
}

ReferenceScan ReferenceSecurity(const ReadDisplay& read) {
  ReferenceScan scan = Reset({u"strKeyItem", u"strKeyOfficeID", u"strKeyAccessMode"});
  const Text text = read();
  int count = 0;
  const auto store = [&](const Text& entry) {
    Grow(scan, count);
    At(scan, u"strKeyAccessMode", count) = Trim(Left(entry, 1));
    At(scan, u"strKeyOfficeID", count) = Trim(MidToEnd(entry, 3));
    At(scan, u"strKeyItem", count) = Trim(MidToEnd(entry, 10));
    ++count;
  };
  int n = 1;
  while (Left(RTrim(Line(text, n)), 7) != u"  * ES/") {
    if (InStr(Line(text, n), u"> ") != 0 || n > MostLines(text)) {
      return Complete(scan, 0);
    }
    ++n;
  }
  if (InStr(Line(text, n), u"> ") != 0) {
    return Complete(scan, 0);
  }
  int slashes = 0;
  for (const char16_t character : Line(text, n)) {
    slashes += character == u'/' ? 1 : 0;
  }
  if (slashes >= 2) {
    for (int field = 2; field <= slashes + 1 && count < 5; ++field) {
      store(Field(Line(text, n), field, u"/"));
    }
    return Complete(scan, count);
  }
  for (; count < 5 && !Line(text, n).empty() && InStr(Line(text, n), u"> ") == 0; ++n) {
    store(Line(text, n));
  }
  return Complete(scan, count);
}

ReferenceScan ReferenceManualTkt(const ReadDisplay& read) {
  ReferenceScan scan = Reset(
      {u"strKeyElement", u"strKeyElementNr", u"strKeyTktNbr", u"strKeyPasAsso", u"strKeySegAsso", u"strKeyAirline"},
      {u"blnKeyManual", u"blnKeyAutomated", u"blnKeyElectronic"});
  const Text text = read();
  int count = 0;
  bool previousLine = false;
  for (int n = 2;; ++n) {
    if (previousLine) {
      ++count;
    }
    const Text line = Line(text, n);
    if (Left(line, 2) == u"> " || Trim(line).empty()) {
      return Complete(scan, count);
    }
    const Text word = Field(line, 2, u" ");
    previousLine = Left(word, 2) == u"FH";
    if (!previousLine) {
      continue;
    }
    Grow(scan, count);
    const Text element = Trim(line);
    Text ticket = Field(line, 3, u" ");
    if (InStr(element, u"PAX") != 0) {
      ticket = MidToEnd(element, InStr(element, u"PAX") + 4);
    }
    ticket = Trim(CutBefore(ticket, u"/"));
    At(scan, u"strKeyElementNr", count) = Field(line, 1, u" ");
    At(scan, u"strKeyElement", count) = element;
    At(scan, u"strKeyTktNbr", count) = ticket;
    At(scan, u"strKeyAirline", count) = Left(ticket, 3);
    const int passenger = InStr(element, u"/P");
    const int segment = FindSegmentMark(element);
    At(scan, u"strKeyPasAsso", count) = PassengerPart(element, passenger, segment);
    if (segment != 0) {
      At(scan, u"strKeySegAsso", count) = passenger > segment ? Trim(Mid(element, segment + 2, passenger - segment - 2))
                                                              : Trim(MidToEnd(element, segment + 2));
    }
    At(scan, u"blnKeyManual", count) = Flag(Mid(word, 3, 1) == u"M");
    At(scan, u"blnKeyElectronic", count) = Flag(Mid(word, 3, 1) == u"E");
    At(scan, u"blnKeyAutomated", count) = Flag(Mid(word, 3, 1) == u"A");
  }
}

ReferenceScan ReferenceMiscTktInfo(const ReadDisplay& read) {
  ReferenceScan scan = Reset({u"strKeyElement", u"strKeyElementNr", u"strKeyText", u"strKeyPasAsso", u"strKeySegAsso",
                              u"strKeyTourCode", u"strKeyNetFare", u"strKeySellFare"});
  const Text text = read();
  int count = 0;
  bool previousLine = false;
  for (int n = 2;; ++n) {
    if (previousLine) {
      ++count;
    }
    const Text line = Line(text, n);
    if (InStr(line, u"> ") != 0) {
      return Abandon(scan);
    }
    if (line.empty()) {
      return Complete(scan, count);
    }
    previousLine = InStr(line, u" FS ") != 0;
    if (!previousLine) {
      continue;
    }
    Grow(scan, count);
    const Text element = Trim(Left(line, 80));
    const bool typed = InStr(element, u"PAX") != 0 || InStr(element, u"INF") != 0;
    const Text information = Trim(CutBefore(Trim(Mid(element, typed ? 10 : 6, 80)), u"/"));
    const auto behind = [&](const Text& mark) {
      const int at = InStr(information, mark);
      return at == 0 ? Text() : Trim(CutBefore(Mid(information, at + 2, 10), u","));
    };
    At(scan, u"strKeyElement", count) = element;
    At(scan, u"strKeyElementNr", count) = Trim(Left(element, 2));
    At(scan, u"strKeyText", count) = information;
    At(scan, u"strKeyNetFare", count) = behind(u"N-");
    At(scan, u"strKeySellFare", count) = behind(u"S-");
    At(scan, u"strKeyTourCode", count) = behind(u"T-");
    const int passenger = FindPassengerMark(element);
    const int segment = FindSegmentMark(element);
    At(scan, u"strKeyPasAsso", count) = PassengerPart(element, passenger, segment);
    At(scan, u"strKeySegAsso", count) = SegmentPart(element, passenger, segment);
  }
}

ReferenceScan ReferenceSUR(const std::vector<ReferenceElement>& elements) {
  ReferenceScan scan =
      Reset({u"strKeyElement", u"strKeyElementNr", u"strKeyAddress", u"strKeyPUTime", u"strKeyPasAsso"},
            {u"blnKeyArrival", u"blnKeyDeparture"});
  int count = 0;
  for (const auto& [text, number] : elements) {
    if (InStr(Left(text, 10), u"SUR") == 0) {
      continue;
    }
    ++count;
    Grow(scan, count);
    At(scan, u"strKeyElement", count) = text;
    At(scan, u"strKeyElementNr", count) = number;
    At(scan, u"strKeyAddress", count) = Field(text, 5, u"/");
    At(scan, u"strKeyPUTime", count) = Field(text, 2, u"/");
    At(scan, u"blnKeyArrival", count) = Flag(Field(text, 3, u"/") == u"A");
    At(scan, u"blnKeyDeparture", count) = Flag(Field(text, 3, u"/") == u"D");
    if (InStr(Right(text, 4), u"/P") != 0) {
      At(scan, u"strKeyPasAsso", count) = Right(text, 1);
    }
  }
  return Complete(scan, count);
}

ReferenceScan ReferenceSP(const ReadDisplay& read) {
  ReferenceScan scan = Reset({u"strKeyElement", u"strKeyRecLoc"});
  int count = 0;
  for (int n = 1;; ++n) {
    const Text line = Line(read(), n);
    if (InStr(line, u"> ") != 0 || (line.empty() && n > 2)) {
      return Complete(scan, count);
    }
    if (Left(Trim(line), 4) == u"* SP") {
      ++count;
      Grow(scan, count);
      At(scan, u"strKeyElement", count) = Trim(line);
      At(scan, u"strKeyRecLoc", count) = Right(Trim(line), 6);
    }
  }
}

ReferenceScan ReferenceATX(const ReadDisplay& read) {
  ReferenceScan scan = Reset({u"strKeySegment", u"strKeySegmentNr", u"strKeyDepCity", u"strKeyArrCity",
                              u"strKeyProvider", u"strKeyDepDate", u"strKeyFreeText", u"strKeyStatus"});
  const Text text = read();
  int count = 0;
  for (int n = 1;; ++n) {
    const Text line = Line(text, n);
    if (InStr(line, u"> ") != 0 || (line.empty() && n > 2)) {
      return Complete(scan, count);
    }
    if (Mid(line, 5, 4) != u"ATX ") {
      continue;
    }
    ++count;
    Grow(scan, count);
    const Text rest = Trim(MidToEnd(line, 3));
    At(scan, u"strKeySegment", count) = line;
    At(scan, u"strKeySegmentNr", count) = Trim(Left(line, 2));
    At(scan, u"strKeyProvider", count) = Trim(Mid(rest, 5, 2));
    At(scan, u"strKeyStatus", count) = Trim(Mid(rest, 8, 3));
    At(scan, u"strKeyDepCity", count) = Trim(Mid(rest, 12, 3));
    At(scan, u"strKeyArrCity", count) = Trim(Mid(rest, 15, 3));
    At(scan, u"strKeyDepDate", count) = Trim(Mid(rest, 19, 5));
    if (InStr(rest, u"-") != 0) {
      At(scan, u"strKeyFreeText", count) = Trim(MidToEnd(rest, InStr(rest, u"-") + 1));
    }
  }
}

namespace {

bool IsMCO(const Text& line) {
  return Mid(line, 3, 3) == u"MCO" || Mid(line, 4, 3) == u"MCO";
}

void StoreMCO(ReferenceScan& scan, int index, const Text& line) {
  const Text element = Trim(MidToEnd(line, 3));
  At(scan, u"strKeyElementNr", index) = Trim(Left(line, 2));
  At(scan, u"strKeyElement", index) = element;
  At(scan, u"strKeyAirline", index) = Field(element, 2, u" ");
  At(scan, u"strKeyOrigin", index) = Field(element, 3, u" ");
  At(scan, u"strKeyDepDate", index) = CutBefore(Field(element, 4, u" "), u"/");
  At(scan, u"strKeyFare", index) = Trim(Field(element, 2, u"/"));
  const int service = InStr(element, u"/*");
  if (service != 0) {
    const Text type = MidToEnd(element, service + 2);
    const int passenger = InStr(type, u"/P");
    At(scan, u"strKeyServiceType", index) = Trim(CutBefore(type, u"/P"));
    At(scan, u"strKeyPasAsso", index) = passenger == 0 ? u"" : Trim(MidToEnd(type, passenger + 2));
  }
}

void StoreTicketing(ReferenceScan& scan, int index, const Text& line) {
  const Text text = Trim(line);
  const bool isNumbered = IsDigitAt(text, 1);
  const Text keyword = Field(text, isNumbered ? 2 : 1, u" ");
  if (!IsAnyOf(keyword, {u"FA", u"FP", u"FM"})) {
    return;
  }
  Text& stored = At(scan, u"strKeyMCO" + keyword + u"Element", index);
  if (!stored.empty()) {
    return;
  }
  stored = text;
  if (keyword == u"FA") {
    Text number = Field(Trim(MidToEnd(text, InStr(text, u"FA") + 2)), 1, u" ");
    if (InStr(text, u"PAX") != 0) {
      number = MidToEnd(text, InStr(text, u"PAX") + 4);
    }
    At(scan, u"strKeyMCOFATicketNbr", index) = Trim(CutBefore(number, u"/"));
  }
}

}  // namespace

ReferenceScan ReferenceMCO(const ReadDisplay& read) {
  ReferenceScan scan = Reset({u"strKeyElement", u"strKeyElementNr", u"strKeyAirline", u"strKeyOrigin", u"strKeyDepDate",
                              u"strKeyPasAsso", u"strKeyFare", u"strKeyServiceType", u"strKeyMCOFAElement",
                              u"strKeyMCOFATicketNbr", u"strKeyMCOFPElement", u"strKeyMCOFMElement"});
  const Text text = read();
  int count = 0;
  bool sawText = false;
  bool behindMCO = false;
  for (int n = 1;; ++n) {
    const Text line = Line(text, n);
    if (InStr(line, u"> ") != 0 || (line.empty() && sawText) || n > static_cast<int>(text.size()) + 1) {
      return Complete(scan, count);
    }
    sawText = sawText || !line.empty();
    if (IsMCO(line)) {
      ++count;
      Grow(scan, count);
      StoreMCO(scan, count, line);
      behindMCO = true;
    } else if (behindMCO && Left(line, 3) == u"   ") {
      StoreTicketing(scan, count, line);
    } else {
      behindMCO = false;
    }
  }
}

// Stores the passengers after the first "/P" and the segments after the first "/S", whatever follows these marks.
// Returns false when "/P" precedes "/S": the length of the segments, which end at "/P", would be negative.
static bool StoreFareAssociations(ReferenceScan& scan, int index, const Text& element) {
  const int passenger = InStr(element, u"/P");
  const int segment = InStr(element, u"/S");
  if (passenger != 0) {
    At(scan, u"strKeyPasAsso", index) = Trim(MidToEnd(element, passenger + 2));
  }
  if (segment == 0) {
    return true;
  }
  if (passenger == 0) {
    At(scan, u"strKeySegAsso", index) = Trim(MidToEnd(element, segment + 2));
    return true;
  }
  const int length = passenger - segment - 2;
  if (length >= 0) {
    At(scan, u"strKeySegAsso", index) = Mid(element, segment + 2, length);
  }
  return length >= 0;
}

ReferenceScan ReferenceValidatingAirline(const ReadDisplay& read) {
  ReferenceScan scan =
      Reset({u"strKeyElement", u"strKeyElementNr", u"strKeyAirline", u"strKeyPasAsso", u"strKeySegAsso"});
  int count = 0;
  for (int n = 4;; ++n) {
    const Text line = Line(read(), n);
    if (Mid(line, 5, 2) != u"FV") {
      if (line.empty() || Left(line, 2) == u"> ") {
        return Complete(scan, count);
      }
      continue;
    }
    Grow(scan, count);
    const Text number = Trim(Left(line, 3));
    const Text element = Trim(line);
    At(scan, u"strKeyElementNr", count) = number;
    At(scan, u"strKeyElement", count) = element;
    if (InStr(element, u"PAX *") != 0) {
      At(scan, u"strKeyAirline", count) = Mid(element, InStr(element, u"PAX *") + 7, 2);
    } else if (InStr(element, u"PAX") != 0) {
      At(scan, u"strKeyAirline", count) = Mid(element, InStr(element, u"PAX") + 4, 2);
    } else if (InStr(element, u"INF") != 0) {
      At(scan, u"strKeyAirline", count) = Mid(element, InStr(element, u"INF") + 4, 2);
    } else if (number.size() == 1) {
      At(scan, u"strKeyAirline", count) = Mid(element, 6, 2);
    } else if (number.size() == 2) {
      At(scan, u"strKeyAirline", count) = Mid(element, 7, 2);
    }
    if (!StoreFareAssociations(scan, count, element)) {
      return Abandon(scan);
    }
    ++count;
  }
}

ReferenceScan ReferenceAirSequence(const ReadDisplay& read) {
  ReferenceScan scan = Reset({u"strKeyElement", u"strKeyElementNr", u"strKeyPasAsso", u"strKeySegAsso"});
  const Text text = read();
  int count = 0;
  for (int p = 81; p <= static_cast<int>(text.size()); p += 80) {
    if (Mid(text, p + 4, 2) != u"FB") {
      if (Mid(text, p, 2) == u"> ") {
        break;
      }
      continue;
    }
    Grow(scan, count);
    const Text element = Trim(Mid(text, p + 1, 79));
    At(scan, u"strKeyElement", count) = element;
    At(scan, u"strKeyElementNr", count) = Trim(Mid(text, p + 1, 2));
    if (!StoreFareAssociations(scan, count, element)) {
      scan.error = 5;
      return Abandon(scan);
    }
    ++count;
  }
  return Complete(scan, count);
}

}  // namespace wendrill::testing
