#include "redaction/letters.h"

#include <gtest/gtest.h>

#include <vector>

namespace wendrill::redaction {
namespace {

std::vector<std::u16string> WordsOf(TextView text) {
  std::vector<std::u16string> found;
  LetterWords words(text);
  for (auto word = words.Next(); word; word = words.Next()) {
    found.emplace_back(word->In(text));
  }
  return found;
}

using Words = std::vector<std::u16string>;

TEST(Letters, OfOtherAlphabetsCount) {
  for (const char16_t letter : std::u16string(u"AZaz\u00C9\u00DF\u00FF\u0160\u0416\u05D0\u4E2D")) {
    EXPECT_TRUE(IsLetter(letter)) << static_cast<int>(letter);
  }
  for (const char16_t other : std::u16string(u"@[`{09 _\u00A0\u00D7\u00F7\u2500\u3000\uFEFF\uFFFD")) {
    EXPECT_FALSE(IsLetter(other)) << static_cast<int>(other);
  }
}

TEST(Letters, HaveCapitals) {
  EXPECT_EQ(Capitals(u"smith \u00E9\u00F1\u00F7\u00DF \u0161\u017E\u0119\u0142\u00FF \u03B1\u0436\u0451"),
            u"SMITH \u00C9\u00D1\u00F7\u00DF \u0160\u017D\u0118\u0141\u0178 \u0391\u0416\u0401");
  EXPECT_EQ(Capitals(u"\u00C9\u0160\u0391\u0416"), u"\u00C9\u0160\u0391\u0416");
}

TEST(LetterWords, AreBoundedByWhatIsNoLetter) {
  EXPECT_EQ(WordsOf(u"NM1SMITH/JOHN-PAUL O'BRIEN2"), (Words{u"NM", u"SMITH", u"JOHN", u"PAUL", u"O", u"BRIEN"}));
  EXPECT_EQ(WordsOf(u"M\u00DCLLER"), (Words{u"M\u00DCLLER"}));
  EXPECT_EQ(WordsOf(u"12 /"), Words());
  EXPECT_EQ(WordsOf(u""), Words());
}

TEST(LetterWords, LoseTheTypeOfAnInfantInParentheses) {
  EXPECT_EQ(WordsOf(u"(INFDOE/BABY)"), (Words{u"DOE", u"BABY"}));
  EXPECT_EQ(WordsOf(u"(infdoe)"), (Words{u"doe"}));
  EXPECT_EQ(WordsOf(u"(INF/DOE)"), (Words{u"INF", u"DOE"}));
  EXPECT_EQ(WordsOf(u"(INFANT)"), (Words{u"INFANT"}));
  EXPECT_EQ(WordsOf(u"INFDOE"), (Words{u"INFDOE"}));
}

}  // namespace
}  // namespace wendrill::redaction
