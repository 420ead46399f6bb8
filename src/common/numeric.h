// Numbers: parsing by the rules of the automation run time, rounding, and integer arithmetic that raises 6 (overflow).
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace wendrill {

// The number in a string, by the automation run time's rules. nullopt when `text` is not a number, when the number is
// too large for a double, and when a hexadecimal or octal number has more than 32 bits. The rules follow US
// conventions: "." before the decimals, "," between groups of digits, "$" for currency, parentheses for a negative
// number, a sign before or after the number, an exponent, &H (hexadecimal) and &O (octal). White space around the
// number is accepted.
std::optional<double> ParseNumber(std::u16string_view text);

// The number in a string that must be a number, by the rules of ParseNumber. Raises 13 (type mismatch) when `text` is
// not a number. Raises 6 (overflow) when the number is too large for a double, and when a hexadecimal or octal number
// has more than 32 bits.
double NumberOf(std::u16string_view text);

// Returns what ParseNumber returns, but for a string with "," before the decimals and "." between groups of digits. The
// two numbers in the terminal's version string are parsed in this way, after "." has been replaced by ",".
std::optional<double> ParseNumberWithDecimalComma(std::u16string_view text);

// The automation run time's numeric test: whether ParseNumber finds a number in `text`. False for the empty string.
bool IsNumeric(std::u16string_view text);

// The integer nearest to `number`. A number halfway between two integers is rounded to the even integer.
double RoundHalfEven(double number);

// Narrow16 and Narrow32 round `number` (see RoundHalfEven) and return the result as a 16-bit or 32-bit integer. They
// raise 6 (overflow) when the rounded number does not fit.
std::int16_t Narrow16(double number);
std::int32_t Narrow32(double number);

// Add16 returns the sum and Subtract16 the difference of two 16-bit integers. Both raise 6 (overflow) when the result
// is outside -32768..32767.
std::int16_t Add16(std::int16_t left, std::int16_t right);
std::int16_t Subtract16(std::int16_t left, std::int16_t right);

}  // namespace wendrill
