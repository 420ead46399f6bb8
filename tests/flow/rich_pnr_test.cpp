// A PNR with every kind of element, read through everything that reads PNRs. What is expected is read off the display
// of rich_pnr.toml by hand.
#include <gtest/gtest.h>

#include <map>

#include "pnr/counts.h"
#include "pnr/pnr.h"
#include "pnr/records.h"
#include "scan/display_scans.h"
#include "scan/elements_by_kind.h"
#include "simulated_desktop.h"
#include "support/describe.h"

namespace wendrill::flow {
namespace {

using Expected = std::vector<std::pair<std::u16string_view, Value>>;

class RichPnr : public SimulatedDesktop {
 protected:
  void SetUp() override {
    LoadFile("rich_pnr");
    quillet.emplace(module);
    ASSERT_TRUE(quillet->RetrieveRecLoc(u"RCH001"));
  }

  // One record, by its index from 0.
  void ExpectRecord(GetMember member, std::int16_t index, const Expected& expected) {
    const auto bag = world.MakeParamBag();
    bag->Set(u"intKeyIndex", index);
    records.Get(member, bag);
    ExpectKeys(*bag, expected);
  }

  void ExpectRecord(const DisplayKind& kind, std::int16_t index, const Expected& expected) {
    const auto bag = world.MakeParamBag();
    bag->Set(u"intKeyIndex", index);
    scans.Get(kind, bag);
    ExpectKeys(*bag, expected);
  }

  // One element of a kind that IGetPNR knows by name.
  void ExpectElement(std::u16string_view kind, std::int16_t index, const Expected& expected) {
    const auto bag = world.MakeParamBag();
    bag->Set(u"intKeyIndex", index);
    bag->Set(u"strKeyPNRElement", kind);
    elements.Elements(bag);
    ExpectKeys(*bag, expected);
  }

  static void ExpectKeys(simulator::SimulatedBag& bag, const Expected& expected) {
    for (const auto& [key, value] : expected) {
      EXPECT_EQ(bag.Get(key), value) << ToUtf8(key);
    }
  }

  std::optional<CQuillet> quillet;
  CPNR pnr{module};
  PnrRecords records{module};
  DisplayScans scans{module};
  PnrElements elements{module, pnr, scans};
};

TEST_F(RichPnr, SaysWhatItIs) {
  EXPECT_EQ(pnr.RecordLocator(), u"RCH001");
  EXPECT_EQ(pnr.CreationOfficeID(), u"PARXX0100");
  EXPECT_EQ(pnr.CreationAgentSign(), u"0001AA");
  EXPECT_EQ(pnr.CreationDate(), u"12JUN08");
  EXPECT_EQ(NewJournal(), "retrieve RTRCH001");
}

TEST_F(RichPnr, CountsWhatTheToolkitModels) {
  const std::map<CountOf, std::int16_t> counts = {
      {CountOf::NameElements, 3},      {CountOf::TicketElements, 1},
      {CountOf::RemarkElements, 2},    {CountOf::FormOfPaymentElements, 2},
      {CountOf::HotelSegments, 1},     {CountOf::FareCommissionElements, 1},
      {CountOf::OpenAirSegments, 1},   {CountOf::OrigianlIssueElements, 1},
      {CountOf::AirSegments, 5},  // 7, less the open and the flown one
      {CountOf::ActiveAirSegments, 6}, {CountOf::INSElements, 1},
      {CountOf::MISElements, 2},       {CountOf::MailingAddressElements, 1},
      {CountOf::ContactElements, 2},   {CountOf::ConfidentialRemarkElements, 1},
      {CountOf::OptionElements, 1},    {CountOf::BillingAddressElements, 1},
      {CountOf::AllAirSegments, 7},    {CountOf::FlownAirSegments, 1},
      {CountOf::CarSegments, 2},       {CountOf::FEElements, 1},
      {CountOf::AutoTktElements, 1},   {CountOf::HTLElements, 1}};
  for (const auto& [kind, expected] : counts) {
    EXPECT_EQ(Count(module, kind), expected) << "count " << static_cast<int>(kind);
  }
}

TEST_F(RichPnr, CountsWhatOnlyTheDisplayShows) {
  const std::map<const DisplayKind*, std::int16_t> counts = {{&kSpecialServiceElements, 5},
                                                             {&kOtherServiceElements, 1},
                                                             {&kSecurityElements, 2},
                                                             {&kManualTktElements, 2},
                                                             {&kMiscTktInfoElements, 1},
                                                             {&kSURElements, 2},
                                                             {&kSPElements, 1},
                                                             {&kATXSegments, 1},
                                                             {&kMCOElements, 1}};
  for (const auto& [kind, expected] : counts) {
    EXPECT_EQ(scans.Count(*kind), expected) << kind->Name();
  }
  EXPECT_EQ(scans.Count(kValidatingAirlineElements), 1);
  EXPECT_EQ(scans.Count(kAirSequenceNrElements), 1);
}

TEST_F(RichPnr, GivesItsAirSegments) {
  ExpectRecord(GetMember::ActiveAirSegments, 1,
               {{u"strKeySegmentNr", u"6"},
                {u"strKeyAirline", u"AF"},
                {u"strKeyStatus", u"GK3"},
                {u"strKeyConfirmationNbr", u"K7PQ2R"},
                {u"strKeyDepCity", u"CDG"},
                {u"strKeyArrCity", u"LHR"},
                {u"strKeyClass", u"Y"},
                {u"blnKeyOpenSeg", false},
                {u"strKeyNumber", u"456"},
                {u"strKeyDepDate", u"15JUN08"},
                {u"strKeyDepTime", u"1200"},
                {u"strKeyArrTime", u"1220"},
                {u"strKeyDayChange", u"0"}});
  ExpectRecord(
      GetMember::ActiveAirSegments, 2,
      {{u"strKeySegmentNr", u"7"}, {u"strKeyAirline", u"SK"}, {u"blnKeyOpenSeg", true}, {u"strKeyNumber", Value()}});
  ExpectRecord(GetMember::ActiveAirSegments, 4,
               {{u"strKeySegmentNr", u"10"},
                {u"strKeyAirline", u"AF"},
                {u"strKeyStatus", u"HK2"},
                {u"strKeyConfirmationNbr", u""},
                {u"strKeyNumber", u"321"},
                {u"strKeyDayChange", u"1"}});
  ExpectRecord(GetMember::FlownAirSegments, 0, {{u"strKeyNumber", u"7700"}, {u"strKeyDepDate", u"10JUN08"}});
  ExpectRecord(GetMember::OpenAirSegments, 0, {{u"strKeyDepCity", u"LHR"}, {u"strKeyArrCity", u"CDG"}});
  ExpectRecord(GetMember::AirSegments, 3, {{u"strKeySegmentNr", u"10"}, {u"strKeyArrTime", u"0030"}});
  ExpectRecord(GetMember::AllAirSegments, 4, {{u"strKeySegment", u"8  ARNK"}, {u"strKeyArrTime", Value()}});
}

TEST_F(RichPnr, GivesItsCarsAndItsHotel) {
  ExpectRecord(GetMember::CarSegment, 0,
               {{u"strKeySegmentNr", u"11"},
                {u"strKeyCity", u"CDG"},
                {u"strKeyPuDate", u"15JUN08"},
                {u"strKeyDoCity", u"ORY"},
                {u"strKeyDoDate", u"18JUN08"},
                {u"strKeyPasAsso", u"2"},
                {u"strKeyCarCode", u"ECMN"},
                {u"strKeyPrice", u"EUR 45.00"},
                {u"strKeyPaymentBase", u"UNL DY 15.00 XH"},
                {u"blnKeyRTSVCC", false},
                {u"strKeyConfNo", u"H1234567890"},
                {u"blnKeyVchr", true}});
  ExpectRecord(GetMember::CarSegment, 1,
               {{u"strKeyPasAsso", u""},
                {u"strKeyPrice", u"USD 30.00"},
                {u"strKeyPaymentBase", u"DY"},
                {u"blnKeyRTSVCC", true}});
  ExpectRecord(GetMember::HotelSegment, 0,
               {{u"strKeyPasAsso", u"1"},
                {u"strKeyCity", u"NCE"},
                {u"strKeyInDate", u"15JUN08"},
                {u"strKeyOutDate", u"18JUN08"},
                {u"strKeyConfNo", u"98765"},
                {u"strKeyRoomRate", u"RAC"},
                {u"strKeyHotelName", u"GRAND PLAGE HOTEL"},
                {u"blnKeyRTSVCH", true},
                {u"strKeyPrice", u"EUR120.00"},
                {u"strKeyPaymentBase", u"DLY"}});
}

TEST_F(RichPnr, GivesItsNamesContactsAndRemarks) {
  ExpectRecord(GetMember::NameElement, 1,
               {{u"strKeyElementNr", u"2"},
                {u"strKeyInitial", u"ANN MRS"},
                {u"strKeyLastName", u"SMITH"},
                {u"strKeyPapType", u"INF/SMITH LEA"}});
  ExpectRecord(GetMember::ContactElements, 0,
               {{u"strKeyElement", u"18 AP NCE 04 93 00 00 00-B"}, {u"strKeyPasAsso", u""}});
  ExpectRecord(GetMember::ContactElements, 1, {{u"strKeyPasAsso", u"1"}});
  ExpectRecord(GetMember::RemarkElement, 0,
               {{u"strKeyPasAsso", u"1"}, {u"strKeySegAsso", u"5"}, {u"strKeyText", u"PAY AT AIRPORT"}});
  ExpectRecord(GetMember::ConfidentialRemarkElements, 0, {{u"strKeyElementNr", u"30"}});
  ExpectRecord(GetMember::OptionElements, 0, {{u"strKeyElementNr", u"27"}});
  ExpectRecord(GetMember::MailingAddressElements, 0, {{u"strKeyElementNr", u"42"}});
  ExpectRecord(GetMember::BillingAddressElements, 0, {{u"strKeyElementNr", u"43"}});
}

TEST_F(RichPnr, GivesItsTicketsAndFares) {
  ExpectRecord(GetMember::TicketElement, 0, {{u"strKeyAction", u"OK"}, {u"strKeyDate", u"12JUN08"}});
  ExpectRecord(GetMember::FormOfPaymentElement, 0, {{u"strKeyValue", u"CASH"}, {u"strKeyPasAsso", u""}});
  ExpectRecord(GetMember::FormOfPaymentElement, 1,
               {{u"strKeyValue", u"CC4111111111111111"},
                {u"strKeyPasAsso", u"1"},
                {u"strKeySegAsso", u"5-6"},
                {u"strKeyExpireDate", u"1210"},
                {u"strKeyManualApproval", u"123456"}});
  ExpectRecord(GetMember::FareCommissionElement, 0, {{u"strKeyValue", u"5"}});
  ExpectRecord(
      kValidatingAirlineElements, 0,
      {{u"strKeyElementNr", u"41"}, {u"strKeyAirline", u"AF"}, {u"strKeyPasAsso", u"1"}, {u"strKeySegAsso", u"5-6"}});
  ExpectRecord(kAirSequenceNrElements, 0,
               {{u"strKeyElementNr", u"32"}, {u"strKeyPasAsso", u"1"}, {u"strKeySegAsso", u"5-6"}});
}

TEST_F(RichPnr, GivesItsHeader) {
  ExpectRecord(GetMember::PNRHeader, 0,
               {{u"strKeyQueOfficeID", u"PARXX0100"},
                {u"strKeyElementNr", std::int32_t{0}},
                {u"strKeyOfficeID", u"PARXX0100"},
                {u"strKeyRecordLocator", u"RCH001"},
                {u"blnKeyAXRTag", true},
                {u"strKeyUpdateTime", u"0930"}});
}

TEST_F(RichPnr, GivesItsServiceElements) {
  ExpectElement(u"SSR", 0,
                {{u"strKeyElementNr", u"21"},
                 {u"strKeyCode", u"VGML"},
                 {u"strKeyAirline", u"AF"},
                 {u"strKeyStatus", u"HK1"},
                 {u"strKeySegAsso", u"5"},
                 {u"strKeyPasAsso", u"1"},
                 {u"blnKeyAsterix", false}});
  ExpectElement(u"SSR", 1,
                {{u"strKeyElement",
                  u"22 *SSR WCHR AF HK1 NEEDS A CHAIR TO THE GATE AND HELP WITH HER BAGS AT THE CONNECTION/S6/P2"},
                 {u"blnKeyAsterix", true},
                 {u"strKeyCode", u"WCHR"},
                 {u"strKeySegAsso", u"6"},
                 {u"strKeyPasAsso", u"2"}});
  ExpectElement(u"SSR", 2, {{u"strKeySeatNbr", u"12A,12B"}, {u"strKeyPasAsso", u"1,2"}, {u"blnKeySeat", u"True"}});
  ExpectElement(u"SSR", 3, {{u"strKeyFFNnumber", u"AF1234567890"}});
  ExpectElement(u"SSR", 4, {{u"strKeyCode", u"OTHS"}, {u"strKeyStatus", u""}});
  ExpectElement(u"OSI", 0, {{u"strKeyElementNr", u"26"}, {u"strKeyAirline", u"AF"}});
}

TEST_F(RichPnr, GivesItsTicketingLines) {
  ExpectElement(u"FH", 0,
                {{u"strKeyElementNr", u"34"},
                 {u"strKeyTktNbr", u"057-1234567891"},
                 {u"strKeyAirline", u"057"},
                 {u"strKeySegAsso", u"9"},
                 {u"strKeyPasAsso", u"2"},
                 {u"blnKeyManual", true},
                 {u"blnKeyElectronic", false}});
  ExpectElement(u"FH", 1, {{u"blnKeyManual", false}, {u"blnKeyElectronic", true}});
  ExpectElement(u"FS", 0,
                {{u"strKeyElementNr", u"40"},
                 {u"strKeyTourCode", u"ITX08"},
                 {u"strKeyNetFare", u"EUR200.00"},
                 {u"strKeySellFare", u"EUR320.00"}});
  ExpectElement(u"FA", 0,
                {{u"strKeyElementNr", u"31"}, {u"strKeyTktNbr", u"057-1234567890"}, {u"strKeyPasAsso", u"1"}});
  ExpectElement(u"FE", 0, {{u"strKeyElementNr", u"33"}, {u"strKeyPasAsso", u"1"}});
  ExpectElement(u"INS", 0, {{u"strKeyElement", u"QT HK1 TRAVEL COVER EUR25.00"}, {u"strKeyElementNr", u"44"}});
  ExpectElement(u"HTL", 0, {{u"strKeyElementNr", u"14"}});
}

TEST_F(RichPnr, GivesOnlyTheEmptyFirstEntryOfTheKindsThatAreKeptFromIndex1) {
  ExpectElement(u"* SP", 0, {{u"strKeyElement", u""}, {u"strKeyRecLoc", u""}});
  ExpectElement(u"ATX", 0, {{u"strKeyProvider", u""}});
  ExpectElement(u"MCO", 0, {{u"strKeyFare", u""}});
  ExpectElement(u"SUR", 1,
                {{u"strKeyElementNr", u"46"},
                 {u"strKeyAddress", u"12 RUE DE LYON"},
                 {u"strKeyPUTime", u"0830"},
                 {u"blnKeyArrival", true},
                 {u"blnKeyDeparture", false},
                 {u"strKeyPasAsso", u"1"}});
}

TEST_F(RichPnr, GivesAnMisElementWithoutThePaddingOfTheHostsWrap) {
  ExpectElement(
      u"MIS", 1,
      {{u"strKeySegmentNr", u"17"},
       {u"strKeySegment", u"17 MIS QT HK1 LYS 21JUN-GUIDED TOUR OF THE OLD TOWN WITH LUNCH ON THE RIVERBOAT"}});
}

TEST_F(RichPnr, GivesTheLinesOfAKeyword) {
  const ParamBagRef bag = world.MakeParamBag();
  bag->Set(u"strKeyPNRElement", u"ALL");
  bag->Set(u"strKeyFind()", TextArray{0, {u"", u"rm"}});
  const ParamBagRef found = elements.Elements(bag);
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->Get(u"strKeyResult()"),
            Value(TextArray{1, {u"RM PAY AT AIRPORT/S5/P1", u"RM WINDOW SEATS WANTED"}}));
  EXPECT_EQ(found->Get(u"strKeyElementNbrs()"), Value(TextArray{1, {u"28", u"29"}}));
}

TEST_F(RichPnr, LeavesNoElementAlive) {
  module.TextHelper.reset();
  const std::int32_t before = world.LiveObjects();
  ExpectRecord(GetMember::CarSegment, 0, {{u"strKeyCity", u"CDG"}});
  ExpectElement(u"SUR", 1, {{u"strKeyPUTime", u"0830"}});
  module.TextHelper.reset();
  EXPECT_EQ(world.LiveObjects(), before);
}

}  // namespace
}  // namespace wendrill::flow
