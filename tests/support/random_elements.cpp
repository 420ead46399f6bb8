#include "support/random_elements.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <utility>

namespace wendrill::testing {
namespace {

const std::initializer_list<const char16_t*> kTraps = {
    u"/P1",  u"/S2",  u"/P",   u"/S",   u",P3", u"PAX",    u"PAX *",      u"INF", u"OPEN",
    u"GK",   u"/DO-", u"/RG-", u"/ES-", u"/VV", u"RTSVCC", u"SEE RTSVCH", u"(",   u")",
    u"    ", u"-",    u"/X",   u"/N",   u"> ",  u"FV",     u"FB"};

// From where a member reads its elements.
enum class Place {
  Collection,
  CollectionOfItsOwn,  // the collection of the flown or of the open air segments, whose sizes other members use too
  Cars,                // a collection whose elements have properties that are read by DISPID, not by name
  Header,
  Display,
};

}  // namespace

struct RandomElements::Source {
  std::string_view member;
  Place place;
  Text (RandomElements::*text)() = nullptr;
  Properties (RandomElements::*others)() = &RandomElements::NothingElse;
  const char16_t* code = u"";  // for Place::Display: the keyword of the element's line
};

using Random = RandomElements;
const Random::Source Random::kSources[] = {
    {"ActiveAirSegments", Place::Collection, &Random::AirSegment, &Random::OfAirSegment},
    {"AirSegments", Place::Collection, &Random::AirSegment, &Random::OfAirSegment},
    {"AllAirSegments", Place::Collection, &Random::AirSegment, &Random::OfAirSegment},
    {"BillingAddressElements", Place::Collection, &Random::Remark},
    {"CarSegment", Place::Cars, &Random::CarSegment},
    {"ConfidentialRemarkElements", Place::Collection, &Random::Remark},
    {"ContactElements", Place::Collection, &Random::Contact},
    {"FareCommissionElement", Place::Collection, &Random::Remark, &Random::OfFareCommission},
    {"FlownAirSegments", Place::CollectionOfItsOwn, &Random::AirSegment, &Random::OfAirSegment},
    {"FormOfPaymentElement", Place::Collection, &Random::FormOfPayment},
    {"HotelSegment", Place::Collection, &Random::HotelSegment, &Random::OfHotelSegment},
    {"MailingAddressElements", Place::Collection, &Random::Remark},
    {"NameElement", Place::Collection, &Random::Name, &Random::OfName},
    {"OpenAirSegments", Place::CollectionOfItsOwn, &Random::AirSegment, &Random::OfAirSegment},
    {"OptionElements", Place::Collection, &Random::Remark},
    {"PNRHeader", Place::Header},
    {"RemarkElement", Place::Collection, &Random::Remark, &Random::OfRemark},
    {"TicketElement", Place::Collection, &Random::Remark, &Random::OfTicket},
    {"ValidatingAirlineElement", Place::Display, nullptr, nullptr, u"FV"},
    {"AirSequenceNrElement", Place::Display, nullptr, nullptr, u"FB"},
    {"MISElement", Place::Collection, &Random::MisElement},
};

Value RandomElements::Index(std::size_t elements) {
  const auto whole = static_cast<std::int16_t>(static_cast<int>(Below(static_cast<unsigned>(elements) + 2)) - 1);
  if (!OneIn(5)) {
    return whole;
  }
  switch (Below(10)) {
    case 0:
      return Value();
    case 1:
      return std::int32_t{whole};
    case 2:
      return whole + 0.25 * static_cast<int>(Below(4));
    case 3:
      return Pick({u"0", u" 1 ", u"1.5", u"-0.5", u"2.75", u"ONE", u"", u"40000", u"-40000"});
    case 4:
      return Value(std::int32_t{40000});
    case 5:
      return Value(std::int32_t{-32769});
    case 6:
      return Value(OneIn(2) ? 1e300 : -1e300);
    case 7:
      return Value(OneIn(2));
    case 8:
      return Value(Null());
    default:
      return static_cast<double>(whole) - 0.25;
  }
}

Value RandomElements::Number() {
  switch (Below(10)) {
    case 0:
      return static_cast<std::int16_t>(Below(200));
    case 1:
      return static_cast<std::int32_t>(Below(1200));
    case 2:
      return OneIn(3) ? Value() : Value(Pick({u"", u"X", u"1 "}));
    default:
      return Digits(OneIn(8) ? 3 : 2);
  }
}

Value RandomElements::Date() {
  switch (Below(4)) {
    case 0:
      return wendrill::Date{39611};
    case 1:
      return wendrill::Date{39814};
    case 2:
      return Pick({u"12JUN08", u"6/12/2008", u"", u"TODAY"});
    default:
      return OneIn(4) ? Value() : Value(u"15JUN");
  }
}

std::u16string RandomElements::PaddedTo(Text text, std::size_t column) {
  while (text.size() + 1 < column) {
    text += u' ';
  }
  return text;
}

// The text of an air segment. In most texts the fields are in the right columns; one text in four is cut at a random
// place.
std::u16string RandomElements::AirSegment() {
  const Text number = OneIn(5) ? Digits(3) : Digits(2);
  Text text = PaddedTo(number, number.size() < 2 || OneIn(3) ? 4 : 5);
  text +=
      Pick({u"AF ", u"AF", u"A ", u"1A "}) + Pick({u"123 Y", u"OPEN Y", u" OPEN", u"6123Y", u"", u"  7 C", u"OPEN"});
  text += u" " + Pick({u"15JUN 3 NCECDG", u"15JUN", u"", u"15JUN 3 NCECDGXX"});
  text =
      PaddedTo(std::move(text), 26 + Below(3)) + Pick({u"HK1", u"GK1", u"GK", u"GK12", u"UN2", u"", u" GK1", u"G K"});
  text = PaddedTo(std::move(text), 52 + Below(3)) + Pick({u"ABC123", u"XYZ", u"", u" A B  ", u"ABCDEFGH"});
  if (OneIn(4)) {
    text.resize(Below(static_cast<unsigned>(text.size()) + 1));
  }
  return text;
}

std::u16string RandomElements::CarSegment() {
  Text text = Pick({u"3 CCR 1A HK1 NCE 15JUN 18JUN CCMR", u"CCR", u"", u"/"});
  for (unsigned n = Below(6); n > 0; --n) {
    text += Pick({u"/DO-CDG", u"/DO-", u"/DO-NC", u"/VV", u"/VV-123", u"RTSVCC", u"/RT-ABC", u"/ARR-AF123"});
    if (OneIn(2)) {
      text += Pick({u"/RG-", u"/ES-", u"/RB-", u"/RQ-", u"/RG", u"/ RG-"});
      text += Pick({u"EUR 30.00", u"EUR 30.00-UNL FREE KM", u"  EUR  30.00", u"eur 30", u"AB", u"ABC",
                    u"12 USD 5.00 DY", u"EURO 20 WK", u"", u" ", u"E-U R", u"EU-R 30", u"EEE-UUU 3", u"USD99.90 DY UNL",
                    u"-EUR 1-2 3", u"EUR 30.00 DY -", u"EUR"});
    }
  }
  return text;
}

// The text of a hotel segment: fields that are separated by single blanks. The twelfth field is the hotel's name; in
// most texts it begins near column 59.
std::u16string RandomElements::HotelSegment() {
  Text text = Pick({u"2 HHL", u"12", u"HTL"});
  for (unsigned field = text == u"2 HHL" ? 3 : 2; field < 12; ++field) {
    text += u" " +
            Pick({u"RT", u"HK1", u"NCE", u"IN15JUN", u"OUT18JUN", u"EUR90.00", u"DLY", u"1ROH", u"", u"GRAND", u"-"});
  }
  if (!OneIn(4)) {
    text = Text(text.size() < 58 ? 57 - text.size() + Below(4) : 0, u'X') + text;
  }
  text += u" " + Pick({u"GRAND", u"HOTEL", u"", u"A/B", u"PALACE/"}) + Pick({u" HOTEL NICE", u"", u" INN"});
  text += Pick({u"/", u"/", u"", u"/P1"}) + Pick({u"", u"SEE RTSVCH", u"SEE RTSVCC", u"/P2"}) + Associations();
  if (OneIn(6)) {
    text.resize(Below(static_cast<unsigned>(text.size()) + 1));
  }
  return text;
}

std::u16string RandomElements::Remark() {
  return Pick({u"28 RM ", u"RM ", u"", u"RC "}) +
         Pick({u"PAY AT AIRPORT", u"CALL /PARIS/SUITE", u"", u"SEAT/12A", u"/S", u"/P"}) + Associations();
}

std::u16string RandomElements::Contact() {
  return Pick({u"18 AP NCE 04 93", u"AP", u""}) +
         Pick({u"/P1", u"/P12", u"/P1-2", u"/P", u"/PA", u"/P 1", u"/P1 ", u"/P1/P2", u"/P1,2", u"/P+1", u"/P1.5", u"",
               u"/Q1", u"/P1-", u"/P(1)", u"/P1E2"});
}

std::u16string RandomElements::Name() {
  return Pick({u"1.", u"  2.", u""}) + Pick({u"SMITH/JOHN MR", u"BROWN/ANN", u""}) +
         Pick({u"", u"(ADT)", u"(INF/SMITH)", u"(INF/BROWN(X))(CHD)", u"(", u")", u")(", u"(ID123"});
}

std::u16string RandomElements::FormOfPayment() {
  Text text = Pick({u"30 FP ", u"FP ", u"FP PAX ", u"FP INF ", u"9 FP PAX", u"", u"FPPAX "}) +
              Pick({u"CCVI4111111111111111", u"CASH", u"", u"CHECK", u"O/CASH+/CCAX37"});
  for (unsigned n = Below(5); n > 0; --n) {
    text += Pick({u"/", u"/S2", u"/P1", u"/P 1-2 ", u"/X1210", u"/N12345", u"/X", u"/N ", u"/0810", u"    ", u"/SPLIT",
                  u" /S 3"});
  }
  return text;
}

// The text of a MIS element. Half of the texts reach about column 80, where the host wraps a text.
std::u16string RandomElements::MisElement() {
  Text text = Pick({u"16 MIS QT HK1 PAR 20JUN-TRAIN LYON", u"MIS", u"", u"  "});
  if (OneIn(2)) {
    text = PaddedTo(std::move(text), 78 + Below(6)) + Pick({u"", u"GUIDED TOUR", u"   WITH LUNCH ", u" "});
  }
  return text;
}

std::u16string RandomElements::FareLine(const Text& code) {
  if (OneIn(6)) {
    return Pick({u"", u"> ", u"> FV", u"  7 RM FV", u"XFV LH", u"    FV", u"    FB", u" FV", u">"});
  }
  Text line = Pick({u" 12 ", u"12  ", u"  9 ", u"9   ", u"123 ", u"    ", u" 1  ", u"1 2 ", u">19 "});
  line += OneIn(4) ? Pick({u"FV", u"FB", u"FM"}) : code;
  return line + Pick({u" PAX ", u" PAX *A*", u" INF ", u" ", u"", u" *A*", u"PAX", u" INF PAX "}) +
         Pick({u"LH", u"AF", u"0000000001 TTP", u"", u"L"}) + Associations();
}

// A display with lines of fare elements, in rows of 80 columns or in lines.
std::u16string RandomElements::FareDisplay(const Text& code) {
  // The library finds air sequence numbers (FB) only in rows without line breaks.
  const Text lineBreak = code == u"FB" && !OneIn(6) ? u"" : Pick({u"", u"\r\n", u"\n"});
  Text display;
  const unsigned lines = OneIn(6) ? Below(4) : 4 + Below(6);
  for (unsigned n = lines; n > 0; --n) {
    const bool isHead = lines - n < 3 && !OneIn(4);
    Text line = isHead ? Pick({u"--- RLR ---", u"RP/PARXX0100", u"  1.SMITH/JOHN MR"}) : FareLine(code);
    if (lineBreak.empty() && !(n == 1 && OneIn(2))) {
      line.resize(OneIn(40) ? line.size() : (line.size() + 79) / 80 * 80, u' ');
    }
    display += line + lineBreak;
  }
  return display;
}

std::u16string RandomElements::HeaderDisplay() {
  Text display;
  for (unsigned n = Below(6); n > 0; --n) {
    display +=
        Pick({u"--- RLR ---", u"  AXR ---", u" AXR ---", u"AXR ---", u" AXR --", u"RP/PARXX0100", u" axr ---", u""});
    display += Pick({u"\r\n", u"\r\n", u"\n", u""});
  }
  return display;
}

RandomElements::Properties RandomElements::Car(const Text& text) {
  return {{u"1", text},
          {u"2", OneIn(12) ? Number() : Value(static_cast<std::int32_t>(Below(200)))},
          {u"8", Pick({u"NCE", u"CDG"})},
          {u"9", Date()},
          {u"10", Date()},
          {u"11", Pick({u"CCMR", u""})},
          {u"18", Pick({u"123456", u""})}};
}

RandomElements::Properties RandomElements::OfAirSegment() {
  return {{u"BoardPoint", Pick({u"NCE", u"", u"CDG"})},
          {u"OffPoint", Pick({u"LHR", u"NCE"})},
          {u"Class", Pick({u"Y", u""})},
          {u"DepartureDate", Date()},
          {u"ArrivalTime", Pick({u"0910", u"", u"0910+1"})},
          {u"DepartureTime", Pick({u"0730", u""})},
          {u"DayChange", OneIn(3) ? Value(std::int16_t{1}) : Value(u"")}};
}

RandomElements::Properties RandomElements::OfHotelSegment() {
  return {{u"City", Pick({u"NCE", u"PAR"})},
          {u"CheckinDate", Date()},
          {u"CheckoutDate", Date()},
          {u"ConfirmationNo", Pick({u"CF123", u""})},
          {u"RoomRateCode", Pick({u"1KROH", u"RAC", u"AB", u""})}};
}

RandomElements::Properties RandomElements::OfName() {
  return {{u"Initial", Pick({u"JOHN MR", u""})}, {u"LastName", Pick({u"SMITH", u""})}};
}

RandomElements::Properties RandomElements::OfRemark() {
  return {{u"FreeFlow", OneIn(3) ? Mutated(Remark(), kTraps) : Remark()}};
}

RandomElements::Properties RandomElements::OfTicket() {
  return {{u"Action", Pick({u"OK", u"TL", u""})}, {u"Date", Date()}};
}

RandomElements::Properties RandomElements::OfFareCommission() {
  return {{u"Percent", OneIn(2) ? Value(7.5) : Value(Digits(2))}};
}

RandomElements::Properties RandomElements::Header() {
  const Text line = PaddedTo(u"RP/PARXX0100/", 14) + Pick({u"PARXX0200", u"LON"}) + Blanks(30) +
                    Pick({u"AA/SU  12JUN08/1030Z   ABC123", u"12JUN08/1030Z", u""});
  return {{u"Text", OneIn(8) ? Value(u"") : Value(u"RP/PARXX0100")},
          {u"1", OneIn(3) ? Mutated(line, kTraps) : line},
          {u"2", OneIn(6) ? Number() : Value(static_cast<std::int32_t>(Below(200)))},
          {u"4", Pick({u"PARXX0100", u""})},
          {u"6", Pick({u"ABC123", u""})}};
}

ToolkitElement RandomElements::With(Properties properties) {
  ToolkitElement element;
  if (!OneIn(4)) {
    element.type = OneIn(3) ? SegmentType::Untimed : SegmentType::Timed;
  }
  for (unsigned n = Below(3); n > 0; --n) {
    element.passengers.push_back(Number());
  }
  if (OneIn(20)) {
    auto failing = properties.begin();
    std::advance(failing, Below(static_cast<unsigned>(properties.size())));
    failing->second = std::nullopt;
  }
  element.properties = std::move(properties);
  return element;
}

ToolkitElement RandomElements::Element(const Source& source) {
  Text text = (this->*source.text)();
  text = OneIn(3) ? Mutated(std::move(text), kTraps) : text;
  if (source.place == Place::Cars) {
    return With(Car(text));
  }
  Properties properties = {{u"Text", OneIn(60) ? Value() : Value(text)}, {u"ElementNo", Number()}};
  properties.merge((this->*source.others)());
  return With(std::move(properties));
}

void RandomElements::AddDisplays(AccessorCase& next, Text display) {
  next.displays.push_back(OneIn(3) ? Mutated(std::move(display), kTraps) : std::move(display));
  if (OneIn(8)) {
    next.displays.push_back(Mutated(next.displays.front(), kTraps));
  }
  if (OneIn(24)) {
    next.failingRead = Below(5);
  }
}

AccessorCase RandomElements::Next(std::string_view member) {
  const auto* found = std::ranges::find(kSources, member, &Source::member);
  if (found == std::end(kSources)) {
    std::abort();  // a member without random elements
  }
  const Source& source = *found;
  AccessorCase next;
  std::size_t expected = OneIn(8) ? 0 : 1 + Below(4);
  if (source.place == Place::Header) {
    next.header = With(Header());
    AddDisplays(next, HeaderDisplay());
  } else if (source.place == Place::Display) {
    expected = Below(3);
    AddDisplays(next, FareDisplay(source.code));
  } else {
    for (std::size_t n = expected; n > 0; --n) {
      next.elements.push_back(Element(source));
    }
  }
  next.count = static_cast<std::int32_t>(OneIn(10) ? Below(6) : expected);
  const bool alone = source.place == Place::CollectionOfItsOwn;
  next.flown = alone ? next.count : static_cast<std::int32_t>(OneIn(6) ? Below(3) : 0);
  next.open = alone ? next.count : static_cast<std::int32_t>(OneIn(6) ? Below(3) : 0);
  for (unsigned n = OneIn(8) ? 3 : 1; n > 0; --n) {
    next.indexes.push_back(Index(expected));
  }
  return next;
}

}  // namespace wendrill::testing
