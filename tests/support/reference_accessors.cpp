#include "support/reference_accessors.h"

#include <cmath>
#include <cstdlib>

#include "common/numeric.h"
#include "common/text.h"
#include "support/call_log.h"
#include "support/describe.h"
#include "support/reference_text.h"

namespace wendrill::testing {
namespace {

using Text = std::u16string;

struct Failure {
  std::int32_t number;
};

// --- What the run time does

Text ShortDate(const Date& date) {
  // Formats only the dates that RandomElements generates: 39611 and 39814.
  if (date.days == 39611) {
    return u"6/12/2008";
  }
  return date.days == 39814 ? u"1/1/2009" : u"12/31/2008";
}

Text AsText(const Value& value) {
  if (value.As<Null>() != nullptr) {
    throw Failure{94};
  }
  if (const auto* text = value.As<Text>()) {
    return *text;
  }
  if (const auto* number = value.As<std::int16_t>()) {
    return FromUtf8(std::to_string(*number));
  }
  if (const auto* number = value.As<std::int32_t>()) {
    return FromUtf8(std::to_string(*number));
  }
  if (const auto* date = value.As<Date>()) {
    return ShortDate(*date);
  }
  return u"";
}

double AsNumber(const Value& value) {
  if (value.As<Null>() != nullptr) {
    throw Failure{94};
  }
  if (const auto* truth = value.As<bool>()) {
    return *truth ? -1 : 0;
  }
  if (const auto* number = value.As<std::int16_t>()) {
    return *number;
  }
  if (const auto* number = value.As<std::int32_t>()) {
    return *number;
  }
  if (const auto* number = value.As<double>()) {
    return *number;
  }
  if (const auto* text = value.As<Text>()) {
    const std::string digits = ToUtf8(Trim(*text));
    char* end = nullptr;
    const double number = std::strtod(digits.c_str(), &end);
    if (digits.empty() || *end != '\0') {
      throw Failure{13};
    }
    return number;
  }
  return 0;
}

double RoundedHalfToEven(double number) {
  const double floor = std::floor(number);
  const double rest = number - floor;
  if (rest == 0.5) {
    return std::fmod(floor, 2) == 0 ? floor : floor + 1;
  }
  return rest < 0.5 ? floor : floor + 1;
}

int Within(double number, double lowest, double highest) {
  const double rounded = RoundedHalfToEven(number);
  if (rounded < lowest || rounded > highest) {
    throw Failure{6};
  }
  return static_cast<int>(rounded);
}

int As16Bits(const Value& value) {
  return Within(AsNumber(value), -32768, 32767);
}

int As32Bits(const Value& value) {
  return Within(AsNumber(value), -2147483648.0, 2147483647.0);
}

// Mid and Left that fail as those of the automation run time: with 5 when `first` is less than 1 or `length` is
// negative.
Text CheckedMid(const Text& text, int first, int length) {
  if (first < 1 || length < 0) {
    throw Failure{5};
  }
  return Mid(text, first, length);
}

Text CheckedLeft(const Text& text, int length) {
  return CheckedMid(text, 1, length);
}

bool IsNumericAt(const Text& text, int position) {
  return IsNumeric(Mid(text, position, 1));
}

// --- One call

class Call {
 public:
  Call(const AccessorCase& given, ReferenceRecord& record) : given_(given), record_(record) {}

  Value Index() {
    const std::size_t read = record_.indexReads++;
    return given_.indexes[read < given_.indexes.size() ? read : given_.indexes.size() - 1];
  }

  Text Display() {
    const std::size_t read = record_.displayReads++;
    if (given_.failingRead == read) {
      throw Failure{ForeignError().Number()};
    }
    return given_.displays[read < given_.displays.size() ? read : given_.displays.size() - 1];
  }

  void Set(const Text& key, Value value) { record_.settings.emplace_back(key, std::move(value)); }

  // The segment at the index. The index is read once and converted to a 16-bit number before it is compared with the
  // count. Null when the collection has no segment at the index. With `timedAndUntimedOnly`, segments that are neither
  // timed nor untimed are skipped and have no index.
  const ToolkitElement* Segment(int count, int error, bool timedAndUntimedOnly = false) {
    const int index = As16Bits(Index());
    if (index >= count) {
      throw Failure{error};
    }
    int counter = 0;
    for (const ToolkitElement& segment : given_.elements) {
      if (timedAndUntimedOnly && segment.type != SegmentType::Timed && segment.type != SegmentType::Untimed) {
        continue;
      }
      if (counter == index) {
        return &segment;
      }
      ++counter;
    }
    return nullptr;
  }

  // The element at the index; null when there is none. The index is compared with the count before it is converted to a
  // 16-bit number, and it is read and converted again for each element.
  const ToolkitElement* Element(int error) {
    if (AsNumber(Index()) >= given_.count) {
      throw Failure{error};
    }
    int counter = 0;
    for (const ToolkitElement& element : given_.elements) {
      if (As16Bits(Index()) == counter) {
        return &element;
      }
      ++counter;
    }
    return nullptr;
  }

  // The MIS element at the index; null when there is none. The index is read once, and is compared with the count
  // before it is converted to a 16-bit number.
  const ToolkitElement* MisElement() {
    const Value index = Index();
    if (AsNumber(index) >= given_.count) {
      throw Failure{2206};
    }
    const int position = As16Bits(index);
    int counter = 0;
    for (const ToolkitElement& element : given_.elements) {
      if (position == counter) {
        return &element;
      }
      ++counter;
    }
    return nullptr;
  }

 private:
  const AccessorCase& given_;
  ReferenceRecord& record_;
};

Value Read(const ToolkitElement& element, const Text& property) {
  const auto& value = element.properties.at(property);
  if (!value) {
    throw Failure{ForeignError().Number()};
  }
  return *value;
}

Text ReadText(const ToolkitElement& element, const Text& property) {
  return AsText(Read(element, property));
}

// --- Air segments

// How many columns the text is shifted to the right: 1 when the element number has two or more characters, else 0.
int Moved(const ToolkitElement& segment) {
  return ReadText(segment, u"ElementNo").size() >= 2 ? 1 : 0;
}

Text Airline(const ToolkitElement& segment) {
  return Mid(ReadText(segment, u"Text"), 4 + Moved(segment), 2);
}

Text Status(const ToolkitElement& segment) {
  return Trim(Mid(ReadText(segment, u"Text"), 27 + Moved(segment), 5));
}

Text FlightNumber(const ToolkitElement& segment) {
  return Field(Trim(MidToEnd(ReadText(segment, u"Text"), 6 + Moved(segment))), 1, u" ");
}

Value DepartureDate(const ToolkitElement& segment) {
  return BracketedDate(Read(segment, u"DepartureDate"));
}

bool IsTimed(const ToolkitElement& segment) {
  return segment.type == SegmentType::Timed;
}

void ActiveAirSegments(Call& call, int count) {
  const ToolkitElement* segment = call.Segment(count, 2205, true);
  if (segment == nullptr) {
    return;
  }
  call.Set(u"strKeySegment", ReadText(*segment, u"Text"));
  call.Set(u"strKeyAirline", Airline(*segment));
  const Text status = Status(*segment);
  call.Set(u"strKeyStatus", status);
  const bool confirmed = Left(status, 2) == u"GK";
  call.Set(u"strKeyConfirmationNbr", confirmed ? Trim(Mid(ReadText(*segment, u"Text"), 53, 6)) : Text());
  call.Set(u"strKeySegmentNr", ReadText(*segment, u"ElementNo"));
  call.Set(u"strKeyDepCity", ReadText(*segment, u"BoardPoint"));
  call.Set(u"strKeyClass", ReadText(*segment, u"Class"));
  const Text text = ReadText(*segment, u"Text");
  if (Mid(text, 6, 4) == u"OPEN" || Mid(text, 7, 4) == u"OPEN") {
    call.Set(u"blnKeyOpenSeg", true);
  } else {
    call.Set(u"blnKeyOpenSeg", false);
    call.Set(u"strKeyNumber", FlightNumber(*segment));
  }
  call.Set(u"strKeyDepDate", DepartureDate(*segment));
  call.Set(u"strKeyArrCity", ReadText(*segment, u"OffPoint"));
  if (IsTimed(*segment)) {
    call.Set(u"strKeyArrTime", ReadText(*segment, u"ArrivalTime"));
    call.Set(u"strKeyDepTime", ReadText(*segment, u"DepartureTime"));
    call.Set(u"strKeyDayChange", ReadText(*segment, u"DayChange"));
  }
}

void AirSegments(Call& call, int count) {
  const ToolkitElement* segment = call.Segment(count, 2207);
  if (segment == nullptr) {
    return;
  }
  call.Set(u"strKeySegment", ReadText(*segment, u"Text"));
  call.Set(u"strKeyAirline", Airline(*segment));
  call.Set(u"strKeySegmentNr", ReadText(*segment, u"ElementNo"));
  call.Set(u"strKeyDepCity", ReadText(*segment, u"BoardPoint"));
  call.Set(u"strKeyClass", ReadText(*segment, u"Class"));
  call.Set(u"strKeyDepDate", DepartureDate(*segment));
  call.Set(u"strKeyArrCity", ReadText(*segment, u"OffPoint"));
  call.Set(u"strKeyArrTime", ReadText(*segment, u"ArrivalTime"));
  call.Set(u"strKeyDepTime", ReadText(*segment, u"DepartureTime"));
  call.Set(u"strKeyNumber", FlightNumber(*segment));
}

void AllAirSegments(Call& call, int count) {
  const ToolkitElement* segment = call.Segment(count, 2209);
  if (segment == nullptr) {
    return;
  }
  call.Set(u"strKeySegment", ReadText(*segment, u"Text"));
  call.Set(u"strKeyAirline", Airline(*segment));
  call.Set(u"strKeySegmentNr", ReadText(*segment, u"ElementNo"));
  call.Set(u"strKeyDepCity", ReadText(*segment, u"BoardPoint"));
  call.Set(u"strKeyClass", ReadText(*segment, u"Class"));
  call.Set(u"strKeyDepDate", DepartureDate(*segment));
  call.Set(u"strKeyArrCity", ReadText(*segment, u"OffPoint"));
  if (IsTimed(*segment)) {
    call.Set(u"strKeyArrTime", ReadText(*segment, u"ArrivalTime"));
    call.Set(u"strKeyDepTime", ReadText(*segment, u"DepartureTime"));
  }
  call.Set(u"strKeyNumber", FlightNumber(*segment));
}

void FlownAirSegments(Call& call, int count) {
  const ToolkitElement* segment = call.Segment(count, 2217);
  if (segment == nullptr) {
    return;
  }
  call.Set(u"strKeySegment", ReadText(*segment, u"Text"));
  call.Set(u"strKeySegmentNr", ReadText(*segment, u"ElementNo"));
  call.Set(u"strKeyAirline", Airline(*segment));
  call.Set(u"strKeyDepCity", ReadText(*segment, u"BoardPoint"));
  call.Set(u"strKeyClass", ReadText(*segment, u"Class"));
  call.Set(u"strKeyDepDate", DepartureDate(*segment));
  call.Set(u"strKeyArrCity", ReadText(*segment, u"OffPoint"));
  call.Set(u"strKeyNumber", FlightNumber(*segment));
}

void OpenAirSegments(Call& call, int count) {
  const ToolkitElement* segment = call.Segment(count, 2225);
  if (segment == nullptr) {
    return;
  }
  call.Set(u"strKeySegment", ReadText(*segment, u"Text"));
  call.Set(u"strKeySegmentNr", ReadText(*segment, u"ElementNo"));
  call.Set(u"strKeyClass", ReadText(*segment, u"Class"));
  call.Set(u"strKeyAirline", Airline(*segment));
  call.Set(u"strKeyDepCity", ReadText(*segment, u"BoardPoint"));
  call.Set(u"strKeyDepDate", DepartureDate(*segment));
  call.Set(u"strKeyArrCity", ReadText(*segment, u"OffPoint"));
}

// --- Cars

struct CarRecord {
  Text segment, number, city, pickUp, dropOffCity, dropOff, passenger, code, price, paymentBase, confirmation;
  bool service = false, voucher = false;
};

bool IsCapitalAt(const Text& text, int position) {
  const Text character = Mid(text, position, 1);
  return !character.empty() && character >= u"A" && character <= u"Z";
}

void FindRate(CarRecord& car) {
  int marker = 0;
  for (const Text mark : {u"/RG-", u"/ES-", u"/RB-", u"/RQ-"}) {
    if (marker == 0) {
      marker = InStr(car.segment, mark);
    }
  }
  if (marker == 0) {
    return;
  }
  Text r = Trim(Field(MidToEnd(car.segment, marker + 1), 1, u"/"));
  if (r.empty()) {
    return;
  }
  r = MidToEnd(r, 4);
  int i = 1;
  while (!(IsCapitalAt(r, i) && IsCapitalAt(r, i + 1) && IsCapitalAt(r, i + 2))) {
    ++i;
    if (i > static_cast<int>(r.size())) {
      return;
    }
  }
  r = MidToEnd(r, i);
  car.price = Field(r, 1, u" ") + u" " + Field(r, 2, u" ");
  const int p = InStr(car.price, u"-");
  if (p > 1) {
    car.price = Left(car.price, p - 1);
  }
  car.paymentBase = Trim(MidToEnd(r, static_cast<int>(car.price.size()) + 1));
}

CarRecord ReadCar(const ToolkitElement& element) {
  CarRecord car;
  car.segment = ReadText(element, u"1");
  car.number = FromUtf8(std::to_string(As32Bits(Read(element, u"2"))));
  car.city = ReadText(element, u"8");
  car.pickUp = BracketedDate(ReadText(element, u"9"));
  car.dropOff = BracketedDate(ReadText(element, u"10"));
  car.code = ReadText(element, u"11");
  car.confirmation = ReadText(element, u"18");
  for (const Value& passenger : element.passengers) {
    car.passenger = AsText(passenger);
  }
  car.service = InStr(car.segment, u"RTSVCC") != 0;
  car.voucher = InStr(car.segment, u"/VV") != 0;
  const int dropOff = InStr(car.segment, u"/DO-");
  if (dropOff != 0) {
    car.dropOffCity = Mid(car.segment, dropOff + 4, 3);
  }
  FindRate(car);
  return car;
}

void CarSegment(Call& call, int count) {
  const ToolkitElement* element = call.Segment(count, 2211);
  const CarRecord car = element == nullptr ? CarRecord() : ReadCar(*element);
  call.Set(u"strKeySegment", car.segment);
  call.Set(u"strKeySegmentNr", car.number);
  call.Set(u"strKeyCity", car.city);
  call.Set(u"strKeyPuDate", car.pickUp);
  call.Set(u"strKeyDoCity", car.dropOffCity);
  call.Set(u"strKeyDoDate", car.dropOff);
  call.Set(u"strKeyPasAsso", car.passenger);
  call.Set(u"strKeyCarCode", car.code);
  call.Set(u"strKeyPrice", car.price);
  call.Set(u"strKeyPaymentBase", car.paymentBase);
  call.Set(u"blnKeyRTSVCC", car.service);
  call.Set(u"strKeyConfNo", car.confirmation);
  call.Set(u"blnKeyVchr", car.voucher);
}

// --- Hotels

void HotelSegment(Call& call, int count) {
  const ToolkitElement* hotel = call.Segment(count, 2221);
  if (hotel == nullptr) {
    return;
  }
  const Text text = ReadText(*hotel, u"Text");
  call.Set(u"strKeySegment", text);
  const int passenger = InStr(text, u"/P");
  if (passenger != 0 && IsDigitAt(text, passenger + 2)) {
    call.Set(u"strKeyPasAsso", Mid(text, passenger + 2, 1));
  }
  call.Set(u"strKeySegmentNr", ReadText(*hotel, u"ElementNo"));
  call.Set(u"strKeyCity", ReadText(*hotel, u"City"));
  call.Set(u"strKeyInDate", BracketedDate(Read(*hotel, u"CheckinDate")));
  call.Set(u"strKeyOutDate", BracketedDate(Read(*hotel, u"CheckoutDate")));
  call.Set(u"strKeyConfNo", ReadText(*hotel, u"ConfirmationNo"));
  call.Set(u"strKeyRoomRate", Right(ReadText(*hotel, u"RoomRateCode"), 3));
  const Text word = Field(text, 12, u" ");
  // A search that begins after the end of the text finds nothing, even if `word` is empty.
  const int q = text.size() < 59 ? 0 : InStr(59, text, word);
  if (q == 0) {
    throw Failure{5};
  }
  const Text fromName = MidToEnd(text, q);
  call.Set(u"strKeyHotelName", CheckedLeft(fromName, InStr(fromName, u"/") - 1));
  if (InStr(text, u"SEE RTSVCH") != 0) {
    call.Set(u"blnKeyRTSVCH", true);
  }
  call.Set(u"strKeyPrice", Field(text, 9, u" "));
  call.Set(u"strKeyPaymentBase", Field(text, 10, u" "));
}

// --- Names, remarks, contacts

void SetTextAndNumber(Call& call, const ToolkitElement& element) {
  call.Set(u"strKeyElement", Read(element, u"Text"));
  call.Set(u"strKeyElementNr", Read(element, u"ElementNo"));
}

void PlainElement(Call& call, int error) {
  const ToolkitElement* element = call.Element(error);
  if (element != nullptr) {
    SetTextAndNumber(call, *element);
  }
}

void NameElement(Call& call) {
  const ToolkitElement* name = call.Element(2223);
  if (name == nullptr) {
    return;
  }
  SetTextAndNumber(call, *name);
  call.Set(u"strKeyInitial", Read(*name, u"Initial"));
  call.Set(u"strKeyLastName", Read(*name, u"LastName"));
  const Text text = ReadText(*name, u"Text");
  const int p = InStr(text, u"(");
  if (p > 0) {
    Text type;
    for (const char16_t character : MidToEnd(text, p + 1)) {
      if (character != u')') {
        type += character;
      }
    }
    call.Set(u"strKeyPapType", type);
  }
}

void ContactElements(Call& call) {
  const ToolkitElement* contact = call.Element(2239);
  if (contact == nullptr) {
    return;
  }
  SetTextAndNumber(call, *contact);
  const Text text = ReadText(*contact, u"Text");
  const int p = InStr(text, u"/P");
  const Text rest = p > 0 ? MidToEnd(text, p + 2) : Text();
  call.Set(u"strKeyPasAsso", IsNumeric(rest) ? rest : Text());
}

// The position of the first mark that is followed by a digit; 0 when there is none.
int MarkBeforeDigit(const Text& text, const Text& mark) {
  int p = InStr(text, mark);
  while (p > 0) {
    if (IsNumericAt(text, p + 2)) {
      return p;
    }
    p = InStr(p + 1, text, mark);
  }
  return 0;
}

void RemarkElement(Call& call) {
  const ToolkitElement* remark = call.Element(2229);
  if (remark == nullptr) {
    return;
  }
  call.Set(u"strKeyElement", Read(*remark, u"Text"));
  const Text text = ReadText(*remark, u"Text");
  Text passenger;
  const int passengerMark = MarkBeforeDigit(text, u"/P");
  if (passengerMark > 0) {
    passenger = Trim(MidToEnd(text, passengerMark + 2));
  }
  Text segment;
  const int segmentMark = MarkBeforeDigit(text, u"/S");
  if (segmentMark > 0 && passengerMark > 0) {
    segment = CheckedMid(text, segmentMark + 2, passengerMark - segmentMark - 2);
  } else if (segmentMark > 0) {
    segment = Trim(MidToEnd(text, segmentMark + 2));
  }
  Text free = ReadText(*remark, u"FreeFlow");
  const int suffix = MarkBeforeDigit(free, u"/S");
  if (suffix > 0) {
    free = Left(free, suffix - 1);
  }
  call.Set(u"strKeyPasAsso", passenger);
  call.Set(u"strKeySegAsso", segment);
  call.Set(u"strKeyElementNr", Read(*remark, u"ElementNo"));
  call.Set(u"strKeyText", free);
}

void MisElement(Call& call) {
  const ToolkitElement* element = call.MisElement();
  if (element == nullptr) {
    return;
  }
  Text text = ReadText(*element, u"Text");
  if (text.size() > 80) {
    text = Trim(Left(text, 80)) + Trim(MidToEnd(text, 81));
  }
  call.Set(u"strKeySegment", text);
  call.Set(u"strKeySegmentNr", Read(*element, u"ElementNo"));
}

// --- Tickets and fares

void TicketElement(Call& call) {
  const ToolkitElement* ticket = call.Element(2231);
  if (ticket == nullptr) {
    return;
  }
  SetTextAndNumber(call, *ticket);
  call.Set(u"strKeyAction", Read(*ticket, u"Action"));
  call.Set(u"strKeyDate", BracketedDate(ReadText(*ticket, u"Date")));
}

void FareCommissionElement(Call& call) {
  const ToolkitElement* commission = call.Element(2215);
  if (commission == nullptr) {
    return;
  }
  SetTextAndNumber(call, *commission);
  call.Set(u"strKeyValue", Read(*commission, u"Percent"));
}

void FormOfPaymentElement(Call& call) {
  const ToolkitElement* payment = call.Element(2219);
  if (payment == nullptr) {
    return;
  }
  Text t = ReadText(*payment, u"Text");
  const int blanks = InStr(t, u"    ");
  if (blanks > 0) {
    t = Left(t, blanks - 1);
  }
  call.Set(u"strKeyElement", t);
  call.Set(u"strKeyElementNr", Read(*payment, u"ElementNo"));
  Text value;
  std::map<Text, Text> fields;
  const int s = InStr(t, u"/");
  if (s == 0) {
    value = Trim(MidToEnd(t, 6));
  } else {
    const int x = InStr(t, u"PAX");
    value = x > 0 ? Trim(CheckedMid(t, x + 4, s - 11)) : Trim(CheckedMid(t, 6, s - 6));
    for (const Text marker : {u"/S", u"/P", u"/X", u"/N"}) {
      const int m = InStr(t, marker);
      if (m > 0) {
        Text field = Trim(MidToEnd(t, m + 2));
        const int slash = InStr(field, u"/");
        if (slash > 0) {
          field = Left(field, slash - 1);
        }
        fields[marker] = field;
      }
    }
  }
  call.Set(u"strKeyValue", value);
  call.Set(u"strKeyPasAsso", fields[u"/P"]);
  call.Set(u"strKeySegAsso", fields[u"/S"]);
  call.Set(u"strKeyExpireDate", fields[u"/X"]);
  call.Set(u"strKeyManualApproval", fields[u"/N"]);
}

// --- Fares of the display

struct FareEntry {
  Text element, number, airline, passenger, segment;
};

void CutAssociations(FareEntry& entry) {
  const Text& text = entry.element;
  const int p = InStr(text, u"/P");
  if (p > 0) {
    entry.passenger = Trim(MidToEnd(text, p + 2));
  }
  const int q = InStr(text, u"/S");
  if (q > 0) {
    entry.segment = p > 0 ? CheckedMid(text, q + 2, p - q - 2) : Trim(MidToEnd(text, q + 2));
  }
}

void CutAirline(FareEntry& entry) {
  const Text& text = entry.element;
  if (InStr(text, u"PAX") == 0) {
    if (InStr(text, u"INF") == 0) {
      if (entry.number.size() == 1) {
        entry.airline = Mid(text, 6, 2);
      } else if (entry.number.size() == 2) {
        entry.airline = Mid(text, 7, 2);
      }
    } else {
      entry.airline = Mid(text, InStr(text, u"INF") + 4, 2);
    }
  } else if (InStr(text, u"PAX *") != 0) {
    entry.airline = Mid(text, InStr(text, u"PAX *") + 7, 2);
  } else {
    entry.airline = Mid(text, InStr(text, u"PAX") + 4, 2);
  }
}

int ScanValidatingAirlines(Call& call, std::vector<FareEntry>& entries) {
  entries.assign(1, {});
  int count = 0;
  bool previousLine = false;
  try {
    for (int n = 4;; ++n) {
      if (previousLine) {
        ++count;
      }
      const Text line = Line(call.Display(), n);
      previousLine = Mid(line, 5, 2) == u"FV";
      if (previousLine) {
        entries.resize(static_cast<std::size_t>(count) + 1);
        FareEntry& entry = entries.back();
        entry.number = Trim(Left(line, 3));
        entry.element = Trim(line);
        CutAirline(entry);
        CutAssociations(entry);
      } else if (Left(line, 2) == u"> " || line.empty()) {
        return count;
      }
    }
  } catch (const Failure&) {
    return 0;
  }
}

int ScanAirSequences(Call& call, std::vector<FareEntry>& entries) {
  entries.assign(1, {});
  const Text text = call.Display();
  int count = 0;
  bool previousLine = false;
  for (int k = 81;; k += 80) {
    if (previousLine) {
      ++count;
    }
    previousLine = Mid(text, k + 4, 2) == u"FB";
    if (previousLine) {
      entries.resize(static_cast<std::size_t>(count) + 1);
      FareEntry& entry = entries.back();
      entry.element = Trim(Mid(text, k + 1, 79));
      entry.number = Trim(Mid(text, k + 1, 2));
      CutAssociations(entry);
    } else if (Mid(text, k, 2) == u"> " || k > static_cast<int>(text.size())) {
      return count;
    }
  }
}

// The entry at the index. The index is compared with the count first, then converted to a number via its string form.
// Fails with `error` for an index at or above the count, with 13 for Empty and for a Boolean, whose string forms are
// not numbers, and with 9 for an index outside `entries`.
const FareEntry& EntryAt(const Value& index, int count, int error, const std::vector<FareEntry>& entries) {
  if (AsNumber(index) >= count) {
    throw Failure{error};
  }
  if (index.IsEmpty() || index.As<bool>() != nullptr) {
    throw Failure{13};
  }
  const int i = As16Bits(index);
  if (i < 0 || i >= static_cast<int>(entries.size())) {
    throw Failure{9};
  }
  return entries[static_cast<std::size_t>(i)];
}

void ValidatingAirlineElement(Call& call) {
  const Value index = call.Index();
  std::vector<FareEntry> entries;
  const int count = ScanValidatingAirlines(call, entries);
  const FareEntry& entry = EntryAt(index, count, 2233, entries);
  call.Set(u"strKeyElement", entry.element);
  call.Set(u"strKeyElementNr", entry.number);
  call.Set(u"strKeyAirline", entry.airline);
  call.Set(u"strKeyPasAsso", entry.passenger);
  call.Set(u"strKeySegAsso", entry.segment);
}

void AirSequenceNrElement(Call& call) {
  const Value index = call.Index();
  std::vector<FareEntry> entries;
  const int count = ScanAirSequences(call, entries);
  const FareEntry& entry = EntryAt(index, count, 2213, entries);
  call.Set(u"strKeyElement", entry.element);
  call.Set(u"strKeyElementNr", entry.number);
  call.Set(u"strKeyPasAsso", entry.passenger);
  call.Set(u"strKeySegAsso", entry.segment);
}

// --- The header

void PnrHeader(Call& call, const ToolkitElement& header) {
  if (ReadText(header, u"Text").empty()) {
    throw Failure{2227};
  }
  const Text display = call.Display();
  bool tag = false;
  for (int n = 1; n <= 3; ++n) {
    tag = tag || InStr(Line(display, n), u" AXR ---") != 0;
  }
  const Text line = ReadText(header, u"1");
  call.Set(u"strKeyText", line);
  call.Set(u"strKeyQueOfficeID", Mid(line, 14, 9));
  call.Set(u"strKeyElementNr", std::int32_t{As32Bits(Read(header, u"2"))});
  call.Set(u"strKeyOfficeID", ReadText(header, u"4"));
  call.Set(u"strKeyRecordLocator", ReadText(header, u"6"));
  call.Set(u"blnKeyAXRTag", tag);
  call.Set(u"strKeyUpdateTime", Mid(line, 50, 4));
}

void Run(std::string_view member, const AccessorCase& given, Call& call) {
  if (member == "ActiveAirSegments") {
    ActiveAirSegments(call, given.count - given.flown);
  } else if (member == "AirSegments") {
    AirSegments(call, given.count - (given.open + given.flown));
  } else if (member == "AllAirSegments") {
    AllAirSegments(call, given.count);
  } else if (member == "FlownAirSegments") {
    FlownAirSegments(call, given.flown);
  } else if (member == "OpenAirSegments") {
    OpenAirSegments(call, given.open);
  } else if (member == "CarSegment") {
    CarSegment(call, given.count);
  } else if (member == "HotelSegment") {
    HotelSegment(call, given.count);
  } else if (member == "BillingAddressElements") {
    PlainElement(call, 2235);
  } else if (member == "ConfidentialRemarkElements") {
    PlainElement(call, 2241);
  } else if (member == "MailingAddressElements" || member == "OptionElements") {
    PlainElement(call, 2237);
  } else if (member == "ContactElements") {
    ContactElements(call);
  } else if (member == "NameElement") {
    NameElement(call);
  } else if (member == "RemarkElement") {
    RemarkElement(call);
  } else if (member == "TicketElement") {
    TicketElement(call);
  } else if (member == "FareCommissionElement") {
    FareCommissionElement(call);
  } else if (member == "FormOfPaymentElement") {
    FormOfPaymentElement(call);
  } else if (member == "ValidatingAirlineElement") {
    ValidatingAirlineElement(call);
  } else if (member == "AirSequenceNrElement") {
    AirSequenceNrElement(call);
  } else if (member == "PNRHeader") {
    PnrHeader(call, given.header);
  } else if (member == "MISElement") {
    MisElement(call);
  } else {
    std::abort();  // the member has no reference
  }
}

}  // namespace

std::u16string BracketedDate(const Value& date) {
  return u"<" + FromUtf8(Describe(date)) + u">";
}

ReferenceRecord ReferenceAccessor(std::string_view member, const AccessorCase& given) {
  ReferenceRecord record;
  Call call(given, record);
  try {
    Run(member, given, call);
    record.returnsBag = member == "ActiveAirSegments" || member == "FormOfPaymentElement" || member == "MISElement";
  } catch (const Failure& failure) {
    record.error = failure.number;
  }
  return record;
}

}  // namespace wendrill::testing
