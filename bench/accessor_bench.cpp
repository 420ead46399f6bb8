// How many PNRs a caller reads in a second through the published members: every count, and every record by its index,
// as a script does. Reads displays as wendrill does and prints one number.
//
//   accessor_bench FILE...
#include <chrono>
#include <cstdio>
#include <exception>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "common/error.h"
#include "core/world.h"
#include "display_source.h"
#include "pnr_object.h"
#include "scan/published_pnr.h"

namespace wendrill::bench {
namespace {

using Record = ParamBagRef (PublishedPnr::*)(const ParamBagRef&);
using Count = std::int16_t (PublishedPnr::*)();

constexpr std::pair<Count, Record> kMembers[] = {
    {&PublishedPnr::NameElementsCount, &PublishedPnr::NameElement},
    {&PublishedPnr::ActiveAirSegmentsCount, &PublishedPnr::ActiveAirSegments},
    {&PublishedPnr::CarSegmentsCount, &PublishedPnr::CarSegment},
    {&PublishedPnr::HotelSegmentsCount, &PublishedPnr::HotelSegment},
    {&PublishedPnr::ContactElementsCount, &PublishedPnr::ContactElements},
    {&PublishedPnr::TicketElementsCount, &PublishedPnr::TicketElement},
    {&PublishedPnr::OptionElementsCount, &PublishedPnr::OptionElements},
    {&PublishedPnr::RemarkElementsCount, &PublishedPnr::RemarkElement},
    {&PublishedPnr::ConfidentialRemarkElementsCount, &PublishedPnr::ConfidentialRemarkElements},
    {&PublishedPnr::MailingAddressElementsCount, &PublishedPnr::MailingAddressElements},
    {&PublishedPnr::BillingAddressElementsCount, &PublishedPnr::BillingAddressElements},
    {&PublishedPnr::FareCommissionElementsCount, &PublishedPnr::FareCommissionElement},
    {&PublishedPnr::FormOfPaymentElementsCount, &PublishedPnr::FormOfPaymentElement},
    {&PublishedPnr::ValidatingAirlineElementsCount, &PublishedPnr::ValidatingAirlineElement},
    {&PublishedPnr::AirSequenceNrElementsCount, &PublishedPnr::AirSequenceNrElement},
};

constexpr std::pair<const char16_t*, Count> kKinds[] = {
    {u"HTL", &PublishedPnr::HTLElementsCount},
    {u"MIS", &PublishedPnr::MISElementsCount},
    {u"INS", &PublishedPnr::INSElementsCount},
    {u"ATX", &PublishedPnr::ATXSegmentsCount},
    {u"SUR", &PublishedPnr::SURElementsCount},
    {u"SSR", &PublishedPnr::SpecialServiceElementsCount},
    {u"OSI", &PublishedPnr::OtherServiceElementsCount},
    {u"MCO", &PublishedPnr::MCOElementsCount},
    {u"* SP", &PublishedPnr::SPElementsCount},
    {u"ES", &PublishedPnr::SecurityElementsCount},
    {u"FA", &PublishedPnr::AutoTktElementsCount},
    {u"FH", &PublishedPnr::ManualTktElementsCount},
    {u"FE", &PublishedPnr::FEElementsCount},
    {u"FS", &PublishedPnr::MiscTktInfoElementsCount},
};

void ReadAll(simulator::World& world, PublishedPnr& pnr) {
  const auto read = [&](std::int16_t count, const char16_t* kind, Record record) {
    for (std::int16_t index = 0; index < count; ++index) {
      const auto bag = world.MakeParamBag();
      bag->Set(u"intKeyIndex", index);
      bag->Set(u"strKeyPNRElement", kind);
      (pnr.*record)(bag);
    }
  };
  for (const auto& [count, record] : kMembers) {
    read((pnr.*count)(), u"", record);
  }
  for (const auto& [kind, count] : kKinds) {
    read((pnr.*count)(), kind, &PublishedPnr::Elements);
  }
  read(1, u"", &PublishedPnr::PNRHeader);
}

int Run(std::vector<std::string> files) {
  using Clock = std::chrono::steady_clock;
  tool::DisplaySource source(std::move(files), tool::InputForm::Auto);
  simulator::World world;
  ModuleState module{world.Ports(), world.Time(), world.Pump(), world.Texts()};
  int displays = 0;
  const auto start = Clock::now();
  while (auto found = source.Next()) {
    const tool::ReadyDisplay ready = tool::Prepared(std::move(*found));
    const simulator::DerivedPnr derived = simulator::Derive(ready.text);
    module.gobjPNR = tool::PnrObject(ready.text, derived);
    PublishedPnr pnr(module);
    ReadAll(world, pnr);
    ++displays;
  }
  const std::chrono::duration<double> took = Clock::now() - start;
  std::printf("%f\n", displays / took.count());
  return displays > 0 ? 0 : 1;
}

}  // namespace
}  // namespace wendrill::bench

int main(int argc, char** argv) {
  try {
    return wendrill::bench::Run({argv + 1, argv + argc});
  } catch (const wendrill::Error& error) {
    std::fprintf(stderr, "accessor_bench: error %d\n", static_cast<int>(error.Number()));
    return 1;
  }
}
