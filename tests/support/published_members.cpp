#include "support/published_members.h"

#include <algorithm>
#include <utility>

namespace wendrill::testing {
namespace {

// The types in the table are: string, Boolean, 16-bit, 32-bit (signed), Variant, object (any automation object), "array
// of" such a type, or the name of a published type.
constexpr char kText[] = "string";
constexpr char kBoolean[] = "Boolean";
constexpr char kInteger[] = "16-bit";
constexpr char kLong[] = "32-bit";
constexpr char kObject[] = "object";
constexpr char kEntry[] = "strCommand string";
constexpr char kBag[] = "objParams object by reference";

// A count property of CPNR.
PublishedMember Count(std::string name) {
  return {std::move(name), "get", "", kInteger};
}

// A member of IGet or IGetPNR: its parameter is a parameter bag, its result is a parameter bag or Nothing.
PublishedMember Record(std::string name, std::int32_t id) {
  return {std::move(name), "method", kBag, kObject, id};
}

}  // namespace

const std::vector<PublishedInterface>& PublishedInterfaces() {
  static const std::vector<PublishedInterface> interfaces = {
      {"_CQuillet",
       {
           {"Command", "get", "", kText},
           {"Command", "put", kText},
           {"ConnectSession", "method", "strSession string"},
           {"SendCommand", "method", kEntry, kText},
           {"SendCommandNoClear", "method", kEntry, kText},
           {"SendCommandNoTransmit", "method", kEntry, kText},
           {"SendCommandGetAll", "method", kEntry, kText},
           {"SendCommandGetAllNoClear", "method", kEntry, kText},
           {"SendCommandLines", "method", "strCommand string, strLinenumberStart string, strNoPages string", kText},
           {"SendCommandCollectPages", "method", "strCommand string, vntPages Variant by reference", kText},
           {"SendCommandFI", "method", "strCommand string, objParams object by reference", kText},
           {"SendCommandTicsPas", "method", kBag, kText},
           {"GetTotalHostResponse", "method", "", kText},
           {"LastBuffer", "get", "", kText},
           {"LastResponseType", "get", "", kInteger},
           {"LastNumberOfColumns", "get", "", kInteger},
           {"LastNumberOfLines", "get", "", kInteger},
           {"LastHostCommand", "get", "", kText},
           {"LastText", "get", "", kText},
           {"GetLineFromLastBuffer", "method", "LineIndex 16-bit", kText},
           {"GetSessionList", "get", "", kText},
           {"StopLoop", "method"},
           {"RetrieveCurrent", "method", "", kLong},
           {"RetrieveRecLoc", "method", "strRecLoc string", kBoolean},
           {"SplitPNR", "method", "strPasAsso string", kBoolean},
           {"ReadPNR", "method", kEntry, kBoolean},
           {"SendKey", "method", "keyValue QuilletKeyValues by reference"},
           {"ChangeSMOD", "method", "intSMOD 16-bit, optional intFORM 16-bit = 0"},
           {"LockAlarm", "method"},
           {"UnLockAlarm", "method"},
           {"LockUnLockAlarm", "method", "blnLockUnLock Boolean", kInteger},
           {"mTmpSession_ReceivedResponse", "hidden method", "newResponse object"},
       }},
      {"_CPNR",
       {
           {"Command", "get", "", kText},
           {"Command", "put", kText},
           {"PNR", "get", "", kObject},
           {"PNR", "put", kObject},
           {"Text", "get", "", kText},
           {"RecordLocator", "get", "", kText},
           {"CreationOfficeID", "get", "", kText},
           {"CreationAgentSign", "get", "", kText},
           {"CreationDate", "get", "", kText},
           Count("NameElementsCount"),
           Count("TicketElementsCount"),
           Count("RemarkElementsCount"),
           Count("FormOfPaymentElementsCount"),
           Count("HotelSegmentsCount"),
           Count("FareCommissionElementsCount"),
           Count("OpenAirSegmentsCount"),
           Count("OrigianlIssueElementsCount"),
           Count("AirSegmentsCount"),
           Count("ActiveAirSegmentsCount"),
           Count("INSElementsCount"),
           Count("MISElementsCount"),
           Count("MailingAddressElementsCount"),
           Count("ContactElementsCount"),
           Count("ConfidentialRemarkElementsCount"),
           Count("OptionElementsCount"),
           Count("BillingAddressElementsCount"),
           Count("AllAirSegmentsCount"),
           Count("FlownAirSegmentsCount"),
           Count("CarSegmentsCount"),
           Count("FEElementsCount"),
           Count("AutoTktElementsCount"),
           Count("HTLElementsCount"),
           Count("ValidatingAirlineElementsCount"),
           Count("AirSequenceNrElementsCount"),
           Count("SpecialServiceElementsCount"),
           Count("OtherServiceElementsCount"),
           Count("SecurityElementsCount"),
           Count("ManualTktElementsCount"),
           Count("MiscTktInfoElementsCount"),
           Count("SURElementsCount"),
           Count("SPElementsCount"),
           Count("ATXSegmentsCount"),
           Count("MCOElementsCount"),
       }},
      {"_CQueue",
       {
           // A compiled client that omits sKey passes a null pointer.
           {"Add", "method", "Command string by reference, optional sKey string by reference", "_CQuillet"},
           {"Item", "method", "vntIndexKey Variant", "_CQuillet", 0},  // the default member
           {"Count", "get", "", kLong},
           {"Remove", "method", "vntIndexKey Variant"},
           {"RemoveAll", "method"},
           {"NewEnum", "restricted get", "", "IUnknown", -4},  // DISPID_NEWENUM, which For Each calls
       }},
      {"_CBatch",
       {
           {"Commands", "get", "", "_CQueue"},
           {"Commands", "set", "_CQueue"},
           {"Separator", "get", "", kText},
           {"Separator", "put", kText},
           {"Submit", "method"},
           {"SubmitWithResponse", "method", "objResponse object by reference"},
           {"RMBatch", "method", "strString string, strRMElement array of string by reference"},
       }},
      {"_CEncodeUtils", {{"EncodeSession", "get", "", kObject}}},
      {"_IGet",
       {
           Record("ActiveAirSegments", 0x60030000),
           Record("AirSegments", 0x60030001),
           Record("AllAirSegments", 0x60030002),
           Record("BillingAddressElements", 0x6003000F),
           Record("CarSegment", 0x60030003),
           Record("ConfidentialRemarkElements", 0x60030010),
           Record("ContactElements", 0x60030011),
           Record("FareCommissionElement", 0x60030004),
           Record("FlownAirSegments", 0x60030005),
           Record("FormOfPaymentElement", 0x60030006),
           Record("HotelSegment", 0x60030007),
           Record("MailingAddressElements", 0x60030012),
           Record("NameElement", 0x60030008),
           Record("OpenAirSegments", 0x60030009),
           Record("OptionElements", 0x60030013),
           Record("PNRHeader", 0x6003000A),
           Record("RemarkElement", 0x6003000B),
           Record("TicketElement", 0x6003000C),
           Record("ValidatingAirlineElement", 0x6003000D),
           Record("AirSequenceNrElement", 0x6003000E),
       }},
      {"_IGetPNR", {Record("Elements", 0x60030000)}},
  };
  return interfaces;
}

std::size_t PublishedMemberCount(const std::vector<std::string>& interfaces) {
  std::size_t count = 0;
  for (const PublishedInterface& published : PublishedInterfaces()) {
    const bool isNamed = std::ranges::find(interfaces, published.name) != interfaces.end();
    count += interfaces.empty() || isNamed ? published.members.size() : 0;
  }
  return count;
}

}  // namespace wendrill::testing
