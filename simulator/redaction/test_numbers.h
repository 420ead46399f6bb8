// Test numbers, which replace card numbers: each card number gets one, and no real card has such a number. A test
// number consists of 4000000, a count with leading zeros, and a check digit.
//
// A number that begins with 4000000 and has a correct check digit is its own test number, unless that number is in use
// already. So hiding is idempotent: hiding a hidden text again does not change it.
#pragma once

#include <map>
#include <string>

#include "redaction/pseudonyms.h"

namespace wendrill::redaction {

class TestNumbers {
 public:
  // The test number for a card number of 13 to 19 digits, in the same length. Every call for a card number returns the
  // test number that the first call chose.
  const std::u16string& Of(const std::u16string& number);

 private:
  std::u16string NextFree(std::size_t length);

  TextMap numbers_;
  TextSet used_;
  std::map<std::size_t, std::uint32_t> counts_;  // the next count, by the length of the number
};

// Whether the last digit is the check digit of the digits before it (ISO/IEC 7812-1).
bool HasCheckDigit(TextView number);

}  // namespace wendrill::redaction
