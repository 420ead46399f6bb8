#include "unit/scan/scan_desk.h"

#include <gtest/gtest.h>

#include "common/text.h"
#include "support/kind_references.h"
#include "support/us_text.h"

namespace wendrill::testing {

std::u16string Lines(const std::vector<std::u16string>& lines) {
  std::u16string text;
  for (const auto& line : lines) {
    text += line + u"\r\n";
  }
  return text;
}

std::u16string ScanDesk::Stored(const DisplayKind& kind, std::u16string_view key, std::int32_t index) const {
  const ElementArrays& arrays = scans.Arrays(kind);
  for (std::size_t i = 0; i < arrays.Keys().size(); ++i) {
    if (arrays.Keys()[i].name == key) {
      return ToUsText(arrays.At(i, index));
    }
  }
  ADD_FAILURE() << "the kind has no key " << ToUtf8(key);
  return {};
}

bool ScanDesk::HoldsNothing(const DisplayKind& kind) const {
  const ReferenceScan nothing = ReferenceOf(kind).scan([] { return std::u16string(); });
  return ArrayDifferences(scans.Arrays(kind), nothing).empty();
}

}  // namespace wendrill::testing
