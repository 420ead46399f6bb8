// Reads the days in a display, most of which are written without a year (15JUN), and finds their years.
#pragma once

#include <cstdint>
#include <optional>

#include "common/host_date.h"
#include "common/text.h"

namespace wendrill::simulator {

// A day as displays write it: one or two digits and a month, and in some places a year of two digits after the month.
struct WrittenDay {
  std::int32_t day = 0;
  std::int32_t month = 0;
  std::optional<std::int32_t> year = {};  // four digits: 2008; nullopt when no year is written
  std::size_t width = 0;                  // the number of characters that the written day takes
};

// The day with which `text` begins, even a day that no calendar has (31FEB); nullopt when `text` begins with no day.
std::optional<WrittenDay> DayAtStartOf(TextView text);

// The day that `text` consists of, even a day that no calendar has (31FEB); nullopt when `text` is anything else.
std::optional<WrittenDay> WholeDay(TextView text);

// Finds the years of the days in a display.
class Years {
 public:
  // `date` is the date of the display, near which the days in the display lie; nullopt when the date of the display is
  // not known. In this case, DateNear finds a date only for a day that is written with a year.
  explicit Years(std::optional<CalendarDay> date) : date_(date ? std::optional(DateOf(*date)) : std::nullopt) {}

  bool HasDate() const { return date_.has_value(); }

  // The date of a day. A day that is written with a year has that year. For any other day, `weekday` decides:
  // - 1 (Monday) to 7: the nearest year, at most kMostYears away, in which the day falls on this weekday.
  // - 0 (no weekday): the year in which the day lies from kDaysBefore days before the date of the display to kDaysAfter
  //   days after it. When two years fit, the earlier year is taken.
  //
  // Returns nullopt in these cases:
  // - The day is written with a year and does not exist in this year.
  // - The day is written without a year, and no year fits or the display has no date.
  std::optional<Date> DateNear(const WrittenDay& day, std::int32_t weekday) const;

 private:
  std::optional<Date> date_;
};

}  // namespace wendrill::simulator
