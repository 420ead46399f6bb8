// Fuzzes the scenario reader with arbitrary files. The reader must either return a scenario, whose unreachable parts
// can then be found, or raise error 5 with a description.
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
