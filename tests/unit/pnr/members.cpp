#include "unit/pnr/members.h"

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <utility>

#include "common/text.h"
#include "pnr/pnr.h"
#include "scan/published_pnr.h"
#include "unit/pnr/element_file.h"

namespace wendrill::testing {
namespace {

using Elements = std::vector<ObjectRef>;

auto In(std::vector<std::int32_t> collections) {
  return [collections = std::move(collections)](const PnrDesk& desk, const Elements& elements) {
    for (const auto id : collections) {
      desk.Hold(static_cast<Collection>(id), elements);
    }
  };
}

void AsHeader(const PnrDesk& desk, const Elements& elements) {
  desk.pnr->With(76, elements.front());
}

// The member reads the display alone.
void Nowhere(const PnrDesk& /*desk*/, const Elements& /*elements*/) {}

auto Calling(GetMember member) {
  return [member](ModuleState& module, const ParamBagRef& bag) { return PublishedPnr(module).Get(member, bag); };
}

std::u16string TwoColumns(int number) {
  const auto text = DecimalText(number);
  return text.size() == 1 ? u" " + text : text;
}

// Fare lines of both kinds, numbered with their positions.
std::u16string DisplayOfFares(int count) {
  std::vector<std::u16string> lines = {u"RP/PARXX0100/PARXX0200", u"PARXX0100/0001AA/12JUN08", u"  1.SMITH/JOHN MR"};
  for (int n = 0; n < count; ++n) {
    lines.push_back(u" " + TwoColumns(n) + u" FV LH/S2/P1");
    lines.push_back(u" " + TwoColumns(n) + u" FB 0000000001 TTP/S2/P1");
  }
  return Rows(lines);
}

ParamBagRef CallMis(ModuleState& module, const ParamBagRef& bag) {
  return CPNR(module).GetMISElement(bag);
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const MemberRow& row) {
  return out << row.name;
}

const std::vector<MemberRow>& Members() {
  using enum IndexRule;
  static const std::vector<MemberRow> members = {
      {"ActiveAirSegments", "timed", 2205, true, Segment, In({78}), Calling(GetMember::ActiveAirSegments)},
      // The segments are walked in 7 and counted in 78.
      {"AirSegments", "timed", 2207, false, Segment, In({7, 78}), Calling(GetMember::AirSegments)},
      {"AllAirSegments", "timed", 2209, false, Segment, In({78}), Calling(GetMember::AllAirSegments)},
      {"BillingAddressElements", "address", 2235, false, Element, In({20}), Calling(GetMember::BillingAddressElements)},
      {"CarSegment", "guaranteed_rate", 2211, false, Segment, In({14}), Calling(GetMember::CarSegment)},
      {"ConfidentialRemarkElements", "remark", 2241, false, Element, In({21}),
       Calling(GetMember::ConfidentialRemarkElements)},
      {"ContactElements", "with_passenger", 2239, false, Element, In({62}), Calling(GetMember::ContactElements)},
      {"FareCommissionElement", "percent", 2215, false, Element, In({24}), Calling(GetMember::FareCommissionElement)},
      {"FlownAirSegments", "flown", 2217, false, Segment, In({9}), Calling(GetMember::FlownAirSegments)},
      {"FormOfPaymentElement", "card", 2219, true, Element, In({37}), Calling(GetMember::FormOfPaymentElement)},
      {"HotelSegment", "with_service_mark", 2221, false, Segment, In({15}), Calling(GetMember::HotelSegment)},
      {"MailingAddressElements", "address", 2237, false, Element, In({38}), Calling(GetMember::MailingAddressElements)},
      {"NameElement", "adult", 2223, false, Element, In({2}), Calling(GetMember::NameElement)},
      {"OpenAirSegments", "open", 2225, false, Segment, In({13}), Calling(GetMember::OpenAirSegments)},
      {"OptionElements", "option", 2237, false, Element, In({39}), Calling(GetMember::OptionElements)},
      {"PNRHeader", "with_cross_reference_tag", 2227, false, None, AsHeader, Calling(GetMember::PNRHeader)},
      {"RemarkElement", "segment_and_passenger", 2229, false, Element, In({65}), Calling(GetMember::RemarkElement)},
      {"TicketElement", "date_value", 2231, false, Element, In({63}), Calling(GetMember::TicketElement)},
      {"ValidatingAirlineElement", "second_of_two", 2233, false, Array, Nowhere,
       Calling(GetMember::ValidatingAirlineElement)},
      {"AirSequenceNrElement", "second_of_two", 2213, false, Array, Nowhere, Calling(GetMember::AirSequenceNrElement)},
      {"MISElement", "element", 2206, true, Element, In({64}), CallMis},
  };
  return members;
}

const MemberRow* MemberNamed(std::string_view name) {
  const auto row = std::ranges::find(Members(), name, &MemberRow::name);
  return row == Members().end() ? nullptr : &*row;
}

void HoldSamples(const PnrDesk& desk, const MemberRow& member, int count) {
  const auto file = ReadElementFile(std::filesystem::path(TEST_DATA) / member.name / (member.sample + ".txt"));
  desk.HoldNothing();
  desk.Display(DisplayOfFares(count));
  std::vector<ObjectRef> elements;
  for (int n = 0; n < count; ++n) {
    const auto element = ObjectOf(desk, file);
    if (member.index != IndexRule::None) {
      element->With(u"ElementNo", n).With(2, n);
    }
    elements.push_back(element);
  }
  member.hold(desk, elements);
}

}  // namespace wendrill::testing
