// Every scanner against its slow reference on random and mutilated displays. WENDRILL_COMPARISONS sets how many
// displays each scanner is tried on, WENDRILL_SEED where chance begins.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "common/text.h"
#include "support/from_environment.h"
#include "support/kind_references.h"
#include "support/random_displays.h"
#include "support/scan_comparison.h"

namespace wendrill::testing {

namespace {

std::string Shown(const std::vector<std::u16string>& readings) {
  std::string shown;
  for (const auto& reading : readings) {
    shown += "--- display\n" + ToUtf8(Replaced(Replaced(reading, u"\r", u"\\r"), u"\n", u"\\n\n")) + "\n";
  }
  return shown;
}

class RandomComparison : public ::testing::TestWithParam<const DisplayKind*> {};

TEST_P(RandomComparison, ScannerAndReferenceAgree) {
  const std::uint32_t comparisons = NumberFromEnvironment("WENDRILL_COMPARISONS", 3000);
  const std::uint32_t seed = NumberFromEnvironment("WENDRILL_SEED", 20080612);
  RandomDisplays displays(seed);
  ScanComparison comparison;
  std::uint64_t elements = 0;
  for (std::uint32_t n = 1; n <= comparisons; ++n) {
    const auto readings = displays.Next(*GetParam());
    const auto [difference, found] = comparison.Run(*GetParam(), readings);
    ASSERT_EQ(difference, "") << "display " << n << " of seed " << seed << "\n" << Shown(readings);
    elements += found;
  }
  // Displays without elements would agree on nothing but zeros.
  EXPECT_GE(elements, comparisons / 2) << "the random displays hold too few elements of this kind";
  RecordProperty("comparisons", static_cast<int>(comparisons));
}

INSTANTIATE_TEST_SUITE_P(Kinds, RandomComparison, ::testing::ValuesIn(kDisplayKinds),
                         [](const auto& row) { return std::string(row.param->Name()); });

}  // namespace
}  // namespace wendrill::testing
