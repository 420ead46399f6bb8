#include "common/numeric.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "common/error.h"
#include "common/text.h"

namespace wendrill {
namespace {

// Which character separates the decimals and which the groups of digits.
struct Conventions {
  char16_t decimal;
  char16_t group;
};

constexpr Conventions kDecimalPoint = {u'.', u','};
constexpr Conventions kDecimalComma = {u',', u'.'};

constexpr char16_t kCurrency = u'$';

// A text on its way to a number, read once from left to right. What may stand around the digits (signs, parentheses,
// currency, blanks) may stand in any order, each once.
class NumberReader {
 public:
  NumberReader(TextView text, Conventions conventions) : rest_(text), conventions_(conventions) {}

  std::optional<double> Read() {
    ReadHead();
    if (Take(u'&')) {
      return ReadBased();
    }
    if (!ReadDigits() || !ReadExponent() || !ReadTail()) {
      return std::nullopt;
    }
    return Converted();
  }

 private:
  static bool IsWhite(char16_t character) { return character == kBlank || (character >= u'\t' && character <= u'\r'); }

  bool Take(char16_t character) {
    if (rest_.empty() || rest_.front() != character) {
      return false;
    }
    rest_.remove_prefix(1);
    return true;
  }

  bool TakeWhite() {
    if (rest_.empty() || !IsWhite(rest_.front())) {
      return false;
    }
    rest_.remove_prefix(1);
    return true;
  }

  bool TakeOnce(char16_t character, bool& seen) {
    if (seen || !Take(character)) {
      return false;
    }
    seen = true;
    return true;
  }

  void ReadHead() {
    while (TakeWhite() || TakeOnce(u'-', minus_) || TakeOnce(u'+', plus_) || TakeOnce(u'(', opened_) ||
           TakeOnce(kCurrency, currencyBefore_)) {
    }
  }

  bool ReadTail() {
    while (TakeWhite() || TakeOnce(u'-', minus_) || TakeOnce(u'+', plus_) || (opened_ && TakeOnce(u')', closed_)) ||
           TakeOnce(kCurrency, currencyBehind_)) {
    }
    return rest_.empty() && opened_ == closed_;
  }

  void TakeDigits() {
    while (!rest_.empty() && IsDigit(rest_.front())) {
      digits_.push_back(static_cast<char>(rest_.front()));
      rest_.remove_prefix(1);
    }
  }

  bool ReadDigits() {
    TakeDigits();
    while (!digits_.empty() && Take(conventions_.group)) {
      TakeDigits();
    }
    const std::size_t whole = digits_.size();
    if (Take(conventions_.decimal)) {
      digits_.push_back('.');
      do {
        TakeDigits();
      } while (Take(conventions_.group));
    }
    return whole > 0 || digits_.size() > 1;
  }

  bool ReadExponent() {
    if (currencyBefore_ || !(Take(u'e') || Take(u'E'))) {
      return true;
    }
    digits_.push_back('e');
    if (Take(u'-')) {
      digits_.push_back('-');
    } else {
      Take(u'+');
    }
    const std::size_t before = digits_.size();
    TakeDigits();
    return digits_.size() > before;
  }

  std::optional<double> Converted() const {
    double number = 0;
    const auto [end, error] = std::from_chars(digits_.data(), digits_.data() + digits_.size(), number);
    if (error == std::errc::result_out_of_range) {
      return std::nullopt;
    }
    return minus_ || opened_ ? -number : number;
  }

  // &H or &O: a 32-bit pattern, the highest bit its sign.
  std::optional<double> ReadBased() {
    const bool hexadecimal = Take(u'H') || Take(u'h');
    if (!hexadecimal && !Take(u'O') && !Take(u'o')) {
      return std::nullopt;
    }
    while (!rest_.empty() && IsBasedDigit(rest_.front())) {
      digits_.push_back(static_cast<char>(rest_.front()));
      rest_.remove_prefix(1);
    }
    std::uint32_t bits = 0;
    const auto [end, error] =
        std::from_chars(digits_.data(), digits_.data() + digits_.size(), bits, hexadecimal ? 16 : 8);
    if (error != std::errc() || end != digits_.data() + digits_.size() || !ReadTail()) {
      return std::nullopt;
    }
    return static_cast<std::int32_t>(bits);
  }

  static bool IsBasedDigit(char16_t character) {
    return IsDigit(character) || (character >= u'A' && character <= u'F') || (character >= u'a' && character <= u'f');
  }

  TextView rest_;
  Conventions conventions_;
  std::string digits_;
  bool minus_ = false;
  bool plus_ = false;
  bool opened_ = false;
  bool closed_ = false;
  bool currencyBefore_ = false;
  bool currencyBehind_ = false;
};

template <typename Whole>
Whole Narrow(double number) {
  const double whole = RoundHalfEven(number);
  if (!(whole >= std::numeric_limits<Whole>::min() && whole <= std::numeric_limits<Whole>::max())) {
    Raise(RunTimeError::Overflow);
  }
  return static_cast<Whole>(whole);
}

}  // namespace

std::optional<double> ParseNumber(std::u16string_view text) {
  return NumberReader(text, kDecimalPoint).Read();
}

std::optional<double> ParseNumberWithDecimalComma(std::u16string_view text) {
  return NumberReader(text, kDecimalComma).Read();
}

bool IsNumeric(std::u16string_view text) {
  if (text.size() == 1) {
    return IsDigit(text.front());
  }
  return ParseNumber(text).has_value();
}

// Independent of the floating-point environment of the caller's process, in which we are guests.
double RoundHalfEven(double number) {
  const double below = std::floor(number);
  const double above = number - below;
  if (above < 0.5) {
    return below;
  }
  if (above > 0.5) {
    return below + 1;
  }
  return std::fmod(below, 2) == 0 ? below : below + 1;
}

std::int16_t Narrow16(double number) {
  return Narrow<std::int16_t>(number);
}

std::int32_t Narrow32(double number) {
  return Narrow<std::int32_t>(number);
}

std::int16_t Add16(std::int16_t left, std::int16_t right) {
  return Narrow16(static_cast<double>(left) + right);
}

std::int16_t Subtract16(std::int16_t left, std::int16_t right) {
  return Narrow16(static_cast<double>(left) - right);
}

}  // namespace wendrill
