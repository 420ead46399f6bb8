// What a CPNR says about the PNR retrieved last.
#include "pnr/pnr.h"

#include <gtest/gtest.h>

#include "pnr/counts.h"
#include "simulated_desktop.h"

namespace wendrill::flow {
namespace {

class Pnr : public SimulatedDesktop {
 protected:
  // A desktop whose one PNR is made of the keys given here, and retrieved.
  void Retrieve(std::u16string_view keys) {
    LoadText(u"session = [{ name = 'A' }]\n[[pnr]]\nRecordLocator = 'ABC123'\n" + std::u16string(keys));
    if (!quillet) {
      quillet.emplace(module);
    }
    quillet->ConnectSession(u"A");
    ASSERT_TRUE(quillet->RetrieveRecLoc(u"ABC123"));
  }

  std::int16_t CountOfKind(CountOf kind) { return Count(module, kind); }

  std::optional<CQuillet> quillet;
  CPNR pnr{module};
};

TEST_F(Pnr, WithoutAConnectedSessionRecordLocatorFailsWhileCommandRoundTrips) {
  EXPECT_TRUE(RaisesNumber(91, [&] { pnr.RecordLocator(); }));
  pnr.SetCommand(u"RTABC123");
  EXPECT_EQ(pnr.Command(), u"RTABC123");
  EXPECT_EQ(pnr.PNR(), nullptr);
}

TEST_F(Pnr, ADisplayWithoutAnRpLineHasNoCreationLineAndIsSearchedAgain) {
  Retrieve(u"display = '''\n--- RLR ---\n  1.SMITH\n'''\n");
  EXPECT_EQ(pnr.CreationOfficeID(), u"");
  EXPECT_EQ(pnr.CreationAgentSign(), u"");
  EXPECT_EQ(pnr.CreationDate(), u"");
  Retrieve(u"display = '''\nRP/PARXX0100\nPARXX0100/0001AA/12JUN08\n'''\n");
  EXPECT_EQ(pnr.CreationOfficeID(), u"PARXX0100");
}

TEST_F(Pnr, ACreationLineIsCutIntoOfficeAgentAndDate) {
  Retrieve(u"display = '''\nRP/PARXX0100\nPARXX0100/0001AA/12JUN08\n'''\n");
  EXPECT_EQ(pnr.CreationOfficeID(), u"PARXX0100");
  EXPECT_EQ(pnr.CreationAgentSign(), u"0001AA");
  EXPECT_EQ(pnr.CreationDate(), u"12JUN08");
}

TEST_F(Pnr, AfterASecondRetrievalTheCreationDateIsStillTheFirstPnrs) {
  Retrieve(u"display = '''\nRP/PARXX0100\nPARXX0100/0001AA/12JUN08\n'''\n");
  EXPECT_EQ(pnr.CreationDate(), u"12JUN08");
  Retrieve(u"display = '''\nRP/LONXX0200\nLONXX0200/0007BB/30JUN08\n'''\n");
  EXPECT_EQ(pnr.CreationDate(), u"12JUN08");
  EXPECT_EQ(pnr.CreationOfficeID(), u"PARXX0100");
  EXPECT_EQ(CPNR(module).CreationDate(), u"30JUN08");
}

TEST_F(Pnr, ACreationLineIsFoundInADisplayWithLineBreaksToo) {
  Retrieve(u"breaks = true\ndisplay = '''\n--- RLR ---\nRP/PARXX0100\nPARXX0100/0001AA/12JUN08\n'''\n");
  EXPECT_EQ(pnr.CreationDate(), u"12JUN08");
}

TEST_F(Pnr, AnMisElementThatTheHostWrappedComesBackAsOneLine) {
  // 70 characters, the rest of the row blank, and the text that the host wrapped: 85 in all.
  const std::u16string text =
      u"16 MIS QT HK1 PAR 20JUN-" + std::u16string(46, u'X') + std::u16string(10, u' ') + u"TRAIN";
  Retrieve(u"display = 'RP/'\n[[pnr.MISElements]]\nText = '" + text + u"'\nElementNo = '16'\n");
  const ParamBagRef bag = world.MakeParamBag();
  bag->Set(u"intKeyIndex", std::int16_t{0});
  EXPECT_EQ(pnr.GetMISElement(bag), bag);
  EXPECT_EQ(bag->Get(u"strKeySegment"), Value(u"16 MIS QT HK1 PAR 20JUN-" + std::u16string(46, u'X') + u"TRAIN"));
  EXPECT_EQ(bag->Get(u"strKeySegmentNr"), Value(u"16"));
}

TEST_F(Pnr, AnMisIndexEqualToTheCountRaises2206AndMinus1LeavesTheBag) {
  Retrieve(u"display = 'RP/'\n[[pnr.MISElements]]\nText = '16 MIS'\nElementNo = '16'\n");
  const auto bag = world.MakeParamBag();
  bag->Set(u"intKeyIndex", std::int16_t{1});
  EXPECT_TRUE(RaisesNumber(2206, [&] { pnr.GetMISElement(bag); }));
  bag->Set(u"intKeyIndex", std::int16_t{-1});
  EXPECT_EQ(pnr.GetMISElement(bag), bag);
  EXPECT_EQ(bag->Keys(), (TextArray{0, {u"intKeyIndex"}}));
}

TEST_F(Pnr, PrefixesFromA0BasedArrayFindOnlyTheSecondKeyword) {
  Retrieve(u"display = '''\nRP/PARXX0100\n  2 SSR VGML AF HK1\n  3 OSI AF VIP\n'''\n");
  TextArray texts;
  TextArray numbers;
  pnr.CollectElementLines(TextArray{0, {u"SSR", u"OSI"}}, texts, numbers);
  EXPECT_EQ(texts, (TextArray{1, {u"OSI AF VIP"}}));
  EXPECT_EQ(numbers, (TextArray{1, {u"3"}}));
}

TEST_F(Pnr, SettingThePnrAssignsToTheDefaultPropertyOfTheCurrentOne) {
  Retrieve(u"display = 'RP/'\n");
  const ObjectRef current = pnr.PNR();
  const ObjectRef other = world.MakePnr();
  pnr.SetPNR(other);
  EXPECT_EQ(pnr.PNR(), current);
  EXPECT_EQ(current->Get(Member::Id(0)), Value(other));
}

// --- Counts ------------------------------------------------------------------------------------------------------

TEST_F(Pnr, ThreeAirSegmentsOfWhichOneIsOpenAndOneFlownAreCounted) {
  Retrieve(
      uR"(
    display = "RP/"
    [[pnr.AirSegments]]
    kind = "timed"
    [[pnr.AirSegments]]
    kind = "open"
    [[pnr.AirSegments]]
    kind = "flown"
  )");
  EXPECT_EQ(CountOfKind(CountOf::AllAirSegments), 3);
  EXPECT_EQ(CountOfKind(CountOf::ActiveAirSegments), 2);
  EXPECT_EQ(CountOfKind(CountOf::AirSegments), 1);
  EXPECT_EQ(CountOfKind(CountOf::OpenAirSegments), 1);
  EXPECT_EQ(CountOfKind(CountOf::FlownAirSegments), 1);
}

TEST_F(Pnr, AnNmLineThatIsLine8IsNotSeen) {
  Retrieve(u"display = '''\nA\nB\nC\nD\nE\nF\nG\n  0.25GROUP NM: 2\n'''\n[[pnr.Names]]\nText = '1.SMITH'\n");
  EXPECT_EQ(CountOfKind(CountOf::NameElements), 1);
}

TEST_F(Pnr, AnNmLineThatIsLine7IsSeen) {
  Retrieve(u"display = '''\nA\nB\nC\nD\nE\nF\n  0.25GROUP NM: 2\n'''\n[[pnr.Names]]\nText = '1.SMITH'\n");
  EXPECT_EQ(CountOfKind(CountOf::NameElements), 27);
}

TEST_F(Pnr, ADisplayWithoutNmAndWithoutNamesYields0) {
  Retrieve(u"display = 'RP/PARXX0100'\n");
  EXPECT_EQ(CountOfKind(CountOf::NameElements), 0);
}

TEST_F(Pnr, AGroupCountsItsSizeAndItsNamedPassengers) {
  LoadFile("group_pnr");
  CQuillet group(module);
  EXPECT_TRUE(group.RetrieveRecLoc(u"GRP025"));
  EXPECT_EQ(CountOfKind(CountOf::NameElements), 27);
}

TEST_F(Pnr, WithoutAPnrEveryCountFailsWithObjectNotSet) {
  EXPECT_TRUE(RaisesNumber(91, [&] { CountOfKind(CountOf::NameElements); }));
  EXPECT_TRUE(RaisesNumber(91, [&] { CountOfKind(CountOf::HTLElements); }));
}

}  // namespace
}  // namespace wendrill::flow
