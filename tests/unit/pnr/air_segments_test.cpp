// What the five air segment members do beyond their data files.
#include <gtest/gtest.h>

#include "common/host_date.h"
#include "pnr/records.h"
#include "support/pnr_desk.h"

namespace wendrill::testing {
namespace {

constexpr const char16_t* kConfirmed = u"2  AF 123 Y 15JUN 3 NCECDG HK1       0915 1050      AB12CD";
constexpr const char16_t* kPassive = u"2  AF 123 Y 15JUN 3 NCECDG GK1       0915 1050      AB12CD";
constexpr const char16_t* kOpen = u"3  AF OPEN Y 20JUN 5CDGNCE QH1";

FakeObjectRef Timed(const PnrDesk& desk, std::u16string text, std::u16string elementNo) {
  auto segment = TextElement(desk, std::move(text), Value(std::move(elementNo)));
  segment->With(u"BoardPoint", u"NCE")
      .With(u"OffPoint", u"CDG")
      .With(u"Class", u"Y")
      .With(u"DepartureDate", DateOf({2008, 6, 15}))
      .With(u"DepartureTime", u"0915")
      .With(u"ArrivalTime", u"1050")
      .With(u"DayChange", u"0")
      .OfType(SegmentType::Timed);
  return segment;
}

FakeObjectRef Untimed(const PnrDesk& desk, std::u16string text, std::u16string elementNo) {
  auto segment = Timed(desk, std::move(text), std::move(elementNo));
  segment->OfType(SegmentType::Untimed);
  return segment;
}

// A PNR with these segments, none of them open or flown to the counts.
void HoldSegments(const PnrDesk& desk, const std::vector<ObjectRef>& segments) {
  desk.HoldNothing();
  desk.Hold(Collection::AllAirSegments, segments);
  desk.Hold(Collection::AirSegments, segments);
}

FakeBagRef ActiveSegment(const PnrDesk& desk, const FakeObjectRef& segment) {
  HoldSegments(desk, {segment});
  auto bag = desk.Bag();
  PnrRecords(desk.module).Get(GetMember::ActiveAirSegments, bag);
  return bag;
}

TEST(AirSegment, OfElementNumber2YieldsAirlineNumberAndStatus) {
  const PnrDesk desk;
  const auto bag = ActiveSegment(desk, Timed(desk, u"2  AF 123 Y 15JUN 3 NCECDG HK1  0915 1050", u"2"));
  EXPECT_EQ(bag->Held(u"strKeyAirline"), Value(u"AF"));
  EXPECT_EQ(bag->Held(u"strKeyNumber"), Value(u"123"));
  EXPECT_EQ(bag->Held(u"strKeyStatus"), Value(u"HK1"));
}

TEST(AirSegment, OfElementNumber12WithItsTextShiftedByOneColumnYieldsTheSameValues) {
  const PnrDesk desk;
  const auto bag = ActiveSegment(desk, Timed(desk, u"12  AF 123 Y 15JUN 3 NCECDG HK1  0915 1050", u"12"));
  EXPECT_EQ(bag->Held(u"strKeyAirline"), Value(u"AF"));
  EXPECT_EQ(bag->Held(u"strKeyNumber"), Value(u"123"));
  EXPECT_EQ(bag->Held(u"strKeyStatus"), Value(u"HK1"));
}

TEST(AirSegment, OfStatusGk1FillsTheConfirmationNumberFromColumns53To58) {
  const PnrDesk desk;
  EXPECT_EQ(ActiveSegment(desk, Timed(desk, kPassive, u"2"))->Held(u"strKeyConfirmationNbr"), Value(u"AB12CD"));
}

TEST(AirSegment, OfStatusHk1LeavesTheConfirmationNumberEmpty) {
  const PnrDesk desk;
  EXPECT_EQ(ActiveSegment(desk, Timed(desk, kConfirmed, u"2"))->Held(u"strKeyConfirmationNbr"), Value(u""));
}

TEST(AirSegment, ThatIsOpenSetsTheOpenMarkAndLeavesAnEarlierNumberInTheBag) {
  const PnrDesk desk;
  HoldSegments(desk, {Timed(desk, kConfirmed, u"2"), Untimed(desk, kOpen, u"3")});
  PnrRecords records(desk.module);
  const auto bag = desk.Bag(std::int16_t{0});
  records.Get(GetMember::ActiveAirSegments, bag);
  EXPECT_EQ(bag->Held(u"blnKeyOpenSeg"), Value(false));
  bag->Given(u"intKeyIndex", std::int16_t{1});
  records.Get(GetMember::ActiveAirSegments, bag);
  EXPECT_EQ(bag->Held(u"blnKeyOpenSeg"), Value(true));
  EXPECT_EQ(bag->Held(u"strKeyNumber"), Value(u"123"));
  EXPECT_EQ(bag->Held(u"strKeyArrTime"), Value(u"1050"));
}

TEST(AirSegment, IndexEqualToTheCountRaisesTheMembersErrorAndMinusOneSetsNothing) {
  const PnrDesk desk;
  HoldSegments(desk, {Timed(desk, kConfirmed, u"2")});
  PnrRecords records(desk.module);
  EXPECT_TRUE(Raises(2205, kElementMessage, [&] { records.Get(GetMember::ActiveAirSegments, desk.Bag(Value(1))); }));
  EXPECT_TRUE(Raises(2207, kElementMessage, [&] { records.Get(GetMember::AirSegments, desk.Bag(Value(1))); }));
  const auto bag = desk.Bag(std::int16_t{-1});
  EXPECT_EQ(records.Get(GetMember::ActiveAirSegments, bag), bag);
  EXPECT_EQ(records.Get(GetMember::AirSegments, bag), nullptr);
  EXPECT_TRUE(bag->Settings().empty());
}

TEST(AirSegment, ReadThroughAirSegmentsReturnsNothingAndStandsInTheBagThatWasPassed) {
  const PnrDesk desk;
  HoldSegments(desk, {Timed(desk, kConfirmed, u"2")});
  const auto bag = desk.Bag();
  EXPECT_EQ(PnrRecords(desk.module).Get(GetMember::AirSegments, bag), nullptr);
  EXPECT_EQ(bag->Held(u"strKeyAirline"), Value(u"AF"));
}

TEST(ActiveAirSegments, PassesOverSegmentsOfOtherTypesWithoutCountingThem) {
  const PnrDesk desk;
  const ObjectRef other = desk.Object("segment of another type");
  HoldSegments(desk, {other, Timed(desk, kConfirmed, u"2"), other, Untimed(desk, kOpen, u"3")});
  PnrRecords records(desk.module);
  const auto first = desk.Bag(std::int16_t{0});
  const auto second = desk.Bag(std::int16_t{1});
  const auto third = desk.Bag(std::int16_t{2});
  records.Get(GetMember::ActiveAirSegments, first);
  records.Get(GetMember::ActiveAirSegments, second);
  EXPECT_EQ(first->Held(u"strKeySegmentNr"), Value(u"2"));
  EXPECT_EQ(second->Held(u"strKeySegmentNr"), Value(u"3"));
  // The count knows nothing of types: the index passes, the walk does not reach it.
  EXPECT_EQ(records.Get(GetMember::ActiveAirSegments, third), third);
  EXPECT_TRUE(third->Settings().empty());
}

TEST(AirSegments, AreWalkedInTheirOwnCollectionAndBoundByTheOthers) {
  const PnrDesk desk;
  desk.HoldNothing();
  desk.Hold(Collection::AirSegments, {Timed(desk, kConfirmed, u"2"), Timed(desk, kConfirmed, u"3")});
  desk.Hold(Collection::AllAirSegments, {Timed(desk, kConfirmed, u"2")});
  EXPECT_TRUE(Raises(2207, kElementMessage,
                     [&] { PnrRecords(desk.module).Get(GetMember::AirSegments, desk.Bag(std::int16_t{1})); }));
}

TEST(AirSegments, WithoutTimesFailWithTheToolkitsErrorAndKeepTheKeysBefore) {
  const PnrDesk desk;
  const auto segment = Untimed(desk, kConfirmed, u"2");
  segment->Lacking(u"ArrivalTime");
  HoldSegments(desk, {segment});
  const auto bag = desk.Bag();
  EXPECT_TRUE(RaisesNumber(438, [&] { PnrRecords(desk.module).Get(GetMember::AirSegments, bag); }));
  ASSERT_FALSE(bag->Settings().empty());
  EXPECT_EQ(bag->Settings().back().first, u"strKeyArrCity");
}

}  // namespace
}  // namespace wendrill::testing
