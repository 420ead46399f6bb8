#include "pnr/counts.h"

#include <gtest/gtest.h>

#include <ostream>

#include "support/pnr_desk.h"

namespace wendrill::testing {
namespace {

struct CountCase {
  const char* property;
  CountOf kind;
  std::int32_t collection;
};

std::ostream& operator<<(std::ostream& out, const CountCase& row) {
  return out << row.property;
}

constexpr CountCase kPlainCounts[] = {
    {"TicketElements", CountOf::TicketElements, 63},
    {"RemarkElements", CountOf::RemarkElements, 65},
    {"FormOfPaymentElements", CountOf::FormOfPaymentElements, 37},
    {"HotelSegments", CountOf::HotelSegments, 15},
    {"FareCommissionElements", CountOf::FareCommissionElements, 24},
    {"OpenAirSegments", CountOf::OpenAirSegments, 13},
    {"OrigianlIssueElements", CountOf::OrigianlIssueElements, 30},
    {"INSElements", CountOf::INSElements, 93},
    {"MISElements", CountOf::MISElements, 64},
    {"MailingAddressElements", CountOf::MailingAddressElements, 38},
    {"ContactElements", CountOf::ContactElements, 62},
    {"ConfidentialRemarkElements", CountOf::ConfidentialRemarkElements, 21},
    {"OptionElements", CountOf::OptionElements, 39},
    {"BillingAddressElements", CountOf::BillingAddressElements, 20},
    {"AllAirSegments", CountOf::AllAirSegments, 78},
    {"FlownAirSegments", CountOf::FlownAirSegments, 9},
    {"CarSegments", CountOf::CarSegments, 14},
    {"FEElements", CountOf::FEElements, 26},
    {"AutoTktElements", CountOf::AutoTktElements, 23},
    {"HTLElements", CountOf::HTLElements, 17},
};

class PlainCount : public ::testing::TestWithParam<CountCase> {};

TEST_P(PlainCount, IsThatOfItsCollection) {
  const PnrDesk desk;
  const auto collection = desk.Object("collection");
  desk.pnr->With(GetParam().collection, ObjectRef(collection));
  collection->With(u"Count", std::int32_t{7});
  EXPECT_EQ(Count(desk.module, GetParam().kind), 7);
  collection->With(u"Count", std::int32_t{32767});
  EXPECT_EQ(Count(desk.module, GetParam().kind), 32767);
  collection->With(u"Count", std::int32_t{32768});
  EXPECT_TRUE(RaisesNumber(6, [&] { Count(desk.module, GetParam().kind); }));
}

TEST_P(PlainCount, FailsWithObjectNotSetWithoutAPnr) {
  TestWorld desk;
  EXPECT_TRUE(RaisesNumber(91, [&] { Count(desk.module, GetParam().kind); }));
}

INSTANTIATE_TEST_SUITE_P(Counts, PlainCount, ::testing::ValuesIn(kPlainCounts),
                         [](const auto& test) { return std::string(test.param.property); });

TEST(AirSegmentCounts, OfThreeSegmentsOfWhichOneIsOpenAndOneFlown) {
  const PnrDesk desk;
  const ObjectRef segment = desk.Object("segment");
  desk.Hold(Collection::AllAirSegments, {segment, segment, segment});
  desk.Hold(Collection::OpenAirSegments, {segment});
  desk.Hold(Collection::FlownAirSegments, {segment});
  EXPECT_EQ(Count(desk.module, CountOf::AllAirSegments), 3);
  EXPECT_EQ(Count(desk.module, CountOf::ActiveAirSegments), 2);
  EXPECT_EQ(Count(desk.module, CountOf::AirSegments), 1);
  EXPECT_EQ(Count(desk.module, CountOf::OpenAirSegments), 1);
  EXPECT_EQ(Count(desk.module, CountOf::FlownAirSegments), 1);
}

TEST(AirSegmentCounts, FailWithObjectNotSetWithoutAPnr) {
  TestWorld desk;
  EXPECT_TRUE(RaisesNumber(91, [&] { Count(desk.module, CountOf::AirSegments); }));
  EXPECT_TRUE(RaisesNumber(91, [&] { Count(desk.module, CountOf::ActiveAirSegments); }));
}

TEST(AirSegmentCounts, MayFallBelowZeroWhenTheCollectionsDisagree) {
  const PnrDesk desk;
  const ObjectRef segment = desk.Object("segment");
  desk.Hold(Collection::AllAirSegments, {segment});
  desk.Hold(Collection::OpenAirSegments, {segment});
  desk.Hold(Collection::FlownAirSegments, {segment});
  EXPECT_EQ(Count(desk.module, CountOf::AirSegments), -1);
}

TEST(AirSegmentCounts, OverflowInSixteenBits) {
  const PnrDesk desk;
  const auto collection = desk.Object("collection");
  collection->With(u"Count", std::int32_t{20000});
  desk.pnr->With(78, ObjectRef(collection)).With(13, ObjectRef(collection)).With(9, ObjectRef(collection));
  EXPECT_TRUE(RaisesNumber(6, [&] { Count(desk.module, CountOf::AirSegments); }));
}

std::int16_t NamesCounted(const std::u16string& display) {
  const PnrDesk desk;
  desk.Hold(Collection::Names, {desk.Object("name"), desk.Object("name"), desk.Object("name")});
  desk.Display(display);
  return Count(desk.module, CountOf::NameElements);
}

TEST(NameElementsCount, OfADisplayWhoseGroupLineIsLineEightComesFromTheNameCollection) {
  const std::vector<std::u16string> sevenLines(7, u"LINE");
  auto lines = sevenLines;
  lines.emplace_back(u"  0. 25SKIERS NM: 2");
  EXPECT_EQ(NamesCounted(Rows(lines)), 3);
  lines = {sevenLines.begin(), sevenLines.begin() + 6};
  lines.emplace_back(u"  0.25SKIERS NM: 2");
  EXPECT_EQ(NamesCounted(Rows(lines)), 27);
}

TEST(NameElementsCount, OfADisplayWithoutAGroupLineAndWithoutNamesIsZero) {
  const PnrDesk desk;
  desk.Hold(Collection::Names, {});
  desk.Display(Rows({u"RP/PARXX0100"}));
  EXPECT_EQ(Count(desk.module, CountOf::NameElements), 0);
}

TEST(NameElementsCount, FailsWithObjectNotSetWithoutAPnr) {
  TestWorld desk;
  EXPECT_TRUE(RaisesNumber(91, [&] { Count(desk.module, CountOf::NameElements); }));
}

TEST(NameElementsCount, AddsAGroupSizeOfTwoDigitsFromColumnFiveAndOneNamedDigitAfterABlank) {
  EXPECT_EQ(NamesCounted(Rows({u"  0.25SKIERS NM: 2"})), 27);
}

TEST(NameElementsCount, ReadsANamedCountOfTwoDigitsDirectlyAfterTheColonWhole) {
  EXPECT_EQ(NamesCounted(Rows({u"  0.25SKIERS NM:12"})), 37);
}

TEST(NameElementsCount, ReadsOnlyOneDigitOfANamedCountAfterABlank) {
  EXPECT_EQ(NamesCounted(Rows({u"  0.25SKIERS NM: 12"})), 26);
}

TEST(NameElementsCount, TakesTheGroupSizeFromColumnFourFiveOrSix) {
  EXPECT_EQ(NamesCounted(Rows({u" 0.12SKIERS NM: 1"})), 13);
  EXPECT_EQ(NamesCounted(Rows({u"  0.12SKIERS NM: 1"})), 13);
  EXPECT_EQ(NamesCounted(Rows({u"  0. 12SKIERS NM: 1"})), 13);
  EXPECT_EQ(NamesCounted(Rows({u"  0. 9 SKIERS NM: 1"})), 10);
  EXPECT_EQ(NamesCounted(Rows({u"  0. X9SKIERS NM: 1"})), 1);
}

TEST(NameElementsCount, StopsAtTheFirstOfTheGroupLines) {
  EXPECT_EQ(NamesCounted(Rows({u"RP/", u"  0.10SKIERS NM: 1", u"  0.20SKIERS NM: 2"})), 11);
}

TEST(NameElementsCount, OfAGroupLineWithoutANumberOfNamesIsATypeMismatch) {
  EXPECT_TRUE(RaisesNumber(13, [] { NamesCounted(Rows({u"  0.25SKIERS NM:"})); }));
}

}  // namespace
}  // namespace wendrill::testing
