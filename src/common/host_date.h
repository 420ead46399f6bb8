// The string forms of dates: the form that the host uses (12JUN08) and the standard form of the automation run time
// (6/12/2008).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "common/value.h"

namespace wendrill {

class TextForms;  // common/text_forms.h

struct CalendarDay {
  std::int32_t year = 0;
  std::int32_t month = 0;  // 1..12
  std::int32_t day = 0;    // 1..31
};

// DateOf converts a calendar day to an automation date; DayOf returns the calendar day of an automation date. The
// calendar is the proleptic Gregorian calendar. DayOf raises 5 (invalid argument) for a date outside the years 100 to
// 9999.
Date DateOf(const CalendarDay& day);
CalendarDay DayOf(const Date& date);

// The automation run time's standard form of a date under US settings: the day (6/12/2008), followed by the time of day
// unless that is midnight (6/12/2008 3:30:00 PM). When the date is on day 0, 30 December 1899, the string contains only
// the time of day. Raises 5 (invalid argument) for a date outside the years 100 to 9999.
std::u16string DateText(const Date& date);

// The date that `text` expresses in the form of DateText; nullopt when `text` has another form. Unlike the result of
// DateText, `text` may contain the time of midnight (6/12/2008 12:00:00 AM) and the day 12/30/1899.
std::optional<Date> ParseDateText(std::u16string_view text);

// The host's form DDMMMYY, in capitals (12JUN08), of a date. `value` is a date, or a string that expresses a date in
// the standard form of `forms`. For any other value, returns the string form of the value. Raises 5 (invalid argument)
// for a date outside the years 100 to 9999, and what ToText raises. Only this function defines the host's form of a
// date; the simulator's text helper, which formats dates for the library, calls this function too.
std::u16string HostDateTextOf(const Value& value, const TextForms& forms);

}  // namespace wendrill
