// Car segments. The members of a car segment are called by DISPID, because their names are not known.
#include <algorithm>

#include "common/text.h"
#include "pnr/accessor_tables.h"

namespace wendrill {
namespace {

constexpr std::int32_t kText = 1;
constexpr std::int32_t kElementNo = 2;
constexpr std::int32_t kPickUpCity = 8;
constexpr std::int32_t kPickUpDate = 9;
constexpr std::int32_t kDropOffDate = 10;
constexpr std::int32_t kCarType = 11;
constexpr std::int32_t kConfirmation = 18;
constexpr std::int32_t kAssociation = 44;

// The text of a car segment with a drop-off city ("/DO-") and a rate item ("/RG-"). Below the text: the rate item with
// its columns.
// 6 CCR ZE HK1/DO-PAR/RG-USD 30.50 WLY/VV
//                                             1
//                                    1234567890123456
// the rate item without its "/":     RG-USD 30.50 WLY
constexpr TextView kDropOffMark = u"/DO-";
constexpr std::ptrdiff_t kCityWidth = 3;

// The marks of the rate items. Of several marks in one text, the mark that is first in this list is used, not the mark
// that is first in the text.
constexpr TextView kRateMarks[] = {u"/RG-", u"/ES-", u"/RB-", u"/RQ-"};
constexpr std::ptrdiff_t kRateColumn = 4;  // the column after "RG-" in the rate item without its "/"
constexpr std::size_t kCurrencyWidth = 3;

TextView TextOf(Element& car) {
  return car.Text(Member::Id(kText));
}

std::optional<Value> ElementNumber(Element& car) {
  return DecimalText(ToInt32(car.Property(Member::Id(kElementNo))));
}

std::optional<Value> DropOffCity(Element& car) {
  const std::ptrdiff_t mark = ColumnOf(TextOf(car), kDropOffMark);
  return mark == 0 ? TextView() : Columns(TextOf(car), mark + std::ssize(kDropOffMark), kCityWidth);
}

// The element number of the last passenger of the segment; empty when the segment has no passengers.
std::optional<Value> LastPassenger(Element& car) {
  const ObjectRef association = ToObject(car.Property(Member::Id(kAssociation)));
  const auto walk = ToObject(association->Get(Member::Name(u"Passengers")))->Walk();
  std::u16string last;
  while (const ObjectRef passenger = walk->Next()) {
    last = car.TextOf(passenger->Get(Member::Name(u"ElementNo")));
  }
  return last;
}

// The rate: the text after the rate mark, up to the next "/"; empty when the text has no rate mark.
TextView RateItem(TextView text) {
  for (const TextView mark : kRateMarks) {
    if (const std::ptrdiff_t column = ColumnOf(text, mark); column > 0) {
      const TextView item = Trimmed(FieldOf(FromColumn(text, column + 1), 1, u"/"));
      return FromColumn(item, kRateColumn);
    }
  }
  return {};
}

// The part of a rate item from the first three consecutive capital letters on; empty when `item` does not contain three
// consecutive capital letters.
TextView FromCurrency(TextView item) {
  for (; item.size() >= kCurrencyWidth; item.remove_prefix(1)) {
    if (std::ranges::all_of(item.substr(0, kCurrencyWidth), IsCapital)) {
      return item;
    }
  }
  return {};
}

struct Rate {
  std::u16string price;  // currency, a blank, amount
  TextView paymentBase;
};

// The price and the payment base in the text of a car segment. Both are empty when the text has no rate mark, or when
// the rate contains no currency (three consecutive capital letters). The price is the first two words from the currency
// on, up to the first "-" in these two words. The payment base is the text after the price.
Rate RateOf(TextView text) {
  const TextView rate = FromCurrency(RateItem(text));
  if (rate.empty()) {
    return {};
  }
  std::u16string price = std::u16string(FieldOf(rate, 1, u" ")) + kBlank;
  price += FieldOf(rate, 2, u" ");
  price.resize(Before(price, u"-").size());
  const auto width = std::ssize(price);
  return {std::move(price), Trimmed(FromColumn(rate, width + 1))};
}

std::optional<Value> Price(Element& car) {
  return RateOf(TextOf(car)).price;
}

std::optional<Value> PaymentBase(Element& car) {
  return RateOf(TextOf(car)).paymentBase;
}

std::optional<Value> ServiceMark(Element& car) {
  return Contains(TextOf(car), u"RTSVCC");
}

std::optional<Value> VoucherMark(Element& car) {
  return Contains(TextOf(car), u"/VV");
}

constexpr Key kKeys[] = {
    {u"strKeySegment", AsText(kText)},
    {u"strKeySegmentNr", ElementNumber},
    {u"strKeyCity", AsText(kPickUpCity)},
    {u"strKeyPuDate", HostDateOfText(kPickUpDate)},
    {u"strKeyDoCity", DropOffCity},
    {u"strKeyDoDate", HostDateOfText(kDropOffDate)},
    {u"strKeyPasAsso", LastPassenger},
    {u"strKeyCarCode", AsText(kCarType)},
    {u"strKeyPrice", Price},
    {u"strKeyPaymentBase", PaymentBase},
    {u"blnKeyRTSVCC", ServiceMark},
    {u"strKeyConfNo", AsText(kConfirmation)},
    {u"blnKeyVchr", VoucherMark},
};

constexpr GetAccessor kAccessors[] = {
    {GetMember::CarSegment,
     {.collection = Collection::CarSegments,
      .bound = CountOf::CarSegments,
      .error = 2211,
      .keys = kKeys,
      .indexForm = IndexForm::ConvertedFirst,
      .stored = KeysAreStored::AllAtTheEnd}},
};

}  // namespace

std::span<const GetAccessor> CarAccessors() {
  return kAccessors;
}

}  // namespace wendrill
