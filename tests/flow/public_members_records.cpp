// IGet and IGetPNR: one element as a keyed record. What is expected is read off rich_pnr.toml by hand.
#include <variant>

#include "common/text.h"
#include "public_member_tables.h"
#include "support/us_text.h"

namespace wendrill::flow {
namespace {

// The bag before each call: the index, and the kind for IGetPNR.
std::function<void(MemberDesk&)> AskingFor(std::int16_t index, std::u16string_view kind = {}) {
  return [index, kind](MemberDesk& desk) {
    desk.Quillet().RetrieveRecLoc(u"RCH001");
    desk.Bag().Set(u"intKeyIndex", index);
    if (!kind.empty()) {
      desk.Bag().Set(u"strKeyPNRElement", kind);
    }
  };
}

struct Record {
  std::u16string_view member;
  std::variant<GetMember, const DisplayKind*> source;  // the PNR object or the display
  std::int32_t number;
  std::int16_t index;  // from 0
  std::u16string_view key;
  std::u16string_view result;  // what stands under the key
};

constexpr Record kRecords[] = {
    {u"IGet.ActiveAirSegments", GetMember::ActiveAirSegments, 2205, 1, u"strKeyConfirmationNbr", u"K7PQ2R"},
    {u"IGet.AirSegments", GetMember::AirSegments, 2207, 3, u"strKeyArrTime", u"0030"},
    {u"IGet.AllAirSegments", GetMember::AllAirSegments, 2209, 4, u"strKeySegment", u"8  ARNK"},
    {u"IGet.BillingAddressElements", GetMember::BillingAddressElements, 2235, 0, u"strKeyElementNr", u"43"},
    {u"IGet.CarSegment", GetMember::CarSegment, 2211, 0, u"strKeyPrice", u"EUR 45.00"},
    {u"IGet.ConfidentialRemarkElements", GetMember::ConfidentialRemarkElements, 2241, 0, u"strKeyElementNr", u"30"},
    {u"IGet.ContactElements", GetMember::ContactElements, 2239, 1, u"strKeyPasAsso", u"1"},
    {u"IGet.FareCommissionElement", GetMember::FareCommissionElement, 2215, 0, u"strKeyValue", u"5"},
    {u"IGet.FlownAirSegments", GetMember::FlownAirSegments, 2217, 0, u"strKeyNumber", u"7700"},
    {u"IGet.FormOfPaymentElement", GetMember::FormOfPaymentElement, 2219, 0, u"strKeyValue", u"CASH"},
    {u"IGet.HotelSegment", GetMember::HotelSegment, 2221, 0, u"strKeyHotelName", u"GRAND PLAGE HOTEL"},
    {u"IGet.MailingAddressElements", GetMember::MailingAddressElements, 2237, 0, u"strKeyElementNr", u"42"},
    {u"IGet.NameElement", GetMember::NameElement, 2223, 1, u"strKeyInitial", u"ANN MRS"},
    {u"IGet.OpenAirSegments", GetMember::OpenAirSegments, 2225, 0, u"strKeyDepCity", u"LHR"},
    {u"IGet.OptionElements", GetMember::OptionElements, 2237, 0, u"strKeyElementNr", u"27"},
    {u"IGet.PNRHeader", GetMember::PNRHeader, 2227, 0, u"strKeyOfficeID", u"PARXX0100"},
    {u"IGet.RemarkElement", GetMember::RemarkElement, 2229, 0, u"strKeyText", u"PAY AT AIRPORT"},
    {u"IGet.TicketElement", GetMember::TicketElement, 2231, 0, u"strKeyDate", u"12JUN08"},
    {u"IGet.ValidatingAirlineElement", &kValidatingAirlineElements, 2233, 0, u"strKeyAirline", u"AF"},
    {u"IGet.AirSequenceNrElement", &kAirSequenceNrElements, 2213, 0, u"strKeyElementNr", u"32"},
};

// A record's own number is for an index out of range alone; every failing call, the bag's too, stays what it is. The
// validating airlines are the exception: their count passes over the failure, and no index is below the 0 that it
// gives.
Steps StepsOf(const Record& record) {
  if (record.member == u"IGet.ValidatingAirlineElement") {
    return {{u"Get", Meets::ToolkitsError},
            {u"Text", Meets::OwnNumber, kNothingNew, kAnyNumber},
            {u"Set", Meets::ToolkitsError, kNothingNew, 5}};
  }
  return kAllAsTheToolkits;
}

struct Kind {
  std::u16string_view kind;
  std::int32_t number;  // for an index out of range; 0: it shows nothing
  Meets failures;       // what the other failures become
  std::int16_t index;
  std::u16string_view key;
  std::u16string_view result;
};

// Surface segments, split-party entries, ATX segments and MCO documents stand after an empty place, so index 0 shows
// nothing and the last one is out of reach.
constexpr Kind kKinds[] = {
    {u"ATX", 0, Meets::ToolkitsError, 0, u"strKeyProvider", u""},
    {u"* SP", 2259, Meets::OwnNumber, 0, u"strKeyRecLoc", u""},
    {u"SUR", 2258, Meets::OwnNumber, 1, u"strKeyPUTime", u"0830"},
    {u"FH", 2245, Meets::OwnNumber, 0, u"strKeyTktNbr", u"057-1234567891"},
    {u"FA", 2255, Meets::OwnNumber, 0, u"strKeyPasAsso", u"1"},
    {u"FE", 2256, Meets::OwnNumber, 0, u"strKeyText", u"NONREF NONEND"},
    {u"FS", 2251, Meets::OwnNumber, 0, u"strKeyTourCode", u"ITX08"},
    {u"OSI", 2249, Meets::OwnNumber, 0, u"strKeyAirline", u"AF"},
    {u"SSR", 2247, Meets::OwnNumber, 0, u"strKeyCode", u"VGML"},
    {u"ES", 2253, Meets::OwnNumber, 0, u"strKeyAccessMode", u"G"},
    {u"MIS", 2206, Meets::ToolkitsError, 0, u"strKeySegmentNr", u"16"},
    {u"MCO", 2260, Meets::OwnNumber, 0, u"strKeyFare", u""},
    {u"INS", 2261, Meets::OwnNumber, 0, u"strKeyElement", u"QT HK1 TRAVEL COVER EUR25.00"},
    {u"HTL", 2261, Meets::OwnNumber, 0, u"strKeyElementNr", u"14"},
};

constexpr std::int32_t kAccessFailed = 2252;

// Reading the kind fails with the number of the access itself, whatever the kind.
Steps StepsOf(const Kind& kind) {
  return Steps{{u"Get", Meets::OwnNumber, kNothingNew, 1, kAccessFailed}} +
         (kind.failures == Meets::ToolkitsError ? kAllAsTheToolkits : kAllAsOwn);
}

using Run = std::function<std::u16string(MemberDesk&)>;

// What stands under a key when the run is over.
Run Reading(std::u16string_view key) {
  return [key](MemberDesk& desk) { return testing::ToUsText(desk.Bag().Get(key)); };
}

Run Elements() {
  return [](MemberDesk& desk) {
    desk.bagOfResults = desk.elements.Elements(desk.bag);
    return std::u16string();
  };
}

std::vector<MemberRun> OneRecordEach() {
  std::vector<MemberRun> runs;
  for (const Record& record : kRecords) {
    const auto get = [source = record.source](MemberDesk& desk) {
      if (const auto* member = std::get_if<GetMember>(&source)) {
        desk.records.Get(*member, desk.bag);
      } else {
        desk.scans.Get(*std::get<const DisplayKind*>(source), desk.bag);
      }
      return std::u16string();
    };
    runs.push_back({record.member, "", record.number, AskingFor(record.index), get, std::u16string(record.result),
                    kNothingNew, StepsOf(record), Reading(record.key)});
  }
  return runs;
}

std::vector<MemberRun> OneElementOfEachKind() {
  std::vector<MemberRun> runs;
  for (const Kind& kind : kKinds) {
    runs.push_back({u"IGetPNR.Elements", ToUtf8(kind.kind), kind.number, AskingFor(kind.index, kind.kind), Elements(),
                    std::u16string(kind.result), kNothingNew, StepsOf(kind), Reading(kind.key)});
  }
  return runs;
}

// All remarks, in a new bag. The entry at index 0 is not looked for.
MemberRun AllRemarks() {
  const auto prepare = [](MemberDesk& desk) {
    AskingFor(0, u"ALL")(desk);
    desk.Bag().Set(u"strKeyFind()", TextArray{.lowerBound = 0, .items = {u"", u"RM"}});
  };
  const auto read = [](MemberDesk& desk) {
    const Value texts = BagOf(desk.bagOfResults).Get(u"strKeyResult()");
    return texts.As<TextArray>()->items.at(1);
  };
  return {u"IGetPNR.Elements",       "ALL",       kAccessFailed, prepare, Elements(),
          u"RM WINDOW SEATS WANTED", kNothingNew, kAllAsOwn,     read};
}

// A kind that nobody knows is none.
MemberRun UnknownKind() {
  return {u"IGetPNR.Elements", "unknown kind", kAccessFailed, AskingFor(0, u"XX"), Elements(), u"",
          kNothingNew,         kAllAsOwn};
}

}  // namespace

std::vector<MemberRun> RecordRuns() {
  std::vector<MemberRun> runs = OneRecordEach();
  const std::vector<MemberRun> kinds = OneElementOfEachKind();
  runs.insert(runs.end(), kinds.begin(), kinds.end());
  runs.push_back(AllRemarks());
  runs.push_back(UnknownKind());
  return runs;
}

}  // namespace wendrill::flow
