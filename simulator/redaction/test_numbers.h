// Test numbers, which replace card numbers. A test number consists of 4000000, a count with leading zeros, and a check
// digit; no real card has such a number. Each card number gets its own test number, unless the texts contain more than
// 100,000 card numbers of one length.
//
// A card number that begins with 4000000 and has a correct check digit is taken for a test number of a text that was
// hidden before. Such a card number is not changed, unless it is already the test number of another card number. So
// hiding is idempotent: hiding a hidden text again does not change it.
#pragma once

#include <map>
#include <string>

#include "redaction/pseudonyms.h"

namespace wendrill::redaction {

class TestNumbers {
 public:
  // The test number for a card number; the test number has the length of the card number. The first call for a card
  // number chooses the test number, and later calls return this test number. REQUIRES: `number` has 13 to 19 digits.
  const std::u16string& Of(const std::u16string& number);

 private:
  std::u16string NextFree(std::size_t length);

  TextMap numbers_;
  TextSet used_;
  std::map<std::size_t, std::uint32_t> counts_;  // the count for the next test number, by the length of the test number
};

// Whether the last digit of the number is the correct check digit of the other digits (ISO/IEC 7812-1).
bool HasCheckDigit(TextView number);

}  // namespace wendrill::redaction
