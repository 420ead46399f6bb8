// Numbers of cards that no card has, one for each number that is hidden: 4000000, a count, a check digit.
//
// A number that has this form and a right check digit keeps it where it is free, so that a text that is hidden again
// stays the same.
#pragma once

#include <map>
#include <string>

#include "redaction/pseudonyms.h"

namespace wendrill::redaction {

class TestNumbers {
 public:
  // For a number of 13 to 19 digits, the same for the same number.
  const std::u16string& Of(const std::u16string& number);

 private:
  std::u16string NextFree(std::size_t length);

  TextMap numbers_;
  TextSet used_;
  std::map<std::size_t, std::uint32_t> counts_;  // by length
};

// Whether the last digit is the check digit of the others (ISO/IEC 7812-1).
bool HasCheckDigit(TextView number);

}  // namespace wendrill::redaction
