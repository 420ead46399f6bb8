// Reading the PNRs of a scenario.
#include <gtest/gtest.h>

#include "core/scenario.h"
#include "simulated_world.h"

namespace wendrill::simulator {
namespace {

// The first PNR of a text, after "[[pnr]]" and a line break.
class PnrText {
 public:
  explicit PnrText(std::string_view rest)
      : scenario_(ParseScenario("[[pnr]]\n" + std::string(rest), u"test.toml")), pnr_(scenario_->pnrs.at(0)) {}

  const ScenarioPnr* operator->() const { return &pnr_; }

  // A property of an element of a collection, counted from 0.
  Value Property(std::int32_t collection, std::size_t element, std::u16string_view name) const {
    return PropertyOf(*pnr_.collections.at(collection).at(element), name);
  }

  Value HeaderProperty(std::u16string_view name) const { return PropertyOf(*pnr_.header, name); }

  std::size_t Count(std::int32_t collection) const {
    const auto found = pnr_.collections.find(collection);
    return found == pnr_.collections.end() ? 0 : found->second.size();
  }

 private:
  static Value PropertyOf(const ScenarioObject& object, std::u16string_view name) {
    for (std::size_t place = 0; place < object.type->properties.size(); ++place) {
      if (object.type->properties[place].name == name) {
        return std::get<Value>(object.contents.at(place));
      }
    }
    ADD_FAILURE() << "no property " << ToUtf8(name);
    return {};
  }

  std::shared_ptr<const Scenario> scenario_;
  const ScenarioPnr& pnr_;
};

std::string RefusalOf(std::string_view rest) {
  return Refusal(5, [rest] { PnrText pnr(rest); });
}

TEST(PnrText, WhatItIsFoundByAndAnswersIsRead) {
  const PnrText pnr("RecordLocator = 'ABC123'\nentries = ['SP2', 'ER']\non_display = true\nstatus = 7\nerror = 5\n");
  EXPECT_EQ(pnr->recordLocator, u"ABC123");
  EXPECT_EQ(pnr->entries, (std::vector<std::u16string>{u"SP2", u"ER"}));
  EXPECT_TRUE(pnr->onDisplay);
  EXPECT_EQ(pnr->status, 7);
  EXPECT_EQ(pnr->error, 5);
}

TEST(PnrText, ItIsRetrievedByItsLocatorAndItsEntries) {
  const PnrText pnr("RecordLocator = 'ABC123'\nentries = ['SP2']\n");
  EXPECT_TRUE(pnr->IsRetrievedBy(u"RTABC123"));
  EXPECT_TRUE(pnr->IsRetrievedBy(u"SP2"));
  EXPECT_FALSE(pnr->IsRetrievedBy(u"RTABC12"));
  EXPECT_FALSE(pnr->IsRetrievedBy(u"sp2"));
}

TEST(PnrText, WithoutALocatorABareRetrievalDoesNotFindIt) {
  const PnrText pnr("entries = ['SP2']\n");
  EXPECT_FALSE(pnr->IsRetrievedBy(u"RT"));
}

TEST(PnrText, TheDisplayIsPaddedToRowsOf80) {
  const PnrText pnr("display = '''\nRP/PAR\n  1.SMITH\n'''\n");
  EXPECT_EQ(pnr->display.size(), 160u);
  EXPECT_EQ(pnr->display.substr(0, 7), u"RP/PAR ");
  EXPECT_EQ(pnr->display.substr(80, 10), u"  1.SMITH ");
}

TEST(PnrText, ADisplayMayKeepItsLineBreaks) {
  const PnrText pnr("display = '''\nRP/PAR\n  1.SMITH\n'''\nbreaks = true\n");
  EXPECT_EQ(pnr->display, u"RP/PAR\r\n  1.SMITH\r\n");
}

TEST(PnrText, ADisplayRowThatIsTooWideIsNamedWithTheLineItIsOn) {
  EXPECT_EQ(RefusalOf("display = '''\nA\n" + std::string(81, 'X') + "\n'''\n"),
            "test.toml, line 4: row 2 of \"display\" in [[pnr]] is longer than the 80 columns of a display");
}

TEST(PnrText, AHeaderThatIsNotGivenIsTheDisplaysFirstRow) {
  const PnrText pnr("RecordLocator = 'ABC123'\nderive = false\ndisplay = '''\n  --- RLR ---\nRP/PAR\n'''\n");
  EXPECT_EQ(pnr.HeaderProperty(u"Text"), Value(u"  --- RLR ---"));
  EXPECT_EQ(pnr.HeaderProperty(u"Line"), Value(u"  --- RLR ---"));
  EXPECT_EQ(pnr.HeaderProperty(u"RecordLocator"), Value(u"ABC123"));
  EXPECT_TRUE(pnr.HeaderProperty(u"OfficeID").IsEmpty());
  EXPECT_TRUE(pnr.HeaderProperty(u"ElementNo").IsEmpty());
}

TEST(PnrText, AHeaderThatIsNotGivenIsTheFirstRowOfADisplayWithBreaksToo) {
  const PnrText pnr("display = '''\nRP/PAR  \nX\n'''\nbreaks = true\n");
  EXPECT_EQ(pnr.HeaderProperty(u"Line"), Value(u"RP/PAR"));
}

TEST(PnrText, WhatAHeaderLeavesOutIsMadeOfTheDisplay) {
  const PnrText pnr("RecordLocator = 'ABC123'\ndisplay = 'X'\n[pnr.Header]\nOfficeID = 'PARXX0100'\n");
  EXPECT_EQ(pnr.HeaderProperty(u"OfficeID"), Value(u"PARXX0100"));
  EXPECT_EQ(pnr.HeaderProperty(u"Text"), Value(u"X"));
  EXPECT_EQ(pnr.HeaderProperty(u"Line"), Value(u"X"));
  EXPECT_EQ(pnr.HeaderProperty(u"RecordLocator"), Value(u"ABC123"));  // the PNR's
}

TEST(PnrText, AnEmptyHeaderTextStaysEmpty) {
  const PnrText pnr("display = 'X'\n[pnr.Header]\nText = ''\n");
  EXPECT_EQ(pnr.HeaderProperty(u"Text"), Value(u""));
  EXPECT_EQ(pnr.HeaderProperty(u"Line"), Value(u"X"));
}

TEST(PnrText, APnrWithoutADisplayHasItsLocatorForAHeaderLine) {
  const PnrText pnr("RecordLocator = 'ABC123'\n");
  EXPECT_EQ(pnr.HeaderProperty(u"Text"), Value(u"ABC123"));
}

TEST(PnrText, AHeaderMayHaveALocatorOfItsOwn) {
  const PnrText pnr("RecordLocator = 'ABC123'\n[pnr.Header]\nRecordLocator = 'ZZZ999'\nElementNo = 4\n");
  EXPECT_EQ(pnr.HeaderProperty(u"RecordLocator"), Value(u"ZZZ999"));
  EXPECT_EQ(pnr.HeaderProperty(u"ElementNo"), Value(std::int32_t{4}));
}

TEST(PnrText, AHeaderMayBeAbsent) {
  const PnrText pnr("[pnr.Header]\nabsent = true\n");
  EXPECT_EQ(pnr->header, nullptr);
  EXPECT_EQ(
      RefusalOf("[pnr.Header]\nabsent = true\nText = 'A'\n"),
      R"(test.toml, line 3: "absent" in [pnr.Header] excludes "Line", "ElementNo", "Text", "OfficeID" and "RecordLocator")");
}

TEST(PnrText, EveryCollectionIsReadUnderItsName) {
  struct Row {
    const char* name;
    std::int32_t id;
  };
  for (const Row& row :
       {Row{"Names", 2}, Row{"Elements", 3}, Row{"Cars", 14}, Row{"Hotels", 15}, Row{"HTLElements", 17},
        Row{"BillingAddresses", 20}, Row{"ConfidentialRemarks", 21}, Row{"AutoTickets", 23}, Row{"Commissions", 24},
        Row{"FEElements", 26}, Row{"OriginalIssues", 30}, Row{"FormsOfPayment", 37}, Row{"MailingAddresses", 38},
        Row{"Options", 39}, Row{"Contacts", 62}, Row{"Tickets", 63}, Row{"MISElements", 64}, Row{"Remarks", 65},
        Row{"INSElements", 93}}) {
    const PnrText pnr("[[pnr." + std::string(row.name) + "]]\nText = 'FIRST'\n[[pnr." + row.name +
                      "]]\nText = 'SECOND'\nElementNo = '2'\n");
    EXPECT_EQ(pnr.Count(row.id), 2u) << row.name;
    EXPECT_EQ(pnr.Property(row.id, 0, u"Text"), Value(u"FIRST")) << row.name;
    EXPECT_EQ(pnr.Property(row.id, 1, u"ElementNo"), Value(u"2")) << row.name;
    EXPECT_TRUE(pnr.Property(row.id, 0, u"ElementNo").IsEmpty()) << row.name;
  }
}

TEST(PnrText, AirSegmentsStandAmongAllAndUnderTheirKind) {
  const PnrText pnr(R"(
    [[pnr.AirSegments]]
    kind = "flown"
    Text = "1"
    [[pnr.AirSegments]]
    Text = "2"
    [[pnr.AirSegments]]
    kind = "open"
    Text = "3"
    [[pnr.AirSegments]]
    kind = "other"
    Text = "4"
    [[pnr.AirSegments]]
    kind = "timed"
    Text = "5"
    ArrivalTime = "1430"
  )");
  EXPECT_EQ(pnr.Count(78), 5u);
  EXPECT_EQ(pnr.Property(78, 0, u"Text"), Value(u"1"));
  EXPECT_EQ(pnr.Property(78, 4, u"Text"), Value(u"5"));
  ASSERT_EQ(pnr.Count(7), 2u);
  EXPECT_EQ(pnr.Property(7, 0, u"Text"), Value(u"2"));  // timed unless the kind says otherwise
  EXPECT_EQ(pnr.Property(7, 1, u"ArrivalTime"), Value(u"1430"));
  ASSERT_EQ(pnr.Count(9), 1u);
  EXPECT_EQ(pnr.Property(9, 0, u"Text"), Value(u"1"));
  ASSERT_EQ(pnr.Count(13), 1u);
  EXPECT_EQ(pnr.Property(13, 0, u"Text"), Value(u"3"));
}

TEST(PnrText, SegmentsOfEveryKindMayHaveTimes) {
  const PnrText pnr("[[pnr.AirSegments]]\nkind = 'flown'\nArrivalTime = '1430'\n");
  EXPECT_EQ(pnr.Property(9, 0, u"ArrivalTime"), Value(u"1430"));
  EXPECT_TRUE(pnr.Property(9, 0, u"DepartureTime").IsEmpty());
}

TEST(PnrText, AnUnknownKindIsNamedWithTheKnownOnes) {
  EXPECT_EQ(RefusalOf("[[pnr.AirSegments]]\nkind = 'past'\n"),
            "test.toml, line 3: \"kind\" in [[pnr.AirSegments]] must be \"timed\", \"open\", \"flown\" or \"other\", "
            "not \"past\"");
}

TEST(PnrText, ThePropertiesOfAnElementAreAClosedList) {
  EXPECT_EQ(RefusalOf("[[pnr.Names]]\nText = 'A'\nFirstName = 'B'\n"),
            "test.toml, line 4: unknown key \"FirstName\" in [[pnr.Names]]; known keys are Text, ElementNo, Initial, "
            "LastName");
}

TEST(PnrText, AnUnknownCollectionIsNamed) {
  const std::string refusal = RefusalOf("[[pnr.Segments]]\nText = 'A'\n");
  EXPECT_EQ(refusal.rfind("test.toml, line 2: unknown key \"Segments\" in [[pnr]]; known keys are RecordLocator, ", 0),
            0u)
      << refusal;
  EXPECT_NE(refusal.find("Header, Names, Elements, AirSegments, Cars"), std::string::npos) << refusal;
}

TEST(PnrText, APropertyIsWhatTheFileMakesIt) {
  const PnrText pnr(R"(
    [[pnr.Tickets]]
    Text = "TK OK"
    ElementNo = 7
    Action = true
    [[pnr.Tickets]]
    ElementNo = 2.5
  )");
  EXPECT_EQ(pnr.Property(63, 0, u"ElementNo"), Value(std::int32_t{7}));
  EXPECT_EQ(pnr.Property(63, 0, u"Action"), Value(true));
  EXPECT_EQ(pnr.Property(63, 1, u"ElementNo"), Value(2.5));
}

TEST(PnrText, ATomlDateIsADate) {
  // 12 June 2008 is day 39611 of automation's calendar, which begins with 30 December 1899 as day 0.
  const PnrText pnr(R"(
    [[pnr.Tickets]]
    Date = 2008-06-12
    [[pnr.Tickets]]
    Date = 2008-06-12T18:00:00
    [[pnr.Tickets]]
    Date = 2008-06-12T18:00:00+02:00
    [[pnr.Tickets]]
    Date = 06:00:00
    [[pnr.Tickets]]
    Date = 1899-12-29T06:00:00
  )");
  EXPECT_EQ(pnr.Property(63, 0, u"Date"), Value(Date{39611}));
  EXPECT_EQ(pnr.Property(63, 1, u"Date"), Value(Date{39611.75}));
  EXPECT_EQ(pnr.Property(63, 2, u"Date"), Value(Date{39611.75}));  // what the clock showed
  EXPECT_EQ(pnr.Property(63, 3, u"Date"), Value(Date{0.25}));
  EXPECT_EQ(pnr.Property(63, 4, u"Date"), Value(Date{-1.25}));  // the fraction counts away from day 0
}

TEST(PnrText, APropertyIsNeitherAnArrayNorATable) {
  EXPECT_EQ(RefusalOf("[[pnr.Names]]\nText = ['A']\n"),
            "test.toml, line 3: \"Text\" in [[pnr.Names]] must be a string, a number, true or false, or a date, not an "
            "array");
}

TEST(PnrText, ANumberBeyond32BitsIsRejected) {
  EXPECT_EQ(RefusalOf("[[pnr.Names]]\nElementNo = 3000000000\n"),
            "test.toml, line 3: \"ElementNo\" in [[pnr.Names]] must be an integer from -2147483648 to 2147483647, "
            "not 3000000000");
}

TEST(PnrText, PassengersAreAnArray) {
  EXPECT_EQ(RefusalOf("[[pnr.Cars]]\nPassengers = 1\n"),
            "test.toml, line 3: \"Passengers\" in [[pnr.Cars]] must be an array of element numbers, not an integer");
}

TEST(PnrText, TheFirstPnrInTheFileIsFound) {
  const auto scenario = ParseScenario(R"(
    [[pnr]]
    RecordLocator = "AAA111"
    [[pnr]]
    RecordLocator = "BBB222"
    entries = ["X"]
    on_display = true
    [[pnr]]
    RecordLocator = "CCC333"
    entries = ["X"]
    on_display = true
  )",
                                      u"test.toml");
  EXPECT_EQ(scenario->PnrOf(u"X")->recordLocator, u"BBB222");
  EXPECT_EQ(scenario->PnrOf(u"RTCCC333")->recordLocator, u"CCC333");
  EXPECT_EQ(scenario->PnrOnDisplay()->recordLocator, u"BBB222");
  EXPECT_EQ(scenario->PnrOf(u"RTZZZ999"), nullptr);
}

}  // namespace
}  // namespace wendrill::simulator
