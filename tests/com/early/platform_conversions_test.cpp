// The core's own conversions beside the platform's.
#include <cmath>

#include "batch/queue_key.h"
#include "common/host_date.h"
#include "common/numeric.h"
#include "common/text.h"
#include "common/text_forms.h"
#include "common/value.h"
#include "desktop_fixture.h"
#include "unit/common/number_samples.h"

namespace wendrill::com::testing {
namespace {

constexpr LCID kUsEnglish = 0x409;

TEST(PlatformConversions, NumbersAreReadAsThePlatformReadsThem) {
  for (const auto& sample : ::wendrill::testing::kNumberSamples) {
    const std::u16string text(sample.text);
    DOUBLE platform = 0;
    const bool isNumber = SUCCEEDED(VarR8FromStr(const_cast<LPOLESTR>(WideOf(text.c_str())), kUsEnglish, 0, &platform));
    const std::optional<double> own = ParseNumber(text);
    EXPECT_EQ(isNumber, own.has_value()) << ToUtf8(text);
    if (isNumber && own) {
      EXPECT_DOUBLE_EQ(platform, *own) << ToUtf8(text);
    }
  }
}

TEST(PlatformConversions, NumbersAreWrittenAsThePlatformWritesThem) {
  for (const auto& sample : ::wendrill::testing::kNumberTextSamples) {
    Text platform;
    ASSERT_EQ(S_OK, VarBstrFromR8(sample.number, kUsEnglish, 0, platform.Receive()));
    const std::string written = ToUtf8(TextOf(std::wstring_view(platform.Wide())));
    if (sample.underWine8 == nullptr || written != ToUtf8(sample.underWine8)) {
      EXPECT_EQ(written, ToUtf8(UsTextForms().TextOf(sample.number)));
    }
  }
}

TEST(PlatformConversions, DatesAreWrittenAsThePlatformWritesThem) {
  for (const double days : {2.0, 39611.0, 39611.5, 39611.646, 36526.0, 73050.0}) {
    Text platform;
    ASSERT_EQ(S_OK, VarBstrFromDate(days, kUsEnglish, 0, platform.Receive()));
    EXPECT_EQ(ToUtf8(TextOf(std::wstring_view(platform.Wide()))), ToUtf8(DateText(Date{days}))) << days;
  }
}

TEST(PlatformConversions, RoundingIsThePlatforms) {
  for (const double number : {0.5, 1.5, 2.5, -0.5, -1.5, 0.4999, 32767.4, -32768.5, 4.9}) {
    SHORT platform = 0;
    ASSERT_EQ(S_OK, VarI2FromR8(number, &platform)) << number;
    EXPECT_EQ(platform, ToInt16(Value(number))) << number;
  }
  SHORT platform = 0;
  EXPECT_EQ(DISP_E_OVERFLOW, VarI2FromR8(32767.5, &platform));
  EXPECT_ANY_THROW(ToInt16(Value(32767.5)));
}

// A letter that has one capital, and is that capital's one small letter.
bool IsOneOfAPair(wchar_t letter, wchar_t capital) {
  wchar_t back = capital;
  CharLowerBuffW(&back, 1);
  return capital != letter && back == letter;
}

TEST(PlatformConversions, LettersOfKeysHaveThePlatformsCapitals) {
  int pairs = 0;
  for (wchar_t letter = 1; letter < 0x2000; ++letter) {
    wchar_t capital = letter;
    CharUpperBuffW(&capital, 1);
    const std::u16string folded = FoldedKey(std::u16string(1, static_cast<char16_t>(letter)));
    const bool isKnown =
        letter <= 0x17F || (letter >= 0x386 && letter <= 0x3CE) || (letter >= 0x400 && letter <= 0x45F);
    if (folded.front() != letter || (isKnown && IsOneOfAPair(letter, capital))) {
      EXPECT_EQ(static_cast<unsigned>(capital), static_cast<unsigned>(folded.front())) << std::hex << +letter;
      ++pairs;
    }
  }
  EXPECT_GT(pairs, 26 + 31 + 62 + 35 + 48);  // the alphabets above are there
}

}  // namespace
}  // namespace wendrill::com::testing
