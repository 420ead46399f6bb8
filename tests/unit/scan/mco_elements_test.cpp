#include <gtest/gtest.h>

#include "unit/scan/scan_desk.h"

namespace wendrill::testing {
namespace {

constexpr const DisplayKind& kKind = kMCOElements;

class MCO : public ::testing::Test {
 protected:
  std::u16string Stored(std::u16string_view key, std::int32_t index = 1) const {
    return desk.Stored(kKind, key, index);
  }

  ScanDesk desk;
};

TEST_F(MCO, DocumentIsCutAtItsWordsAndMarkers) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"HEADER", u"12 MCO SK PAR 12JUN/USD100.00/*BAGGAGE/P2"})), 1);
  EXPECT_EQ(Stored(u"strKeyElementNr"), u"12");
  EXPECT_EQ(Stored(u"strKeyElement"), u"MCO SK PAR 12JUN/USD100.00/*BAGGAGE/P2");
  EXPECT_EQ(Stored(u"strKeyAirline"), u"SK");
  EXPECT_EQ(Stored(u"strKeyOrigin"), u"PAR");
  EXPECT_EQ(Stored(u"strKeyDepDate"), u"12JUN");
  EXPECT_EQ(Stored(u"strKeyFare"), u"USD100.00");
  EXPECT_EQ(Stored(u"strKeyServiceType"), u"BAGGAGE");
  EXPECT_EQ(Stored(u"strKeyPasAsso"), u"2");
}

TEST_F(MCO, MissingMarkersLeaveTheirFieldsEmpty) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"5 MCO SK PAR 12JUN"})), 1);
  EXPECT_EQ(Stored(u"strKeyElementNr"), u"5");
  EXPECT_EQ(Stored(u"strKeyDepDate"), u"12JUN");
  EXPECT_EQ(Stored(u"strKeyFare"), u"");
  EXPECT_EQ(Stored(u"strKeyServiceType"), u"");
  EXPECT_EQ(Stored(u"strKeyPasAsso"), u"");
}

TEST_F(MCO, KeywordStandsInColumnsThreeToFiveOrFourToSix) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"5 MCO SK", u"12 MCO SK", u"123 MCO SK", u"MCO SK", u"1 MC0 SK"})), 2);
}

TEST_F(MCO, TicketingLinesAfterTheDocumentBelongToIt) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"5 MCO SK PAR 12JUN", u"   FA PAX 117-1234567890/ETSK/P1", u"   FP CASH",
                                     u"   FM *M*5", u"6 MCO LH FRA 13JUN", u"   FP CHECK"})),
            2);
  EXPECT_EQ(Stored(u"strKeyMCOFAElement", 1), u"FA PAX 117-1234567890/ETSK/P1");
  EXPECT_EQ(Stored(u"strKeyMCOFATicketNbr", 1), u"117-1234567890");
  EXPECT_EQ(Stored(u"strKeyMCOFPElement", 1), u"FP CASH");
  EXPECT_EQ(Stored(u"strKeyMCOFMElement", 1), u"FM *M*5");
  EXPECT_EQ(Stored(u"strKeyMCOFAElement", 2), u"");
  EXPECT_EQ(Stored(u"strKeyMCOFPElement", 2), u"FP CHECK");
}

TEST_F(MCO, TicketingLineMayHaveItsOwnNumber) {
  desk.Count(kKind, Lines({u"5 MCO SK PAR 12JUN", u"   6 FA 117-1234567890/P1"}));
  EXPECT_EQ(Stored(u"strKeyMCOFAElement"), u"6 FA 117-1234567890/P1");
  EXPECT_EQ(Stored(u"strKeyMCOFATicketNbr"), u"117-1234567890");
}

TEST_F(MCO, OfTwoLinesWithOneKeywordTheFirstIsKept) {
  desk.Count(kKind, Lines({u"5 MCO SK PAR 12JUN", u"   FP CASH", u"   FP CHECK"}));
  EXPECT_EQ(Stored(u"strKeyMCOFPElement"), u"FP CASH");
}

TEST_F(MCO, TicketingLinesWithLessIndentOrAfterAnotherElementAreNotTheDocuments) {
  desk.Count(kKind, Lines({u"5 MCO SK PAR 12JUN", u"  FP CASH", u"   FM *M*5"}));
  EXPECT_EQ(Stored(u"strKeyMCOFPElement"), u"");
  EXPECT_EQ(Stored(u"strKeyMCOFMElement"), u"");
}

TEST_F(MCO, LeadingEmptyLinesAreSkippedAndTheFirstOneAfterTextEndsTheWalk) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"", u"", u"", u"5 MCO SK", u"", u"6 MCO SK"})), 1);
}

TEST_F(MCO, DisplayOfEmptyLinesAloneYieldsZero) {
  EXPECT_EQ(desk.Count(kKind, u""), 0);
  EXPECT_EQ(desk.Count(kKind, Lines({u"", u"", u""})), 0);
}

TEST_F(MCO, PromptEndsTheWalkAndLeavesTheCount) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"5 MCO SK PAR 12JUN", u"   FP CASH > ", u"6 MCO SK"})), 1);
  EXPECT_EQ(Stored(u"strKeyMCOFPElement"), u"");
}

TEST_F(MCO, FirstDocumentIsAtIndexOne) {
  desk.Count(kKind, Lines({u"5 MCO SK"}));
  EXPECT_EQ(Stored(u"strKeyElement", 0), u"");
  EXPECT_EQ(desk.scans.Arrays(kKind).UpperBound(), 1);
}

}  // namespace
}  // namespace wendrill::testing
