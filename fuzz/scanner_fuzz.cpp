// A display scanner (FUZZED_KIND) beside its slow reference. The input is a display; form feeds part the texts that its
// reads answer in turn.
#include "fuzz_input.h"
#include "support/scan_comparison.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using wendrill::testing::ScanComparison;
  constexpr std::size_t kLongest = 10000;  // the reference seeks every line from the beginning
  if (size <= kLongest) {
    static ScanComparison comparison;
    const auto outcome = comparison.Run(wendrill::FUZZED_KIND, wendrill::fuzz::TextsOf(bytes, size));
    if (!outcome.difference.empty()) {
      wendrill::fuzz::Report(outcome.difference);
    }
  }
  return 0;
}
