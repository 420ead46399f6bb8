#include "scan/elements_by_kind.h"

#include <gtest/gtest.h>

#include <new>
#include <ostream>

#include "pnr/pnr.h"
#include "support/describe.h"
#include "unit/scan/scan_desk.h"

namespace wendrill::testing {
namespace {

class ElementsTest : public ::testing::Test {
 protected:
  ElementsTest() { desk.HoldNothing(); }

  FakeBagRef Ask(std::u16string_view kind, Value index = std::int16_t{0}) {
    auto bag = desk.Bag(std::move(index));
    bag->Given(u"strKeyPNRElement", kind);
    return bag;
  }

  ParamBagRef Elements(const FakeBagRef& bag) { return elements.Elements(bag); }

  // What a getter writes into the caller's bag, a line a key.
  std::string Written(std::u16string_view kind, Value index = std::int16_t{0}) {
    const auto bag = Ask(kind, std::move(index));
    EXPECT_EQ(Elements(bag), nullptr) << "the caller reads its own bag";
    return bag->SettingsText();
  }

  void HoldElements(std::vector<ObjectRef> items) {
    desk.pnr->With(3, ObjectRef(FakeCollection(desk.calls, "elements", std::move(items))));
  }

  PnrDesk desk;
  CPNR pnr{desk.module};
  DisplayScans scans{desk.module};
  PnrElements elements{desk.module, pnr, scans};
};

TEST_F(ElementsTest, SsrIndexZeroReturnsTheOneRequestsKeysAndIndexOneRaises2247) {
  desk.Display(Lines({u"HEADER", u"12 *SSR VGML SK HK1/S3/P1"}));
  EXPECT_EQ(Written(u"SSR"),
            "strKeyElement = \"12 *SSR VGML SK HK1/S3/P1\"\n"
            "strKeyElementNr = \"12\"\n"
            "strKeyStatus = \"HK1\"\n"
            "strKeyPasAsso = \"1\"\n"
            "strKeySegAsso = \"3\"\n"
            "strKeyCode = \"VGML\"\n"
            "strKeyAirline = \"SK\"\n"
            "strKeyFFNnumber = \"\"\n"
            "strKeyFreeText = \"/S3/P1\"\n"
            "strKeySeatNbr = \"\"\n"
            "blnKeySeat = \"False\"\n"
            "blnKeyAsterix = True\n");
  EXPECT_TRUE(Raises(2247, kElementMessage, [&] { Elements(Ask(u"SSR", std::int16_t{1})); }));
}

TEST_F(ElementsTest, SsrOnADisplayThatThePromptEndsIsOutOfRange) {
  desk.Display(Lines({u"HEADER", u"12 *SSR VGML SK HK1/S3/P1", u"> "}));
  EXPECT_TRUE(Raises(2247, kElementMessage, [&] { Elements(Ask(u"SSR")); }));
}

TEST_F(ElementsTest, SurIndexZeroWritesEmptyValuesAndIndexEqualToTheCountRaises2258) {
  HoldElements({TextElement(desk, u"SUR/1030/A/PARIS/RUE DE RIVOLI/P2", u"4")});
  EXPECT_EQ(Written(u"SUR"),
            "strKeyElement = \"\"\n"
            "strKeyElementNr = \"\"\n"
            "strKeyAddress = \"\"\n"
            "strKeyPUTime = \"\"\n"
            "blnKeyArrival = False\n"
            "blnKeyDeparture = False\n"
            "strKeyPasAsso = \"\"\n");
  EXPECT_TRUE(Raises(2258, kElementMessage, [&] { Elements(Ask(u"SUR", std::int16_t{1})); }));
}

TEST_F(ElementsTest, SurReachesAllElementsButTheLast) {
  HoldElements({TextElement(desk, u"SUR/1030/A/PARIS/RUE DE RIVOLI/P2", u"4"),
                TextElement(desk, u"SUR/1100/D/NICE/PROMENADE", u"5")});
  EXPECT_EQ(Written(u"SUR", std::int16_t{1}),
            "strKeyElement = \"SUR/1030/A/PARIS/RUE DE RIVOLI/P2\"\n"
            "strKeyElementNr = \"4\"\n"
            "strKeyAddress = \"RUE DE RIVOLI\"\n"
            "strKeyPUTime = \"1030\"\n"
            "blnKeyArrival = True\n"
            "blnKeyDeparture = False\n"
            "strKeyPasAsso = \"2\"\n");
  EXPECT_TRUE(Raises(2258, kElementMessage, [&] { Elements(Ask(u"SUR", std::int16_t{2})); }));
}

TEST_F(ElementsTest, FsReachesTheMiscellaneousTicketingGetterButFsWithItsBlanksDoesNot) {
  desk.Display(Lines({u"HEADER", u"7 FS PAX N-100.00,S-120.50,T-TOUR1/S3/P1"}));
  EXPECT_EQ(Written(u"FS"),
            "strKeyElement = \"7 FS PAX N-100.00,S-120.50,T-TOUR1/S3/P1\"\n"
            "strKeyElementNr = \"7\"\n"
            "strKeyText = \"N-100.00,S-120.50,T-TOUR1\"\n"
            "strKeyPasAsso = \"1\"\n"
            "strKeySegAsso = \"3\"\n"
            "strKeyTourCode = \"TOUR1\"\n"
            "strKeyNetFare = \"100.00\"\n"
            "strKeySellFare = \"120.50\"\n");
  EXPECT_EQ(Written(u" FS "), "");
}

TEST_F(ElementsTest, AllWithRmReturnsEveryRmLineWithElementNumbers) {
  desk.Display(Lines({u"HDR", u"  5 RM FIRST", u"  6 RMX OTHER", u"  7 RC RM", u" 12 RM SECOND"}));
  const auto bag = Ask(u"ALL");
  bag->Given(u"strKeyFind()", TextArray{.lowerBound = 0, .items = {u"ignored", u"rm"}});
  const auto found = Elements(bag);
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found, desk.desk.lastBag) << "a new bag";
  EXPECT_EQ(desk.desk.lastBag->SettingsText(),
            "strKeyResult() = from 1 [ \"RM FIRST\", \"RM SECOND\" ]\n"
            "strKeyElementNbrs() = from 1 [ \"5\", \"12\" ]\n");
  EXPECT_TRUE(bag->Settings().empty());
}

TEST_F(ElementsTest, AllWithAThreeCharacterPrefixMatchesThatKeywordOnly) {
  desk.Display(Lines({u"HDR", u"  5 RM FIRST", u"  6 RMX OTHER", u"  7 RMXY MORE"}));
  const auto bag = Ask(u"ALL");
  bag->Given(u"strKeyFind()", TextArray{.lowerBound = 1, .items = {u"RMX"}});
  Elements(bag);
  EXPECT_EQ(Describe(desk.desk.lastBag->Held(u"strKeyResult()")), "from 1 [ \"RMX OTHER\" ]");
}

TEST_F(ElementsTest, AllOnAnElementContinuedOnFiveIndentedLinesReturnsTheFirstFourOnly) {
  desk.Display(Lines({u"HDR", u"  5 RM A", u"       B", u"       C", u"       D", u"       E", u"       F"}));
  const auto bag = Ask(u"ALL");
  bag->Given(u"strKeyFind()", TextArray{.lowerBound = 1, .items = {u"RM"}});
  Elements(bag);
  EXPECT_EQ(Describe(desk.desk.lastBag->Held(u"strKeyResult()")), "from 1 [ \"RM A B C D E\" ]");
}

TEST_F(ElementsTest, AllTakesAnArrayOfValuesToo) {
  desk.Display(Lines({u"HDR", u"  5 RM FIRST", u"  6 OS YY"}));
  const auto bag = Ask(u"ALL");
  bag->Given(u"strKeyFind()", ValueArray{.lowerBound = 0, .items = {Value(ObjectRef()), Value(u"os"), Value(u"RM")}});
  Elements(bag);
  EXPECT_EQ(Describe(desk.desk.lastBag->Held(u"strKeyElementNbrs()")), "from 1 [ \"5\", \"6\" ]");
}

TEST_F(ElementsTest, AllThatFindsNothingGivesTwoArraysWithoutEntries) {
  desk.Display(Lines({u"HDR"}));
  const auto bag = Ask(u"ALL");
  bag->Given(u"strKeyFind()", TextArray{.lowerBound = 0, .items = {u"RM"}});
  Elements(bag);
  EXPECT_EQ(desk.desk.lastBag->SettingsText(), "strKeyResult() = from 1 [ ]\nstrKeyElementNbrs() = from 1 [ ]\n");
}

TEST_F(ElementsTest, AllFailuresRaise2252) {
  EXPECT_TRUE(Raises(2252, kElementMessage, [&] { Elements(Ask(u"ALL")); })) << "no prefixes";
  const auto bag = Ask(u"ALL");
  bag->Given(u"strKeyFind()", u"RM");
  EXPECT_TRUE(Raises(2252, kElementMessage, [&] { Elements(bag); })) << "a text alone";
  bag->Given(u"strKeyFind()", TextArray{.lowerBound = 2, .items = {u"RM"}});
  EXPECT_TRUE(Raises(2252, kElementMessage, [&] { Elements(bag); })) << "an array without an entry 1";
  bag->Given(u"strKeyFind()", TextArray{.lowerBound = 1, .items = {u"RM"}});
  desk.module.gobjPNR = nullptr;
  EXPECT_TRUE(Raises(2252, kElementMessage, [&] { Elements(bag); })) << "no PNR";
}

TEST_F(ElementsTest, EveryCallOfAllThatFailsRaises2252) {
  desk.Display(Lines({u"HDR", u"  5 RM FIRST"}));
  const auto bag = Ask(u"ALL");
  bag->Given(u"strKeyFind()", TextArray{.lowerBound = 1, .items = {u"RM"}});
  const std::size_t before = desk.calls->Count();
  Elements(bag);
  const std::size_t calls = desk.calls->Count() - before;
  ASSERT_GE(calls, 5u);
  for (std::size_t nth = 1; nth <= calls; ++nth) {
    desk.calls->FailNth(nth);
    EXPECT_TRUE(Raises(2252, kElementMessage, [&] { Elements(bag); })) << nth;
  }
}

TEST_F(ElementsTest, LackOfMemoryInAnyCallOfAllPropagates) {
  desk.Display(Lines({u"HDR", u"  5 RM FIRST"}));
  const auto bag = Ask(u"ALL");
  bag->Given(u"strKeyFind()", TextArray{.lowerBound = 1, .items = {u"RM"}});
  const std::size_t before = desk.calls->Count();
  Elements(bag);
  const std::size_t calls = desk.calls->Count() - before;
  ASSERT_GE(calls, 5u);
  for (std::size_t nth = 1; nth <= calls; ++nth) {
    desk.calls->RunOutOfMemoryAtNth(nth);
    EXPECT_THROW(Elements(bag), std::bad_alloc) << nth;
  }
}

TEST_F(ElementsTest, EmptyOrUnknownKindWritesNothingAndReturnsNothing) {
  for (const char16_t* kind : {u"", u"ssr", u"XX", u"SSR ", u"*SP", u"all"}) {
    EXPECT_EQ(Written(kind), "") << ToUtf8(kind);
  }
  EXPECT_EQ(Elements(desk.Bag()), nullptr) << "a missing kind";
}

TEST_F(ElementsTest, FailureInReadingTheKindRaises2252) {
  EXPECT_TRUE(Raises(2252, kElementMessage, [&] { elements.Elements(nullptr); }));
  const auto bag = Ask(u"SSR");
  desk.calls->FailNth(1);
  EXPECT_TRUE(Raises(2252, kElementMessage, [&] { Elements(bag); }));
  desk.calls->FailNone();
  bag->Given(u"strKeyPNRElement", TextArray{});
  EXPECT_TRUE(Raises(2252, kElementMessage, [&] { Elements(bag); }));
}

TEST_F(ElementsTest, AtxOutOfRangeWritesNothingAndRaisesNothing) {
  desk.Display(Lines({u"12  ATX YY HK1 PARLON 12JUN-A", u"13  ATX YY HK1 LONPAR 13JUN-B"}));
  EXPECT_EQ(Written(u"ATX", std::int16_t{2}), "");
  EXPECT_EQ(Written(u"ATX", std::int16_t{-1}), "");
  EXPECT_EQ(Written(u"ATX", std::int16_t{1}),
            "strKeySegment = \"12  ATX YY HK1 PARLON 12JUN-A\"\n"
            "strKeySegmentNr = \"12\"\n"
            "strKeyDepCity = \"PAR\"\n"
            "strKeyArrCity = \"LON\"\n"
            "strKeyProvider = \"YY\"\n"
            "strKeyDepDate = \"12JUN\"\n"
            "strKeyFreeText = \"A\"\n"
            "strKeyStatus = \"HK1\"\n");
}

TEST_F(ElementsTest, AtxFailuresPropagateUnchanged) {
  desk.pnr->Failing(75);
  EXPECT_TRUE(RaisesNumber(ForeignError().Number(), [&] { Elements(Ask(u"ATX")); }));
  desk.Display(Lines({u"12  ATX YY HK1 PARLON 12JUN-A"}));
  EXPECT_TRUE(RaisesNumber(13, [&] { Elements(Ask(u"ATX", u"NO NUMBER")); }));
}

TEST_F(ElementsTest, SplitPartyAndMcoStandAtIndexOne) {
  desk.Display(Lines({u"* SP-ABC123", u"* SP-DEF456", u"5 MCO SK PAR 12JUN/USD9/*BAG/P2", u"   FA PAX 117-1/P2",
                      u"   FP CASH", u"   FM 5", u"6 MCO LH"}));
  EXPECT_EQ(Written(u"* SP", std::int16_t{1}), "strKeyElement = \"* SP-ABC123\"\nstrKeyRecLoc = \"ABC123\"\n");
  EXPECT_EQ(Written(u"* SP"), "strKeyElement = \"\"\nstrKeyRecLoc = \"\"\n");
  EXPECT_EQ(Written(u"MCO", std::int16_t{1}),
            "strKeyElement = \"MCO SK PAR 12JUN/USD9/*BAG/P2\"\n"
            "strKeyElementNr = \"5\"\n"
            "strKeyAirline = \"SK\"\n"
            "strKeyOrigin = \"PAR\"\n"
            "strKeyDepDate = \"12JUN\"\n"
            "strKeyPasAsso = \"2\"\n"
            "strKeyFare = \"USD9\"\n"
            "strKeyServiceType = \"BAG\"\n"
            "strKeyMCOFAElement = \"FA PAX 117-1/P2\"\n"
            "strKeyMCOFATicketNbr = \"117-1\"\n"
            "strKeyMCOFPElement = \"FP CASH\"\n"
            "strKeyMCOFMElement = \"FM 5\"\n");
}

TEST_F(ElementsTest, ManualTicketsOtherServiceAndSecurityStandAtIndexZero) {
  desk.Display(Rows({u"HEADER", u"5 FHM PAX 117-1/S2/P1", u"  6 OSI SK VIP/P1", u"  * ES/B PARXX0 100A/R LONXX0 ALL"}));
  EXPECT_EQ(Written(u"FH"),
            "strKeyElement = \"5 FHM PAX 117-1/S2/P1\"\n"
            "strKeyElementNr = \"5\"\n"
            "strKeyTktNbr = \"117-1\"\n"
            "strKeyPasAsso = \"1\"\n"
            "strKeySegAsso = \"2\"\n"
            "strKeyAirline = \"117\"\n"
            "blnKeyManual = True\n"
            "blnKeyAutomated = False\n"
            "blnKeyElectronic = False\n");
  EXPECT_EQ(Written(u"OSI"),
            "strKeyElement = \"6 OSI SK VIP/P1\"\n"
            "strKeyElementNr = \"6\"\n"
            "strKeyText = \"VIP/P1\"\n"
            "strKeyPasAsso = \"1\"\n"
            "strKeyAirline = \"SK\"\n");
  EXPECT_EQ(Written(u"ES", std::int16_t{1}),
            "strKeyItem = \"ALL\"\n"
            "strKeyOfficeID = \"LONXX0 ALL\"\n"
            "strKeyAccessMode = \"R\"\n");
}

// The kinds with a number of their own, each on a PNR that holds two elements of it.
struct NumberedKind {
  const char16_t* kind;
  std::int32_t number;
};

constexpr NumberedKind kNumberedKinds[] = {
    {u"* SP", 2259}, {u"SUR", 2258}, {u"FH", 2245}, {u"FA", 2255},  {u"FE", 2256},  {u"FS", 2251},
    {u"OSI", 2249},  {u"SSR", 2247}, {u"ES", 2253}, {u"MCO", 2260}, {u"INS", 2261}, {u"HTL", 2261},
};

class NumberedKindTest : public ElementsTest, public ::testing::WithParamInterface<NumberedKind> {
 protected:
  NumberedKindTest() {
    desk.Display(Rows({u"HEADER", u"5 SSR VGML SK HK1", u"6 SSR KSML SK HK1", u"  7 OSI SK VIP", u"  8 OSI SK CHD",
                       u"  * ES/B 1/B 2", u"9 FHM PAX 117-1", u"10 FHE PAX 117-2", u"11 FS N-1", u"12 FS N-2",
                       u"* SP-ABC123", u"* SP-DEF456", u"13 MCO SK", u"14 MCO LH"}));
    const std::vector<ObjectRef> two = {TextElement(desk, u"SUR FA FE INS HTL", u"1"),
                                        TextElement(desk, u"SUR FA FE INS HTL", u"2")};
    HoldElements(two);
    for (const auto collection :
         {Collection::AutoTickets, Collection::FEElements, Collection::INSElements, Collection::HTLElements}) {
      desk.Hold(collection, two);
    }
  }

  FakeBagRef Ask(Value index) { return ElementsTest::Ask(GetParam().kind, std::move(index)); }
  ::testing::AssertionResult RaisesItsNumber(const FakeBagRef& bag) {
    return Raises(GetParam().number, kElementMessage, [&] { Elements(bag); });
  }
};

TEST_P(NumberedKindTest, IndexBelowTheCountIsRead) {
  const auto bag = Ask(std::int16_t{1});
  Elements(bag);
  EXPECT_FALSE(bag->Settings().empty());
}

TEST_P(NumberedKindTest, IndexAtOrBeyondTheCountRaisesItsNumberAndWritesNothing) {
  for (const Value& index : {Value(std::int16_t{2}), Value(std::int32_t{70000}), Value(2.0), Value(u"2")}) {
    const auto bag = Ask(index);
    EXPECT_TRUE(RaisesItsNumber(bag)) << Describe(index);
    EXPECT_TRUE(bag->Settings().empty());
  }
}

TEST_P(NumberedKindTest, IndexThatIsMissingOrNoNumberRaisesItsNumber) {
  for (const Value& index : {Value(), Value(Null()), Value(u"ONE"), Value(u""), Value(TextArray{})}) {
    const auto bag = Ask(index);
    EXPECT_TRUE(RaisesItsNumber(bag)) << Describe(index);
    EXPECT_TRUE(bag->Settings().empty());
  }
}

TEST_P(NumberedKindTest, IndexConvertsToTheNearestWholeNumber) {
  for (const Value& index : {Value(0.6), Value(u"0.6"), Value(u" 1 "), Value(1.0)}) {
    const auto bag = Ask(index);
    Elements(bag);
    const auto expected = Ask(std::int16_t{1});
    Elements(expected);
    EXPECT_EQ(bag->SettingsText(), expected->SettingsText()) << Describe(index);
  }
}

// The index is converted via its string form, and that of a Boolean is no number.
TEST_P(NumberedKindTest, IndexThatIsABooleanRaisesItsNumber) {
  const auto bag = Ask(true);
  EXPECT_TRUE(RaisesItsNumber(bag));
  EXPECT_TRUE(bag->Settings().empty());
}

TEST_P(NumberedKindTest, MissingPnrRaisesItsNumber) {
  desk.module.gobjPNR = nullptr;
  EXPECT_TRUE(RaisesItsNumber(Ask(std::int16_t{0})));
}

TEST_P(NumberedKindTest, AnyFailingCallOfTheGetterRaisesItsNumberAndKeysAlreadyWrittenStay) {
  const auto probe = Ask(std::int16_t{1});
  const std::size_t before = desk.calls->Count();
  Elements(probe);
  const std::size_t calls = desk.calls->Count() - before;
  for (std::size_t nth = 2; nth <= calls; ++nth) {  // the first reads the kind
    const auto bag = Ask(std::int16_t{1});
    const std::size_t objects = desk.calls->liveObjects;
    desk.calls->FailNth(nth);
    EXPECT_TRUE(RaisesItsNumber(bag)) << nth;
    EXPECT_EQ(desk.calls->liveObjects, objects) << nth;
    EXPECT_TRUE(probe->SettingsText().starts_with(bag->SettingsText())) << nth;
  }
}

TEST_P(NumberedKindTest, OverflowOfAScanRaisesItsNumberToo) {
  desk.pnr->Failing(75, Error(6, u"szuPNR", u"Overflow"));
  desk.pnr->Failing(3, Error(6, u"szuPNR", u"Overflow"));
  for (const std::int32_t id : {17, 23, 26, 93}) {
    desk.pnr->Failing(id, Error(6, u"szuPNR", u"Overflow"));
  }
  EXPECT_TRUE(RaisesItsNumber(Ask(std::int16_t{0})));
}

INSTANTIATE_TEST_SUITE_P(Kinds, NumberedKindTest, ::testing::ValuesIn(kNumberedKinds), [](const auto& row) {
  const std::string name = ToUtf8(row.param.kind);
  return name == "* SP" ? std::string("SP") : name;
});

TEST_F(ElementsTest, IndexThatRoundsUpToTheCountFindsNoPlaceInArraysFromZero) {
  desk.Display(Lines({u"HEADER", u"5 SSR VGML SK HK1", u"6 SSR KSML SK HK1"}));
  EXPECT_TRUE(Raises(2247, kElementMessage, [&] { Elements(Ask(u"SSR", 1.9)); }));
}

TEST_F(ElementsTest, IndexThatRoundsUpToTheCountReachesTheLastElementOfArraysFromOne) {
  desk.Display(Lines({u"* SP-ABC123", u"* SP-DEF456"}));
  EXPECT_EQ(Written(u"* SP", 1.9), "strKeyElement = \"* SP-DEF456\"\nstrKeyRecLoc = \"DEF456\"\n");
}

TEST_F(ElementsTest, NegativeIndexFindsNoPlaceInTheArrays) {
  desk.Display(Lines({u"HEADER", u"5 SSR VGML SK HK1"}));
  EXPECT_TRUE(Raises(2247, kElementMessage, [&] { Elements(Ask(u"SSR", std::int16_t{-1})); }));
}

TEST_F(ElementsTest, NegativeIndexMatchesNothingInACollection) {
  desk.Hold(Collection::HTLElements, {TextElement(desk, u"HTL", u"1")});
  EXPECT_EQ(Written(u"HTL", std::int16_t{-1}), "");
}

TEST_F(ElementsTest, MisIsReadByTheReaderOfItsOwn) {
  desk.Hold(Collection::MISElements, {TextElement(desk, u"MIS 1A HK1 NCE 12JUN", u"4")});
  EXPECT_EQ(Written(u"MIS"), "strKeySegment = \"MIS 1A HK1 NCE 12JUN\"\nstrKeySegmentNr = \"4\"\n");
  EXPECT_EQ(Written(u"MIS", Value()), Written(u"MIS")) << "a missing index is 0";
  EXPECT_TRUE(Raises(2206, kElementMessage, [&] { Elements(Ask(u"MIS", std::int16_t{1})); }));
}

TEST_F(ElementsTest, MisFailuresPropagateUnchanged) {
  desk.pnr->Failing(64);
  EXPECT_TRUE(RaisesNumber(ForeignError().Number(), [&] { Elements(Ask(u"MIS")); }));
}

}  // namespace
}  // namespace wendrill::testing
