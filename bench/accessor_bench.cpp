// Measures how many PNRs a caller reads per second through the published members. Of each PNR it reads every count, and
// every record by its index, as a script does. Finds the displays in FILE as the program wendrill does, and prints the
// number of PNRs per second.
//
//   accessor_bench FILE...
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "common/error.h"
#include "common/text.h"
#include "core/world.h"
#include "display_source.h"
#include "pnr_object.h"
#include "scan/published_pnr.h"
#include "sections.h"

namespace wendrill::bench {
namespace {

// The count property for the elements of a section; nullopt for a section that has neither an accessor nor a scan.
struct CountBeside {
  std::optional<CountOf> operator()(const Accessor* accessor) const { return accessor->bound; }
  std::optional<CountOf> operator()(const DisplayKind* kind) const { return kind->count; }
  std::optional<CountOf> operator()(tool::NumberAndText /*source*/) const { return std::nullopt; }
};

// The members that read one section: the count property and, for each record, a member of IGet or IGetPNR.Elements.
struct SectionReader {
  CountOf count;
  std::optional<GetMember> accessor;  // nullopt when IGetPNR.Elements reads the records
  std::u16string elements;            // the kind's name for IGetPNR.Elements; empty when `accessor` reads the records
};

// The readers of all sections in wendrill's output with plain names, except those without a count property.
std::vector<SectionReader> SectionReaders() {
  std::vector<SectionReader> readers;
  for (const tool::Section& section : tool::Sections()) {
    const auto counted = std::visit(CountBeside{}, section.source);
    if (!section.isPlain || !counted) {
      continue;
    }
    if (section.ofElements) {
      readers.push_back({*counted, std::nullopt, FromUtf8(section.member)});
    } else {
      const auto* member =
          std::ranges::find(kEveryGetMember, section.member, [](GetMember one) { return NameOf(one); });
      readers.push_back({*counted, *member, {}});
    }
  }
  return readers;
}

// Reads all elements of all sections, each once, and the header.
void ReadAll(const std::vector<SectionReader>& readers, simulator::World& world, PublishedPnr& pnr) {
  for (const SectionReader& reader : readers) {
    const std::int16_t count = pnr.Count(reader.count);
    for (std::int16_t index = 0; index < count; ++index) {
      const auto bag = world.MakeParamBag();
      bag->Set(u"intKeyIndex", index);
      bag->Set(u"strKeyPNRElement", reader.elements);
      if (reader.accessor) {
        pnr.Get(*reader.accessor, bag);
      } else {
        pnr.Elements(bag);
      }
    }
  }
  pnr.PNRHeader(world.MakeParamBag());
}

int Run(std::vector<std::string> files) {
  using Clock = std::chrono::steady_clock;
  tool::DisplaySource source(std::move(files), tool::InputForm::Auto);
  simulator::World world;
  ModuleState module{world.Ports(), world.Time(), world.Pump(), world.Texts()};
  const std::vector<SectionReader> readers = SectionReaders();
  int displays = 0;
  const auto start = Clock::now();
  while (auto found = source.Next()) {
    const tool::ReadyDisplay ready = tool::Prepared(std::move(*found));
    const simulator::DerivedPnr derived = simulator::Derive(ready.text);
    module.gobjPNR = tool::PnrObject(ready.text, derived);
    PublishedPnr pnr(module);
    ReadAll(readers, world, pnr);
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
