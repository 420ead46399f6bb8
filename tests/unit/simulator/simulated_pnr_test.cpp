#include "core/simulated_pnr.h"

#include <gtest/gtest.h>

#include "common/error.h"
#include "simulated_world.h"
#include "support/us_text.h"

namespace wendrill::simulator {
namespace {

constexpr std::u16string_view kScenario =
    uR"toml(
session = [{ name = "A" }]

[[pnr]]
RecordLocator = "ABC123"
entries = ["SP2"]
on_display = true
status = 3
display = "THE DISPLAY"

[[pnr.Names]]
Text = "1.SMITH/JOHN MR(ADT)"
ElementNo = "1"
LastName = "SMITH"
[[pnr.Names]]
Text = "2.MILLER/ANN MRS"
ElementNo = "2"

[[pnr.AirSegments]]
Text = "3  AF 123"
DepartureTime = "0900"
[[pnr.AirSegments]]
kind = "open"
Text = "4  AF OPEN"
[[pnr.AirSegments]]
kind = "flown"
Text = "5  AF 7"
[[pnr.AirSegments]]
kind = "other"
Text = "6  AF ARNK"

[[pnr.Cars]]
Text = "7  CCR ZE"
PickUpDate = 2008-06-12
Passengers = [1, "2"]
[[pnr.Cars]]
Text = "8  CCR ZI"

[[pnr]]
RecordLocator = "NOHEAD"
display = "X"
[pnr.Header]
absent = true

[[pnr]]
RecordLocator = "BROKEN"
error = 0x80004005
)toml";

class PnrObjects : public SimulatedWorld {
 protected:
  void SetUp() override {
    Load(kScenario);
    session = world.MakeSession();
    pnr = world.MakePnr();
  }

  void Retrieve(std::u16string_view entry) {
    const std::vector<Value> arguments = {session->HostConnection(), entry};
    pnr->Call(Member::Id(81), arguments);
  }

  Value RetrieveCurrent() {
    const std::vector<Value> arguments = {session->HostConnection()};
    return pnr->Call(Member::Id(80), arguments);
  }

  ObjectRef CollectionOf(std::int32_t id) { return ToObject(pnr->Get(Member::Id(id))); }
  std::int32_t CountOf(std::int32_t id) { return ToInt32(CollectionOf(id)->Get(Member::Name(u"Count"))); }

  // An element by its position counted from 1.
  ObjectRef ElementOf(std::int32_t id, std::int32_t position) {
    const std::vector<Value> arguments = {position};
    return ToObject(CollectionOf(id)->Call(Member::Name(u"Item"), arguments));
  }

  std::shared_ptr<SimulatedSession> session;
  std::shared_ptr<SimulatedPnr> pnr;
};

// --- Retrieval ---------------------------------------------------------------------------------------------------

TEST_F(PnrObjects, ANewPnrIsEmptyButWhole) {
  EXPECT_EQ(pnr->Get(Member::Id(75)), Value(u""));
  const ObjectRef header = ToObject(pnr->Get(Member::Id(76)));
  EXPECT_EQ(testing::ToUsText(header->Get(Member::Name(u"Text"))), u"");
  EXPECT_EQ(testing::ToUsText(header->Get(Member::Name(u"RecordLocator"))), u"");
  for (const Collection& collection : kCollections) {
    EXPECT_EQ(CountOf(collection.id), 0) << ToUtf8(collection.name);
  }
}

TEST_F(PnrObjects, ThePnrOnDisplayIsReadAndItsStatusGiven) {
  EXPECT_EQ(RetrieveCurrent(), Value(std::int32_t{3}));
  EXPECT_EQ(pnr->Get(Member::Id(75)), Value(Row(u"THE DISPLAY")));
  EXPECT_EQ(world.Journal(), u"read pnr on display\r\n");
}

TEST_F(PnrObjects, APnrIsRetrievedByItsLocatorAndByItsEntries) {
  Retrieve(u"RTABC123");
  EXPECT_EQ(CountOf(2), 2);
  Retrieve(u"RTNOHEAD");
  EXPECT_EQ(CountOf(2), 0);
  Retrieve(u"SP2");
  EXPECT_EQ(CountOf(2), 2);
  EXPECT_EQ(world.Journal(), u"retrieve RTABC123\r\nretrieve RTNOHEAD\r\nretrieve SP2\r\n");
}

TEST_F(PnrObjects, ARetrievalThatFindsNothingEmptiesThePnr) {
  Retrieve(u"RTABC123");
  Retrieve(u"RTZZZ999");
  EXPECT_EQ(pnr->Get(Member::Id(75)), Value(u""));
  EXPECT_EQ(CountOf(2), 0);
  EXPECT_EQ(testing::ToUsText(ToObject(pnr->Get(Member::Id(76)))->Get(Member::Name(u"Text"))), u"");
}

TEST_F(PnrObjects, NothingOnDisplayEmptiesThePnrToo) {
  Load(u"session = [{ name = 'A' }]");
  session = world.MakeSession();
  EXPECT_EQ(RetrieveCurrent(), Value(std::int32_t{0}));
  EXPECT_EQ(pnr->Get(Member::Id(75)), Value(u""));
}

TEST_F(PnrObjects, ARetrievalThatFailsLeavesThePnrAndStandsInTheJournal) {
  Retrieve(u"RTABC123");
  EXPECT_EQ(Refusal(kUnspecifiedFailure, [&] { Retrieve(u"RTBROKEN"); }),
            "The scenario lets the retrieval of the PNR \"BROKEN\" fail.");
  world.FailNext(u"Retrieve", 13, 1);
  EXPECT_TRUE(RaisesNumber(13, [&] { Retrieve(u"SP2"); }));
  EXPECT_EQ(CountOf(2), 2);
  EXPECT_EQ(world.Journal(), u"retrieve RTABC123\r\nretrieve RTBROKEN\r\nretrieve SP2\r\n");
}

TEST_F(PnrObjects, ARetrievalTakesAConnectionOfARunningSession) {
  const std::vector<std::vector<Value>> wrongOnes = {
      {Value(), u"SP2"}, {u"A", u"SP2"}, {ObjectRef(), u"SP2"}, {ObjectRef(pnr), u"SP2"}};
  for (const auto& arguments : wrongOnes) {
    EXPECT_EQ(Refusal(13, [&] { pnr->Call(Member::Id(81), arguments); }),
              "A PNR is read through the HostConnection of a running session.");
  }
  const std::vector<Value> nothing = {ObjectRef()};
  EXPECT_TRUE(RaisesNumber(13, [&] { pnr->Call(Member::Id(80), nothing); }));
}

TEST_F(PnrObjects, ARetrievalWithAnotherNumberOfArgumentsIsRejected) {
  EXPECT_EQ(Refusal(450, [&] { pnr->Get(Member::Id(80)); }), "The number of arguments of RetrieveCurrent is 1, not 0.");
  const std::vector<Value> one = {session->HostConnection()};
  EXPECT_TRUE(RaisesNumber(450, [&] { pnr->Call(Member::Id(81), one); }));
  EXPECT_EQ(world.Journal(), u"");
}

TEST_F(PnrObjects, APnrKeepsItsContentWhenAnotherScenarioIsLoaded) {
  Retrieve(u"RTABC123");
  const ObjectRef name = ElementOf(2, 1);
  Load(u"");
  EXPECT_EQ(CountOf(2), 2);
  EXPECT_EQ(name->Get(Member::Name(u"LastName")), Value(u"SMITH"));
}

TEST_F(PnrObjects, AConnectionThatIsKeptReadsFromItsOwnScenario) {
  Load(u"");
  Retrieve(u"RTABC123");
  EXPECT_EQ(CountOf(2), 2);
}

// --- Members -----------------------------------------------------------------------------------------------------

TEST_F(PnrObjects, MembersAnswerToTheirNamesWhateverTheCaseAndToTheirIdentifiers) {
  Retrieve(u"RTABC123");
  EXPECT_EQ(pnr->Get(Member::Name(u"TEXT")), pnr->Get(Member::Id(75)));
  const ObjectRef names = ToObject(pnr->Get(Member::Name(u"names")));
  EXPECT_EQ(names->Get(Member::Name(u"count")), Value(std::int32_t{2}));
  EXPECT_EQ(ElementOf(2, 1)->Get(Member::Name(u"lastNAME")), Value(u"SMITH"));
}

TEST_F(PnrObjects, TheMembersOfThePnrHaveTheseIdentifiers) {
  struct Row {
    std::u16string_view name;
    std::int32_t id;
  };
  for (const Row& row : {Row{u"Value", 0},
                         Row{u"Names", 2},
                         Row{u"Elements", 3},
                         Row{u"AirSegments", 7},
                         Row{u"FlownAirSegments", 9},
                         Row{u"OpenAirSegments", 13},
                         Row{u"Cars", 14},
                         Row{u"Hotels", 15},
                         Row{u"HTLElements", 17},
                         Row{u"BillingAddresses", 20},
                         Row{u"ConfidentialRemarks", 21},
                         Row{u"AutoTickets", 23},
                         Row{u"Commissions", 24},
                         Row{u"FEElements", 26},
                         Row{u"OriginalIssues", 30},
                         Row{u"FormsOfPayment", 37},
                         Row{u"MailingAddresses", 38},
                         Row{u"Options", 39},
                         Row{u"Contacts", 62},
                         Row{u"Tickets", 63},
                         Row{u"MISElements", 64},
                         Row{u"Remarks", 65},
                         Row{u"Text", 75},
                         Row{u"Header", 76},
                         Row{u"AllAirSegments", 78},
                         Row{u"RetrieveCurrent", 80},
                         Row{u"Retrieve", 81},
                         Row{u"INSElements", 93}}) {
    EXPECT_EQ(pnr->IdOf(row.name), row.id) << ToUtf8(row.name);
  }
  EXPECT_EQ(pnr->IdOf(u"Nonsense"), std::nullopt);
}

TEST_F(PnrObjects, TheHeadersAndTheCarsMembersHaveTheirKnownIdentifiers) {
  Retrieve(u"RTABC123");
  const auto header = std::dynamic_pointer_cast<SimulatedObject>(ToObject(pnr->Get(Member::Id(76))));
  EXPECT_EQ(header->IdOf(u"Line"), 1);
  EXPECT_EQ(header->IdOf(u"ElementNo"), 2);
  EXPECT_EQ(header->IdOf(u"OfficeID"), 4);
  EXPECT_EQ(header->IdOf(u"recordlocator"), 6);
  EXPECT_EQ(header->Get(Member::Id(6)), Value(u"ABC123"));
  const auto car = std::dynamic_pointer_cast<SimulatedObject>(ElementOf(14, 1));
  EXPECT_EQ(car->Get(Member::Id(1)), Value(u"7  CCR ZE"));
  EXPECT_EQ(car->IdOf(u"PickUpCity"), 8);
  EXPECT_EQ(car->Get(Member::Id(9)), Value(Date{39611}));
  EXPECT_EQ(car->IdOf(u"DropOffDate"), 10);
  EXPECT_EQ(car->IdOf(u"CarType"), 11);
  EXPECT_EQ(car->IdOf(u"ConfirmationNo"), 18);
  EXPECT_EQ(car->IdOf(u"Passengers"), 44);
}

TEST_F(PnrObjects, AMemberThatIsNotThereIsRejectedByNameOrIdentifier) {
  Retrieve(u"RTABC123");
  EXPECT_EQ(Refusal(438, [&] { pnr->Get(Member::Name(u"Segments")); }),
            "The simulated PNR has no member \"Segments\".");
  EXPECT_EQ(Refusal(438, [&] { pnr->Get(Member::Id(99)); }),
            "The simulated PNR has no member with dispatch identifier 99.");
  EXPECT_EQ(Refusal(438, [&] { ElementOf(2, 1)->Get(Member::Name(u"City")); }),
            "The simulated name element has no member \"City\".");
  EXPECT_TRUE(RaisesNumber(438, [&] { CollectionOf(2)->Get(Member::Name(u"Text")); }));
}

TEST_F(PnrObjects, APropertyThatOnlyReadsIsNotAssigned) {
  Retrieve(u"RTABC123");
  EXPECT_EQ(Refusal(438, [&] { pnr->Put(Member::Id(75), u"X"); }),
            "The simulated PNR does not let itself be assigned the member with dispatch identifier 75.");
  EXPECT_TRUE(RaisesNumber(438, [&] { ElementOf(2, 1)->Put(Member::Name(u"Text"), u"X"); }));
  EXPECT_TRUE(RaisesNumber(438, [&] { CollectionOf(2)->Put(Member::Name(u"Count"), std::int32_t{1}); }));
}

TEST_F(PnrObjects, TheDefaultPropertyKeepsWhateverIsPutIntoIt) {
  EXPECT_TRUE(pnr->Get(Member::Id(0)).IsEmpty());
  pnr->Put(Member::Id(0), u"ANYTHING");
  EXPECT_EQ(pnr->Get(Member::Id(0)), Value(u"ANYTHING"));
  pnr->Put(Member::Name(u"value"), ObjectRef(world.MakePnr()));
  EXPECT_NE(ToObject(pnr->Get(Member::Id(0))), nullptr);
}

TEST_F(PnrObjects, AHeaderThatIsAbsentIsNothing) {
  Retrieve(u"RTNOHEAD");
  EXPECT_EQ(pnr->Get(Member::Id(76)), Value(ObjectRef()));
}

TEST_F(PnrObjects, APropertyIsReadByACallWithoutArgumentsToo) {
  Retrieve(u"RTABC123");
  EXPECT_EQ(pnr->Call(Member::Id(75), {}), pnr->Get(Member::Id(75)));
  EXPECT_EQ(ElementOf(2, 1)->Call(Member::Name(u"LastName"), {}), Value(u"SMITH"));
  const std::vector<Value> one = {std::int32_t{1}};
  EXPECT_TRUE(RaisesNumber(450, [&] { pnr->Call(Member::Id(75), one); }));
  EXPECT_TRUE(RaisesNumber(450, [&] { pnr->Call(Member::Id(2), one); }));
  EXPECT_TRUE(RaisesNumber(450, [&] { ElementOf(2, 1)->Call(Member::Name(u"Text"), one); }));
}

TEST_F(PnrObjects, APropertyThatTheScenarioLeavesOutIsEmpty) {
  Retrieve(u"RTABC123");
  EXPECT_TRUE(ElementOf(2, 2)->Get(Member::Name(u"LastName")).IsEmpty());
}

// --- Collections -------------------------------------------------------------------------------------------------

TEST_F(PnrObjects, ItemsCountFromOne) {
  Retrieve(u"RTABC123");
  EXPECT_EQ(ElementOf(2, 2)->Get(Member::Name(u"ElementNo")), Value(u"2"));
  EXPECT_EQ(Refusal(9, [&] { ElementOf(2, 3); }), "The collection has no item at position 3.");
  EXPECT_TRUE(RaisesNumber(9, [&] { ElementOf(2, 0); }));
  EXPECT_TRUE(RaisesNumber(450, [&] { CollectionOf(2)->Get(Member::Name(u"Item")); }));
}

TEST_F(PnrObjects, AWalkGivesTheItemsInOrderAndThenNothing) {
  Retrieve(u"RTABC123");
  const auto walk = CollectionOf(2)->Walk();
  EXPECT_EQ(walk->Next()->Get(Member::Name(u"ElementNo")), Value(u"1"));
  EXPECT_EQ(walk->Next()->Get(Member::Name(u"ElementNo")), Value(u"2"));
  EXPECT_EQ(walk->Next(), nullptr);
  EXPECT_EQ(walk->Next(), nullptr);
}

TEST_F(PnrObjects, OnlyACollectionCanBeWalked) {
  Retrieve(u"RTABC123");
  EXPECT_TRUE(std::dynamic_pointer_cast<SimulatedObject>(CollectionOf(2))->IsCollection());
  EXPECT_FALSE(std::dynamic_pointer_cast<SimulatedObject>(ElementOf(2, 1))->IsCollection());
  EXPECT_FALSE(pnr->IsCollection());
  EXPECT_TRUE(RaisesNumber(438, [&] { pnr->Walk(); }));
  EXPECT_TRUE(RaisesNumber(438, [&] { ElementOf(2, 1)->Walk(); }));
}

TEST_F(PnrObjects, AirSegmentsKnowTheirType) {
  Retrieve(u"RTABC123");
  EXPECT_TRUE(ElementOf(78, 1)->Is(SegmentType::Timed));
  EXPECT_FALSE(ElementOf(78, 1)->Is(SegmentType::Untimed));
  EXPECT_TRUE(ElementOf(78, 2)->Is(SegmentType::Untimed));
  EXPECT_FALSE(ElementOf(78, 2)->Is(SegmentType::Timed));
  for (const std::int32_t neither : {3, 4}) {
    EXPECT_FALSE(ElementOf(78, neither)->Is(SegmentType::Timed));
    EXPECT_FALSE(ElementOf(78, neither)->Is(SegmentType::Untimed));
  }
  EXPECT_FALSE(ElementOf(2, 1)->Is(SegmentType::Timed));
  EXPECT_FALSE(CollectionOf(2)->Is(SegmentType::Untimed));
}

TEST_F(PnrObjects, ATimeThatASegmentDoesNotGiveIsEmpty) {
  Retrieve(u"RTABC123");
  EXPECT_EQ(ElementOf(7, 1)->Get(Member::Name(u"DepartureTime")), Value(u"0900"));
  EXPECT_TRUE(ElementOf(13, 1)->Get(Member::Name(u"DepartureTime")).IsEmpty());
}

TEST_F(PnrObjects, ACarsAssociationHoldsAPassengerForEachElementNumber) {
  Retrieve(u"RTABC123");
  const ObjectRef association = ToObject(ElementOf(14, 1)->Get(Member::Id(44)));
  const ObjectRef passengers = ToObject(association->Get(Member::Name(u"Passengers")));
  EXPECT_EQ(passengers->Get(Member::Name(u"Count")), Value(std::int32_t{2}));
  const auto walk = passengers->Walk();
  EXPECT_EQ(walk->Next()->Get(Member::Name(u"ElementNo")), Value(std::int32_t{1}));
  EXPECT_EQ(walk->Next()->Get(Member::Name(u"ElementNo")), Value(u"2"));
  EXPECT_EQ(walk->Next(), nullptr);
}

TEST_F(PnrObjects, ACarWithoutPassengersHasAnEmptyAssociation) {
  Retrieve(u"RTABC123");
  const ObjectRef association = ToObject(ElementOf(14, 2)->Get(Member::Id(44)));
  EXPECT_EQ(ToObject(association->Get(Member::Name(u"Passengers")))->Walk()->Next(), nullptr);
}

TEST_F(PnrObjects, EveryMemberCanBeMadeToFailUnderItsName) {
  Retrieve(u"RTABC123");
  const ObjectRef names = CollectionOf(2);
  const auto walk = names->Walk();
  struct Row {
    std::u16string_view operation;
    std::function<void()> call;
  };
  const std::vector<Row> rows = {{u"Text", [&] { pnr->Get(Member::Id(75)); }},
                                 {u"Header", [&] { pnr->Get(Member::Id(76)); }},
                                 {u"Names", [&] { CollectionOf(2); }},
                                 {u"AllAirSegments", [&] { CollectionOf(78); }},
                                 {u"Value", [&] { pnr->Get(Member::Id(0)); }},
                                 {u"Value", [&] { pnr->Put(Member::Id(0), Value()); }},
                                 {u"RetrieveCurrent", [&] { RetrieveCurrent(); }},
                                 {u"Count", [&] { names->Get(Member::Name(u"Count")); }},
                                 {u"Item", [&] { ElementOf(2, 1); }},
                                 {u"_NewEnum", [&] { names->Walk(); }},
                                 {u"Next", [&] { walk->Next(); }},
                                 {u"LastName", [&] { ElementOf(2, 1)->Get(Member::Name(u"LastName")); }}};
  for (const Row& row : rows) {
    world.FailNext(row.operation, kUnspecifiedFailure, 1);
    EXPECT_EQ(Refusal(kUnspecifiedFailure, row.call), ToUtf8(row.operation) + " was made to fail, as planned.");
  }
}

}  // namespace
}  // namespace wendrill::simulator
