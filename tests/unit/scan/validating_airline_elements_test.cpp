// Validating airlines beyond their display files.
#include <gtest/gtest.h>

#include "scan/display_scans.h"
#include "support/pnr_desk.h"

namespace wendrill::testing {
namespace {

std::vector<std::u16string> HeadAnd(std::vector<std::u16string> lines) {
  lines.insert(lines.begin(), {u"RP/PARXX0100/PARXX0200", u"PARXX0100/0001AA/12JUN08", u"  1.SMITH/JOHN MR(ADT)"});
  return lines;
}

TEST(ValidatingAirline, OfAPnrWithoutAnFvLineHasCountZeroAndIndexZeroRaises2233) {
  const PnrDesk desk;
  desk.Display(Rows(HeadAnd({u"  2  AF 123 Y 15JUN 3 NCECDG HK1"})));
  DisplayScans scans(desk.module);
  EXPECT_EQ(scans.Count(kValidatingAirlineElements), 0);
  EXPECT_TRUE(Raises(2233, kElementMessage, [&] { scans.Get(kValidatingAirlineElements, desk.Bag()); }));
}

// An index that rounds to 0 from below passes every count, and there is always one position.
TEST(ValidatingAirline, OfAPnrWithoutAnFvLineHasArraysOfOneEmptyEntry) {
  const PnrDesk desk;
  desk.Display(Rows(HeadAnd({})));
  const auto bag = desk.Bag(-0.25);
  DisplayScans(desk.module).Get(kValidatingAirlineElements, bag);
  EXPECT_EQ(bag->SettingsText(),
            "strKeyElement = \"\"\n"
            "strKeyElementNr = \"\"\n"
            "strKeyAirline = \"\"\n"
            "strKeyPasAsso = \"\"\n"
            "strKeySegAsso = \"\"\n");
}

TEST(ValidatingAirline, WhoseElementNumberHasThreeCharactersHasNoAirlineButEverythingElse) {
  const PnrDesk desk;
  desk.Display(Rows(HeadAnd({u"123 FV LH/S2/P1"})));
  const auto bag = desk.Bag();
  DisplayScans(desk.module).Get(kValidatingAirlineElements, bag);
  EXPECT_EQ(bag->SettingsText(),
            "strKeyElement = \"123 FV LH/S2/P1\"\n"
            "strKeyElementNr = \"123\"\n"
            "strKeyAirline = \"\"\n"
            "strKeyPasAsso = \"1\"\n"
            "strKeySegAsso = \"2\"\n");
}

TEST(ValidatingAirline, CountReadsTheDisplayAgainForEveryLine) {
  const PnrDesk desk;
  desk.Display(Rows(HeadAnd({u" 12 FV LH", u" 13 FM 7", u" 14 FV AF"})));
  DisplayScans scans(desk.module);
  EXPECT_EQ(scans.Count(kValidatingAirlineElements), 2);
  // Lines 4 to 6, and the empty one after them.
  EXPECT_EQ(desk.calls->Calls(), (std::vector<std::string>(4, "PNR.75")));
}

TEST(ValidatingAirline, CountFollowsADisplayThatChangesBetweenTwoLines) {
  const PnrDesk desk;
  const auto before = Rows(HeadAnd({u" 12 FV LH", u" 13 FM 7"}));
  const auto after = Rows(HeadAnd({u" 12 FM 7", u" 13 FV AF", u" 14 FV SK", u" 15 FV BA"}));
  int reads = 0;
  desk.pnr->Answering(75, [&](auto) { return Value(++reads == 1 ? before : after); });
  DisplayScans scans(desk.module);
  // Line 4 of the first display, lines 5 to 7 of the second.
  EXPECT_EQ(scans.Count(kValidatingAirlineElements), 4);
}

TEST(ValidatingAirline, CountIsZeroWhenTheScanFailsAndTheArraysKeepWhatWasStored) {
  const PnrDesk desk;
  const auto display = Rows(HeadAnd({u" 12 FV LH", u" 13 FV AF"}));
  int reads = 0;
  desk.pnr->Answering(75, [&](auto) -> Value {
    if (++reads == 3) {
      throw ForeignError();
    }
    return display;
  });
  DisplayScans scans(desk.module);
  EXPECT_EQ(scans.Count(kValidatingAirlineElements), 0);
  reads = 0;
  const auto bag = desk.Bag(-0.25);
  scans.Get(kValidatingAirlineElements, bag);
  EXPECT_EQ(bag->Held(u"strKeyElement"), Value(u"12 FV LH"));
}

TEST(ValidatingAirline, CountIsZeroWithoutAPnr) {
  TestWorld desk;
  EXPECT_EQ(DisplayScans(desk.module).Count(kValidatingAirlineElements), 0);
}

TEST(ValidatingAirline, IsFoundOnTheLastLineOfALongDisplay) {
  std::u16string display;
  for (int line = 1; line <= 300; ++line) {
    display += u"X\r";
  }
  const PnrDesk desk;
  desk.Display(display + u" 12 FV LH\r");
  EXPECT_EQ(DisplayScans(desk.module).Count(kValidatingAirlineElements), 1);
}

TEST(ValidatingAirline, CountGoesOnAfterABlankLineAndStopsAtAnEmptyOne) {
  const PnrDesk desk;
  DisplayScans scans(desk.module);
  desk.Display(u"1\r\n2\r\n3\r\n    FV LH\r\n \r\n    FV AF\r\n");
  EXPECT_EQ(scans.Count(kValidatingAirlineElements), 2);
  desk.Display(u"1\r\n2\r\n3\r\n    FV LH\r\n\r\n    FV AF\r\n");
  EXPECT_EQ(scans.Count(kValidatingAirlineElements), 1);
}

TEST(ValidatingAirline, IsFoundOnALineThatBeginsLikeThePrompt) {
  const PnrDesk desk;
  desk.Display(Rows(HeadAnd({u">   FV LH", u">   FM", u" 12 FV AF"})));
  EXPECT_EQ(DisplayScans(desk.module).Count(kValidatingAirlineElements), 1);
}

TEST(ValidatingAirline, ElementsAreCountedAgainForEachElement) {
  const PnrDesk desk;
  DisplayScans scans(desk.module);
  desk.Display(Rows(HeadAnd({u" 12 FV LH", u" 13 FV AF"})));
  EXPECT_EQ(scans.Count(kValidatingAirlineElements), 2);
  desk.Display(Rows(HeadAnd({u" 12 FV SK"})));
  const auto bag = desk.Bag();
  scans.Get(kValidatingAirlineElements, bag);
  EXPECT_EQ(bag->Held(u"strKeyAirline"), Value(u"SK"));
  EXPECT_TRUE(RaisesNumber(2233, [&] { scans.Get(kValidatingAirlineElements, desk.Bag(std::int16_t{1})); }));
}

}  // namespace
}  // namespace wendrill::testing
