// The regional settings of a simulated desktop: how numbers and dates are converted to text.
#pragma once

#include <algorithm>

#include "common/host_date.h"
#include "common/text.h"
#include "common/text_forms.h"

namespace wendrill::testing {

// Has US settings until DayMonthYear is called. From then on, a date is 12/06/2008 and a number 1234,5.
class FakeTextForms final : public TextForms {
 public:
  void DayMonthYear() { dayFirst_ = true; }

  std::u16string TextOf(double number) const override {
    std::u16string text = UsTextForms().TextOf(number);
    if (dayFirst_) {
      std::ranges::replace(text, u'.', u',');
    }
    return text;
  }

  std::u16string TextOf(const Date& date) const override {
    if (!dayFirst_) {
      return UsTextForms().TextOf(date);
    }
    const CalendarDay day = DayOf(date);
    return TwoDigits(day.day) + u"/" + TwoDigits(day.month) + u"/" + DecimalText(day.year);
  }

  std::optional<Date> DateOf(std::u16string_view text) const override {
    if (!dayFirst_) {
      return UsTextForms().DateOf(text);
    }
    for (double days = 1; days < 73050; ++days) {  // tries every day to 30 December 2099: slow, but used in tests only
      if (TextOf(Date{days}) == text) {
        return Date{days};
      }
    }
    return std::nullopt;
  }

 private:
  static std::u16string TwoDigits(std::int32_t number) { return (number < 10 ? u"0" : u"") + DecimalText(number); }

  bool dayFirst_ = false;
};

}  // namespace wendrill::testing
