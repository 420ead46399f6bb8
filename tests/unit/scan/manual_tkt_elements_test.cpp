#include <gtest/gtest.h>

#include "unit/scan/scan_desk.h"

namespace wendrill::testing {
namespace {

constexpr const DisplayKind& kKind = kManualTktElements;

class ManualTkt : public ::testing::Test {
 protected:
  std::int16_t CountOne(std::u16string line) { return desk.Count(kKind, Lines({u"HEADER", std::move(line)})); }
  std::u16string Stored(std::u16string_view key, std::int32_t index = 0) const {
    return desk.Stored(kKind, key, index);
  }

  ScanDesk desk;
};

TEST_F(ManualTkt, SecondWordFheSetsTheElectronicFlagOnly) {
  EXPECT_EQ(CountOne(u"12 FHE PAX 117-1234567890/S3/P1"), 1);
  EXPECT_EQ(Stored(u"blnKeyElectronic"), u"True");
  EXPECT_EQ(Stored(u"blnKeyManual"), u"False");
  EXPECT_EQ(Stored(u"blnKeyAutomated"), u"False");
}

TEST_F(ManualTkt, ThirdCharacterOfTheWordSetsExactlyOneFlag) {
  CountOne(u"12 FHM PAX 117-1234567890");
  EXPECT_EQ(Stored(u"blnKeyManual") + Stored(u"blnKeyElectronic") + Stored(u"blnKeyAutomated"), u"TrueFalseFalse");
  CountOne(u"12 FHA PAX 117-1234567890");
  EXPECT_EQ(Stored(u"blnKeyManual") + Stored(u"blnKeyElectronic") + Stored(u"blnKeyAutomated"), u"FalseFalseTrue");
  CountOne(u"12 FH PAX 117-1234567890");
  EXPECT_EQ(Stored(u"blnKeyManual") + Stored(u"blnKeyElectronic") + Stored(u"blnKeyAutomated"), u"FalseFalseFalse");
}

TEST_F(ManualTkt, LineIsCutAtItsMarkers) {
  CountOne(u"12 FHE PAX 117-1234567890/S3-4/P1 ");
  EXPECT_EQ(Stored(u"strKeyElement"), u"12 FHE PAX 117-1234567890/S3-4/P1");
  EXPECT_EQ(Stored(u"strKeyElementNr"), u"12");
  EXPECT_EQ(Stored(u"strKeyTktNbr"), u"117-1234567890");
  EXPECT_EQ(Stored(u"strKeyAirline"), u"117");
  EXPECT_EQ(Stored(u"strKeySegAsso"), u"3-4");
  EXPECT_EQ(Stored(u"strKeyPasAsso"), u"1");
}

TEST_F(ManualTkt, TicketNumberWithoutAPassengerTypeIsTheThirdWord) {
  CountOne(u"12 FHM 117-1234567890/P1 REST");
  EXPECT_EQ(Stored(u"strKeyTktNbr"), u"117-1234567890");
}

TEST_F(ManualTkt, ElementNumberOfAnyWidthIsAccepted) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"HEADER", u"5 FHE PAX 117-1", u"123 FHE PAX 220-2", u"1234 FHM PAX 057-3"})), 3);
  EXPECT_EQ(Stored(u"strKeyElementNr", 0), u"5");
  EXPECT_EQ(Stored(u"strKeyElementNr", 1), u"123");
  EXPECT_EQ(Stored(u"strKeyElementNr", 2), u"1234");
  EXPECT_EQ(Stored(u"strKeyAirline", 2), u"057");
}

TEST_F(ManualTkt, LineThatBeginsWithABlankHasAnotherSecondWord) {
  EXPECT_EQ(CountOne(u" 12 FHE PAX 117-1234567890"), 0);
}

TEST_F(ManualTkt, PassengerBeforeTheSegmentEndsThere) {
  CountOne(u"12 FHE PAX 117-1234567890/P1/S3");
  EXPECT_EQ(Stored(u"strKeyPasAsso"), u"1");
  EXPECT_EQ(Stored(u"strKeySegAsso"), u"3");
}

TEST_F(ManualTkt, SegmentMarkWithoutADigitIsPassedOver) {
  CountOne(u"12 FHE PAX 117-1234567890/SA/S3");
  EXPECT_EQ(Stored(u"strKeySegAsso"), u"3");
}

TEST_F(ManualTkt, PromptAndBlankLineBothLeaveTheCount) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"HEADER", u"5 FHE PAX 117-1", u"> ", u"6 FHE PAX 117-2"})), 1);
  EXPECT_EQ(desk.Count(kKind, Rows({u"HEADER", u"5 FHE PAX 117-1", u"", u"6 FHE PAX 117-2"})), 1)
      << "a row of blanks is blank";
}

TEST_F(ManualTkt, PromptInsideALineEndsNothing) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"HEADER", u"4 RM A > B", u"5 FHE PAX 117-1"})), 1);
}

}  // namespace
}  // namespace wendrill::testing
