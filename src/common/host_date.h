// The string forms of dates: the host's and the automation run time's.
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

// Conversion of a calendar day to days since 30 December 1899, and back (proleptic Gregorian calendar).
Date DateOf(const CalendarDay& day);
CalendarDay DayOf(const Date& date);

// The automation run time's standard form of a date under US settings: 6/12/2008, with the time of day after it when
// there is one (6/12/2008 3:30:00 PM). A date without a day is the time alone.
std::u16string DateText(const Date& date);

// The date of which `text` is the standard form; nullopt for a string in any other form.
std::optional<Date> ParseDateText(std::u16string_view text);

// The host's form DDMMMYY in capitals (12JUN08) of a date value, or of a string in the standard form of `forms`; any
// other value is returned in its string form. The only place that defines this form; the simulated text helper uses it
// too.
std::u16string HostDateTextOf(const Value& value, const TextForms& forms);

}  // namespace wendrill
