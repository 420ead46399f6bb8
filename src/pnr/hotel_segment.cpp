// Hotel segments.
#include "common/text.h"
#include "pnr/accessor_tables.h"
#include "pnr/associations.h"

namespace wendrill {
namespace {

// The text of a hotel segment consists of fields, separated by single blanks. Two consecutive blanks enclose an empty
// field. The last row of the example shows the numbers of the fields.
//          1         2         3         4         5         6         7         8
// 1234567890123456789012345678901234567890123456789012345678901234567890123456789012
// 5 HHL RT HK1 PAR IN15JUN OUT17JUN 1A1KCOR EUR120.00 DLY CD GRAND HOTEL PARIS/CF/P1
// 1 2   3  4   5   6       7        8       9         10  11 12
constexpr std::int32_t kPriceField = 9;
constexpr std::int32_t kPaymentBaseField = 10;
constexpr std::int32_t kNameField = 12;
constexpr std::ptrdiff_t kFirstNameColumn = 59;

constexpr std::ptrdiff_t kPassengerWidth = 1;
constexpr std::ptrdiff_t kRateCodeWidth = 3;  // the rate code is the last three characters of the property RoomRateCode

TextView FieldOfText(Element& hotel, std::int32_t n) {
  return FieldOf(hotel.Text(), n, u" ");
}

// The digit after the first passenger mark "/P". nullopt when the text has no passenger mark, or when no digit directly
// follows the first passenger mark. Intentional: a second digit is ignored.
std::optional<Value> Passenger(Element& hotel) {
  const TextView text = hotel.Text();
  const std::ptrdiff_t mark = ColumnOf(text, kPassengerMark);
  if (mark == 0) {
    return std::nullopt;
  }
  const TextView digit = Columns(text, mark + std::ssize(kPassengerMark), kPassengerWidth);
  return !digit.empty() && IsDigit(digit.front()) ? std::optional<Value>(digit) : std::nullopt;
}

std::optional<Value> RoomRate(Element& hotel) {
  return LastColumns(hotel.Text(Member::Name(u"RoomRateCode")), kRateCodeWidth);
}

// The hotel's name: the text from the first word of the name up to the next "/". The first word is field 12; the text
// is searched for this word from column 59 on. When field 12 is missing or empty, the name begins in column 59. Raises
// 5 (invalid argument) in three cases: the first word is not found, the text ends before column 59, or no "/" follows
// the first word.
std::optional<Value> Name(Element& hotel) {
  const TextView firstWord = FieldOfText(hotel, kNameField);
  const TextView rest = FromColumn(hotel.Text(), ColumnOf(hotel.Text(), firstWord, kFirstNameColumn));
  return FirstColumns(rest, ColumnOf(rest, u"/") - 1);
}

std::optional<Value> ServiceMark(Element& hotel) {
  return Contains(hotel.Text(), u"SEE RTSVCH") ? std::optional<Value>(true) : std::nullopt;
}

std::optional<Value> Price(Element& hotel) {
  return FieldOfText(hotel, kPriceField);
}

std::optional<Value> PaymentBase(Element& hotel) {
  return FieldOfText(hotel, kPaymentBaseField);
}

constexpr Key kKeys[] = {
    {u"strKeySegment", AsText(u"Text")},
    {u"strKeyPasAsso", Passenger},
    {u"strKeySegmentNr", AsText(u"ElementNo")},
    {u"strKeyCity", AsText(u"City")},
    {u"strKeyInDate", HostDate(u"CheckinDate")},
    {u"strKeyOutDate", HostDate(u"CheckoutDate")},
    {u"strKeyConfNo", AsText(u"ConfirmationNo")},
    {u"strKeyRoomRate", RoomRate},
    {u"strKeyHotelName", Name},
    {u"blnKeyRTSVCH", ServiceMark},
    {u"strKeyPrice", Price},
    {u"strKeyPaymentBase", PaymentBase},
};

constexpr GetAccessor kAccessors[] = {
    {GetMember::HotelSegment,
     {.collection = Collection::HotelSegments,
      .bound = CountOf::HotelSegments,
      .error = 2221,
      .keys = kKeys,
      .indexForm = IndexForm::ConvertedFirst}},
};

}  // namespace

std::span<const GetAccessor> HotelAccessors() {
  return kAccessors;
}

}  // namespace wendrill
