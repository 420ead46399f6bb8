#include <gtest/gtest.h>

#include "unit/scan/scan_desk.h"

namespace wendrill::testing {
namespace {

constexpr const DisplayKind& kKind = kSpecialServiceElements;

class SpecialService : public ::testing::Test {
 protected:
  // One element line after the header.
  std::int16_t CountOne(std::u16string line) { return desk.Count(kKind, Lines({u"HEADER", std::move(line)})); }
  std::u16string Stored(std::u16string_view key, std::int32_t index = 0) const {
    return desk.Stored(kKind, key, index);
  }

  ScanDesk desk;
};

TEST_F(SpecialService, DisplayWhoseSecondLineIsEmptyYieldsZero) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"HEADER", u"", u"5 SSR VGML SK HK1"})), 0);
  EXPECT_TRUE(desk.HoldsNothing(kKind));
}

TEST_F(SpecialService, PromptBeforeTheFirstEmptyLineYieldsZeroAlthoughTheArraysHoldTheElements) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"HEADER", u"5 SSR VGML SK HK1", u"6 SSR KSML SK HK1", u"> "})), 0);
  EXPECT_EQ(desk.scans.Arrays(kKind).UpperBound(), 1);
  EXPECT_EQ(Stored(u"strKeyCode", 0), u"VGML");
  EXPECT_EQ(Stored(u"strKeyCode", 1), u"KSML");
}

TEST_F(SpecialService, PromptAnywhereInALineEndsTheScan) {
  EXPECT_EQ(CountOne(u"5 SSR VGML SK HK1 TEXT > MORE"), 0);
  EXPECT_EQ(CountOne(u"5 SSR VGML SK HK1 TEXT >MORE"), 1);
}

TEST_F(SpecialService, LineThatBeginsWithFourBlanksContinuesTheElementInOnePiece) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"HEADER", u"5 SSR OTHS SK FIRST  ", u"         SECOND  ", u"    -- THIRD",
                                     u"6 SSR VGML SK HK1"})),
            2);
  EXPECT_EQ(Stored(u"strKeyElement", 0), u"5 SSR OTHS SK FIRST SECOND THIRD");
  EXPECT_EQ(Stored(u"strKeyElementNr", 1), u"6");
}

TEST_F(SpecialService, ContinuationIsReadFromColumnEight) {
  CountOne(u"5 SSR VGML SK HK1\r\n    1234567");
  EXPECT_EQ(Stored(u"strKeyElement"), u"5 SSR VGML SK HK1 4567");
}

TEST_F(SpecialService, LineThatBeginsWithFewerThanFourBlanksStartsANewLineOfTheScan) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"HEADER", u"5 SSR VGML SK HK1", u"   6 SSR KSML SK HK1", u"   NOT PART OF IT"})),
            2);
  EXPECT_EQ(Stored(u"strKeyElement", 0), u"5 SSR VGML SK HK1");
  EXPECT_EQ(Stored(u"strKeyElement", 1), u"6 SSR KSML SK HK1");
}

TEST_F(SpecialService, ContinuationMayHoldTheKeywordOrThePrompt) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"HEADER", u"5 SSR OTHS SK ONE", u"       SSR > TWO"})), 1);
  EXPECT_EQ(Stored(u"strKeyElement"), u"5 SSR OTHS SK ONE SSR > TWO");
}

TEST_F(SpecialService, ElementWithTwoDigitsAndAsteriskIsCutAtItsColumns) {
  EXPECT_EQ(CountOne(u"12 *SSR VGML SK HK1/S3/P1"), 1);
  EXPECT_EQ(Stored(u"strKeyElementNr"), u"12");
  EXPECT_EQ(Stored(u"blnKeyAsterix"), u"True");
  EXPECT_EQ(Stored(u"strKeyCode"), u"VGML");
  EXPECT_EQ(Stored(u"strKeyAirline"), u"SK");
  EXPECT_EQ(Stored(u"strKeyStatus"), u"HK1");
  EXPECT_EQ(Stored(u"strKeySegAsso"), u"3");
  EXPECT_EQ(Stored(u"strKeyPasAsso"), u"1");
  EXPECT_EQ(Stored(u"blnKeySeat"), u"False");
}

struct LayoutCase {
  const char16_t* line;
  const char16_t* number;
  const char16_t* asterisk;
};

TEST_F(SpecialService, EveryLayoutCutsTheSameFields) {
  constexpr LayoutCase kLayouts[] = {
      {u"5 SSR VGML SK HK1", u"5", u"False"},
      {u"5 *SSR VGML SK HK1", u"5", u"True"},
      {u"12 SSR VGML SK HK1", u"12", u"False"},
      {u"12 *SSR VGML SK HK1", u"12", u"True"},
  };
  for (const auto& layout : kLayouts) {
    SCOPED_TRACE(ToUtf8(layout.line));
    EXPECT_EQ(CountOne(layout.line), 1);
    EXPECT_EQ(Stored(u"strKeyElementNr"), layout.number);
    EXPECT_EQ(Stored(u"blnKeyAsterix"), layout.asterisk);
    EXPECT_EQ(Stored(u"strKeyCode"), u"VGML");
    EXPECT_EQ(Stored(u"strKeyAirline"), u"SK");
    EXPECT_EQ(Stored(u"strKeyStatus"), u"HK1");
  }
}

TEST_F(SpecialService, SeatRequestOfEachListingCodeGivesSeatNumbersAndPassengers) {
  for (const char16_t* code : {u"NSST", u"RQST", u"SMST", u"NSSW"}) {
    SCOPED_TRACE(ToUtf8(code));
    EXPECT_EQ(CountOne(std::u16string(u"5 SSR ") + code + u" SK HK2 PARLON/12A,P1/12B,P2"), 1);
    EXPECT_EQ(Stored(u"blnKeySeat"), u"True");
    EXPECT_EQ(Stored(u"strKeySeatNbr"), u"12A,12B");
    EXPECT_EQ(Stored(u"strKeyPasAsso"), u"1,2");
  }
}

TEST_F(SpecialService, OtherSeatCodesSetTheFlagAlone) {
  for (const char16_t* code : {u"SEAT", u"SMSA", u"SMSB", u"SMSW", u"NSSA", u"NSSB"}) {
    SCOPED_TRACE(ToUtf8(code));
    EXPECT_EQ(CountOne(std::u16string(u"5 SSR ") + code + u" SK HK2 PARLON/12A,P1/12B,P2"), 1);
    EXPECT_EQ(Stored(u"blnKeySeat"), u"True");
    EXPECT_EQ(Stored(u"strKeySeatNbr"), u"");
    EXPECT_EQ(Stored(u"strKeyPasAsso"), u"1/12B,P2") << "the text behind the first \",P\"";
  }
}

TEST_F(SpecialService, SeatListEndsAtTheFirstFieldThatIsNoSeat) {
  CountOne(u"5 SSR NSST SK HK2/12A,P1/S3/14C,P2");
  EXPECT_EQ(Stored(u"strKeySeatNbr"), u"12A");
  EXPECT_EQ(Stored(u"strKeyPasAsso"), u"1");
}

TEST_F(SpecialService, SeatsWithoutPassengersLoseTheLeadingCommaAlone) {
  CountOne(u"5 SSR NSST SK HK2/12A/12B/12C");
  EXPECT_EQ(Stored(u"strKeySeatNbr"), u"12A,12B,12C");
  EXPECT_EQ(Stored(u"strKeyPasAsso"), u",,");
}

TEST_F(SpecialService, OthsWithoutAStatusHasAnEmptyStatus) {
  EXPECT_EQ(CountOne(u"12 SSR OTHS SK CALL THE OFFICE/P1"), 1);
  EXPECT_EQ(Stored(u"strKeyStatus"), u"");
  EXPECT_EQ(Stored(u"strKeyFreeText"), u"CALL THE OFFICE");
  EXPECT_EQ(Stored(u"strKeyPasAsso"), u"1");
}

TEST_F(SpecialService, OthsWithAStatusKeepsIt) {
  CountOne(u"12 SSR OTHS SK HK1 CALL");
  EXPECT_EQ(Stored(u"strKeyStatus"), u"HK1");
  EXPECT_EQ(Stored(u"strKeyFreeText"), u"CALL");
}

TEST_F(SpecialService, OnlyTheSevenStatusCodesWithADigitAreAStatusOfOths) {
  for (const char16_t* status : {u"HK1", u"HN2", u"HX3", u"KK4", u"NN5", u"SS6", u"UC7"}) {
    CountOne(std::u16string(u"12 SSR OTHS SK ") + status);
    EXPECT_EQ(Stored(u"strKeyStatus"), status);
  }
  for (const char16_t* status : {u"UN1", u"HKA", u"HK", u"hk1"}) {
    CountOne(std::u16string(u"12 SSR OTHS SK ") + status);
    EXPECT_EQ(Stored(u"strKeyStatus"), u"") << ToUtf8(status);
  }
}

TEST_F(SpecialService, StatusWithoutACountLosesTheSlash) {
  CountOne(u"12 SSR VGML SK HK/S3");
  EXPECT_EQ(Stored(u"strKeyStatus"), u"HK");
}

TEST_F(SpecialService, FrequentFlyerNumberIsTheSecondField) {
  CountOne(u"5 SSR FQTV SK HK1/ SK123456 /P1");
  EXPECT_EQ(Stored(u"strKeyFFNnumber"), u"SK123456");
  CountOne(u"5 SSR VGML SK HK1/SK123456");
  EXPECT_EQ(Stored(u"strKeyFFNnumber"), u"");
}

TEST_F(SpecialService, FreeTextNeedsTextFromColumnEighteenOn) {
  CountOne(u"5 SSR VGML SK HK1");
  EXPECT_EQ(Stored(u"strKeyFreeText"), u"");
  CountOne(u"5 SSR VGML SK HK1 NO NUTS");
  EXPECT_EQ(Stored(u"strKeyFreeText"), u"NO NUTS");
  CountOne(u"5 *SSR VGML SK HK1 NO NUTS");
  EXPECT_EQ(Stored(u"strKeyFreeText"), u"NO NUTS");
}

TEST_F(SpecialService, FreeTextOfOthsNeedsTextFromColumnEighteenOnAlthoughItBeginsBefore) {
  CountOne(u"5 SSR OTHS SK ABC");
  EXPECT_EQ(Stored(u"strKeyFreeText"), u"");
  CountOne(u"5 SSR OTHS SK ABCD");
  EXPECT_EQ(Stored(u"strKeyFreeText"), u"BCD");
}

TEST_F(SpecialService, FreeTextThatIsTheEndOfAnAssociationIsDropped) {
  CountOne(u"5 SSR VGML SK HK1/P1");
  EXPECT_EQ(Stored(u"strKeyFreeText"), u"");
  EXPECT_EQ(Stored(u"strKeyPasAsso"), u"1");
  CountOne(u"5 SSR VGML SK HK1 P1");
  EXPECT_EQ(Stored(u"strKeyFreeText"), u"P1") << "no slash in front: free text";
}

TEST_F(SpecialService, SegmentMarkWithoutADigitIsPassedOver) {
  CountOne(u"5 SSR FQTV SK HK1/SK123/S4/P2");
  EXPECT_EQ(Stored(u"strKeySegAsso"), u"4");
  EXPECT_EQ(Stored(u"strKeyPasAsso"), u"2");
}

TEST_F(SpecialService, SegmentBesideAPassengerHasTwoDigitsAtMost) {
  CountOne(u"5 SSR VGML SK HK1/S12/P1");
  EXPECT_EQ(Stored(u"strKeySegAsso"), u"12");
  CountOne(u"5 SSR VGML SK HK1/S3-4/P1");
  EXPECT_EQ(Stored(u"strKeySegAsso"), u"3");
}

TEST_F(SpecialService, SegmentWithoutAPassengerIsTheWholeRest) {
  CountOne(u"5 SSR VGML SK HK1/S3-4,6");
  EXPECT_EQ(Stored(u"strKeySegAsso"), u"3-4,6");
}

TEST_F(SpecialService, PassengerBeforeTheSegmentEndsThere) {
  CountOne(u"5 SSR VGML SK HK1/P1-2 /S3");
  EXPECT_EQ(Stored(u"strKeyPasAsso"), u"1-2");
  EXPECT_EQ(Stored(u"strKeySegAsso"), u"3");
}

TEST_F(SpecialService, ElementWithoutANumberEndsTheScanWithZero) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"HEADER", u"5 SSR VGML SK HK1", u"  SSR KSML SK HK1", u"6 SSR VGML SK HK1"})), 0);
  EXPECT_EQ(Stored(u"strKeyCode", 0), u"VGML");
}

TEST_F(SpecialService, FlaggedElementWithoutANumberEndsTheScanToo) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"HEADER", u"5 SSR VGML SK HK1", u"*SSR KSML SK HK1"})), 0);
}

TEST_F(SpecialService, RemarkThatMentionsARequestOnALineOfItsOwnHidesNone) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"HEADER", u"7 SSR VGML AF HK1", u"8 RM HELLO", u"       PLS CHECK SSR",
                                     u"9 SSR KSML AF HK1"})),
            3);
  EXPECT_EQ(Stored(u"strKeyElement", 1), u"PLS CHECK SSR");
  EXPECT_EQ(Stored(u"strKeyElementNr", 1), u"PL") << "its first two columns";
  EXPECT_EQ(Stored(u"strKeyElementNr", 2), u"9");
  EXPECT_EQ(Stored(u"strKeyCode", 2), u"KSML");
}

TEST_F(SpecialService, HeaderLineIsNeverExamined) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"1 SSR VGML SK HK1", u"5 SSR KSML SK HK1"})), 1);
  EXPECT_EQ(Stored(u"strKeyCode"), u"KSML");
  EXPECT_EQ(desk.Count(kKind, Lines({u"> ", u"5 SSR KSML SK HK1"})), 1);
}

TEST_F(SpecialService, RowOfBlanksIsBlankAndNotEmpty) {
  EXPECT_EQ(desk.Count(kKind, Rows({u"HEADER", u"", u"5 SSR VGML SK HK1"})), 1);
}

TEST_F(SpecialService, DisplayOfMoreLinesThanSixteenBitsHoldOverflows) {
  std::u16string display = u"HEADER\n";
  for (int line = 2; line <= 32767; ++line) {
    display += u"X\n";
  }
  EXPECT_EQ(ErrorOf([&] { desk.Count(kKind, display); })->Number(), 6) << "line 32,768 has no number";
  display.resize(display.size() - 2);  // line 32,767 is empty
  EXPECT_EQ(desk.Count(kKind, display), 0);
}

}  // namespace
}  // namespace wendrill::testing
