#include "scan/toolkit_elements.h"

#include <algorithm>
#include <array>

#include "common/text.h"
#include "pnr/associations.h"
#include "scan/ticket_number.h"

namespace wendrill {
namespace {

// The association after the first `mark` that is directly followed by a digit, up to the next "/" and trimmed; empty
// when there is no such mark. The digit is required because ticketing texts contain "/" before office identifiers and
// words too.
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

TextView WithoutAssociations(TextView text) {
  for (const TextView mark : {kSegmentMark, kPassengerMark}) {
    if (const std::ptrdiff_t column = ColumnBeforeDigit(text, mark); column != 0) {
      text = FirstColumns(text, column - 1);
    }
  }
  return text;
}

// Removes leading blanks, and then the first word when `isWord` accepts it. Words are separated by blanks. Returns
// whether a word was removed.
template <typename Predicate>
bool SkipWord(TextView& text, Predicate isWord) {
  text = TrimmedLeft(text);
  const TextView word = Before(text, u" ");
  const bool skipped = isWord(word);
  if (skipped) {
    text = FromColumn(text, std::ssize(word) + 1);
  }
  return skipped;
}

// The endorsement, trimmed: "NONREF" of "33 FE PAX NONREF/S5/P1". The endorsement follows the keyword and the passenger
// type, and ends before the associations. The keyword and the passenger type are recognised only at the beginning of
// the text, because an endorsement may itself mention an infant or contain a "/". Without the keyword, the result is
// the whole text before the associations, trimmed.
std::optional<Value> EndorsementOf(Element& element) {
  const TextView whole = WithoutAssociations(element.Text());
  TextView text = whole;
  SkipWord(text, [](TextView word) { return !word.empty() && std::ranges::all_of(word, IsDigit); });
  if (!SkipWord(text, [](TextView word) { return word == u"FE"; })) {
    return Trimmed(whole);
  }
  SkipWord(text, [](TextView word) { return word == u"PAX" || word == u"INF"; });
  return Trimmed(text);
}

// The text of an insurance element from the second character after "INS" on, trimmed; empty when the element's text
// does not contain "INS".
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

// Intentional: 2261 is the number of two kinds, hotel lines and insurance elements. Both kinds are published with 2261.
constexpr Accessor kHotelLine = {
    .collection = Collection::HTLElements,
    .bound = CountOf::HTLElements,
    .error = 2261,
    .keys = kHotelLineKeys,
    .indexForm = IndexForm::ComparedFirstConvertedAsText,
};

}  // namespace wendrill
