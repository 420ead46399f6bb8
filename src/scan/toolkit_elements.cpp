#include "scan/toolkit_elements.h"

#include <array>

#include "common/text.h"
#include "pnr/associations.h"
#include "scan/ticket_number.h"

namespace wendrill {
namespace {

// Ticketing texts are full of "/": office identifiers and words follow it as well as associations. So a part counts
// only when it begins with a digit, and it ends at the next "/".
TextView PartBehind(TextView text, TextView mark) {
  const std::ptrdiff_t column = ColumnBeforeDigit(text, mark);
  return column == 0 ? TextView() : Trimmed(Before(FromColumn(text, column + std::ssize(mark)), u"/"));
}

std::optional<Value> PassengersOf(Element& element) {
  return PartBehind(element.Text(), kPassengerMark);
}

std::optional<Value> SegmentsOf(Element& element) {
  return PartBehind(element.Text(), kSegmentMark);
}

std::optional<Value> TicketNumberOf(Element& element) {
  return TicketNumber(element.Text(), {});
}

// What stands behind the passenger type or, without one, behind the keyword.
TextView BehindHead(TextView text) {
  for (const TextView head : {u"PAX", u"INF", u"FE"}) {
    if (const std::ptrdiff_t column = ColumnOf(text, head); column != 0) {
      return FromColumn(text, column + std::ssize(head));
    }
  }
  return text;
}

// The endorsement itself, which may hold any other "/": the associations alone are left out.
std::optional<Value> EndorsementOf(Element& element) {
  TextView endorsement = BehindHead(element.Text());
  for (const TextView mark : {kSegmentMark, kPassengerMark}) {
    if (const std::ptrdiff_t column = ColumnBeforeDigit(endorsement, mark); column != 0) {
      endorsement = FirstColumns(endorsement, column - 1);
    }
  }
  return Trimmed(endorsement);
}

// What stands one character behind the keyword.
std::optional<Value> InsuranceOf(Element& element) {
  constexpr TextView kKeyword = u"INS";
  const TextView text = element.Text();
  const std::ptrdiff_t column = ColumnOf(text, kKeyword);
  return column == 0 ? TextView() : Trimmed(FromColumn(text, column + std::ssize(kKeyword) + 1));
}

constexpr std::array kAutoTicketKeys = {
    Key{u"strKeyElement", AsReturned(u"Text")}, Key{u"strKeyElementNr", AsReturned(u"ElementNo")},
    Key{u"strKeyPasAsso", PassengersOf},        Key{u"strKeySegAsso", SegmentsOf},
    Key{u"strKeyTktNbr", TicketNumberOf},
};

constexpr std::array kEndorsementKeys = {
    Key{u"strKeyElement", AsReturned(u"Text")}, Key{u"strKeyElementNr", AsReturned(u"ElementNo")},
    Key{u"strKeyText", EndorsementOf},          Key{u"strKeyPasAsso", PassengersOf},
    Key{u"strKeySegAsso", SegmentsOf},
};

constexpr std::array kInsuranceKeys = {
    Key{u"strKeyElement", InsuranceOf},
    Key{u"strKeyElementNr", AsReturned(u"ElementNo")},
};

constexpr std::array kHotelLineKeys = {
    Key{u"strKeyElement", AsReturned(u"Text")},
    Key{u"strKeyElementNr", AsReturned(u"ElementNo")},
};

}  // namespace

constexpr Accessor kAutoTicket = {
    .collection = Collection::AutoTickets,
    .bound = CountOf::AutoTktElements,
    .error = 2255,
    .keys = kAutoTicketKeys,
    .indexForm = IndexForm::ComparedFirstConvertedAsText,
};

constexpr Accessor kEndorsement = {
    .collection = Collection::FEElements,
    .bound = CountOf::FEElements,
    .error = 2256,
    .keys = kEndorsementKeys,
    .indexForm = IndexForm::ComparedFirstConvertedAsText,
};

constexpr Accessor kInsurance = {
    .collection = Collection::INSElements,
    .bound = CountOf::INSElements,
    .error = 2261,
    .keys = kInsuranceKeys,
    .indexForm = IndexForm::ComparedFirstConvertedAsText,
};

// The number of the insurance elements: meant so.
constexpr Accessor kHotelLine = {
    .collection = Collection::HTLElements,
    .bound = CountOf::HTLElements,
    .error = 2261,
    .keys = kHotelLineKeys,
    .indexForm = IndexForm::ComparedFirstConvertedAsText,
};

}  // namespace wendrill
