#include "common/text_forms.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

#include "common/host_date.h"
#include "common/text.h"

namespace wendrill {
namespace {

// The number of significant digits in a number's string form. A string form without an exponent also has at most
// kDigits decimals.
constexpr int kDigits = 15;

constexpr std::size_t kLongestText = kDigits + 10;

using Characters = std::array<char, kLongestText>;

std::string_view Printed(Characters& characters, const char* format, double number) {
  const int length = std::snprintf(characters.data(), characters.size(), format, kDigits, number);
  return {characters.data(), static_cast<std::size_t>(length)};
}

// Whether the small number that `text` expresses, such as 1.5E-05, is written without an exponent: as 0.000015, with at
// most kDigits decimals. `exponent` is the index of the "E" in `text`. A number without decimals counts as if it had
// one decimal, so 1E-15 keeps its exponent. Always false for a large number, because `text` has an exponent only from
// 1E+15 on.
bool FitsWithoutExponent(std::string_view text, std::size_t exponent) {
  const std::size_t point = text.find_first_not_of("-0123456789");
  const auto decimals = point < exponent ? static_cast<int>(exponent - point) - 1 : 1;
  return std::abs(std::atoi(text.data() + exponent + 1)) + decimals - 1 < kDigits;
}

// The printed number `digits` as UTF-16, with "." as the decimal separator. The process that loaded the library may
// have set a C locale with another decimal separator. So every character that is not a digit, a sign or the "E" of the
// exponent is replaced by ".". (std::to_chars ignores the locale, but its tables would take up a fifth of the whole
// DLL.)
std::u16string WithPoint(std::string_view digits) {
  std::u16string text(digits.begin(), digits.end());
  std::ranges::replace_if(
      text,
      [](char16_t c) {
        return !IsDigit(c) && !Contains(u"+-E", {&c, 1});
      },
      u'.');
  return text;
}

class UsForms final : public TextForms {
 public:
  // Writes negative zero as 0, without a sign.
  std::u16string TextOf(double number) const override {
    Characters characters;
    std::string_view text = Printed(characters, "%.*G", number == 0 ? 0.0 : number);
    const std::size_t exponent = text.find('E');
    if (exponent != std::string_view::npos && FitsWithoutExponent(text, exponent)) {
      text = Printed(characters, "%.*f", number);
      text = text.substr(0, text.find_last_not_of('0') + 1);
    }
    return WithPoint(text);
  }

  std::u16string TextOf(const Date& date) const override { return DateText(date); }

  std::optional<Date> DateOf(std::u16string_view text) const override { return ParseDateText(text); }
};

}  // namespace

const TextForms& UsTextForms() {
  static const UsForms forms;
  return forms;
}

}  // namespace wendrill
