#include "common/numeric.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "common/error.h"
#include "common/text.h"

namespace wendrill {
namespace {

// The characters that separate the decimals and the groups of digits.
struct Conventions {
  char16_t decimal;
  char16_t group;
};

constexpr Conventions kDecimalPoint = {u'.', u','};
constexpr Conventions kDecimalComma = {u',', u'.'};

constexpr char16_t kCurrency = u'$';

constexpr double kTooLarge = std::numeric_limits<double>::infinity();

struct CharacterRange {
  char16_t first;
  char16_t last;
};

// The characters that the automation run time skips before and after a number.
constexpr std::array kWhiteSpace = {
    CharacterRange{0x0009, 0x000D}, CharacterRange{0x0020, 0x0020}, CharacterRange{0x0085, 0x0085},
    CharacterRange{0x00A0, 0x00A0}, CharacterRange{0x1680, 0x1680}, CharacterRange{0x2000, 0x200A},
    CharacterRange{0x2028, 0x2029}, CharacterRange{0x202F, 0x202F}, CharacterRange{0x205F, 0x205F},
    CharacterRange{0x3000, 0x3000},
};

bool IsWhiteSpace(char16_t character) {
  return std::ranges::any_of(kWhiteSpace, [character](const CharacterRange& range) {
    return character >= range.first && character <= range.last;
  });
}

bool IsHexadecimalDigit(char16_t character) {
  return IsDigit(character) || (character >= u'A' && character <= u'F') || (character >= u'a' && character <= u'f');
}

// Parses a number from left to right: what precedes the digits, the digits with their exponent, what follows the
// digits.
//
// Intentional: like the automation run time, this parser accepts nearly anything around the digits:
//   - Signs, parentheses, currency signs and white space may come in any order.
//   - Before the digits, white space may repeat; "-", "+", "(" and the currency sign may each appear once.
//   - After the digits, white space, "-", "+", ")", currency signs and group separators may repeat. A "-" or "+" that
//     precedes the digits must not follow them as well. A ")" needs a "(" before the digits.
//   - A "(" makes a negative sign necessary: a ")" after the digits, or a "-" before or after them.
//   - Group separators may appear anywhere after the first digit or the decimal separator, but not in the exponent.
class NumberReader {
 public:
  NumberReader(TextView text, Conventions conventions) : rest_(text), conventions_(conventions) {}

  // The number; nullopt when the text is not a number. Returns kTooLarge for a number that is too large for a double,
  // even for a negative number, and for a hexadecimal or octal number of more than 32 bits.
  std::optional<double> Read() {
    ReadHead();
    if (Take(u'&')) {
      return ReadBitPattern();
    }
    if (!ReadDigits() || !ReadExponent() || !ReadTail()) {
      return std::nullopt;
    }
    return Converted();
  }

 private:
  template <typename Predicate>
  bool TakeIf(Predicate matches) {
    if (rest_.empty() || !matches(rest_.front())) {
      return false;
    }
    rest_.remove_prefix(1);
    return true;
  }

  bool Take(char16_t sought) {
    return TakeIf([sought](char16_t character) { return character == sought; });
  }

  // Removes `mark` from the beginning of rest_, sets `seen` to true and returns true. When rest_ does not begin with
  // `mark`, returns false and changes nothing.
  bool TakeMark(char16_t mark, bool& seen) {
    const bool taken = Take(mark);
    seen = seen || taken;
    return taken;
  }

  // Does what TakeMark does while `seen` is false; does nothing and returns false once `seen` is true.
  bool TakeFirst(char16_t mark, bool& seen) { return !seen && TakeMark(mark, seen); }

  template <typename Predicate>
  bool TakeDigits(Predicate isDigit) {
    const std::size_t before = digits_.size();
    while (!rest_.empty() && isDigit(rest_.front())) {
      digits_.push_back(static_cast<char>(rest_.front()));
      rest_.remove_prefix(1);
    }
    return digits_.size() > before;
  }

  void ReadHead() {
    while (TakeIf(IsWhiteSpace) || TakeFirst(u'-', negative_) || TakeFirst(u'+', positive_) ||
           TakeFirst(u'(', opened_) || TakeFirst(kCurrency, currency_)) {
    }
  }

  bool ReadTail() {
    const bool mayBeNegative = !negative_;
    const bool mayBePositive = !positive_;
    while (TakeIf(IsWhiteSpace) || Take(conventions_.group) || TakeMark(kCurrency, currency_) ||
           (mayBeNegative && TakeMark(u'-', negative_)) || (mayBePositive && TakeMark(u'+', positive_)) ||
           (opened_ && TakeMark(u')', negative_))) {
    }
    // The automation run time ends a string at its first null character, as C does. So the null character and all
    // characters after it are ignored.
    const bool atEnd = rest_.empty() || rest_.front() == u'\0';
    return atEnd && (negative_ || !opened_);
  }

  void ReadDigitGroups() {
    do {
      TakeDigits(IsDigit);
    } while (Take(conventions_.group));
  }

  bool ReadDigits() {
    if (!rest_.empty() && IsDigit(rest_.front())) {
      ReadDigitGroups();
    }
    const bool hasWhole = !digits_.empty();
    if (!Take(conventions_.decimal)) {
      return hasWhole;
    }
    digits_.push_back('.');
    const std::size_t beforeDecimals = digits_.size();
    ReadDigitGroups();
    return hasWhole || digits_.size() > beforeDecimals;
  }

  // Reads the exponent, if there is one. Returns false only when an E is read and no digit follows the E and its sign.
  // When a currency sign precedes the digits, no exponent is read: an E is then left unread, and the text is not a
  // number.
  bool ReadExponent() {
    if (currency_ || !(Take(u'E') || Take(u'e'))) {
      return true;
    }
    digits_.push_back('e');
    if (Take(u'-')) {
      digits_.push_back('-');
    } else {
      Take(u'+');
    }
    return TakeDigits(IsDigit);
  }

  // The value of the characters in digits_, with its sign. from_chars reports the same error (result_out_of_range) for
  // a number that is too large and for a number that is too close to zero. Converted decides by the exponent which of
  // these numbers it is, and returns 0 after a negative exponent, otherwise kTooLarge. Without an exponent, the number
  // counts as too large: it has hundreds of digits.
  std::optional<double> Converted() const {
    double number = 0;
    const auto result = std::from_chars(digits_.data(), digits_.data() + digits_.size(), number);
    if (result.ec == std::errc::result_out_of_range) {
      const bool tooSmall = digits_.find("e-") != std::string::npos;
      return tooSmall ? 0 : kTooLarge;
    }
    return negative_ ? -number : number;
  }

  // Reads a hexadecimal (&H) or octal (&O) number after its "&": a 32-bit pattern whose highest bit is the sign.
  // Returns nullopt when the text is not such a number, and kTooLarge for more than 32 bits. A "-" and parentheses
  // around the number are accepted and do not change its value; a currency sign is not accepted.
  std::optional<double> ReadBitPattern() {
    const bool hexadecimal = Take(u'H') || Take(u'h');
    const bool octal = !hexadecimal && (Take(u'O') || Take(u'o'));
    if (!(hexadecimal || octal) || !TakeDigits(IsHexadecimalDigit) || !ReadTail() || currency_) {
      return std::nullopt;
    }
    std::uint32_t bits = 0;
    const char* end = digits_.data() + digits_.size();
    const auto result = std::from_chars(digits_.data(), end, bits, hexadecimal ? 16 : 8);
    if (result.ptr != end) {
      return std::nullopt;
    }
    return result.ec == std::errc() ? static_cast<std::int32_t>(bits) : kTooLarge;
  }

  TextView rest_;
  Conventions conventions_;
  std::string digits_;     // the digits and the exponent, with "." as the decimal separator
  bool negative_ = false;  // a "-" or a ")" was read
  bool positive_ = false;  // a "+" was read
  bool opened_ = false;    // a "(" was read
  bool currency_ = false;  // a currency sign was read
};

std::optional<double> ReadNumber(TextView text, Conventions conventions) {
  const auto number = NumberReader(text, conventions).Read();
  return number == kTooLarge ? std::nullopt : number;
}

template <typename Whole>
Whole Narrow(double number) {
  const double whole = RoundHalfEven(number);
  if (!(whole >= std::numeric_limits<Whole>::min() && whole <= std::numeric_limits<Whole>::max())) {
    Raise(RunTimeError::Overflow);
  }
  return static_cast<Whole>(whole);
}

std::int16_t Fitting16(std::int32_t number) {
  const auto fitting = static_cast<std::int16_t>(number);
  if (fitting != number) {
    Raise(RunTimeError::Overflow);
  }
  return fitting;
}

}  // namespace

std::optional<double> ParseNumber(std::u16string_view text) {
  return ReadNumber(text, kDecimalPoint);
}

std::optional<double> ParseNumberWithDecimalComma(std::u16string_view text) {
  return ReadNumber(text, kDecimalComma);
}

double NumberOf(std::u16string_view text) {
  const auto number = NumberReader(text, kDecimalPoint).Read();
  if (!number) {
    Raise(RunTimeError::TypeMismatch);
  }
  if (*number == kTooLarge) {
    Raise(RunTimeError::Overflow);
  }
  return *number;
}

bool IsNumeric(std::u16string_view text) {
  // Most calls test a single character. A single character is a number only when it is a digit, so no parser is needed.
  return text.size() == 1 ? IsDigit(text.front()) : ParseNumber(text).has_value();
}

// The standard library's functions that round half to even are not used: they depend on the rounding mode, which the
// host program may have changed.
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
  return Fitting16(std::int32_t{left} + right);
}

std::int16_t Subtract16(std::int16_t left, std::int16_t right) {
  return Fitting16(std::int32_t{left} - right);
}

}  // namespace wendrill
