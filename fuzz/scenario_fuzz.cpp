// The scenario reader on any file: a scenario, whose unreachable parts can be told, or a refusal.
#include <string_view>

#include "common/error.h"
#include "core/reachability.h"
#include "core/scenario.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  try {
    using namespace wendrill::simulator;
    UnreachableParts(*ParseScenario({reinterpret_cast<const char*>(bytes), size}, u"fuzzed.toml"));
  } catch (const wendrill::Error& refusal) {
    if (refusal.Number() != 5 || refusal.Description().empty()) {
      wendrill::fuzz::Report("a refusal that does not say what is wrong");
    }
  }
  return 0;
}
