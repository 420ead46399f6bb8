// Dates: the forms that the host and the run time give them.
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

// Days since 30 December 1899 and back (proleptic Gregorian calendar).
Date DateOf(const CalendarDay& day);
CalendarDay DayOf(const Date& date);

// The run time's standard text of a date under US settings: 6/12/2008, with the time of day behind it when there is one
// (6/12/2008 3:30:00 PM). A date without a day is the time alone.
std::u16string DateText(const Date& date);

// The date that such a text stands for; nothing when it has another form.
std::optional<Date> ParseDateText(std::u16string_view text);

// The host's form DDMMMYY in capitals (12JUN08) of a date value, or of a text in the standard form of these settings;
// the text of any other value stays as it is. What the closed text helper does is modelled on this; the one place where
// it is settled.
std::u16string HostDateTextOf(const Value& value, const TextForms& forms);

}  // namespace wendrill
