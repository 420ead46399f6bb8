#include "core/nearest.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

#include "common/text.h"

namespace wendrill::simulator {
namespace {

constexpr std::size_t kNoLimit = 1000;

// The definition, recursive on the ends of the strings: slow and obvious.
std::size_t ReferenceDistance(std::u16string_view left, std::u16string_view right) {
  if (left.empty() || right.empty()) {
    return left.size() + right.size();
  }
  const auto without = [](std::u16string_view text, std::size_t count) { return text.substr(0, text.size() - count); };
  std::size_t least =
      std::min({ReferenceDistance(without(left, 1), right) + 1, ReferenceDistance(left, without(right, 1)) + 1,
                ReferenceDistance(without(left, 1), without(right, 1)) + (left.back() == right.back() ? 0u : 1u)});
  if (left.size() > 1 && right.size() > 1 && left.back() == right[right.size() - 2] &&
      left[left.size() - 2] == right.back()) {
    least = std::min(least, ReferenceDistance(without(left, 2), without(right, 2)) + 1);
  }
  return least;
}

TEST(AlignmentDistance, CountsInsertionsDeletionsReplacementsAndSwaps) {
  EXPECT_EQ(AlignmentDistance(u"", u"", kNoLimit), 0u);
  EXPECT_EQ(AlignmentDistance(u"AN15JUN", u"AN15JUN", kNoLimit), 0u);
  EXPECT_EQ(AlignmentDistance(u"AN15JUN", u"AN15JUNP", kNoLimit), 1u);
  EXPECT_EQ(AlignmentDistance(u"AN15JUN", u"N15JUN", kNoLimit), 1u);
  EXPECT_EQ(AlignmentDistance(u"AN15JUN", u"AN16JUN", kNoLimit), 1u);
  EXPECT_EQ(AlignmentDistance(u"AN15JUN", u"NA15JUN", kNoLimit), 1u);
  EXPECT_EQ(AlignmentDistance(u"", u"ABC", kNoLimit), 3u);
  EXPECT_EQ(AlignmentDistance(u"an", u"AN", kNoLimit), 2u);
}

TEST(AlignmentDistance, EditsNoPartTwice) {
  EXPECT_EQ(AlignmentDistance(u"CA", u"ABC", kNoLimit), 3u);
}

TEST(AlignmentDistance, AboveTheLimitIsTheLimitAndOne) {
  EXPECT_EQ(AlignmentDistance(u"ABCDEF", u"UVWXYZ", 6), 6u);
  EXPECT_EQ(AlignmentDistance(u"ABCDEF", u"UVWXYZ", 5), 6u);
  EXPECT_EQ(AlignmentDistance(u"ABCDEF", u"UVWXYZ", 2), 3u);
  EXPECT_EQ(AlignmentDistance(u"A", u"ABCDEF", 2), 3u);
  EXPECT_EQ(AlignmentDistance(u"A", u"B", 0), 1u);
}

TEST(AlignmentDistance, IsThatOfTheDefinitionForRandomStringsAndLimits) {
  std::mt19937 random(23);
  const auto any = [&](unsigned most) { return random() % (most + 1); };
  const auto text = [&] {
    std::u16string letters(any(6), u' ');
    for (char16_t& letter : letters) {
      letter = static_cast<char16_t>(u'A' + any(2));
    }
    return letters;
  };
  for (int round = 0; round < 3000; ++round) {
    const std::u16string left = text();
    const std::u16string right = text();
    const std::size_t limit = any(7);
    EXPECT_EQ(AlignmentDistance(left, right, limit), std::min(ReferenceDistance(left, right), limit + 1))
        << ToUtf8(left) << " and " << ToUtf8(right) << " within " << limit;
  }
}

TEST(NearLimit, IsAThirdOfTheLengthAndAtLeastTwo) {
  EXPECT_EQ(NearLimit(0), 2u);
  EXPECT_EQ(NearLimit(8), 2u);
  EXPECT_EQ(NearLimit(9), 3u);
  EXPECT_EQ(NearLimit(300), 100u);
}

TEST(NearestNames, TellsTheNearestFirstAndNoMoreThanThree) {
  constexpr std::u16string_view kNames[] = {u"SendCommandGetAll", u"SendCommand",   u"SendKey",
                                            u"SendCommandFI",     u"SendCommandXX", u"SendCommandYY"};
  EXPECT_EQ(NearestNames(u"SendComand", kNames),
            (std::vector<std::u16string_view>{u"SendCommand", u"SendCommandFI", u"SendCommandXX"}));
  EXPECT_EQ(NearestName(u"SendComand", kNames), u"SendCommand");
}

TEST(NearestNames, CaseDoesNotCount) {
  constexpr std::u16string_view kNames[] = {u"intKeyIndex"};
  EXPECT_EQ(NearestName(u"INTKEYINDX", kNames), u"intKeyIndex");
  EXPECT_EQ(NearestName(u"intkeyindex", kNames), u"intKeyIndex");
}

TEST(NearestNames, FindsNothingThatIsFarOrHasNothingInCommon) {
  constexpr std::u16string_view kNames[] = {u"FE", u"MIS"};
  EXPECT_TRUE(NearestNames(u"strKeyText", kNames).empty());
  EXPECT_TRUE(NearestNames(u"ZZ", kNames).empty());
  EXPECT_EQ(NearestName(u"ZZ", kNames), u"");
}

}  // namespace
}  // namespace wendrill::simulator
