// PNRs of a scenario that are read from their displays.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/host_date.h"
#include "common/text.h"
#include "common/text_forms.h"
#include "core/report.h"
#include "core/scenario.h"
#include "core/scenario_run.h"
#include "support/raises.h"

namespace wendrill::simulator {
namespace {

using testing::ErrorOf;

const std::string kDisplay =
    "display = '''\n"                                                    // line 2
    "RP/PARXX0100/NCEYY2100            AM/SU  12JUN08/0930Z   ABC123\n"  // line 3
    "PARXX0100/0001AA/12JUN08\n"                                         //
    "  1.SMITH/JOHN MR(ADT)\n"                                           //
    "  2  AF 123 Y 15JUN 7 NCECDG HK2      0900 1030\n"                  //
    "  3  CCR QC HK1 LHR 15JUN-18JUN ECMN\n"                             //
    "  4 APE A@B.C\n"                                                    // line 8
    "  5 RM WINDOW SEATS WANTED\n"                                       //
    "'''\n";

std::shared_ptr<const Scenario> Read(const std::string& toml) {
  return ParseScenario(toml, u"derived.toml");
}

const ScenarioPnr& OnlyPnr(const Scenario& scenario) {
  return scenario.pnrs.front();
}

// The texts of a collection's elements.
std::vector<std::u16string> Texts(const ScenarioPnr& pnr, std::int32_t id) {
  std::vector<std::u16string> texts;
  if (const auto found = pnr.collections.find(id); found != pnr.collections.end()) {
    for (const auto& element : found->second) {
      texts.push_back(ToText(std::get<Value>(element->contents[0]), UsTextForms()));
    }
  }
  return texts;
}

std::u16string HeaderProperty(const ScenarioPnr& pnr, std::size_t place) {
  return ToText(std::get<Value>(pnr.header->contents[place]), UsTextForms());
}

using Texts16 = std::vector<std::u16string>;

constexpr std::int32_t kNames = 2;
constexpr std::int32_t kElements = 3;
constexpr std::int32_t kAir = 7;
constexpr std::int32_t kOpenAir = 13;
constexpr std::int32_t kContacts = 62;
constexpr std::int32_t kRemarks = 65;

const std::u16string kUnknownKeyword =
    u"line 8, row 6 of the display: unknown keyword \"APE\": the element is in Elements alone";

TEST(DerivedPnr, IsAnyPnrWithADisplayAlone) {
  const auto scenario = Read("[[pnr]]\n" + kDisplay);
  const ScenarioPnr& pnr = OnlyPnr(*scenario);
  EXPECT_EQ(Texts(pnr, kNames), Texts16({u"1.SMITH/JOHN MR(ADT)"}));
  EXPECT_EQ(Texts(pnr, kElements).size(), 5U);
  EXPECT_EQ(Texts(pnr, kAir).size(), 1U);
  EXPECT_EQ(Texts(pnr, kRemarks), Texts16({u"5 RM WINDOW SEATS WANTED"}));
  EXPECT_EQ(pnr.recordLocator, u"ABC123");
  EXPECT_EQ(HeaderProperty(pnr, 0), u"RP/PARXX0100/NCEYY2100            AM/SU  12JUN08/0930Z   ABC123");
  EXPECT_EQ(HeaderProperty(pnr, 1), u"0");
  EXPECT_EQ(HeaderProperty(pnr, 3), u"PARXX0100");
  EXPECT_EQ(HeaderProperty(pnr, 4), u"ABC123");
  EXPECT_EQ(scenario->warnings, Texts16({kUnknownKeyword}));
}

TEST(DerivedPnr, IsNoneWithACollectionOfItsOwn) {
  const auto scenario = Read("[[pnr]]\n" + kDisplay + "[[pnr.Names]]\nElementNo = \"1\"\n");
  EXPECT_EQ(Texts(OnlyPnr(*scenario), kNames).size(), 1U);
  EXPECT_EQ(Texts(OnlyPnr(*scenario), kRemarks), Texts16());
  EXPECT_EQ(OnlyPnr(*scenario).recordLocator, u"");
  EXPECT_EQ(scenario->warnings, Texts16());
}

TEST(DerivedPnr, TakesACollectionThatIsWrittenAsAWhole) {
  const auto scenario =
      Read("[[pnr]]\n" + kDisplay + "derive = true\n[[pnr.Remarks]]\nText = \"9 RM MINE\"\nElementNo = \"9\"\n");
  EXPECT_EQ(Texts(OnlyPnr(*scenario), kRemarks), Texts16({u"9 RM MINE"}));
  EXPECT_EQ(Texts(OnlyPnr(*scenario), kNames), Texts16({u"1.SMITH/JOHN MR(ADT)"}));
}

TEST(DerivedPnr, IsNoneWhereDeriveIsFalse) {
  EXPECT_EQ(Texts(OnlyPnr(*Read("[[pnr]]\n" + kDisplay + "derive = false\n")), kNames), Texts16());
  EXPECT_EQ(Texts(OnlyPnr(*Read("[derive]\non = false\n[[pnr]]\n" + kDisplay)), kNames), Texts16());
  EXPECT_EQ(Texts(OnlyPnr(*Read("[derive]\non = false\n[[pnr]]\n" + kDisplay + "derive = true\n")), kNames).size(), 1U);
}

TEST(DerivedPnr, LetsItsHeaderBeOverriddenKeyByKey) {
  const auto scenario = Read("[[pnr]]\n" + kDisplay + "[pnr.Header]\nOfficeID = \"LONXX0100\"\n");
  EXPECT_EQ(HeaderProperty(OnlyPnr(*scenario), 3), u"LONXX0100");
  EXPECT_EQ(HeaderProperty(OnlyPnr(*scenario), 4), u"ABC123");
  EXPECT_EQ(OnlyPnr(*Read("[[pnr]]\n" + kDisplay + "[pnr.Header]\nabsent = true\n")).header, nullptr);
}

TEST(DerivedPnr, KeepsARecordLocatorThatIsWritten) {
  EXPECT_EQ(OnlyPnr(*Read("[[pnr]]\nRecordLocator = \"XYZ789\"\n" + kDisplay)).recordLocator, u"XYZ789");
}

TEST(DerivedPnr, ReadsLinesWithBreaksToo) {
  EXPECT_EQ(Texts(OnlyPnr(*Read("[[pnr]]\n" + kDisplay + "breaks = true\n")), kRemarks),
            Texts16({u"5 RM WINDOW SEATS WANTED"}));
}

TEST(DeriveTable, SetsDateAndKeywords) {
  const auto scenario =
      Read("[derive]\ndate = 2009-06-12\nkeywords = { APE = \"Contacts\", RM = \"-\" }\n[[pnr]]\n" + kDisplay);
  const ScenarioPnr& pnr = OnlyPnr(*scenario);
  EXPECT_EQ(Texts(pnr, kContacts), Texts16({u"4 APE A@B.C"}));
  EXPECT_EQ(Texts(pnr, kRemarks), Texts16());
  EXPECT_EQ(scenario->warnings, Texts16());
  const auto& car = *pnr.collections.at(14).front();
  EXPECT_EQ(std::get<Value>(car.contents[3]), Value(DateOf({2009, 6, 15})));
}

TEST(DeriveTable, RejectsWhatIsNoDateOrCollection) {
  EXPECT_EQ(ErrorOf([] { Read("[derive]\ndate = \"12JUN\"\n"); })->Description(),
            u"derived.toml, line 2: \"date\" in [derive] must be a day such as 2008-06-12, in the years 1900 to 8999");
  EXPECT_EQ(ErrorOf([] { Read("[derive]\ndate = 0050-01-01\n"); })->Number(), 5);
  EXPECT_EQ(
      ErrorOf([] { Read("[derive]\nkeywords = { X = \"Names\" }\n"); })->Description(),
      u"derived.toml, line 2: \"keywords\" in [derive] has \"X\" for \"Names\", which is no collection that a keyword "
      u"brings, nor \"-\"");
  EXPECT_EQ(ErrorOf([] { Read("[derive]\nkeywords = { X = 3 }\n"); })->Description(),
            u"derived.toml, line 2: \"keywords\" in [derive] must be a table of strings, not an integer");
}

TEST(Change, SetsPropertiesAndKind) {
  const auto scenario = Read("[[pnr]]\n" + kDisplay +
                             "[[pnr.change]]\nElementNo = \"2\"\nkind = \"open\"\nClass = \"C\"\n"
                             "[[pnr.change]]\nElementNo = 3\nPassengers = [1, 2]\n"
                             "[[pnr.change]]\nElementNo = \"5\"\nText = \"5 RM OTHER\"\n");
  const ScenarioPnr& pnr = OnlyPnr(*scenario);
  EXPECT_EQ(Texts(pnr, kAir), Texts16());
  EXPECT_EQ(Texts(pnr, kOpenAir).size(), 1U);
  EXPECT_EQ(std::get<Value>(pnr.collections.at(kOpenAir).front()->contents[4]), Value(u"C"));
  EXPECT_EQ(Texts(pnr, kRemarks), Texts16({u"5 RM OTHER"}));
  EXPECT_EQ(Texts(pnr, kElements).back(), u"5 RM OTHER");
  const auto& association =
      std::get<std::shared_ptr<const ScenarioObject>>(pnr.collections.at(14).front()->contents[7]);
  EXPECT_EQ(std::get<std::shared_ptr<const ScenarioList>>(association->contents[0])->size(), 2U);
}

TEST(Change, TakesAnElementAway) {
  const auto scenario = Read("[[pnr]]\n" + kDisplay + "[[pnr.change]]\nElementNo = \"5\"\nabsent = true\n");
  EXPECT_EQ(Texts(OnlyPnr(*scenario), kRemarks), Texts16());
  EXPECT_EQ(Texts(OnlyPnr(*scenario), kElements).size(), 4U);
}

TEST(Change, RejectsWhatCannotBeChanged) {
  const auto description = [](const std::string& change) {
    return ErrorOf([&] { Read("[[pnr]]\n" + kDisplay + "[[pnr.change]]\n" + change); })->Description();
  };
  EXPECT_EQ(description("ElementNo = \"77\"\nabsent = true\n"),
            u"derived.toml, line 12: \"ElementNo\" in [[pnr.change]] is \"77\", and the display has no element of this "
            u"number");
  EXPECT_EQ(description("ElementNo = \"5\"\nBoardPoint = \"NCE\"\n"),
            u"derived.toml, line 13: \"BoardPoint\" in [[pnr.change]] is no property of element 5, which is a remark "
            u"element");
  EXPECT_EQ(
      description("ElementNo = \"5\"\nkind = \"open\"\n"),
      u"derived.toml, line 13: \"kind\" in [[pnr.change]] is for air segments, and element 5 is a remark element");
  EXPECT_EQ(description("absent = true\n"), u"derived.toml, line 11: [[pnr.change]] needs \"ElementNo\"");
  EXPECT_NE(description("ElementNo = \"5\"\nabsent = true\nText = \"X\"\n").find(u"excludes"), std::u16string::npos);
  EXPECT_EQ(ErrorOf([] { Read("[[pnr]]\nderive = false\n[[pnr.change]]\nElementNo = \"1\"\n"); })->Number(), 5);
}

TEST(Contradiction, OfAWrittenValueIsAWarning) {
  const auto scenario =
      Read("[[pnr]]\n" + kDisplay +
           "[[pnr.AirSegments]]\nElementNo = \"2\"\nBoardPoint = \"LYS\"\nDepartureDate = 2008-06-16\n"
           "kind = \"open\"\nOffPoint = \"CDG\"\n");
  EXPECT_EQ(
      scenario->warnings,
      Texts16(
          {u"line 11, [[pnr.AirSegments]] 2: BoardPoint is \"LYS\", the display shows \"NCE\" in row 4",
           u"line 11, [[pnr.AirSegments]] 2: DepartureDate is \"6/16/2008\", the display shows \"6/15/2008\" in row "
           u"4",
           u"line 11, [[pnr.AirSegments]] 2: kind is \"open\", the display shows \"timed\" in row 4"}));
}

TEST(Contradiction, OfAWrittenCollectionIsAWarning) {
  EXPECT_EQ(Read("[[pnr]]\n" + kDisplay + "[[pnr.Contacts]]\nElementNo = \"5\"\n")->warnings,
            Texts16({u"line 11, [[pnr.Contacts]] 5: the display shows \"5 RM WINDOW SEATS WANTED\" in row 7"}));
}

TEST(Contradiction, IsNoneWhereTheDisplayShowsNothingOrDeriveIsFalse) {
  EXPECT_EQ(Read("[[pnr]]\n" + kDisplay + "[[pnr.Contacts]]\nElementNo = \"12\"\n")->warnings, Texts16());
  EXPECT_EQ(Read("[[pnr]]\n" + kDisplay + "[[pnr.Cars]]\nElementNo = \"3\"\nPassengers = [1]\n")->warnings, Texts16());
  EXPECT_EQ(Read("[[pnr]]\n" + kDisplay + "derive = false\n[[pnr.Contacts]]\nElementNo = \"5\"\n")->warnings,
            Texts16());
}

TEST(DerivedPnr, WarningsAreToldInTheReport) {
  RunReport report;
  report.Begin(std::make_shared<ScenarioRun>(Read("[[session]]\nname = \"A\"\n[[pnr]]\noptional = true\n" + kDisplay)));
  EXPECT_EQ(report.Text(),
            u"derived.toml: 1 warning\r\n  line 11, row 6 of the display: unknown keyword \"APE\": the element is in "
            u"Elements "
            u"alone\r\n");
  EXPECT_EQ(report.Findings(), 1);
}

}  // namespace
}  // namespace wendrill::simulator
