#include "sections.h"

#include <algorithm>
#include <stdexcept>

#include "pnr/accessor_tables.h"
#include "scan/toolkit_elements.h"

namespace wendrill::tool {
namespace {

// The plain name and the form of the field for each of the library's keys.
constexpr Field kNames[] = {
    {u"strKeyElement", "text", FieldForm::Text},
    {u"strKeyElementNr", "no", FieldForm::Text},
    {u"strKeySegment", "text", FieldForm::Text},
    {u"strKeySegmentNr", "no", FieldForm::Text},
    {u"strKeyAirline", "airline", FieldForm::Text},
    {u"strKeyNumber", "number", FieldForm::Text},
    {u"strKeyClass", "class", FieldForm::Text},
    {u"strKeyDepDate", "date", FieldForm::Day},
    {u"strKeyDepCity", "from", FieldForm::Text},
    {u"strKeyArrCity", "to", FieldForm::Text},
    {u"strKeyStatus", "status", FieldForm::Text},
    {u"strKeyDepTime", "departs", FieldForm::Text},
    {u"strKeyArrTime", "arrives", FieldForm::Text},
    {u"strKeyDayChange", "day_change", FieldForm::Text},
    {u"strKeyConfirmationNbr", "confirmation", FieldForm::Text},
    {u"blnKeyOpenSeg", "open", FieldForm::Flag},
    {u"strKeyLastName", "last_name", FieldForm::Text},
    {u"strKeyInitial", "first_name", FieldForm::Text},
    {u"strKeyPapType", "type", FieldForm::Text},
    {u"strKeyPasAsso", "passengers", FieldForm::Text},
    {u"strKeySegAsso", "segments", FieldForm::Text},
    {u"strKeyText", "free_text", FieldForm::Text},
    {u"strKeyFreeText", "free_text", FieldForm::Text},
    {u"strKeyCity", "city", FieldForm::Text},
    {u"strKeyPuDate", "pick_up", FieldForm::Day},
    {u"strKeyDoCity", "drop_off_city", FieldForm::Text},
    {u"strKeyDoDate", "drop_off", FieldForm::Day},
    {u"strKeyCarCode", "car", FieldForm::Text},
    {u"strKeyPrice", "price", FieldForm::Text},
    {u"strKeyPaymentBase", "payment_base", FieldForm::Text},
    {u"blnKeyRTSVCC", "see_rtsvcc", FieldForm::Flag},
    {u"blnKeyRTSVCH", "see_rtsvch", FieldForm::Flag},
    {u"blnKeyVchr", "voucher", FieldForm::Flag},
    {u"strKeyConfNo", "confirmation", FieldForm::Text},
    {u"strKeyInDate", "check_in", FieldForm::Day},
    {u"strKeyOutDate", "check_out", FieldForm::Day},
    {u"strKeyRoomRate", "rate", FieldForm::Text},
    {u"strKeyHotelName", "hotel", FieldForm::Text},
    {u"strKeyAction", "action", FieldForm::Text},
    {u"strKeyDate", "date", FieldForm::Day},
    {u"strKeyValue", "value", FieldForm::Text},
    {u"strKeyExpireDate", "expires", FieldForm::Text},
    {u"strKeyManualApproval", "approval", FieldForm::Text},
    {u"strKeyTktNbr", "ticket", FieldForm::Text},
    {u"blnKeyManual", "manual", FieldForm::Flag},
    {u"blnKeyAutomated", "automated", FieldForm::Flag},
    {u"blnKeyElectronic", "electronic", FieldForm::Flag},
    {u"strKeyCode", "code", FieldForm::Text},
    {u"strKeyFFNnumber", "frequent_flyer", FieldForm::Text},
    {u"strKeySeatNbr", "seats", FieldForm::Text},
    {u"blnKeySeat", "is_seat", FieldForm::Flag},
    {u"blnKeyAsterix", "flagged", FieldForm::Flag},
    {u"strKeyItem", "item", FieldForm::Text},
    {u"strKeyOfficeID", "office", FieldForm::Text},
    {u"strKeyAccessMode", "access", FieldForm::Text},
    {u"strKeyTourCode", "tour", FieldForm::Text},
    {u"strKeyNetFare", "net_fare", FieldForm::Text},
    {u"strKeySellFare", "sell_fare", FieldForm::Text},
    {u"strKeyAddress", "address", FieldForm::Text},
    {u"strKeyPUTime", "pick_up_time", FieldForm::Text},
    {u"blnKeyArrival", "arrival", FieldForm::Flag},
    {u"blnKeyDeparture", "departure", FieldForm::Flag},
    {u"strKeyRecLoc", "locator", FieldForm::Text},
    {u"strKeyProvider", "provider", FieldForm::Text},
    {u"strKeyOrigin", "origin", FieldForm::Text},
    {u"strKeyFare", "fare", FieldForm::Text},
    {u"strKeyServiceType", "service", FieldForm::Text},
    {u"strKeyMCOFAElement", "fa", FieldForm::Text},
    {u"strKeyMCOFATicketNbr", "fa_ticket", FieldForm::Text},
    {u"strKeyMCOFPElement", "fp", FieldForm::Text},
    {u"strKeyMCOFMElement", "fm", FieldForm::Text},
};

// The field for a key of the library. Throws std::logic_error when kNames does not have the key. The returned field has
// the view `key` itself, so that a later comparison with this key needs to compare the addresses only.
Field FieldOfKey(TextView key) {
  const auto* found = std::ranges::find(kNames, key, &Field::key);
  if (found == std::end(kNames)) {
    throw std::logic_error("no plain name for " + ToUtf8(key));
  }
  return {key, found->name, found->form};
}

struct KeysOf {
  std::vector<Field> operator()(const Accessor* accessor) const { return Of(accessor->keys); }
  std::vector<Field> operator()(const DisplayKind* kind) const { return Of(kind->keys); }
  std::vector<Field> operator()(NumberAndText /*source*/) const {
    return {FieldOfKey(u"strKeyElement"), FieldOfKey(u"strKeyElementNr")};
  }

  template <typename Keys>
  static std::vector<Field> Of(const Keys& keys) {
    std::vector<Field> fields;
    for (const auto& key : keys) {
      fields.push_back(FieldOfKey(key.name));
    }
    return fields;
  }
};

std::vector<Section> AllSections() {
  constexpr std::int32_t kOriginalIssues = 30;
  const auto get = [](GetMember member) { return Source(CollectionAccessor(member)); };
  std::vector<Section> sections = {
      {.kind = "names", .member = "NameElement", .source = get(GetMember::NameElement)},
      // With plain names, all air segments are read with the keys of ActiveAirSegments, which has the most keys.
      {.kind = "air", .member = "ActiveAirSegments", .source = get(GetMember::ActiveAirSegments)},
      {.kind = "air", .member = "AirSegments", .isPlain = false, .source = get(GetMember::AirSegments)},
      {.kind = "air", .member = "AllAirSegments", .isPlain = false, .source = get(GetMember::AllAirSegments)},
      {.kind = "air", .member = "FlownAirSegments", .isPlain = false, .source = get(GetMember::FlownAirSegments)},
      {.kind = "air", .member = "OpenAirSegments", .isPlain = false, .source = get(GetMember::OpenAirSegments)},
      {.kind = "cars", .member = "CarSegment", .source = get(GetMember::CarSegment)},
      {.kind = "hotels", .member = "HotelSegment", .source = get(GetMember::HotelSegment)},
      {.kind = "hotel_lines", .member = "HTL", .ofElements = true, .source = &kHotelLine},
      {.kind = "misc", .member = "MIS", .ofElements = true, .source = &MisAccessor()},
      {.kind = "insurance", .member = "INS", .ofElements = true, .source = &kInsurance},
      {.kind = "atx", .member = "ATX", .ofElements = true, .source = &kATXSegments, .mark = u"ATX"},
      {.kind = "surface", .member = "SUR", .ofElements = true, .source = &kSURElements, .mark = u"SUR"},
      {.kind = "ssr", .member = "SSR", .ofElements = true, .source = &kSpecialServiceElements, .mark = u"SSR"},
      {.kind = "osi", .member = "OSI", .ofElements = true, .source = &kOtherServiceElements, .mark = u"OSI"},
      {.kind = "contacts", .member = "ContactElements", .source = get(GetMember::ContactElements)},
      {.kind = "tickets", .member = "TicketElement", .source = get(GetMember::TicketElement)},
      {.kind = "options", .member = "OptionElements", .source = get(GetMember::OptionElements)},
      {.kind = "remarks", .member = "RemarkElement", .source = get(GetMember::RemarkElement)},
      {.kind = "confidential_remarks",
       .member = "ConfidentialRemarkElements",
       .source = get(GetMember::ConfidentialRemarkElements)},
      {.kind = "mailing_addresses",
       .member = "MailingAddressElements",
       .source = get(GetMember::MailingAddressElements)},
      {.kind = "billing_addresses",
       .member = "BillingAddressElements",
       .source = get(GetMember::BillingAddressElements)},
      {.kind = "documents", .member = "MCO", .ofElements = true, .source = &kMCOElements, .mark = u"MCO"},
      {.kind = "split_parties", .member = "* SP", .ofElements = true, .source = &kSPElements, .mark = u"* SP"},
      {.kind = "security", .member = "ES", .ofElements = true, .source = &kSecurityElements, .mark = u"* ES/"},
      {.kind = "automatic_tickets", .member = "FA", .isFare = true, .ofElements = true, .source = &kAutoTicket},
      {.kind = "manual_tickets",
       .member = "FH",
       .isFare = true,
       .ofElements = true,
       .source = &kManualTktElements,
       .mark = u"FH"},
      {.kind = "sequence_numbers",
       .member = "AirSequenceNrElement",
       .isFare = true,
       .source = &kAirSequenceNrElements,
       .mark = u"FB"},
      {.kind = "endorsements", .member = "FE", .isFare = true, .ofElements = true, .source = &kEndorsement},
      {.kind = "commissions",
       .member = "FareCommissionElement",
       .isFare = true,
       .source = get(GetMember::FareCommissionElement)},
      {.kind = "original_issues",
       .member = "",
       .isFare = true,
       .isBag = false,
       .source = NumberAndText{kOriginalIssues}},
      {.kind = "payments",
       .member = "FormOfPaymentElement",
       .isFare = true,
       .source = get(GetMember::FormOfPaymentElement)},
      {.kind = "tour_fares",
       .member = "FS",
       .isFare = true,
       .ofElements = true,
       .source = &kMiscTktInfoElements,
       .mark = u"FS"},
      {.kind = "validating_airlines",
       .member = "ValidatingAirlineElement",
       .isFare = true,
       .source = &kValidatingAirlineElements,
       .mark = u"FV"},
  };
  for (Section& section : sections) {
    section.fields = std::visit(KeysOf{}, section.source);
  }
  return sections;
}

}  // namespace

std::span<const Section> Sections() {
  static const std::vector<Section> sections = AllSections();
  return sections;
}

bool IsKind(std::string_view kind) {
  return std::ranges::any_of(Sections(), [kind](const Section& section) { return section.kind == kind; });
}

}  // namespace wendrill::tool
