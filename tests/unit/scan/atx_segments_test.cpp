#include <gtest/gtest.h>

#include "unit/scan/scan_desk.h"

namespace wendrill::testing {
namespace {

constexpr const DisplayKind& kKind = kATXSegments;

class ATX : public ::testing::Test {
 protected:
  std::u16string Stored(std::u16string_view key, std::int32_t index = 1) const {
    return desk.Stored(kKind, key, index);
  }

  ScanDesk desk;
};

TEST_F(ATX, SegmentIsCutAtItsColumns) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"HEADER", u"12  ATX YY HK1 PARLON 12JUN-VIA THE TUNNEL "})), 1);
  EXPECT_EQ(Stored(u"strKeySegment"), u"12  ATX YY HK1 PARLON 12JUN-VIA THE TUNNEL ") << "the line as read";
  EXPECT_EQ(Stored(u"strKeySegmentNr"), u"12");
  EXPECT_EQ(Stored(u"strKeyProvider"), u"YY");
  EXPECT_EQ(Stored(u"strKeyStatus"), u"HK1");
  EXPECT_EQ(Stored(u"strKeyDepCity"), u"PAR");
  EXPECT_EQ(Stored(u"strKeyArrCity"), u"LON");
  EXPECT_EQ(Stored(u"strKeyDepDate"), u"12JUN");
  EXPECT_EQ(Stored(u"strKeyFreeText"), u"VIA THE TUNNEL");
}

TEST_F(ATX, FreeTextIsEmptyWithoutADash) {
  desk.Count(kKind, Lines({u" 5  ATX YY HK1 PARLON 12JUN"}));
  EXPECT_EQ(Stored(u"strKeySegmentNr"), u"5");
  EXPECT_EQ(Stored(u"strKeyFreeText"), u"");
}

TEST_F(ATX, KeywordStandsInColumnsFiveToEight) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"12 ATX YY HK1", u"12   ATX YY HK1", u"12  ATXYY HK1"})), 0);
}

TEST_F(ATX, EmptyLinesOneAndTwoAreNoEnd) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"", u"", u"12  ATX YY HK1 PARLON 12JUN"})), 1);
  EXPECT_EQ(desk.Count(kKind, Lines({u"", u"", u"", u"12  ATX YY HK1 PARLON 12JUN"})), 0);
}

TEST_F(ATX, PromptEndsTheWalkAndLeavesTheCount) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"12  ATX YY HK1", u"> ", u"13  ATX YY HK1"})), 1);
}

TEST_F(ATX, FirstSegmentIsAtIndexOne) {
  EXPECT_EQ(desk.Count(kKind, Rows({u"HEADER", u"12  ATX YY HK1 PARLON", u"13  ATX 1A HK1 NCECDG"})), 2);
  EXPECT_EQ(Stored(u"strKeySegment", 0), u"");
  EXPECT_EQ(Stored(u"strKeyArrCity", 1), u"LON");
  EXPECT_EQ(Stored(u"strKeyArrCity", 2), u"CDG");
}

}  // namespace
}  // namespace wendrill::testing
