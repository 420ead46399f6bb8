#include "recording/recording_hiding.h"

#include <gtest/gtest.h>

#include "recording/pnr_contents.h"

namespace wendrill::recording {
namespace {

constexpr std::int32_t kNames = 2;
constexpr std::int32_t kAll = 3;
constexpr std::int32_t kTimed = 7;
constexpr std::int32_t kRemarks = 65;

std::u16string FormOf(std::u16string_view entry) {
  RecordingHiding hiding({});
  hiding.LearnEntry(entry);
  return hiding.FormOf(entry);
}

TEST(Forms, OfEntriesWithNothingToHideAreTheEntries) {
  for (const char16_t* entry : {u"AN15JUNPARLON", u"QE*8", u"HE?", u"RMXXXX", u""}) {
    EXPECT_EQ(FormOf(entry), entry);
  }
}

TEST(Forms, AreOpenWhereSomethingIsHidden) {
  EXPECT_EQ(FormOf(u"NM1SMITH/JOHN MR"), u"NM1????\?/???? MR");
  EXPECT_EQ(FormOf(u"RM PAY NOW/P1"), u"RM ??? ??\?/P1");
  EXPECT_EQ(FormOf(u"NM1SMITH/J*"), u"NM1????\?/J?");
  EXPECT_EQ(FormOf(u"RM A;ER"), u"RM ?;ER");
}

// The first letter of a pseudonym is Q or X, and the first seven digits of a test number are 4000000.
TEST(Forms, AreOpenForAWholeNameOrNumber) {
  EXPECT_EQ(FormOf(u"NM1QUENTIN/XAVIER"), u"NM1??????\?/??????");
  EXPECT_EQ(FormOf(u"FPCC4000 0012 3456 7899/1210"), u"FPCC???? ???? ???? ???\?/1210");
}

TEST(Forms, AreOpenWhereHalfASurrogatePairIs) {
  EXPECT_EQ(FormOf(u"HE\xD83D"
                   u"A"),
            u"HE?A");
  EXPECT_EQ(FormOf(u"HE\xD83D\xDE00"), u"HE\xD83D\xDE00");
}

TEST(RecordingHiding, TakesAScreenOfOneRowForNoEntry) {
  RecordingHiding hiding({});
  EXPECT_EQ(hiding.Screen(u"AMSTERDAM CLOSED", 80), u"AMSTERDAM CLOSED");
  EXPECT_EQ(hiding.Words(u"AMSXX0100"), u"AMSXX0100");
}

TEST(RecordingHiding, HidesElementsAsTheDisplayHasThem) {
  RecordingHiding hiding({});
  ReadObject name;
  name.properties = {{u"Text", u"1.SMITH/JOHN MR"}, {u"LastName", u"SMITH"}, {u"Initial", u"JOHN MR"}};
  hiding.LearnElement(*CollectionOf(kNames), name);
  EXPECT_EQ(hiding.Property(*CollectionOf(kNames), u"Text", u"1.SMITH/JOHN MR"), Value(u"1.QBBBB/QBBB MR"));
  EXPECT_EQ(hiding.Property(*CollectionOf(kNames), u"LastName", u"SMITH"), Value(u"QBBBB"));
  EXPECT_EQ(hiding.Property(*CollectionOf(kRemarks), u"FreeFlow", u"CALL SMITH"), Value(u"XXXX XXXXX"));
  EXPECT_EQ(hiding.Property(*CollectionOf(kAll), u"Text", u"RM CALL SMITH"), Value(u"RM XXXX XXXXX"));
  EXPECT_EQ(hiding.Property(*CollectionOf(kTimed), u"Text", u"AM 123 Y 15JUN 7 MEXCDG HK1      0900 1030"),
            Value(u"AM 123 Y 15JUN 7 MEXCDG HK1      0900 1030"));
  EXPECT_EQ(hiding.Property(*CollectionOf(kTimed), u"BoardPoint", u"AMS"), Value(u"AMS"));
  EXPECT_EQ(hiding.Property(*CollectionOf(kTimed), u"Class", std::int32_t{7}), Value(std::int32_t{7}));
}

TEST(RecordingHiding, LearnsANameThatHasNoText) {
  RecordingHiding hiding({});
  ReadObject name;
  name.properties = {{u"LastName", u"SMITH"}, {u"Initial", u"JOHN MR"}};
  hiding.LearnElement(*CollectionOf(kNames), name);
  EXPECT_EQ(hiding.Property(*CollectionOf(kNames), u"Initial", u"JOHN MR"), Value(u"QBBB MR"));
}

TEST(RecordingHiding, HidesScreensOfOtherWidthsRowByRow) {
  RecordingHiding hiding({});
  const std::u16string row1 = u"  1.SMITH/JOHN MR   ";
  const std::u16string row2 = u"  2 RM CALL THEM    ";
  hiding.LearnScreen(row1 + row2, 20);
  EXPECT_EQ(hiding.Screen(row1 + row2, 20), u"  1.QBBBB/QBBB MR     2 RM XXXX XXXX    ");
}

}  // namespace
}  // namespace wendrill::recording
