#include "common/host_date.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "common/error.h"
#include "common/text.h"
#include "common/text_forms.h"

namespace wendrill {
namespace {

constexpr std::int32_t kSecondsPerDay = 24 * 60 * 60;

// The first and the last year that an automation date can express.
constexpr std::int32_t kFirstYear = 100;
constexpr std::int32_t kLastYear = 9999;

constexpr std::array<std::u16string_view, 12> kMonths = {u"JAN", u"FEB", u"MAR", u"APR", u"MAY", u"JUN",
                                                         u"JUL", u"AUG", u"SEP", u"OCT", u"NOV", u"DEC"};

// In the calendar arithmetic a year begins on 1 March, so that a leap day is the last day of its year. Years are
// counted in eras of 400 years, which all have the same number of days.
constexpr std::int32_t kDaysPerEra = 146097;
constexpr std::int32_t kYearsPerEra = 400;
constexpr std::int32_t kEpochFromMarchOfYear0 = 693899;  // days from 1 March of year 0 to 30 December 1899

// The day of the year on which a month begins, counted from 0 on 1 March. `monthFromMarch` is 0 for March.
constexpr std::int32_t MonthStart(std::int32_t monthFromMarch) {
  return (153 * monthFromMarch + 2) / 5;
}

// The number of days from the beginning of an era to the beginning of its year `yearOfEra`, which is counted from 0.
std::int32_t DaysBeforeYear(std::int32_t yearOfEra) {
  return yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100;
}

// The number of days from 30 December 1899 to a calendar day; negative for an earlier day.
std::int32_t DayNumberOf(const CalendarDay& day) {
  const std::int32_t monthFromMarch = (day.month + 9) % 12;
  const std::int32_t year = day.month <= 2 ? day.year - 1 : day.year;
  const std::int32_t era = (year >= 0 ? year : year - (kYearsPerEra - 1)) / kYearsPerEra;
  return era * kDaysPerEra + DaysBeforeYear(year - era * kYearsPerEra) + MonthStart(monthFromMarch) + day.day - 1 -
         kEpochFromMarchOfYear0;
}

// The calendar day that is `dayNumber` days after 30 December 1899.
CalendarDay DayOfNumber(std::int32_t dayNumber) {
  const std::int32_t fromYear0 = dayNumber + kEpochFromMarchOfYear0;
  const std::int32_t era = (fromYear0 >= 0 ? fromYear0 : fromYear0 - (kDaysPerEra - 1)) / kDaysPerEra;
  const std::int32_t dayOfEra = fromYear0 - era * kDaysPerEra;
  const std::int32_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const std::int32_t dayOfYear = dayOfEra - DaysBeforeYear(yearOfEra);
  const std::int32_t monthFromMarch = (5 * dayOfYear + 2) / 153;
  const std::int32_t month = monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9;
  const std::int32_t year = yearOfEra + era * kYearsPerEra + (month <= 2 ? 1 : 0);
  return {year, month, dayOfYear - MonthStart(monthFromMarch) + 1};
}

struct Moment {
  std::int32_t dayNumber = 0;  // days since 30 December 1899
  std::int32_t second = 0;     // seconds since midnight
};

// The day and the time of an automation date, rounded to the second. Before 30 December 1899 the integer part of a date
// counts backwards, but the fraction still counts forwards: -1.25 is 29 December 1899, 6 AM. Raises 5 (invalid
// argument) for a date outside the years 100 to 9999.
Moment MomentOf(const Date& date) {
  const auto lowest = static_cast<double>(DayNumberOf({kFirstYear, 1, 1}));
  const auto highest = static_cast<double>(DayNumberOf({kLastYear, 12, 31}));
  const double day = std::trunc(date.days);
  if (!(day >= lowest && day <= highest)) {
    Raise(RunTimeError::InvalidCall);
  }
  const double second = std::round(std::fabs(date.days - day) * kSecondsPerDay);
  Moment moment = {static_cast<std::int32_t>(day), static_cast<std::int32_t>(second)};
  if (moment.second == kSecondsPerDay) {
    ++moment.dayNumber;
    moment.second = 0;
  }
  return moment;
}

std::u16string TwoDigits(std::int32_t number) {
  return {static_cast<char16_t>(u'0' + number / 10 % 10), static_cast<char16_t>(u'0' + number % 10)};
}

std::u16string DayText(const CalendarDay& day) {
  return DecimalText(day.month) + u"/" + DecimalText(day.day) + u"/" + DecimalText(day.year);
}

std::u16string TimeText(std::int32_t second) {
  const std::int32_t hour = second / 3600;
  const std::int32_t hourOnDial = hour % 12 == 0 ? 12 : hour % 12;
  return DecimalText(hourOnDial) + u":" + TwoDigits(second / 60 % 60) + u":" + TwoDigits(second % 60) +
         (hour < 12 ? u" AM" : u" PM");
}

// The number that one to four decimal digits express; nullopt for any other text.
std::optional<std::int32_t> SmallNumber(TextView text) {
  if (text.empty() || text.size() > 4 || !std::ranges::all_of(text, IsDigit)) {
    return std::nullopt;
  }
  std::int32_t number = 0;
  for (const char16_t digit : text) {
    number = number * 10 + (digit - u'0');
  }
  return number;
}

// ParseDayText and ParseTimeText accept only what DayText and TimeText write: each parser reads the numbers, formats
// them again and compares the result with the input.

// The day that `text` expresses, as a number of days since 30 December 1899; nullopt unless `text` is exactly what
// DayText returns for some day in the years 100 to 9999.
std::optional<std::int32_t> ParseDayText(TextView text) {
  const auto month = SmallNumber(FieldOf(text, 1, u"/"));
  const auto day = SmallNumber(FieldOf(text, 2, u"/"));
  const auto year = SmallNumber(FieldOf(text, 3, u"/"));
  if (!month || !day || !year || *year < kFirstYear) {
    return std::nullopt;
  }
  const std::int32_t dayNumber = DayNumberOf({*year, *month, *day});
  return text == DayText(DayOfNumber(dayNumber)) ? std::optional(dayNumber) : std::nullopt;
}

// The time of day that `text` expresses, in seconds since midnight; nullopt unless `text` is exactly what TimeText
// returns for some time of day.
std::optional<std::int32_t> ParseTimeText(TextView text) {
  const TextView dial = Before(text, u" ");
  const auto hourOnDial = SmallNumber(FieldOf(dial, 1, u":"));
  const auto minute = SmallNumber(FieldOf(dial, 2, u":"));
  const auto second = SmallNumber(FieldOf(dial, 3, u":"));
  if (!hourOnDial || !minute || !second) {
    return std::nullopt;
  }
  const std::int32_t hour = *hourOnDial % 12 + (LastColumns(text, 2) == u"PM" ? 12 : 0);
  const std::int32_t ofDay = hour * 3600 + *minute * 60 + *second;
  return text == TimeText(ofDay) ? std::optional(ofDay) : std::nullopt;
}

Date DateOfMoment(const Moment& moment) {
  const double fraction = static_cast<double>(moment.second) / kSecondsPerDay;
  return {moment.dayNumber + (moment.dayNumber < 0 ? -fraction : fraction)};
}

std::u16string HostDay(const Date& date) {
  const CalendarDay day = DayOf(date);
  return TwoDigits(day.day) + std::u16string(kMonths.at(static_cast<std::size_t>(day.month - 1))) +
         TwoDigits(day.year % 100);
}

}  // namespace

Date DateOf(const CalendarDay& day) {
  return {static_cast<double>(DayNumberOf(day))};
}

CalendarDay DayOf(const Date& date) {
  return DayOfNumber(MomentOf(date).dayNumber);
}

std::u16string DateText(const Date& date) {
  const Moment moment = MomentOf(date);
  if (moment.dayNumber == 0) {
    return TimeText(moment.second);
  }
  const std::u16string day = DayText(DayOfNumber(moment.dayNumber));
  return moment.second == 0 ? day : day + u" " + TimeText(moment.second);
}

std::optional<Date> ParseDateText(std::u16string_view text) {
  if (!Contains(text, u"/")) {
    const auto second = ParseTimeText(text);
    return second ? std::optional(DateOfMoment({0, *second})) : std::nullopt;
  }
  const TextView dayText = Before(text, u" ");
  const auto day = ParseDayText(dayText);
  if (!day || dayText.size() == text.size()) {
    return day ? std::optional(DateOfMoment({*day, 0})) : std::nullopt;
  }
  const auto second = ParseTimeText(text.substr(dayText.size() + 1));
  return second ? std::optional(DateOfMoment({*day, *second})) : std::nullopt;
}

std::u16string HostDateTextOf(const Value& value, const TextForms& forms) {
  if (const Date* date = value.As<Date>()) {
    return HostDay(*date);
  }
  std::u16string text = ToText(value, forms);
  const auto date = forms.DateOf(text);
  return date ? HostDay(*date) : text;
}

}  // namespace wendrill
