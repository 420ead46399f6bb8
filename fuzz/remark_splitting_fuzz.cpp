// Fuzzes the splitting of remarks with arbitrary text. The result must be one or more elements, each of them a remark;
// or the call must raise one of the library's own errors.
#include "batch/batch.h"
#include "common/error.h"
#include "common/text.h"
#include "fuzz_input.h"
#include "support/test_world.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static wendrill::testing::TestWorld desk;
  const wendrill::CBatch batch(desk.module);
  wendrill::TextArray elements;
  try {
    batch.RMBatch(wendrill::fuzz::TextOf(bytes, size), elements);
  } catch (const wendrill::Error&) {
    return 0;
  }
  if (elements.items.empty()) {
    wendrill::fuzz::Report("no element");
  }
  for (const auto& element : elements.items) {
    if (!wendrill::StartsWith(element, u"RM")) {
      wendrill::fuzz::Report("an element that is no remark: " + wendrill::ToUtf8(element));
    }
  }
  return 0;
}
