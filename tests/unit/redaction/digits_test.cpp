#include "redaction/digits.h"

#include <gtest/gtest.h>

#include <vector>

namespace wendrill::redaction {
namespace {

using Groups = std::vector<std::size_t>;

std::vector<std::u16string> RunsOf(TextView text, Layout layout) {
  std::vector<std::u16string> found;
  DigitRuns runs(text, layout);
  for (auto run = runs.Next(); run; run = runs.Next()) {
    found.push_back(run->In(text));
    for (const std::size_t count : run->groups) {
      found.back() += u" " + DecimalText(static_cast<std::int64_t>(count));
    }
  }
  return found;
}

using Runs = std::vector<std::u16string>;

TEST(DigitRuns, AreGroupsWithSingleBlanksAndHyphens) {
  EXPECT_EQ(RunsOf(u"CC4111 1111-1111 1111/12  34 5", Layout::OneLine),
            (Runs{u"4111111111111111 4 4 4 4", u"12 2", u"345 2 1"}));
  EXPECT_EQ(RunsOf(u"057-1234567890-", Layout::OneLine), (Runs{u"0571234567890 3 10"}));
  EXPECT_EQ(RunsOf(u"NONE", Layout::OneLine), Runs());
}

TEST(DigitRuns, EndWithTheirRow) {
  EXPECT_EQ(RunsOf(std::u16string(78, u'A') + u"1234 56", Layout::Rows), (Runs{u"12 2", u"3456 2 2"}));
  EXPECT_EQ(RunsOf(std::u16string(78, u'A') + u"1234 56", Layout::OneLine), (Runs{u"123456 4 2"}));
  EXPECT_EQ(RunsOf(std::u16string(78, u'A') + u"1 34", Layout::Rows), (Runs{u"1 1", u"34 2"}));
  EXPECT_EQ(RunsOf(u"12\r\n34", Layout::Lines), (Runs{u"12 2", u"34 2"}));
}

// Eight digits at the end of a row, eight at the start of its continuation.
TEST(DigitRuns, OfACardGoOnInTheNextRow) {
  const std::u16string first = u"  8 FP CC41111111";
  EXPECT_EQ(RunsOf(first + u"\r\n       11111111/1210", Layout::Lines),
            (Runs{u"8 1", u"4111111111111111 16", u"1210 4"}));
  EXPECT_EQ(RunsOf(first + std::u16string(63, u' ') + u"       11111111/1210", Layout::Rows),
            (Runs{u"8 1", u"4111111111111111 16", u"1210 4"}));
  EXPECT_EQ(RunsOf(first + u"\n   11111111", Layout::Lines), (Runs{u"8 1", u"41111111 8", u"11111111 8"}));
  EXPECT_EQ(RunsOf(u"    0715 0730\n    0830 0850", Layout::Lines), (Runs{u"07150730 4 4", u"08300850 4 4"}));
  EXPECT_EQ(RunsOf(u"A 41111111 B\n    11111111", Layout::Lines), (Runs{u"41111111 8", u"11111111 8"}));
}

struct Case {
  Groups groups;
  Groups cards;  // the digits of each
  Groups rests;
};

TEST(CardParts, AreNumbersOf13To19Digits) {
  const Case kCases[] = {
      {{12}, {}, {}},
      {{13}, {13}, {}},
      {{19}, {19}, {}},
      {{20}, {}, {}},
      {{4, 4, 4, 4}, {16}, {}},
      {{4, 6, 5}, {15}, {}},
      {{4, 4, 4, 4, 3}, {19}, {}},
      {{1, 4, 4, 4, 4}, {16}, {}},
      {{2, 2, 2, 2, 2, 2, 2}, {}, {}},  // a telephone
      {{3, 10}, {}, {}},                // a ticket
      {{16, 4}, {16}, {}},              // and the date to which it is valid
      {{4, 16}, {16}, {}},
      {{4, 4, 4, 4, 4}, {16}, {4}},
      {{4, 4, 4, 4, 4, 4, 4, 4}, {16, 16}, {}},
      {{4, 4, 4, 2}, {14}, {}},
      {{4, 4, 4}, {}, {}},
  };
  for (const Case& each : kCases) {
    Groups cards;
    Groups rests;
    std::size_t end = 0;
    for (const DigitPart& part : CardParts(each.groups)) {
      EXPECT_GE(part.first, end);
      end = part.first + part.count;
      (part.isCard ? cards : rests).push_back(part.count);
    }
    EXPECT_EQ(cards, each.cards) << ::testing::PrintToString(each.groups);
    EXPECT_EQ(rests, each.rests) << ::testing::PrintToString(each.groups);
  }
}

}  // namespace
}  // namespace wendrill::redaction
