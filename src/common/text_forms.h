// Port to the string forms of numbers and dates, which follow the regional settings of the user.
//
// The conversions from a number to a string, from a date to a string and from a string to a date follow the regional
// settings. The conversion from a string to a number, and the test whether a string is a number, do not: the host
// writes numbers in one format, whatever the settings of the desktop.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "common/value.h"

namespace wendrill {

class TextForms {
 public:
  virtual ~TextForms() = default;

  // The string form of a number: at most 15 significant digits, with the user's decimal separator and without group
  // separators, such as 1234.5 and 1E+20.
  virtual std::u16string TextOf(double number) const = 0;

  // The automation run time's standard form of a date: the day in the user's short date format (6/12/2008), followed by
  // the time of day unless that is midnight. When the date is on day 0, 30 December 1899, the string contains only the
  // time of day. Raises 5 (invalid argument) for a date outside the years 100 to 9999.
  virtual std::u16string TextOf(const Date& date) const = 0;

  // The date that `text` expresses in the form in which TextOf writes dates; nullopt when `text` has another form, for
  // example the host's notation 12JUN08.
  virtual std::optional<Date> DateOf(std::u16string_view text) const = 0;
};

// The string forms of a desktop with US settings, computed without the operating system: native builds run without a
// Windows desktop.
const TextForms& UsTextForms();

}  // namespace wendrill
