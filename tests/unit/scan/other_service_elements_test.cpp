#include <gtest/gtest.h>

#include "unit/scan/scan_desk.h"

namespace wendrill::testing {
namespace {

constexpr const DisplayKind& kKind = kOtherServiceElements;

class OtherService : public ::testing::Test {
 protected:
  std::u16string Stored(std::u16string_view key, std::int32_t index = 0) const {
    return desk.Stored(kKind, key, index);
  }

  ScanDesk desk;
};

TEST_F(OtherService, RowIsCutAtItsColumns) {
  EXPECT_EQ(desk.Count(kKind, Rows({u"HEADER", u" 12 OSI SK CTCP 0123 456/P1"})), 1);
  EXPECT_EQ(Stored(u"strKeyElement"), u"12 OSI SK CTCP 0123 456/P1");
  EXPECT_EQ(Stored(u"strKeyElementNr"), u"12");
  EXPECT_EQ(Stored(u"strKeyAirline"), u"SK");
  EXPECT_EQ(Stored(u"strKeyText"), u"CTCP 0123 456/P1");
  EXPECT_EQ(Stored(u"strKeyPasAsso"), u"1");
}

TEST_F(OtherService, FirstRowIsNeverExamined) {
  EXPECT_EQ(desk.Count(kKind, Rows({u" 12 OSI SK VIP", u" 13 OSI SK CHD"})), 1);
  EXPECT_EQ(Stored(u"strKeyText"), u"CHD");
}

TEST_F(OtherService, ColumnOneIsNoPartOfTheElement) {
  desk.Count(kKind, Rows({u"HEADER", u"X12 OSI SK VIP"}));
  EXPECT_EQ(Stored(u"strKeyElement"), u"12 OSI SK VIP");
}

TEST_F(OtherService, KeywordInOtherColumnsIsNone) {
  EXPECT_EQ(desk.Count(kKind, Rows({u"HEADER", u"12 OSI SK VIP", u"  12 OSI SK VIP", u" 12 RM OSI"})), 0);
}

TEST_F(OtherService, DisplayShorterThanTwoRowsYieldsZero) {
  EXPECT_EQ(desk.Count(kKind, u""), 0);
  EXPECT_EQ(desk.Count(kKind, Rows({u"HEADER"})), 0);
}

TEST_F(OtherService, WalkEndsAtAPromptThatEndsTheText) {
  EXPECT_EQ(desk.Count(kKind, Rows({u"HEADER", u" 12 OSI SK VIP"}) + u"> "), 1);
}

TEST_F(OtherService, PromptWithAnythingAfterItIsARowLikeAnyOther) {
  EXPECT_EQ(desk.Count(kKind, Rows({u"HEADER", u" 12 OSI SK VIP", u"> ", u" 13 OSI SK CHD"})), 2);
}

TEST_F(OtherService, RowsAreCountedByPositionWhateverLineBreaksTheDisplayHas) {
  // Two characters of line break after 78 columns keep the rows in step.
  std::u16string display = Rows({u"HEADER", u" 12 OSI SK VIP"});
  display.replace(78, 2, u"\r\n");
  EXPECT_EQ(desk.Count(kKind, display), 1);
  EXPECT_EQ(desk.Count(kKind, Lines({u"HEADER", u" 12 OSI SK VIP"})), 0);
}

TEST_F(OtherService, PassengersAreTheDigitsAfterTheMark) {
  desk.Count(kKind, Rows({u"HEADER", u" 12 OSI SK VIP/P12-14"}));
  EXPECT_EQ(Stored(u"strKeyPasAsso"), u"12");
  desk.Count(kKind, Rows({u"HEADER", u" 12 OSI SK FROM/PARIS/P3"}));
  EXPECT_EQ(Stored(u"strKeyPasAsso"), u"3") << "a mark without a digit is none";
  desk.Count(kKind, Rows({u"HEADER", u" 12 OSI SK FROM/PARIS"}));
  EXPECT_EQ(Stored(u"strKeyPasAsso"), u"");
}

TEST_F(OtherService, DisplayIsReadAgainForEveryRow) {
  desk.Count(kKind, Rows({u"HEADER", u" 12 OSI SK VIP", u"TEXT"}));
  EXPECT_EQ(desk.pnr.Reads(), 3u) << "two rows and the end";
}

TEST_F(OtherService, RowOfADisplayThatChangedIsTakenFromTheNewText) {
  desk.pnr.Show({Rows({u"HEADER", u" 12 OSI SK VIP", u" 13 OSI SK CHD"}), Rows({u"HEADER", u"X", u" 14 OSI LH UMNR"})});
  EXPECT_EQ(desk.scans.Count(kKind), 2);
  EXPECT_EQ(Stored(u"strKeyText", 0), u"VIP");
  EXPECT_EQ(Stored(u"strKeyText", 1), u"UMNR");
}

}  // namespace
}  // namespace wendrill::testing
