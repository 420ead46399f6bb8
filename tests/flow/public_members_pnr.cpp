// CPNR: what it says about itself and its counts. What is expected is read off rich_pnr.toml by hand.
#include "common/text.h"
#include "pnr/counts.h"
#include "public_member_tables.h"

namespace wendrill::flow {
namespace {

void Retrieve(MemberDesk& desk) {
  desk.Quillet().RetrieveRecLoc(u"RCH001");
}

struct ToolkitCount {
  std::u16string_view member;
  CountOf kind;
  std::u16string_view result;
};

constexpr ToolkitCount kToolkitCounts[] = {
    {u"CPNR.NameElementsCount", CountOf::NameElements, u"3"},
    {u"CPNR.TicketElementsCount", CountOf::TicketElements, u"1"},
    {u"CPNR.RemarkElementsCount", CountOf::RemarkElements, u"2"},
    {u"CPNR.FormOfPaymentElementsCount", CountOf::FormOfPaymentElements, u"2"},
    {u"CPNR.HotelSegmentsCount", CountOf::HotelSegments, u"1"},
    {u"CPNR.FareCommissionElementsCount", CountOf::FareCommissionElements, u"1"},
    {u"CPNR.OpenAirSegmentsCount", CountOf::OpenAirSegments, u"1"},
    {u"CPNR.OrigianlIssueElementsCount", CountOf::OrigianlIssueElements, u"1"},
    {u"CPNR.AirSegmentsCount", CountOf::AirSegments, u"5"},
    {u"CPNR.ActiveAirSegmentsCount", CountOf::ActiveAirSegments, u"6"},
    {u"CPNR.INSElementsCount", CountOf::INSElements, u"1"},
    {u"CPNR.MISElementsCount", CountOf::MISElements, u"2"},
    {u"CPNR.MailingAddressElementsCount", CountOf::MailingAddressElements, u"1"},
    {u"CPNR.ContactElementsCount", CountOf::ContactElements, u"2"},
    {u"CPNR.ConfidentialRemarkElementsCount", CountOf::ConfidentialRemarkElements, u"1"},
    {u"CPNR.OptionElementsCount", CountOf::OptionElements, u"1"},
    {u"CPNR.BillingAddressElementsCount", CountOf::BillingAddressElements, u"1"},
    {u"CPNR.AllAirSegmentsCount", CountOf::AllAirSegments, u"7"},
    {u"CPNR.FlownAirSegmentsCount", CountOf::FlownAirSegments, u"1"},
    {u"CPNR.CarSegmentsCount", CountOf::CarSegments, u"2"},
    {u"CPNR.FEElementsCount", CountOf::FEElements, u"1"},
    {u"CPNR.AutoTktElementsCount", CountOf::AutoTktElements, u"1"},
    {u"CPNR.HTLElementsCount", CountOf::HTLElements, u"1"},
};

// Scanners end in numbers of their own; two of them have none.
struct ScannedCount {
  std::u16string_view member;
  const DisplayKind* kind;
  std::int32_t number;
  std::u16string_view result;
};

constexpr ScannedCount kScannedCounts[] = {
    {u"CPNR.SpecialServiceElementsCount", &kSpecialServiceElements, 2035, u"5"},
    {u"CPNR.OtherServiceElementsCount", &kOtherServiceElements, 2030, u"1"},
    {u"CPNR.SecurityElementsCount", &kSecurityElements, 2035, u"2"},
    {u"CPNR.ManualTktElementsCount", &kManualTktElements, 2020, u"2"},
    {u"CPNR.MiscTktInfoElementsCount", &kMiscTktInfoElements, 2025, u"1"},
    {u"CPNR.SURElementsCount", &kSURElements, 0, u"2"},
    {u"CPNR.SPElementsCount", &kSPElements, 2056, u"1"},
    {u"CPNR.ATXSegmentsCount", &kATXSegments, 0, u"1"},
    {u"CPNR.MCOElementsCount", &kMCOElements, 2057, u"1"},
};

std::vector<MemberRun> CountRuns() {
  std::vector<MemberRun> runs;
  for (const ToolkitCount& row : kToolkitCounts) {
    runs.push_back({row.member, "", 0, Retrieve,
                    [kind = row.kind](MemberDesk& desk) { return DecimalText(Count(desk.module, kind)); },
                    std::u16string(row.result), kNothingNew, kAllAsTheToolkits});
  }
  for (const ScannedCount& row : kScannedCounts) {
    runs.push_back({row.member, "", row.number, Retrieve,
                    [kind = row.kind](MemberDesk& desk) { return DecimalText(desk.scans.Count(*kind)); },
                    std::u16string(row.result), kNothingNew, row.number == 0 ? kAllAsTheToolkits : kAllAsOwn});
  }
  return runs;
}

}  // namespace

std::vector<MemberRun> PnrRuns() {
  const auto assign = [](MemberDesk& desk) {
    desk.pnr.SetPNR(nullptr);
    return std::u16string();
  };
  std::vector<MemberRun> runs = {
      Creation({u"CPNR", "", 0, {}, [](MemberDesk&) { return std::u16string(); }, u"", kNothingNew, {}}),
      {u"CPNR.Command", "", 0, Retrieve, [](MemberDesk& desk) { return desk.pnr.Command(); }, u"", kNothingNew, {}},
      {u"CPNR.Command put",
       "",
       0,
       Retrieve,
       [](MemberDesk& desk) {
         desk.pnr.SetCommand(u"RT");
         return desk.pnr.Command();
       },
       u"RT",
       kNothingNew,
       {}},
      {u"CPNR.PNR",
       "",
       0,
       Retrieve,
       [](MemberDesk& desk) -> std::u16string { return desk.pnr.PNR() ? u"a PNR" : u"Nothing"; },
       u"a PNR",
       kNothingNew,
       {}},
      // Assigns to the PNR object's default property; the reference stays.
      {u"CPNR.PNR put", "", 0, Retrieve, assign, u"", kNothingNew, kAllAsTheToolkits},
      {u"CPNR.Text", "", 0, Retrieve, [](MemberDesk& desk) { return desk.pnr.Text().substr(0, 15); },
       u"--- TST AXR ---", kNothingNew, kAllAsTheToolkits},
      {u"CPNR.RecordLocator", "", 0, Retrieve, [](MemberDesk& desk) { return desk.pnr.RecordLocator(); }, u"RCH001",
       kNothingNew, kAllAsTheToolkits},
      {u"CPNR.CreationOfficeID", "", 0, Retrieve, [](MemberDesk& desk) { return desk.pnr.CreationOfficeID(); },
       u"PARXX0100", kNothingNew, kAllAsTheToolkits},
      {u"CPNR.CreationAgentSign", "", 0, Retrieve, [](MemberDesk& desk) { return desk.pnr.CreationAgentSign(); },
       u"0001AA", kNothingNew, kAllAsTheToolkits},
      {u"CPNR.CreationDate", "", 0, Retrieve, [](MemberDesk& desk) { return desk.pnr.CreationDate(); }, u"12JUN08",
       kNothingNew, kAllAsTheToolkits},
      // A failure ends the scan without an error: nothing was counted.
      {u"CPNR.ValidatingAirlineElementsCount",
       "",
       0,
       Retrieve,
       [](MemberDesk& desk) { return DecimalText(desk.scans.Count(kValidatingAirlineElements)); },
       u"1",
       kNothingNew,
       {{kEveryCall, Meets::Nothing, kNothingNew, kAnyNumber, 0, u"0"}}},
      {u"CPNR.AirSequenceNrElementsCount", "", 2015, Retrieve,
       [](MemberDesk& desk) { return DecimalText(desk.scans.Count(kAirSequenceNrElements)); }, u"1", kNothingNew,
       kAllAsTheToolkits},
  };
  const std::vector<MemberRun> counts = CountRuns();
  runs.insert(runs.end(), counts.begin(), counts.end());
  return runs;
}

}  // namespace wendrill::flow
