// The days of a display, which are written without a year: 15JUN.
#pragma once

#include <cstdint>
#include <optional>

#include "common/host_date.h"
#include "common/text.h"

namespace wendrill::simulator {

// A day as displays write it: one or two digits and a month, perhaps with a year of two digits.
struct WrittenDay {
  std::int32_t day = 0;
  std::int32_t month = 0;
  std::optional<std::int32_t> year = {};
  std::size_t width = 0;  // of the text that was read
};

// The day that `text` begins with, whether or not a calendar has it; nullopt for a text that begins otherwise.
std::optional<WrittenDay> DayAtStartOf(TextView text);

// The same for a text that is nothing else.
std::optional<WrittenDay> WholeDay(TextView text);

// Finds the years of a display's days.
class Years {
 public:
  // `date` is the day near which the others lie; without it, only a day with a year has a date.
  explicit Years(std::optional<CalendarDay> date) : date_(date ? std::optional(DateOf(*date)) : std::nullopt) {}

  bool HasDate() const { return date_.has_value(); }

  // The date of a day; nullopt for a day that no year has. With a weekday (1 is Monday) the nearest year in which it
  // fits; without one (0) the year that puts the day at most kDaysBefore before the date and kDaysAfter after it, and
  // the earlier of two.
  std::optional<Date> DateNear(const WrittenDay& day, std::int32_t weekday) const;

 private:
  std::optional<Date> date_;
};

}  // namespace wendrill::simulator
