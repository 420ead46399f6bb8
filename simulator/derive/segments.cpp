#include "derive/segments.h"

#include <algorithm>
#include <string>

#include "derive/dates.h"
#include "derive/own_layout.h"
#include "derive/words.h"

namespace wendrill::simulator {
namespace {

constexpr std::size_t kCityWidth = 3;
constexpr std::size_t kTimeWidth = 4;

bool AllOf(TextView text, bool (*is)(char16_t)) {
  return std::ranges::all_of(text, is);
}

bool IsAirline(TextView text) {
  return text.size() == kAirlineWidth && AllOf(text, IsCapitalOrDigit) && !AllOf(text, IsDigit);
}

// Whether the word is a flight number: one to four digits, with or without a capital letter after the last digit.
bool IsFlightNumber(TextView word) {
  constexpr std::size_t kMostDigits = 4;
  if (word.size() > 1 && IsCapital(word.back())) {
    word.remove_suffix(1);
  }
  return !word.empty() && word.size() <= kMostDigits && AllOf(word, IsDigit);
}

bool IsClass(TextView word) {
  return word.size() == 1 && IsCapital(word.front());
}

bool IsCityPair(TextView word) {
  return word.size() == 2 * kCityWidth && AllOf(word, IsCapital);
}

bool IsTime(TextView word) {
  return word.size() == kTimeWidth && AllOf(word, IsDigit);
}

// Whether the word is an arrival time: four digits (0030), or four digits and the change of day from departure to
// arrival (0030+1, 0030-1).
bool IsArrival(TextView word) {
  constexpr std::size_t kWithDayChange = kTimeWidth + 2;
  if (word.size() == kWithDayChange && (word[kTimeWidth] == u'+' || word[kTimeWidth] == u'-')) {
    return IsTime(word.substr(0, kTimeWidth)) && IsDigit(word.back());
  }
  return IsTime(word);
}

// Removes the weekday from the start of `words` and stores it in `parts`. The weekday is a digit, either as a word of
// its own or with "*" after it ("7*NCECDG"); the "*" is removed too. Has no effect when the next word begins otherwise.
void ReadWeekday(Words& words, AirSegmentParts& parts) {
  const TextView word = words.Peek();
  const bool isDigit = !word.empty() && IsDigit(word.front()) && (word.size() == 1 || word[1] == u'*');
  if (!isDigit) {
    return;
  }
  parts.weekday = word.front() - u'0';
  words = Words(words.Rest().substr(std::min<std::size_t>(word.size(), 2)));
}

void ReadTimes(Words words, AirSegmentParts& parts) {
  for (TextView word = words.Next(); !word.empty(); word = words.Next()) {
    const TextView arrival = words.Peek();
    if (!IsTime(word) || !IsArrival(arrival)) {
      continue;
    }
    parts.departureTime = word;
    parts.arrivalTime = arrival.substr(0, kTimeWidth);
    const bool sameDay = arrival.size() == kTimeWidth;
    const bool later = !sameDay && arrival[kTimeWidth] == u'+';
    parts.dayChange = sameDay ? TextView(u"0") : arrival.substr(kTimeWidth + (later ? 1 : 0));
    return;
  }
}

// The text between the first `mark` and the next "/", trimmed; empty when the text does not contain the mark.
TextView PartAfter(TextView mark, TextView text) {
  const std::ptrdiff_t column = ColumnOf(text, mark);
  return column == 0 ? TextView() : Trimmed(Before(FromColumn(text, column + std::ssize(mark)), u"/"));
}

void SkipPassengerWords(Words& words) {
  while (std::ranges::find(kPassengerWords, words.Peek()) != std::end(kPassengerWords)) {
    words.Next();
  }
}

}  // namespace

std::optional<AirSegmentParts> AirSegmentIn(TextView body) {
  if (!IsAirline(body.substr(0, kAirlineWidth))) {
    return std::nullopt;
  }
  Words words(body.substr(kAirlineWidth));
  AirSegmentParts parts;
  const TextView flight = words.Next();
  if (flight == kOpenMark) {
    parts.kind = SegmentKind::Open;
  } else if (!IsFlightNumber(flight)) {
    return std::nullopt;
  }
  if (IsClass(words.Peek())) {
    parts.bookingClass = words.Next();
  }
  if (WholeDay(words.Peek())) {
    parts.date = words.Next();
    ReadWeekday(words, parts);
  }
  const TextView cities = words.Next();
  if (!IsCityPair(cities)) {
    return std::nullopt;
  }
  parts.boardPoint = cities.substr(0, kCityWidth);
  parts.offPoint = cities.substr(kCityWidth);
  if (words.Peek() == kFlownMark) {
    parts.kind = SegmentKind::Flown;
  }
  ReadTimes(words, parts);
  return parts;
}

CarParts CarPartsIn(TextView body) {
  CarParts parts;
  Words words(Before(body, u"/"));
  for (TextView word = words.Next(); !word.empty(); word = words.Next()) {
    const auto pickUp = DayAtStartOf(word);
    const TextView rest = pickUp ? word.substr(pickUp->width) : TextView();
    if (pickUp && StartsWith(rest, u"-") && WholeDay(rest.substr(1))) {
      parts.pickUp = word.substr(0, pickUp->width);
      parts.dropOff = rest.substr(1);
      parts.type = words.Next();
      return parts;
    }
    parts.city = word;
  }
  parts.city = {};  // without the dates after the city, no word is known to be the city
  return parts;
}

HotelParts HotelPartsIn(TextView body) {
  HotelParts parts;
  Words words(Before(body, u"/"));
  for (TextView word = words.Next(); !word.empty(); word = words.Next()) {
    if (StartsWith(word, kCheckInMark) && WholeDay(word.substr(kCheckInMark.size()))) {
      parts.checkIn = word.substr(kCheckInMark.size());
      break;
    }
    parts.city = word;
  }
  const TextView out = words.Next();
  if (parts.checkIn.empty() || !StartsWith(out, kCheckOutMark)) {
    return parts.checkIn.empty() ? HotelParts() : parts;
  }
  parts.checkOut = out.substr(kCheckOutMark.size());
  for (std::size_t word = 1; word < kRateCodeWord; ++word) {
    words.Next();
  }
  parts.rateCode = Before(words.Next(), u"-");
  return parts;
}

TextView ConfirmationIn(TextView body) {
  return PartAfter(kConfirmationMark, body);
}

namespace {

// Removes up to three digits from the start of the text and returns the number that they express: 12 for "12-14".
// Returns 0 when the text does not begin with a digit.
int TakeNumber(TextView& text) {
  constexpr std::size_t kMostDigits = 3;
  int number = 0;
  for (std::size_t digits = 0; digits < kMostDigits && !text.empty() && IsDigit(text.front()); ++digits) {
    number = number * 10 + (text.front() - u'0');
    text.remove_prefix(1);
  }
  return number;
}

// The text after the first "/P" that a digit follows; empty when there is no such "/P".
TextView AfterPassengersMark(TextView text) {
  for (std::ptrdiff_t column = ColumnOf(text, kPassengersMark); column > 0; column = ColumnOf(text, kPassengersMark)) {
    text = FromColumn(text, column + std::ssize(kPassengersMark));
    if (!text.empty() && IsDigit(text.front())) {
      return text;
    }
  }
  return {};
}

}  // namespace

PassengerNumbers PassengersIn(TextView body) {
  constexpr std::size_t kMostPassengers = 999;
  PassengerNumbers numbers;
  TextView rest = AfterPassengersMark(body);
  while (!rest.empty() && IsDigit(rest.front()) && numbers.size() < kMostPassengers) {
    const int first = TakeNumber(rest);
    int last = first;
    if (StartsWith(rest, u"-")) {
      rest.remove_prefix(1);
      last = TakeNumber(rest);
    }
    for (int number = first; number <= last && numbers.size() < kMostPassengers; ++number) {
      numbers.push_back(DecimalText(number));
    }
    if (!StartsWith(rest, u",")) {
      break;
    }
    rest.remove_prefix(1);
  }
  return numbers;
}

TicketParts TicketPartsIn(TextView body) {
  constexpr std::size_t kActionWidth = 2;
  Words words(body);
  SkipPassengerWords(words);
  const TextView word = Before(words.Peek(), u"/");
  TicketParts parts;
  if (word.size() >= kActionWidth && AllOf(word.substr(0, kActionWidth), IsCapital)) {
    parts.action = word.substr(0, kActionWidth);
    const TextView rest = word.substr(kActionWidth);
    parts.date = WholeDay(rest) ? rest : TextView();
  }
  return parts;
}

TextView PercentIn(TextView body) {
  Words words(body);
  SkipPassengerWords(words);
  TextView word = Before(words.Peek(), u"/");
  if (StartsWith(word, u"*")) {
    word = word.substr(word.rfind(u'*') + 1);
  }
  const auto* end = std::ranges::find_if_not(word, [](char16_t each) { return IsDigit(each) || each == u'.'; });
  return word.substr(0, static_cast<std::size_t>(end - word.begin()));
}

}  // namespace wendrill::simulator
