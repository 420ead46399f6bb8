#include "core/screen.h"

#include <gtest/gtest.h>

namespace wendrill::simulator {
namespace {

using Lines = std::vector<std::u16string_view>;

TEST(Screen, ABlockIsCutAtEveryKindOfLineBreak) {
  EXPECT_EQ(LinesOfBlock(u"A\nB\r\nC\rD"), (Lines{u"A", u"B", u"C", u"D"}));
}

TEST(Screen, ABreakAfterTheLastLineMakesNoFurtherLine) {
  EXPECT_EQ(LinesOfBlock(u"A\nB\n"), (Lines{u"A", u"B"}));
  EXPECT_EQ(LinesOfBlock(u"A\n\n"), (Lines{u"A", u""}));
}

TEST(Screen, AnEmptyBlockHasNoLines) {
  EXPECT_TRUE(LinesOfBlock(u"").empty());
}

TEST(Screen, EachLineIsFilledToAWholeRowAndTheRowsAreJoined) {
  const Screen screen = PaddedScreen(u"AB\n\nCDEFG\n", 5);
  EXPECT_EQ(screen.buffer, u"AB        CDEFG");
  EXPECT_EQ(screen.rows, (std::vector<std::u16string>{u"AB   ", u"     ", u"CDEFG"}));
}

TEST(Screen, TheFirstLineThatIsTooWideIsFound) {
  EXPECT_EQ(FirstLineWiderThan(u"12345\n123456\n1234567", 5), 1u);
  EXPECT_EQ(FirstLineWiderThan(u"12345\n1234", 5), std::nullopt);
}

TEST(Screen, ARawBlockStaysVerbatim) {
  const Screen screen = RawScreen(u"AB\r\nC\n", 80);
  EXPECT_EQ(screen.buffer, u"AB\r\nC\n");
  EXPECT_EQ(screen.rows, (std::vector<std::u16string>{u"AB", u"C"}));
}

TEST(Screen, ARawBlockWithoutBreaksHasRowsOfTheScreensWidth) {
  const Screen screen = RawScreen(u"ABCDEFG", 3);
  EXPECT_EQ(screen.buffer, u"ABCDEFG");
  EXPECT_EQ(screen.rows, (std::vector<std::u16string>{u"ABC", u"DEF", u"G"}));
}

TEST(Screen, KeptLinesAreEachEndedByABreak) {
  EXPECT_EQ(LinesWithBreaks(u"AB\nC"), u"AB\r\nC\r\n");
  EXPECT_EQ(LinesWithBreaks(u""), u"");
}

}  // namespace
}  // namespace wendrill::simulator
