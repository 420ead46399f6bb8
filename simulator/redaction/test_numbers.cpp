#include "redaction/test_numbers.h"

#include <algorithm>

namespace wendrill::redaction {
namespace {

constexpr TextView kPrefix = u"4000000";

// The sum of ISO/IEC 7812-1: doubles every second digit from the right, beginning with the last digit but one, and adds
// up the digits of all results. The sum of a number with a correct check digit is a multiple of 10.
int SumOf(TextView number) {
  int sum = 0;
  bool isDoubled = false;
  for (auto digit = number.rbegin(); digit != number.rend(); ++digit, isDoubled = !isDoubled) {
    const int value = (*digit - u'0') * (isDoubled ? 2 : 1);
    sum += value / 10 + value % 10;
  }
  return sum;
}

}  // namespace

bool HasCheckDigit(TextView number) {
  return SumOf(number) % 10 == 0;
}

const std::u16string& TestNumbers::Of(const std::u16string& number) {
  if (const auto known = numbers_.find(number); known != numbers_.end()) {
    return known->second;
  }
  const bool keepsForm = StartsWith(number, kPrefix) && HasCheckDigit(number) && !used_.contains(number);
  const auto chosen = numbers_.emplace(number, keepsForm ? number : NextFree(number.size())).first;
  used_.insert(chosen->second);
  return chosen->second;
}

// Returns the next unused test number with `length` digits. There are 100,000 test numbers of each length, because a
// number of 13 digits has room for only five digits of the count (see test_numbers.h). When all 100,000 are used,
// returns test numbers that other card numbers have already.
std::u16string TestNumbers::NextFree(std::size_t length) {
  constexpr std::uint32_t kMost = 100000;
  constexpr std::size_t kCheckDigit = 1;
  std::uint32_t& count = counts_[length];
  for (;;) {
    const std::u16string counted = DecimalText(count % kMost);
    std::u16string number(kPrefix);
    number.append(length - kPrefix.size() - counted.size() - kCheckDigit, u'0').append(counted).append(u"0");
    number.back() = static_cast<char16_t>(u'0' + (10 - SumOf(number) % 10) % 10);
    ++count;
    if (count > kMost || !used_.contains(number)) {
      return number;
    }
  }
}

}  // namespace wendrill::redaction
