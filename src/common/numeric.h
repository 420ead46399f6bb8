// Numbers: the automation run time's numeric test, rounding, and 16-bit arithmetic that raises overflow (6).
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace wendrill {

// The number in a string by the automation run time's rules (US conventions: "." decimal, "," between groups, "$"
// currency, parentheses for negative, sign before or after, exponent, &H and &O); nullopt when the text is not a number
// or the number is too large for a double. White space around the number is accepted.
std::optional<double> ParseNumber(std::u16string_view text);

// ParseNumber for a conversion that must succeed. Raises 13 (type mismatch) when the text is not a number, 6 (overflow)
// when the number is too large for a double.
double NumberOf(std::u16string_view text);

// ParseNumber with a comma as decimal separator and a point between groups. Used for the terminal's version string.
std::optional<double> ParseNumberWithDecimalComma(std::u16string_view text);

// The automation run time's numeric test: whether ParseNumber finds a number. The empty string is not a number.
bool IsNumeric(std::u16string_view text);

// The nearest integer; a half rounds to the even neighbour.
double RoundHalfEven(double number);

// Narrowing to 16 and 32 bits: rounds half to even. Raises 6 (overflow) when the number does not fit.
std::int16_t Narrow16(double number);
std::int32_t Narrow32(double number);

// 16-bit addition and subtraction. Raises 6 (overflow) when the result is outside -32768..32767.
std::int16_t Add16(std::int16_t left, std::int16_t right);
std::int16_t Subtract16(std::int16_t left, std::int16_t right);

}  // namespace wendrill
