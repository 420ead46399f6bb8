// Compares the display scanner of FUZZED_KIND with its slow reference. Form feeds divide the input into texts. Each
// read of the display returns the next text; when no text is left, each read returns the last one.
#include "fuzz_input.h"
#include "support/scan_comparison.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using wendrill::testing::ScanComparison;
  constexpr std::size_t kLongest = 10000;  // limits the time: the reference searches each line from the beginning
  if (size <= kLongest) {
    static ScanComparison comparison;
    const auto outcome = comparison.Run(wendrill::FUZZED_KIND, wendrill::fuzz::TextsOf(bytes, size));
    if (!outcome.difference.empty()) {
      wendrill::fuzz::Report(outcome.difference);
    }
  }
  return 0;
}
