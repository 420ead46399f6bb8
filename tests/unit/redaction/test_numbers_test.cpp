#include "redaction/test_numbers.h"

#include <gtest/gtest.h>

#include <set>

namespace wendrill::redaction {
namespace {

TEST(TestNumbers, HaveACheckDigit) {
  EXPECT_TRUE(HasCheckDigit(u"4111111111111111"));
  EXPECT_TRUE(HasCheckDigit(u"378282246310005"));
  EXPECT_FALSE(HasCheckDigit(u"4111111111111112"));
  TestNumbers numbers;
  for (std::size_t length = 13; length <= 19; ++length) {
    const std::u16string& number = numbers.Of(std::u16string(length, u'5'));
    EXPECT_EQ(number.size(), length);
    EXPECT_TRUE(HasCheckDigit(number));
  }
}

// 4000000000000000: twice 4 is 8, the check digit completes to 10. Then a 1 in the place before the check digit counts
// double: 8 + 2 are 10 already.
TEST(TestNumbers, CountUp) {
  TestNumbers numbers;
  EXPECT_EQ(numbers.Of(u"4111111111111111"), u"4000000000000002");
  EXPECT_EQ(numbers.Of(u"5500000000000004"), u"4000000000000010");
  EXPECT_EQ(numbers.Of(u"4111111111111111"), u"4000000000000002");
}

TEST(TestNumbers, LeaveANumberOfTheirFormAsItIs) {
  TestNumbers numbers;
  EXPECT_EQ(numbers.Of(u"4000000000000010"), u"4000000000000010");
  EXPECT_EQ(numbers.Of(u"4111111111111111"), u"4000000000000002");
  EXPECT_EQ(numbers.Of(u"5500000000000004"), u"4000000000000028");
  EXPECT_EQ(numbers.Of(u"4000000000000003"), u"4000000000000036");  // a wrong check digit
}

TEST(TestNumbers, AreNotSharedBefore100000) {
  TestNumbers numbers;
  std::set<std::u16string> given;
  for (int i = 0; i < 2000; ++i) {
    given.insert(numbers.Of(u"500000000" + DecimalText(1000 + i)));
  }
  EXPECT_EQ(given.size(), 2000U);
}

}  // namespace
}  // namespace wendrill::redaction
