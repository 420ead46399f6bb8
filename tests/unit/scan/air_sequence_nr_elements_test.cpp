// Air sequence numbers beyond their display files.
#include <gtest/gtest.h>

#include "scan/display_scans.h"
#include "support/pnr_desk.h"

namespace wendrill::testing {
namespace {

TEST(AirSequence, OfADisplayShorterThan81CharactersHasCountZero) {
  const PnrDesk desk;
  DisplayScans scans(desk.module);
  std::u16string display(80, u' ');
  desk.Display(display);
  EXPECT_EQ(scans.Count(kAirSequenceNrElements), 0);
  desk.Display(u"");
  EXPECT_EQ(scans.Count(kAirSequenceNrElements), 0);
  desk.Display(display + u" 18 FB");
  EXPECT_EQ(scans.Count(kAirSequenceNrElements), 1);
}

TEST(AirSequence, OfAnIndexOutsideTheArraysIsASubscriptOutOfRange) {
  const PnrDesk desk;
  desk.Display(Rows({u"RP/", u" 18 FB 1", u" 19 FB 2"}));
  DisplayScans scans(desk.module);
  EXPECT_TRUE(RaisesNumber(9, [&] { scans.Get(kAirSequenceNrElements, desk.Bag(std::int16_t{-1})); }));
  EXPECT_TRUE(RaisesNumber(9, [&] { scans.Get(kAirSequenceNrElements, desk.Bag(1.75)); }));
  EXPECT_TRUE(Raises(2213, kElementMessage, [&] { scans.Get(kAirSequenceNrElements, desk.Bag(std::int16_t{2})); }));
}

TEST(AirSequence, CountReadsTheDisplayOnceAndPassesAFailureOn) {
  const PnrDesk desk;
  desk.Display(Rows({u"RP/", u" 18 FB 1", u" 19 FB 2"}));
  DisplayScans scans(desk.module);
  EXPECT_EQ(scans.Count(kAirSequenceNrElements), 2);
  EXPECT_EQ(desk.calls->Calls(), (std::vector<std::string>{"PNR.75"}));
  desk.calls->FailNth(1);
  EXPECT_TRUE(RaisesNumber(ForeignError().Number(), [&] { scans.Count(kAirSequenceNrElements); }));
  TestWorld noPnr;
  EXPECT_TRUE(RaisesNumber(91, [&] { DisplayScans(noPnr.module).Count(kAirSequenceNrElements); }));
}

TEST(AirSequence, CountBeyondSixteenBitsOverflows) {
  std::u16string display(80, u' ');
  const auto row = Rows({u" 18 FB"});
  for (int n = 1; n <= 32767; ++n) {
    display += row;
  }
  const PnrDesk desk;
  desk.Display(display);
  EXPECT_EQ(DisplayScans(desk.module).Count(kAirSequenceNrElements), 32767);
  desk.Display(display + row);
  EXPECT_TRUE(RaisesNumber(6, [&] { DisplayScans(desk.module).Count(kAirSequenceNrElements); }));
}

}  // namespace
}  // namespace wendrill::testing
