#include "batch/remark.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "support/raises.h"

namespace wendrill::testing {
namespace {

using Texts = std::vector<std::u16string>;

std::u16string Letters(std::size_t count, char16_t letter = u'x') {
  return std::u16string(count, letter);
}

TEST(RemarkElements, OfAShortTextAreOneElement) {
  EXPECT_EQ(RemarkElements(u"CALL THE CLIENT"), Texts{u"RMCALL THE CLIENT"});
}

TEST(RemarkElements, LoseALeadingRmWithOrWithoutABlank) {
  EXPECT_EQ(RemarkElements(u"RM CALL"), Texts{u"RMCALL"});
  EXPECT_EQ(RemarkElements(u"RMCALL"), Texts{u"RMCALL"});
  EXPECT_EQ(RemarkElements(u"RM  CALL"), Texts{u"RM CALL"});
  EXPECT_EQ(RemarkElements(u"rm CALL"), Texts{u"RMrm CALL"});
}

TEST(RemarkElements, OfAnEmptyTextAreOneElementWithoutText) {
  EXPECT_EQ(RemarkElements(u""), Texts{u"RM"});
  EXPECT_EQ(RemarkElements(u"RM "), Texts{u"RM"});
}

TEST(RemarkElements, KeepTheMarkOfAConfidentialRemarkOnEveryElement) {
  EXPECT_EQ(RemarkElements(u"RM*SECRET"), Texts{u"RM*SECRET"});
  EXPECT_EQ(RemarkElements(u"RM *SECRET"), Texts{u"RM*SECRET"});
  EXPECT_EQ(RemarkElements(u"*" + Letters(100) + u" " + Letters(50)),
            (Texts{u"RM*" + Letters(100), u"RM*" + Letters(50)}));
}

TEST(RemarkElements, RemarkOfExactly123CharactersGivesOneElementAnd124GiveTwo) {
  EXPECT_EQ(RemarkElements(Letters(123)), Texts{u"RM" + Letters(123)});
  EXPECT_EQ(RemarkElements(Letters(124)), (Texts{u"RM" + Letters(123), u"RMx"}));
}

TEST(RemarkElements, CountTheLimitWithoutHeadMarkAndAssociations) {
  EXPECT_EQ(RemarkElements(u"RM *" + Letters(123) + u"/P1"), Texts{u"RM*" + Letters(123) + u"/P1"});
}

TEST(RemarkElements, AreCutAtTheLastBlankThatLeavesAtMost123CharactersAndTheBlankIsDropped) {
  EXPECT_EQ(RemarkElements(Letters(60, u'a') + u" " + Letters(62, u'b') + u" " + Letters(10, u'c')),
            (Texts{u"RM" + Letters(60, u'a') + u" " + Letters(62, u'b'), u"RM" + Letters(10, u'c')}));
  EXPECT_EQ(RemarkElements(Letters(60, u'a') + u" " + Letters(63, u'b') + u" " + Letters(10, u'c')),
            (Texts{u"RM" + Letters(60, u'a'), u"RM" + Letters(63, u'b') + u" " + Letters(10, u'c')}));
}

TEST(RemarkElements, WithoutABlankAreCutHard) {
  EXPECT_EQ(RemarkElements(Letters(300)), (Texts{u"RM" + Letters(123), u"RM" + Letters(123), u"RM" + Letters(54)}));
}

TEST(RemarkElements, CutAFirstWordThatIsLongerThanTheLimitHard) {
  EXPECT_EQ(RemarkElements(u"AB " + Letters(130) + u" CD"),
            (Texts{u"RMAB", u"RM" + Letters(123), u"RM" + Letters(7) + u" CD"}));
  EXPECT_EQ(RemarkElements(u" " + Letters(130)), (Texts{u"RM " + Letters(122), u"RM" + Letters(8)}));
}

TEST(RemarkElements, DoNotEndWithOneWithoutText) {
  EXPECT_EQ(RemarkElements(Letters(123) + u" "), Texts{u"RM" + Letters(123)});
}

TEST(RemarkElements, RepeatTheAssociationsOnEveryElement) {
  EXPECT_EQ(RemarkElements(u"CALL/P1"), Texts{u"RMCALL/P1"});
  EXPECT_EQ(RemarkElements(Letters(100) + u" " + Letters(50) + u"/S2/P1"),
            (Texts{u"RM" + Letters(100) + u"/S2/P1", u"RM" + Letters(50) + u"/S2/P1"}));
}

// "/P1" of 3 characters would make this text 126 long.
TEST(RemarkElements, MeasureTheTextWithoutItsAssociations) {
  EXPECT_EQ(RemarkElements(Letters(123) + u"/P1").size(), 1U);
}

TEST(RemarkElements, TakeAnAssociationWithoutANumberForText) {
  const std::u16string text = Letters(120) + u" /PAID";
  EXPECT_EQ(RemarkElements(text), (Texts{u"RM" + Letters(120), u"RM/PAID"}));
  EXPECT_EQ(RemarkElements(Letters(123) + u"/P").size(), 2U);
  EXPECT_EQ(RemarkElements(Letters(123) + u"/X1").size(), 2U);
  EXPECT_EQ(RemarkElements(Letters(123) + u"/p1").size(), 2U);
}

TEST(RemarkElements, TakeAnAssociationInsideTheTextForText) {
  EXPECT_EQ(RemarkElements(Letters(110, u'a') + u"/P1 " + Letters(20, u'b')),
            (Texts{u"RM" + Letters(110, u'a') + u"/P1", u"RM" + Letters(20, u'b')}));
}

TEST(RemarkElements, OfATextThatIsAnAssociationAloneAreOneElement) {
  EXPECT_EQ(RemarkElements(u"/P1"), Texts{u"RM/P1"});
}

TEST(RemarkElements, CountInSixteenBits) {
  const std::u16string longest = Letters(std::size_t{123} * 32767);
  EXPECT_EQ(RemarkElements(longest).size(), 32767U);
  EXPECT_TRUE(RaisesNumber(6, [&] { RemarkElements(longest + u"x"); }));
}

TEST(RemarkElements, KeepTheirPromisesOnRandomText) {
  std::mt19937 random(11);
  const auto upto = [&](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
  for (int round = 0; round < 3000; ++round) {
    std::u16string text;
    const int oneBlankIn = 1 + upto(150);
    for (int length = upto(800); length > 0; --length) {
      text += upto(oneBlankIn) == 0 ? u' ' : static_cast<char16_t>(u'A' + upto(25));
    }
    const bool isConfidential = upto(1) == 0;
    std::u16string associations;
    if (upto(1) == 0) {
      associations.append(u"/P").append(DecimalText(1 + upto(98))).append(u"/S2");
    }
    const std::u16string head = isConfidential ? u"RM*" : u"RM";

    std::u16string kept;
    for (const auto& element : RemarkElements(head + text + associations)) {
      ASSERT_TRUE(element.starts_with(head)) << "round " << round;
      ASSERT_TRUE(element.ends_with(associations)) << "round " << round;
      const std::size_t length = element.size() - head.size() - associations.size();
      EXPECT_LE(length, 123U) << "round " << round;
      EXPECT_TRUE(length > 0 || text.empty()) << "round " << round;
      kept += TextView(element).substr(head.size(), length);
    }
    EXPECT_EQ(Replaced(kept, u" ", u""), Replaced(text, u" ", u"")) << "round " << round;
  }
}

}  // namespace
}  // namespace wendrill::testing
