#include "common/numeric.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <limits>
#include <optional>
#include <string>

#include "common/text.h"
#include "support/raises.h"
#include "unit/common/number_samples.h"

namespace wendrill::testing {
namespace {

constexpr std::int32_t kOverflow = 6;
constexpr std::int32_t kTypeMismatch = 13;

TEST(ParseNumber, ReadsWhatAutomationReads) {
  for (const NumberSample& sample : kNumberSamples) {
    EXPECT_EQ(ParseNumber(sample.text), sample.number) << "text: [" << ToUtf8(sample.text) << "]";
  }
}

TEST(ParseNumber, ReadsTheOutermostDoublesExactly) {
  EXPECT_EQ(ParseNumber(u"1.7976931348623157e308"), std::numeric_limits<double>::max());
  EXPECT_EQ(ParseNumber(u"2.2250738585072014e-308"), std::numeric_limits<double>::min());
  EXPECT_EQ(ParseNumber(u"4.9406564584124654e-324"), std::numeric_limits<double>::denorm_min());
}

TEST(ParseNumber, ReadsTheHighestBitOfAPatternAsItsSign) {
  EXPECT_EQ(ParseNumber(u"&HFFFFFFFF"), -1);
  EXPECT_EQ(ParseNumber(u"&H80000001"), -2147483647);
  EXPECT_EQ(ParseNumber(u"&O37777777777"), -1);
}

TEST(ParseNumber, RejectsSignsAndSeparatorsInsideAnExponent) {
  for (const char16_t* text : {u"1e++5", u"1e+-5", u"1e--5", u"1e,5", u"1e1,000", u"1e5,5"}) {
    EXPECT_EQ(ParseNumber(text), kNoNumber) << ToUtf8(text);
  }
}

bool IsWhiteSpaceOfThePlatform(char16_t character) {
  return (character >= 0x0009 && character <= 0x000D) || (character >= 0x2000 && character <= 0x200A) ||
         std::u16string_view(u"\u0020\u0085\u00A0\u1680\u2028\u2029\u202F\u205F\u3000").find(character) !=
             std::u16string_view::npos;
}

TEST(ParseNumber, PassesOverEveryWhiteSpaceOfThePlatformAndNoOtherCharacter) {
  const std::u16string_view marks = u"+-$.0123456789";  // these belong to the number itself
  for (std::uint32_t unit = 1; unit <= 0xFFFF; ++unit) {
    const auto character = static_cast<char16_t>(unit);
    if (marks.find(character) != std::u16string_view::npos) {
      continue;
    }
    const std::optional<double> expected = IsWhiteSpaceOfThePlatform(character) ? std::optional(7.0) : kNoNumber;
    ASSERT_EQ(ParseNumber(character + std::u16string(u"7")), expected) << "U+" << std::hex << unit;
    const bool isGroup = character == u',';
    ASSERT_EQ(ParseNumber(std::u16string(u"7") + character), isGroup ? 7.0 : expected) << "U+" << std::hex << unit;
  }
}

TEST(ParseNumber, EndsAtATerminatorInsideTheText) {
  EXPECT_EQ(ParseNumber(std::u16string_view(u"1\0002", 3)), 1);
  EXPECT_EQ(ParseNumber(std::u16string_view(u"\0", 1)), kNoNumber);
}

TEST(ParseNumber, ReadsTextsOfAnyLength) {
  EXPECT_EQ(ParseNumber(std::u16string(5000, u'0') + u"12"), 12);
  EXPECT_EQ(ParseNumber(std::u16string(300, u'9')), 1e300);
  EXPECT_EQ(ParseNumber(std::u16string(400, u'9')), kNoNumber);
  EXPECT_EQ(ParseNumber(u"1" + std::u16string(5000, u' ')), 1);
}

TEST(ParseNumberWithDecimalComma, SwapsTheTwoSeparators) {
  EXPECT_EQ(ParseNumberWithDecimalComma(u"3,5"), 3.5);
  EXPECT_EQ(ParseNumberWithDecimalComma(u"1.234,5"), 1234.5);
  EXPECT_EQ(ParseNumberWithDecimalComma(u"3.0"), 30);
  EXPECT_EQ(ParseNumberWithDecimalComma(u",5"), 0.5);
  EXPECT_EQ(ParseNumberWithDecimalComma(u" 3 "), 3);
  EXPECT_EQ(ParseNumberWithDecimalComma(u"-2,5"), -2.5);
  EXPECT_EQ(ParseNumberWithDecimalComma(u"1,2,3"), kNoNumber);
  EXPECT_EQ(ParseNumberWithDecimalComma(u".5"), kNoNumber);
  EXPECT_EQ(ParseNumberWithDecimalComma(u"3P"), kNoNumber);
}

TEST(NumberOf, IsTheNumberOfTheText) {
  EXPECT_EQ(NumberOf(u" 1,234.5- "), -1234.5);
}

TEST(NumberOf, TellsNoNumberFromOneTooLarge) {
  EXPECT_TRUE(RaisesNumber(kTypeMismatch, [] { NumberOf(u""); }));
  EXPECT_TRUE(RaisesNumber(kTypeMismatch, [] { NumberOf(u"12JUN"); }));
  EXPECT_TRUE(RaisesNumber(kTypeMismatch, [] { NumberOf(u"1e400x"); }));
  EXPECT_TRUE(RaisesNumber(kOverflow, [] { NumberOf(u"1e400"); }));
  EXPECT_TRUE(RaisesNumber(kOverflow, [] { NumberOf(u"-1e400"); }));
  EXPECT_TRUE(RaisesNumber(kOverflow, [] { NumberOf(u"&H100000000"); }));
}

TEST(IsNumeric, HoldsWhereANumberIsFound) {
  for (const NumberSample& sample : kNumberSamples) {
    EXPECT_EQ(IsNumeric(sample.text), sample.number.has_value()) << "text: [" << ToUtf8(sample.text) << "]";
  }
}

TEST(IsNumeric, OfOneCharacterHoldsForTheTenDigitsAlone) {
  for (std::uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
    const auto character = static_cast<char16_t>(unit);
    const std::u16string_view text(&character, 1);
    EXPECT_EQ(IsNumeric(text), character >= u'0' && character <= u'9') << "U+" << std::hex << unit;
    EXPECT_EQ(ParseNumber(text).has_value(), IsNumeric(text)) << "U+" << std::hex << unit;
  }
}

TEST(RoundHalfEven, TakesHalvesToTheEvenNeighbour) {
  EXPECT_EQ(RoundHalfEven(0.5), 0);
  EXPECT_EQ(RoundHalfEven(1.5), 2);
  EXPECT_EQ(RoundHalfEven(2.5), 2);
  EXPECT_EQ(RoundHalfEven(3.5), 4);
  EXPECT_EQ(RoundHalfEven(-0.5), 0);
  EXPECT_EQ(RoundHalfEven(-1.5), -2);
  EXPECT_EQ(RoundHalfEven(-2.5), -2);
  EXPECT_EQ(RoundHalfEven(-3.5), -4);
}

TEST(RoundHalfEven, TakesTheRestToTheNearestNeighbour) {
  EXPECT_EQ(RoundHalfEven(0.49999999999999994), 0);
  EXPECT_EQ(RoundHalfEven(0.6), 1);
  EXPECT_EQ(RoundHalfEven(4.9), 5);
  EXPECT_EQ(RoundHalfEven(-4.9), -5);
  EXPECT_EQ(RoundHalfEven(-4.1), -4);
  EXPECT_EQ(RoundHalfEven(7), 7);
  EXPECT_EQ(RoundHalfEven(4503599627370497.5), 4503599627370498);
  EXPECT_EQ(RoundHalfEven(1e300), 1e300);
}

TEST(RoundHalfEven, DoesNotDependOnTheCallersRoundingMode) {
  const int before = std::fegetround();
  std::fesetround(FE_UPWARD);
  const double rounded = RoundHalfEven(2.25);
  std::fesetround(before);
  EXPECT_EQ(rounded, 2);
}

TEST(Narrow16, HoldsTheSixteenBitRangeAfterRounding) {
  EXPECT_EQ(Narrow16(32767.4), 32767);
  EXPECT_EQ(Narrow16(-32768.5), -32768);
  EXPECT_EQ(Narrow16(2.5), 2);
  EXPECT_TRUE(RaisesNumber(kOverflow, [] { Narrow16(32767.5); }));
  EXPECT_TRUE(RaisesNumber(kOverflow, [] { Narrow16(-32768.51); }));
  EXPECT_TRUE(RaisesNumber(kOverflow, [] { Narrow16(1e300); }));
}

TEST(Narrow32, HoldsTheThirtyTwoBitRangeAfterRounding) {
  EXPECT_EQ(Narrow32(2147483647.4), 2147483647);
  EXPECT_EQ(Narrow32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
  EXPECT_TRUE(RaisesNumber(kOverflow, [] { Narrow32(2147483647.5); }));
  EXPECT_TRUE(RaisesNumber(kOverflow, [] { Narrow32(-2147483648.6); }));
}

TEST(Narrow16, RejectsWhatIsNoFiniteNumber) {
  EXPECT_TRUE(RaisesNumber(kOverflow, [] { Narrow16(std::numeric_limits<double>::infinity()); }));
  EXPECT_TRUE(RaisesNumber(kOverflow, [] { Narrow16(-std::numeric_limits<double>::infinity()); }));
  EXPECT_TRUE(RaisesNumber(kOverflow, [] { Narrow16(std::numeric_limits<double>::quiet_NaN()); }));
}

TEST(Add16, OverflowsOutsideTheSixteenBitRange) {
  EXPECT_EQ(Add16(32766, 1), 32767);
  EXPECT_EQ(Add16(-32767, -1), -32768);
  EXPECT_TRUE(RaisesNumber(kOverflow, [] { Add16(32767, 1); }));
  EXPECT_TRUE(RaisesNumber(kOverflow, [] { Add16(-32768, -1); }));
}

TEST(Subtract16, OverflowsOutsideTheSixteenBitRange) {
  EXPECT_EQ(Subtract16(0, 1), -1);
  EXPECT_EQ(Subtract16(-32767, 1), -32768);
  EXPECT_TRUE(RaisesNumber(kOverflow, [] { Subtract16(-32768, 1); }));
  EXPECT_TRUE(RaisesNumber(kOverflow, [] { Subtract16(0, -32768); }));
}

}  // namespace
}  // namespace wendrill::testing
