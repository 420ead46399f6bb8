// Port to the text forms of numbers and dates, which follow the regional settings of the user.
//
// Only the way from a value to text follows them. The way back, from text to a number, and the numeric test do not: the
// host writes numbers in one way, whatever the desktop.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "common/value.h"

namespace wendrill {

class TextForms {
 public:
  virtual ~TextForms() = default;

  // At most 15 significant digits, with the user's decimal separator and nothing between the groups: 1234.5, 1E+20.
  virtual std::u16string TextOf(double number) const = 0;

  // The run time's standard form: the day in the user's short form (6/12/2008), followed by the time of day when there
  // is one; the time alone for a date without a day. 5 for a date outside the years 100 to 9999.
  virtual std::u16string TextOf(const Date& date) const = 0;

  // The date whose standard form this is; nothing for a text in any other form.
  virtual std::optional<Date> DateOf(std::u16string_view text) const = 0;
};

// The forms of a desktop with US settings. They ask nobody: this is what runs where there is no desktop.
const TextForms& UsTextForms();

}  // namespace wendrill
