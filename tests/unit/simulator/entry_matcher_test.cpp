#include "core/entry_matcher.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "common/text.h"

namespace wendrill::simulator {
namespace {

TEST(EntryMatcher, AnEntryMatchesItself) {
  const EntryMatcher matcher{MatchKind::Entry, u"AN15JUN"};
  EXPECT_TRUE(matcher.Matches(u"AN15JUN"));
  EXPECT_FALSE(matcher.Matches(u"AN15JUN "));
  EXPECT_FALSE(matcher.Matches(u"an15jun"));
  EXPECT_FALSE(matcher.Matches(u"AN15JU"));
}

TEST(EntryMatcher, StartsMatchesEveryEntryThatBeginsSo) {
  const EntryMatcher matcher{MatchKind::Starts, u"AN"};
  EXPECT_TRUE(matcher.Matches(u"AN"));
  EXPECT_TRUE(matcher.Matches(u"AN15JUN"));
  EXPECT_FALSE(matcher.Matches(u"XAN"));
}

TEST(EntryMatcher, ContainsMatchesEveryEntryThatHoldsIt) {
  const EntryMatcher matcher{MatchKind::Contains, u"PAR"};
  EXPECT_TRUE(matcher.Matches(u"PAR"));
  EXPECT_TRUE(matcher.Matches(u"AN15JUNPARLON"));
  EXPECT_FALSE(matcher.Matches(u"AN15JUNPALRON"));
  EXPECT_TRUE((EntryMatcher{MatchKind::Contains, u""}.Matches(u"X")));
}

TEST(EntryMatcher, LikeIsAnchoredAtBothEnds) {
  const EntryMatcher matcher{MatchKind::Like, u"NM1????\?/*"};
  EXPECT_TRUE(matcher.Matches(u"NM1SMITH/JOHN MR"));
  EXPECT_TRUE(matcher.Matches(u"NM1SMITH/"));
  EXPECT_FALSE(matcher.Matches(u"NM1SMIT/JOHN MR"));
  EXPECT_FALSE(matcher.Matches(u"XNM1SMITH/JOHN MR"));
  EXPECT_FALSE((EntryMatcher{MatchKind::Like, u"AN*LON"}.Matches(u"AN15JUNPARLONX")));
}

TEST(EntryMatcher, APatternWithoutWildcardsIsAnEntry) {
  EXPECT_TRUE(IsLike(u"AN", u"AN"));
  EXPECT_FALSE(IsLike(u"ANX", u"AN"));
  EXPECT_TRUE(IsLike(u"", u""));
  EXPECT_TRUE(IsLike(u"", u"*"));
  EXPECT_FALSE(IsLike(u"", u"?"));
}

// The definition: slow and obvious.
bool IsLikeByDefinition(std::u16string_view text, std::u16string_view pattern) {
  if (pattern.empty()) {
    return text.empty();
  }
  if (pattern.front() == u'*') {
    return IsLikeByDefinition(text, pattern.substr(1)) ||
           (!text.empty() && IsLikeByDefinition(text.substr(1), pattern));
  }
  return !text.empty() && (pattern.front() == u'?' || pattern.front() == text.front()) &&
         IsLikeByDefinition(text.substr(1), pattern.substr(1));
}

std::u16string RandomText(std::mt19937& random, std::u16string_view letters, std::size_t most) {
  std::u16string text(random() % (most + 1), u' ');
  for (char16_t& letter : text) {
    letter = letters[random() % letters.size()];
  }
  return text;
}

TEST(EntryMatcher, LikeIsThatOfTheDefinitionForRandomPatterns) {
  std::mt19937 random(7);
  for (int round = 0; round < 20000; ++round) {
    const std::u16string text = RandomText(random, u"AB", 7);
    const std::u16string pattern = RandomText(random, u"AB?*", 6);
    EXPECT_EQ(IsLike(text, pattern), IsLikeByDefinition(text, pattern)) << ToUtf8(text) << " like " << ToUtf8(pattern);
  }
}

TEST(EntryMatcher, ManyStarsTakeNoTimeThatGrowsWithTheirCombinations) {
  const std::u16string text(2000, u'A');
  std::u16string pattern;
  for (int i = 0; i < 200; ++i) {
    pattern += u"*A";
  }
  EXPECT_FALSE(IsLike(text, pattern + u"*B"));
}

TEST(EntryMatcher, OneCoversAnotherWhenItMatchesAllOfItsEntries) {
  const auto covers = [](EntryMatcher one, EntryMatcher other) { return one.Covers(other); };
  EXPECT_TRUE(covers({MatchKind::Starts, u"AN"}, {MatchKind::Entry, u"AN15JUN"}));
  EXPECT_TRUE(covers({MatchKind::Starts, u"AN"}, {MatchKind::Starts, u"AN1"}));
  EXPECT_TRUE(covers({MatchKind::Starts, u"AN"}, {MatchKind::Like, u"AN??*"}));
  EXPECT_TRUE(covers({MatchKind::Starts, u""}, {MatchKind::Contains, u"X"}));
  EXPECT_TRUE(covers({MatchKind::Contains, u"PAR"}, {MatchKind::Contains, u"PARLON"}));
  EXPECT_TRUE(covers({MatchKind::Contains, u"PAR"}, {MatchKind::Like, u"?PARX*"}));
  EXPECT_TRUE(covers({MatchKind::Like, u"AN*"}, {MatchKind::Entry, u"AN15JUN"}));
  EXPECT_TRUE(covers({MatchKind::Like, u"*"}, {MatchKind::Starts, u"X"}));
  EXPECT_FALSE(covers({MatchKind::Starts, u"AN1"}, {MatchKind::Starts, u"AN"}));
  EXPECT_FALSE(covers({MatchKind::Starts, u"AN"}, {MatchKind::Contains, u"AN"}));
  EXPECT_FALSE(covers({MatchKind::Starts, u"AN"}, {MatchKind::Like, u"A?*"}));
  EXPECT_FALSE(covers({MatchKind::Contains, u"PAR"}, {MatchKind::Like, u"P?R*"}));
  EXPECT_FALSE(covers({MatchKind::Entry, u"AN"}, {MatchKind::Starts, u"AN"}));
  EXPECT_FALSE(covers({MatchKind::Like, u"A?"}, {MatchKind::Starts, u"A"}));
}

TEST(EntryMatcher, CoversIsNeverWrongForRandomMatchers) {
  std::mt19937 random(11);
  const auto matcher = [&] {
    const auto kind = static_cast<MatchKind>(random() % 4);
    return EntryMatcher{kind, RandomText(random, kind == MatchKind::Like ? u"AB?*" : u"AB", 3)};
  };
  for (int round = 0; round < 3000; ++round) {
    const EntryMatcher one = matcher();
    const EntryMatcher other = matcher();
    for (int trial = 0; one.Covers(other) && trial < 40; ++trial) {
      const std::u16string entry = RandomText(random, u"AB", 5);
      EXPECT_TRUE(one.Matches(entry) || !other.Matches(entry)) << ToUtf8(entry);
    }
  }
}

}  // namespace
}  // namespace wendrill::simulator
