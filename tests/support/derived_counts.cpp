#include "support/derived_counts.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "common/module_state.h"
#include "core/world.h"
#include "derive/derivation.h"
#include "pnr/counts.h"
#include "pnr_object.h"
#include "scan/display_scans.h"

namespace wendrill::testing {
namespace {

using simulator::DerivedElement;
using simulator::DerivedPnr;
using simulator::SegmentKind;

// The counts of the library that are the size of one collection, each with the collection's identifier.
struct CountRow {
  CountOf count;
  std::int32_t collection;
};
constexpr std::array kRows = {
    CountRow{CountOf::TicketElements, 63},
    CountRow{CountOf::RemarkElements, 65},
    CountRow{CountOf::FormOfPaymentElements, 37},
    CountRow{CountOf::HotelSegments, 15},
    CountRow{CountOf::FareCommissionElements, 24},
    CountRow{CountOf::OrigianlIssueElements, 30},
    CountRow{CountOf::INSElements, 93},
    CountRow{CountOf::MISElements, 64},
    CountRow{CountOf::MailingAddressElements, 38},
    CountRow{CountOf::ContactElements, 62},
    CountRow{CountOf::ConfidentialRemarkElements, 21},
    CountRow{CountOf::OptionElements, 39},
    CountRow{CountOf::BillingAddressElements, 20},
    CountRow{CountOf::AllAirSegments, 78},
    CountRow{CountOf::CarSegments, 14},
    CountRow{CountOf::FEElements, 26},
    CountRow{CountOf::AutoTktElements, 23},
    CountRow{CountOf::HTLElements, 17},
};

std::int64_t Derived(const DerivedPnr& pnr, std::int32_t collection) {
  return std::ranges::count(pnr.elements, collection, &DerivedElement::collection);
}

std::int64_t OfKind(const DerivedPnr& pnr, SegmentKind kind) {
  return std::ranges::count(pnr.elements, kind, &DerivedElement::kind);
}

bool IsSurface(const DerivedElement& element) {
  return Contains(FirstColumns(element.Text(), 10), u"SUR");
}

std::string Told(const char* what, std::int64_t counted, std::int64_t derived) {
  return counted == derived
             ? ""
             : std::string(what) + ": " + std::to_string(counted) + " counted, " + std::to_string(derived) + " derived";
}

// Whether one of the first seven lines has the marker of a group. The library then takes the number of names from that
// line, and raises an error when the line has no valid number. The count of names is not compared in this case.
bool HasGroup(std::u16string_view display) {
  DisplayLines lines(display);
  for (int line = 0; line < 7; ++line) {
    if (Contains(lines.Next(), u"NM:")) {
      return true;
    }
  }
  return false;
}

}  // namespace

std::string DifferentCount(std::u16string_view display) {
  const DerivedPnr pnr = simulator::Derive(display);
  static simulator::World world;  // provides the ports; static, because the library stores nothing in the world
  ModuleState module{world.Ports(), world.Time(), world.Pump(), world.Texts()};
  module.gobjPNR = tool::PnrObject(display, pnr);
  for (const CountRow& row : kRows) {
    const std::string told = Told(("collection " + std::to_string(row.collection)).c_str(), Count(module, row.count),
                                  Derived(pnr, row.collection));
    if (!told.empty()) {
      return told;
    }
  }
  const std::int64_t open = OfKind(pnr, SegmentKind::Open);
  const std::int64_t flown = OfKind(pnr, SegmentKind::Flown);
  const std::int64_t all = Derived(pnr, 78);
  DisplayScans scans(module);
  const std::string told[] = {
      Told("open", Count(module, CountOf::OpenAirSegments), open),
      Told("flown", Count(module, CountOf::FlownAirSegments), flown),
      Told("active", Count(module, CountOf::ActiveAirSegments), all - flown),
      Told("neither", Count(module, CountOf::AirSegments), all - flown - open),
      Told("neither", Count(module, CountOf::AirSegments),
           OfKind(pnr, SegmentKind::Timed) + OfKind(pnr, SegmentKind::Other)),
      HasGroup(display) ? "" : Told("names", Count(module, CountOf::NameElements), Derived(pnr, 2)),
      Told("surface", scans.Count(kSURElements), std::ranges::count_if(pnr.elements, IsSurface)),
  };
  for (const std::string& each : told) {
    if (!each.empty()) {
      return each;
    }
  }
  return "";
}

}  // namespace wendrill::testing
