#include "scan/toolkit_elements.h"

#include <algorithm>
#include <array>

#include "common/text.h"
#include "pnr/associations.h"
#include "scan/ticket_number.h"

namespace wendrill {
namespace {

// The text after the first `mark` ("/P" or "/S") that a digit follows directly, trimmed. The text ends before the next
// "/". Empty when no digit follows a `mark`. The digit is required because ticketing texts also contain "/" before
// office identifiers and words.
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

// The endorsement of an element, trimmed: "NONREF" of "33 FE PAX NONREF/S5/P1". The endorsement begins after the
// element number, the keyword FE and the passenger type (PAX or INF), and ends before the associations. These words are
// recognised only at the beginning of the text, because an endorsement may itself contain "INF" or "/". When the text
// does not begin with the keyword FE, the result is the whole text before the associations, trimmed.
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

// Intentional: a failure in a hotel line raises 2261, the error number of insurance elements, and not a number of its
// own. The published numbers are the same for both kinds.
constexpr Accessor kHotelLine = {
    .collection = Collection::HTLElements,
    .bound = CountOf::HTLElements,
    .error = 2261,
    .keys = kHotelLineKeys,
    .indexForm = IndexForm::ComparedFirstConvertedAsText,
};

}  // namespace wendrill
