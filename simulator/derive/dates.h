// The days in a display, most of which are written without a year: 15JUN.
#pragma once

#include <cstdint>
#include <optional>

#include "common/host_date.h"
#include "common/text.h"

namespace wendrill::simulator {

// A day as displays write it: one or two digits and a month, and in some places a year of two digits.
struct WrittenDay {
  std::int32_t day = 0;
  std::int32_t month = 0;
  std::optional<std::int32_t> year = {};  // with its century: 2008; nullopt when no year is written
  std::size_t width = 0;                  // the length of the text that was read
};

// The day with which `text` begins, whether or not it exists in a calendar; nullopt when `text` does not begin with a
// day.
std::optional<WrittenDay> DayAtStartOf(TextView text);

// The day that `text` consists of, whether or not it exists in a calendar; nullopt when `text` is anything else.
std::optional<WrittenDay> WholeDay(TextView text);

// Finds the years of the days in a display.
class Years {
 public:
  // `date` is the date of the display, near which its days lie. Without it, only a day with a year has a date.
  explicit Years(std::optional<CalendarDay> date) : date_(date ? std::optional(DateOf(*date)) : std::nullopt) {}

  bool HasDate() const { return date_.has_value(); }

  // The date of a day. A day that is written with a year has that year. For any other day, `weekday` decides:
  // - 1 (Monday) to 7: the nearest year, at most kMostYears away, in which the day falls on this weekday.
  // - 0 (no weekday): the year in which the day lies from kDaysBefore days before the date of the display to kDaysAfter
  //   days after it; of two such years the earlier one.
  //
  // nullopt when no such year exists, and for a day without a year when the display has no date.
  std::optional<Date> DateNear(const WrittenDay& day, std::int32_t weekday) const;

 private:
  std::optional<Date> date_;
};

}  // namespace wendrill::simulator
