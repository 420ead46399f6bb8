#include "pnr/pnr.h"

#include <gtest/gtest.h>

#include <utility>

#include "support/pnr_desk.h"

namespace wendrill::testing {
namespace {

constexpr const char16_t* kCreationLine = u"PARXX0100/0001AA/12JUN08";

std::u16string DisplayWithCreationLine(std::u16string creationLine) {
  return Rows({u"--- TST RLR ---", u"RP/PARXX0100/PARXX0100            AA/SU  12JUN08/0915Z   ABC123",
               std::move(creationLine), u"  1.SMITH/JOHN MR(ADT)"});
}

TEST(Pnr, WithoutAConnectedSessionRecordLocatorFailsWithObjectNotSetWhileCommandRoundTrips) {
  TestWorld desk;
  CPNR pnr(desk.module);
  EXPECT_TRUE(RaisesNumber(91, [&] { pnr.RecordLocator(); }));
  EXPECT_EQ(pnr.Command(), u"");
  pnr.SetCommand(u"RT");
  EXPECT_EQ(pnr.Command(), u"RT");
}

TEST(Pnr, WithoutAConnectedSessionEveryMemberThatTouchesThePnrFailsWithObjectNotSet) {
  TestWorld desk;
  CPNR pnr(desk.module);
  TextArray texts;
  TextArray numbers;
  EXPECT_TRUE(RaisesNumber(91, [&] { pnr.Text(); }));
  EXPECT_TRUE(RaisesNumber(91, [&] { pnr.SetPNR(nullptr); }));
  EXPECT_TRUE(RaisesNumber(91, [&] { pnr.CreationOfficeID(); }));
  EXPECT_TRUE(RaisesNumber(91, [&] { pnr.CreationAgentSign(); }));
  EXPECT_TRUE(RaisesNumber(91, [&] { pnr.CreationDate(); }));
  EXPECT_TRUE(RaisesNumber(91, [&] { pnr.GetMISElement(std::make_shared<FakeBag>()); }));
  EXPECT_TRUE(RaisesNumber(91, [&] { pnr.CollectElementLines({}, texts, numbers); }));
  EXPECT_EQ(pnr.PNR(), nullptr);
}

TEST(Pnr, ReadsTextAndLocatorFromTheCurrentPnr) {
  const PnrDesk desk;
  desk.Display(u"RP/PARXX0100");
  const auto header = desk.Object("header");
  header->With(u"RecordLocator", u"ABC123");
  desk.pnr->With(76, ObjectRef(header));
  CPNR pnr(desk.module);
  EXPECT_EQ(pnr.Text(), u"RP/PARXX0100");
  EXPECT_EQ(pnr.RecordLocator(), u"ABC123");
  EXPECT_EQ(pnr.PNR(), desk.pnr);
}

TEST(Pnr, PutAssignsToTheDefaultPropertyAndKeepsTheReference) {
  const PnrDesk desk;
  desk.pnr->Taking(0);
  CPNR pnr(desk.module);
  const ObjectRef other = desk.Object("other");
  pnr.SetPNR(other);
  EXPECT_EQ(pnr.PNR(), desk.pnr);
  ASSERT_EQ(desk.pnr->Assigned().size(), 1U);
  EXPECT_EQ(desk.pnr->Assigned()[0].first, "0");
  EXPECT_EQ(desk.pnr->Assigned()[0].second, Value(other));
}

TEST(Pnr, AllObjectsSeeThePnrRetrievedLast) {
  PnrDesk desk;
  CPNR first(desk.module);
  CPNR second(desk.module);
  const auto later = desk.Object("later PNR");
  later->With(75, u"LATER");
  desk.module.gobjPNR = later;
  EXPECT_EQ(first.Text(), u"LATER");
  EXPECT_EQ(second.Text(), u"LATER");
}

TEST(CreationLine, OfThreeFieldsYieldsOfficeAgentSignAndDate) {
  const PnrDesk desk;
  desk.Display(DisplayWithCreationLine(kCreationLine));
  CPNR pnr(desk.module);
  EXPECT_EQ(pnr.CreationOfficeID(), u"PARXX0100");
  EXPECT_EQ(pnr.CreationAgentSign(), u"0001AA");
  EXPECT_EQ(pnr.CreationDate(), u"12JUN08");
}

TEST(CreationLine, MissingFromADisplayWithoutAnRpLineYieldsEmptyFieldsAndTheNextCallSearchesAgain) {
  const PnrDesk desk;
  desk.Display(Rows({u"  1.SMITH/JOHN MR(ADT)"}));
  CPNR pnr(desk.module);
  EXPECT_EQ(pnr.CreationOfficeID(), u"");
  EXPECT_EQ(pnr.CreationAgentSign(), u"");
  EXPECT_EQ(pnr.CreationDate(), u"");
  desk.Display(DisplayWithCreationLine(kCreationLine));
  EXPECT_EQ(pnr.CreationDate(), u"12JUN08");
}

TEST(CreationLine, OfTheFirstPnrStillAnswersAfterASecondRetrieval) {
  PnrDesk desk;
  desk.Display(DisplayWithCreationLine(kCreationLine));
  CPNR pnr(desk.module);
  EXPECT_EQ(pnr.CreationDate(), u"12JUN08");
  const auto second = desk.Object("second PNR");
  second->With(75, Value(DisplayWithCreationLine(u"LONXX0200/0002BB/01JAN09")));
  desk.module.gobjPNR = second;
  EXPECT_EQ(pnr.CreationDate(), u"12JUN08");
  EXPECT_EQ(pnr.CreationOfficeID(), u"PARXX0100");
  EXPECT_EQ(CPNR(desk.module).CreationDate(), u"01JAN09");
}

TEST(CreationLine, ThatDoesNotHaveTheUsualFormIsTakenAndKeptUnchanged) {
  const PnrDesk desk;
  desk.Display(DisplayWithCreationLine(u"NO CREATION/LINE"));
  CPNR pnr(desk.module);
  EXPECT_EQ(pnr.CreationOfficeID(), u"NO CREATION");
  EXPECT_EQ(pnr.CreationAgentSign(), u"LINE");
  EXPECT_EQ(pnr.CreationDate(), u"");
  desk.Display(DisplayWithCreationLine(kCreationLine));
  EXPECT_EQ(pnr.CreationOfficeID(), u"NO CREATION");
}

TEST(CreationLine, IsFoundAfterAnEmptyFirstLineButNotAfterALaterEmptyOne) {
  const PnrDesk desk;
  desk.Display(u"\r\nRP/PARXX0100\r\nPARXX0100/0001AA/12JUN08  \r\n");
  EXPECT_EQ(CPNR(desk.module).CreationDate(), u"12JUN08");
  desk.Display(u"NAMES\r\n\r\nRP/PARXX0100\r\nPARXX0100/0001AA/12JUN08\r\n");
  EXPECT_EQ(CPNR(desk.module).CreationDate(), u"");
}

TEST(CreationLine, BeyondLine32767Overflows) {
  const PnrDesk desk;
  std::u16string display;
  for (int line = 1; line <= 32766; ++line) {
    display += u"X\r";
  }
  CPNR pnr(desk.module);
  desk.Display(display);
  EXPECT_EQ(pnr.CreationDate(), u"");
  desk.Display(display + u"X\r");
  EXPECT_TRUE(RaisesNumber(6, [&] { pnr.CreationDate(); }));
}

// --- MIS elements ---

TEST(MisElement, IsStoredUnderItsKeysAndTheBagIsReturned) {
  const PnrDesk desk;
  desk.Hold(Collection::MISElements, {TextElement(desk, u"4  MIS 1A HK1 LON 15JUN-FLOWERS", Value(std::int32_t{4})),
                                      TextElement(desk, u"5  MIS 1A HK1 PAR 16JUN-TAXI", Value(u"5"))});
  CPNR pnr(desk.module);
  const auto bag = desk.Bag(std::int16_t{0});
  EXPECT_EQ(pnr.GetMISElement(bag), bag);
  EXPECT_EQ(bag->SettingsText(),
            "strKeySegment = \"4  MIS 1A HK1 LON 15JUN-FLOWERS\"\n"
            "strKeySegmentNr = int32 4\n");
  const auto second = desk.Bag(std::int16_t{1});
  pnr.GetMISElement(second);
  EXPECT_EQ(second->SettingsText(),
            "strKeySegment = \"5  MIS 1A HK1 PAR 16JUN-TAXI\"\n"
            "strKeySegmentNr = \"5\"\n");
}

TEST(MisElement, TextOf85CharactersWhoseFirst80EndInPaddingIsOneLineWithoutThePadding) {
  const PnrDesk desk;
  std::u16string text = u"4  MIS 1A HK1 LON 15JUN-FLOWERS AND";
  text.append(80 - text.size(), u' ');
  text += u"ROSES";
  ASSERT_EQ(text.size(), 85U);
  desk.Hold(Collection::MISElements, {TextElement(desk, text, Value(u"4"))});
  const auto bag = desk.Bag();
  CPNR(desk.module).GetMISElement(bag);
  EXPECT_EQ(bag->Held(u"strKeySegment"), Value(u"4  MIS 1A HK1 LON 15JUN-FLOWERS ANDROSES"));
}

TEST(MisElement, TextOf80CharactersKeepsItsBlanks) {
  const PnrDesk desk;
  std::u16string text = u" 4  MIS";
  text.append(80 - text.size(), u' ');
  desk.Hold(Collection::MISElements, {TextElement(desk, text, Value(u"4"))});
  const auto bag = desk.Bag();
  CPNR(desk.module).GetMISElement(bag);
  EXPECT_EQ(bag->Held(u"strKeySegment"), Value(text));
}

TEST(MisElement, IndexEqualToTheCountRaises2206AndMinusOneReturnsTheBagUnchanged) {
  const PnrDesk desk;
  desk.Hold(Collection::MISElements, {TextElement(desk, u"4  MIS")});
  CPNR pnr(desk.module);
  const auto bag = desk.Bag(std::int16_t{1});
  EXPECT_TRUE(Raises(2206, kElementMessage, [&] { pnr.GetMISElement(bag); }));
  bag->Given(u"intKeyIndex", std::int16_t{-1});
  EXPECT_EQ(pnr.GetMISElement(bag), bag);
  EXPECT_TRUE(bag->Settings().empty());
}

}  // namespace
}  // namespace wendrill::testing
