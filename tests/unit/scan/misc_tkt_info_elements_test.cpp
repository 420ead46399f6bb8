#include <gtest/gtest.h>

#include "unit/scan/scan_desk.h"

namespace wendrill::testing {
namespace {

constexpr const DisplayKind& kKind = kMiscTktInfoElements;

class MiscTktInfo : public ::testing::Test {
 protected:
  std::int16_t CountOne(std::u16string line) { return desk.Count(kKind, Lines({u"HEADER", std::move(line)})); }
  std::u16string Stored(std::u16string_view key, std::int32_t index = 0) const {
    return desk.Stored(kKind, key, index);
  }

  ScanDesk desk;
};

TEST_F(MiscTktInfo, LineIsCutAtItsColumnsAndMarkers) {
  EXPECT_EQ(CountOne(u"7 FS PAX N-100.00,S-120.50,T-TOUR1/S3/P1"), 1);
  EXPECT_EQ(Stored(u"strKeyElement"), u"7 FS PAX N-100.00,S-120.50,T-TOUR1/S3/P1");
  EXPECT_EQ(Stored(u"strKeyElementNr"), u"7");
  EXPECT_EQ(Stored(u"strKeyText"), u"N-100.00,S-120.50,T-TOUR1");
  EXPECT_EQ(Stored(u"strKeyNetFare"), u"100.00");
  EXPECT_EQ(Stored(u"strKeySellFare"), u"120.50");
  EXPECT_EQ(Stored(u"strKeyTourCode"), u"TOUR1");
  EXPECT_EQ(Stored(u"strKeySegAsso"), u"3");
  EXPECT_EQ(Stored(u"strKeyPasAsso"), u"1");
}

TEST_F(MiscTktInfo, TextWithoutAPassengerTypeBeginsInColumnSix) {
  CountOne(u"7 FS N-100");
  EXPECT_EQ(Stored(u"strKeyText"), u"N-100");
  CountOne(u"12 FS N-100");
  EXPECT_EQ(Stored(u"strKeyText"), u"N-100");
  CountOne(u"7 FS INF N-100");
  EXPECT_EQ(Stored(u"strKeyText"), u"N-100") << "an infant moves it to column ten";
}

TEST_F(MiscTktInfo, ValueHasTenCharactersAtMost) {
  CountOne(u"7 FS N-123456789012,S-1");
  EXPECT_EQ(Stored(u"strKeyNetFare"), u"1234567890");
  EXPECT_EQ(Stored(u"strKeySellFare"), u"1");
  EXPECT_EQ(Stored(u"strKeyTourCode"), u"") << "no mark, no value";
}

TEST_F(MiscTktInfo, ValuesAfterTheFirstSlashAreNotOfTheText) {
  CountOne(u"7 FS N-100/S-120/P1");
  EXPECT_EQ(Stored(u"strKeyNetFare"), u"100");
  EXPECT_EQ(Stored(u"strKeySellFare"), u"");
}

TEST_F(MiscTktInfo, PassengersAfterACommaCountWhereThereIsNoSlashP) {
  CountOne(u"7 FS PAX N-100/S3,P1");
  EXPECT_EQ(Stored(u"strKeyPasAsso"), u"1");
  EXPECT_EQ(Stored(u"strKeySegAsso"), u"3") << "beside passengers the segment has two digits at most";
  CountOne(u"7 FS N-100,P1-2/S12");
  EXPECT_EQ(Stored(u"strKeyPasAsso"), u"1-2") << "it ends before the segment";
  EXPECT_EQ(Stored(u"strKeySegAsso"), u"12");
  CountOne(u"7 FS N-100,P9/S3/P1");
  EXPECT_EQ(Stored(u"strKeyPasAsso"), u"1") << "\"/P\" goes first, wherever it is";
}

TEST_F(MiscTktInfo, EightyCharactersOfTheLineAreTheElement) {
  const std::u16string line = u"7 FS " + std::u16string(74, u'X');
  CountOne(line + u"YZ");
  EXPECT_EQ(Stored(u"strKeyElement"), line + u"Y");
}

TEST_F(MiscTktInfo, KeywordNeedsItsBlanks) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"HEADER", u"7 FSN-100", u"FS N-100", u"7 FS"})), 0);
}

TEST_F(MiscTktInfo, PromptBeforeAnEmptyLineYieldsZeroAndKeepsTheArrays) {
  EXPECT_EQ(CountOne(u"7 FS N-100"), 1);
  EXPECT_EQ(desk.Count(kKind, Lines({u"HEADER", u"7 FS N-100", u"8 FS N-200", u"> "})), 0);
  EXPECT_EQ(Stored(u"strKeyNetFare", 1), u"200");
}

}  // namespace
}  // namespace wendrill::testing
