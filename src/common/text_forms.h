// Port to the string forms of numbers and dates, which follow the regional settings of the user.
//
// Only the conversion from a value to a string follows the settings. The conversion from a string to a number, and the
// numeric test, do not: the host writes numbers in one form, whatever the desktop.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "common/value.h"

namespace wendrill {

class TextForms {
 public:
  virtual ~TextForms() = default;

  // At most 15 significant digits, with the user's decimal separator and without group separators: 1234.5, 1E+20.
  virtual std::u16string TextOf(double number) const = 0;

  // The automation run time's standard form: the day in the user's short form (6/12/2008), followed by the time of day
  // unless that is midnight; the time alone for a date without a day. Raises 5 for a date outside the years 100 to
  // 9999.
  virtual std::u16string TextOf(const Date& date) const = 0;

  // The date of which `text` is the standard form; nullopt for a string in any other form.
  virtual std::optional<Date> DateOf(std::u16string_view text) const = 0;
};

// The forms of a desktop with US settings, computed without the system: native builds have no desktop.
const TextForms& UsTextForms();

}  // namespace wendrill
