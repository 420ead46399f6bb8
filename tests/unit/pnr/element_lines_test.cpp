#include "pnr/element_lines.h"

#include <gtest/gtest.h>

#include "pnr/pnr.h"
#include "support/pnr_desk.h"

namespace wendrill::testing {
namespace {

using Texts = std::vector<std::u16string>;

const std::u16string& Display() {
  static const std::u16string display = Rows({
      u"RP/PARXX0100/PARXX0100            AA/SU  12JUN08/0915Z   ABC123",
      u"  1.SMITH/JOHN MR(ADT)",
      u"  2 SSR VGML AF HK1",
      u"  3 OSI AF VIP",
      u"  4 RM PAY AT AIRPORT",
      u" 12 RM SECOND REMARK",
      u"       WHICH GOES ON",
      u"       AND ON   ",
      u" 13 RMX NOT A PLAIN REMARK",
  });
  return display;
}

TEST(CollectElementLines, WithSsrAndOsiFromAZeroBasedArrayFindsOnlyOsiLines) {
  const PnrDesk desk;
  desk.Display(Display());
  TextArray texts;
  TextArray numbers;
  CPNR(desk.module).CollectElementLines({0, {u"SSR", u"OSI"}}, texts, numbers);
  EXPECT_EQ(texts, (TextArray{1, {u"OSI AF VIP"}}));
  EXPECT_EQ(numbers, (TextArray{1, {u"3"}}));
}

TEST(CollectElementLines, TriesEveryPrefixOfAnArrayThatCountsFromOne) {
  const ElementLines found = ElementLinesIn(Display(), {1, {u"SSR", u"OSI"}});
  EXPECT_EQ(found.texts, (TextArray{1, {u"SSR VGML AF HK1", u"OSI AF VIP"}}));
  EXPECT_EQ(found.numbers, (TextArray{1, {u"2", u"3"}}));
}

TEST(CollectElementLines, TakesPrefixesOfTwoOrThreeLettersAsKeywordsInWhateverCase) {
  const ElementLines remarks = ElementLinesIn(Display(), {1, {u"rm"}});
  EXPECT_EQ(remarks.texts.items, (Texts{u"RM PAY AT AIRPORT", u"RM SECOND REMARK WHICH GOES ON AND ON"}));
  EXPECT_EQ(remarks.numbers.items, (Texts{u"4", u"12"}));
  EXPECT_EQ(ElementLinesIn(Display(), {1, {u"rmx"}}).numbers.items, (Texts{u"13"}));
}

TEST(CollectElementLines, TakesOtherPrefixesAsTheyAre) {
  EXPECT_EQ(ElementLinesIn(Display(), {1, {u"RM P"}}).numbers.items, (Texts{u"4"}));
  EXPECT_TRUE(ElementLinesIn(Display(), {1, {u"rm p"}}).numbers.items.empty());
  EXPECT_EQ(ElementLinesIn(Display(), {1, {u"R"}}).numbers.items, (Texts{u"4", u"12", u"13"}));
}

TEST(CollectElementLines, ExtendsByFourContinuationLinesAtMost) {
  const auto display = Rows({u"  1 RM A", u"       B", u"       C", u"       D", u"       E", u"       F"});
  EXPECT_EQ(ElementLinesIn(display, {1, {u"RM"}}).texts.items, (Texts{u"RM A B C D E"}));
}

TEST(CollectElementLines, EndsAContinuationAtTheFirstLineThatIsIndentedLess) {
  const auto display = Rows({u"  1 RM A", u"       B", u"      C", u"       D"});
  EXPECT_EQ(ElementLinesIn(display, {1, {u"RM"}}).texts.items, (Texts{u"RM A B"}));
  const auto blank = Rows({u"  1 RM A", u"", u"       D"});
  EXPECT_EQ(ElementLinesIn(blank, {1, {u"RM"}}).texts.items, (Texts{u"RM A"}));
}

TEST(CollectElementLines, AddsALineOnceForEachPrefixThatItBeginsWith) {
  const ElementLines found = ElementLinesIn(Rows({u"  1 RM A"}), {1, {u"RM", u"RM A"}});
  EXPECT_EQ(found.texts.items, (Texts{u"RM A", u"RM A"}));
  EXPECT_EQ(found.numbers.items, (Texts{u"1", u"1"}));
}

TEST(CollectElementLines, AppendsTheContinuationAgainForASecondPrefixOfTheSameLine) {
  const ElementLines found = ElementLinesIn(Rows({u"  1 RM A", u"       B"}), {1, {u"RM", u"RM A"}});
  EXPECT_EQ(found.texts.items, (Texts{u"RM A B", u"RM A B B"}));
}

TEST(CollectElementLines, StopsAtTheFirstEmptyLineButNotAtABlankOne) {
  EXPECT_EQ(ElementLinesIn(u"  1 RM A\r\n\r\n  2 RM B\r\n", {1, {u"RM"}}).numbers.items, (Texts{u"1"}));
  EXPECT_EQ(ElementLinesIn(u"  1 RM A\r\n \r\n  2 RM B\r\n", {1, {u"RM"}}).numbers.items, (Texts{u"1", u"2"}));
}

TEST(CollectElementLines, FindingNothingGivesArraysWithoutEntries) {
  const PnrDesk desk;
  desk.Display(Display());
  TextArray texts{0, {u"LEFT", u"OVER"}};
  TextArray numbers{0, {u"LEFT", u"OVER"}};
  CPNR(desk.module).CollectElementLines({0, {u"SSR", u"SK"}}, texts, numbers);
  EXPECT_TRUE(texts.items.empty());
  EXPECT_TRUE(numbers.items.empty());
  EXPECT_TRUE(ElementLinesIn(Display(), {0, {}}).texts.items.empty());
  EXPECT_TRUE(ElementLinesIn(Display(), {0, {u"RM"}}).texts.items.empty());
}

TEST(CollectElementLines, OfPrefixesThatCountFromTwoRaisesSubscriptOutOfRange) {
  EXPECT_TRUE(RaisesNumber(9, [] { ElementLinesIn(Display(), {2, {u"RM"}}); }));
}

TEST(CollectElementLines, TakesANegativeLowerBoundWithTheEntriesFromOneOn) {
  EXPECT_EQ(ElementLinesIn(Display(), {-1, {u"SSR", u"OSI", u"RM"}}).numbers.items, (Texts{u"4", u"12"}));
}

TEST(CollectElementLines, BeyondLine32767Overflows) {
  std::u16string display;
  for (int line = 1; line <= 32766; ++line) {
    display += u"  1 RM A\r";
  }
  // Line 32,767 is the empty one.
  EXPECT_EQ(ElementLinesIn(display, {1, {u"SSR"}}).texts.items.size(), 0U);
  // The look ahead from the last line is already beyond it.
  EXPECT_TRUE(RaisesNumber(6, [&] { ElementLinesIn(display + u"  1 RM A\r       B\r", {1, {u"RM"}}); }));
  EXPECT_TRUE(RaisesNumber(6, [&] { ElementLinesIn(display + u"  1 RM A\r", {1, {u"SSR"}}); }));
}

// A display of that length would take minutes if every line were counted from the first.
TEST(CollectElementLines, WalksTheDisplayOnce) {
  std::vector<std::u16string> lines;
  for (int line = 0; line < 10000; ++line) {
    lines.emplace_back(u"  1 RM A");
    lines.emplace_back(u"       B");
  }
  EXPECT_EQ(ElementLinesIn(Rows(lines), {1, {u"RM"}}).texts.items.size(), 10000U);
}

}  // namespace
}  // namespace wendrill::testing
