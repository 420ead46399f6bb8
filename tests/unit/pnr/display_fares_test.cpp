// Validating airlines and air sequence numbers beyond their data files.
#include "pnr/display_fares.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "pnr/records.h"
#include "unit/pnr/pnr_desk.h"

namespace wendrill::testing {
namespace {

std::vector<std::u16string> HeadAnd(std::vector<std::u16string> lines) {
  lines.insert(lines.begin(), {u"RP/PARXX0100/PARXX0200", u"PARXX0100/0001AA/12JUN08", u"  1.SMITH/JOHN MR(ADT)"});
  return lines;
}

TEST(ValidatingAirline, OfAPnrWithoutAnFvLineHasCountZeroAndIndexZeroRaises2233) {
  const PnrDesk desk;
  desk.Display(Rows(HeadAnd({u"  2  AF 123 Y 15JUN 3 NCECDG HK1"})));
  PnrRecords records(desk.module);
  EXPECT_EQ(records.ValidatingAirlineElementsCount(), 0);
  EXPECT_TRUE(Raises(2233, kElementMessage, [&] { records.Get(GetMember::ValidatingAirlineElement, desk.Bag()); }));
}

// An index that rounds to 0 from below passes every count, and there is always one position.
TEST(ValidatingAirline, OfAPnrWithoutAnFvLineHasArraysOfOneEmptyEntry) {
  const PnrDesk desk;
  desk.Display(Rows(HeadAnd({})));
  const auto bag = desk.Bag(-0.25);
  PnrRecords(desk.module).Get(GetMember::ValidatingAirlineElement, bag);
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
  PnrRecords(desk.module).Get(GetMember::ValidatingAirlineElement, bag);
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
  PnrRecords records(desk.module);
  EXPECT_EQ(records.ValidatingAirlineElementsCount(), 2);
  // Lines 4 to 6, and the empty one after them.
  EXPECT_EQ(desk.calls->Calls(), (std::vector<std::string>(4, "PNR.75")));
}

TEST(ValidatingAirline, CountFollowsADisplayThatChangesBetweenTwoLines) {
  const PnrDesk desk;
  const auto before = Rows(HeadAnd({u" 12 FV LH", u" 13 FM 7"}));
  const auto after = Rows(HeadAnd({u" 12 FM 7", u" 13 FV AF", u" 14 FV SK", u" 15 FV BA"}));
  int reads = 0;
  desk.pnr->Answering(75, [&](auto) { return Value(++reads == 1 ? before : after); });
  PnrRecords records(desk.module);
  // Line 4 of the first display, lines 5 to 7 of the second.
  EXPECT_EQ(records.ValidatingAirlineElementsCount(), 4);
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
  PnrRecords records(desk.module);
  EXPECT_EQ(records.ValidatingAirlineElementsCount(), 0);
  reads = 0;
  const auto bag = desk.Bag(-0.25);
  records.Get(GetMember::ValidatingAirlineElement, bag);
  EXPECT_EQ(bag->Held(u"strKeyElement"), Value(u"12 FV LH"));
}

TEST(ValidatingAirline, CountIsZeroWithoutAPnr) {
  FakeDesk desk;
  EXPECT_EQ(PnrRecords(desk.module).ValidatingAirlineElementsCount(), 0);
}

TEST(ValidatingAirline, IsFoundOnTheLastLineOfALongDisplay) {
  std::u16string display;
  for (int line = 1; line <= 300; ++line) {
    display += u"X\r";
  }
  const PnrDesk desk;
  desk.Display(display + u" 12 FV LH\r");
  EXPECT_EQ(PnrRecords(desk.module).ValidatingAirlineElementsCount(), 1);
}

TEST(ValidatingAirline, CountGoesOnAfterABlankLineAndStopsAtAnEmptyOne) {
  const PnrDesk desk;
  PnrRecords records(desk.module);
  desk.Display(u"1\r\n2\r\n3\r\n    FV LH\r\n \r\n    FV AF\r\n");
  EXPECT_EQ(records.ValidatingAirlineElementsCount(), 2);
  desk.Display(u"1\r\n2\r\n3\r\n    FV LH\r\n\r\n    FV AF\r\n");
  EXPECT_EQ(records.ValidatingAirlineElementsCount(), 1);
}

TEST(ValidatingAirline, IsFoundOnALineThatBeginsLikeThePrompt) {
  const PnrDesk desk;
  desk.Display(Rows(HeadAnd({u">   FV LH", u">   FM", u" 12 FV AF"})));
  EXPECT_EQ(PnrRecords(desk.module).ValidatingAirlineElementsCount(), 1);
}

TEST(AirSequence, OfADisplayShorterThan81CharactersHasCountZero) {
  const PnrDesk desk;
  PnrRecords records(desk.module);
  std::u16string display(80, u' ');
  desk.Display(display);
  EXPECT_EQ(records.AirSequenceNrElementsCount(), 0);
  desk.Display(u"");
  EXPECT_EQ(records.AirSequenceNrElementsCount(), 0);
  desk.Display(display + u" 18 FB");
  EXPECT_EQ(records.AirSequenceNrElementsCount(), 1);
}

TEST(AirSequence, OfAnIndexOutsideTheArraysIsASubscriptOutOfRange) {
  const PnrDesk desk;
  desk.Display(Rows({u"RP/", u" 18 FB 1", u" 19 FB 2"}));
  PnrRecords records(desk.module);
  EXPECT_TRUE(RaisesNumber(9, [&] { records.Get(GetMember::AirSequenceNrElement, desk.Bag(std::int16_t{-1})); }));
  EXPECT_TRUE(RaisesNumber(9, [&] { records.Get(GetMember::AirSequenceNrElement, desk.Bag(1.75)); }));
  EXPECT_TRUE(
      Raises(2213, kElementMessage, [&] { records.Get(GetMember::AirSequenceNrElement, desk.Bag(std::int16_t{2})); }));
}

TEST(AirSequence, CountReadsTheDisplayOnceAndPassesAFailureOn) {
  const PnrDesk desk;
  desk.Display(Rows({u"RP/", u" 18 FB 1", u" 19 FB 2"}));
  PnrRecords records(desk.module);
  EXPECT_EQ(records.AirSequenceNrElementsCount(), 2);
  EXPECT_EQ(desk.calls->Calls(), (std::vector<std::string>{"PNR.75"}));
  desk.calls->FailNth(1);
  EXPECT_TRUE(RaisesNumber(ForeignError().Number(), [&] { records.AirSequenceNrElementsCount(); }));
  FakeDesk noPnr;
  EXPECT_TRUE(RaisesNumber(91, [&] { PnrRecords(noPnr.module).AirSequenceNrElementsCount(); }));
}

TEST(AirSequence, CountBeyondSixteenBitsOverflows) {
  std::u16string display(80, u' ');
  const auto row = Rows({u" 18 FB"});
  for (int n = 1; n <= 32767; ++n) {
    display += row;
  }
  const PnrDesk desk;
  desk.Display(display);
  EXPECT_EQ(PnrRecords(desk.module).AirSequenceNrElementsCount(), 32767);
  desk.Display(display + row);
  EXPECT_TRUE(RaisesNumber(6, [&] { PnrRecords(desk.module).AirSequenceNrElementsCount(); }));
}

TEST(DisplayFares, AreCountedAgainForEveryElement) {
  const PnrDesk desk;
  PnrRecords records(desk.module);
  desk.Display(Rows(HeadAnd({u" 12 FV LH", u" 13 FV AF"})));
  EXPECT_EQ(records.ValidatingAirlineElementsCount(), 2);
  desk.Display(Rows(HeadAnd({u" 12 FV SK"})));
  const auto bag = desk.Bag();
  records.Get(GetMember::ValidatingAirlineElement, bag);
  EXPECT_EQ(bag->Held(u"strKeyAirline"), Value(u"SK"));
  EXPECT_TRUE(RaisesNumber(2233, [&] { records.Get(GetMember::ValidatingAirlineElement, desk.Bag(std::int16_t{1})); }));
}

}  // namespace
}  // namespace wendrill::testing
