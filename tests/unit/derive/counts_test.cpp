// What the library counts over a derived PNR is what the derivation counted. WENDRILL_COMPARISONS sets on how many
// random displays; 2,000 unless set.
#include <gtest/gtest.h>

#include <cstdint>

#include "common/text.h"
#include "support/derived_counts.h"
#include "support/from_environment.h"
#include "support/random_pnr_displays.h"

namespace wendrill::simulator {
namespace {

TEST(DerivedCounts, AreTheLibrarysOnRandomDisplays) {
  const std::uint32_t comparisons = testing::NumberFromEnvironment("WENDRILL_COMPARISONS", 2000);
  testing::RandomPnrDisplays displays(20080612);
  for (std::uint32_t n = 0; n < comparisons; ++n) {
    const std::u16string display = displays.Next();
    const std::string different = testing::DifferentCount(display);
    ASSERT_EQ(different, "") << "display " << n << ":\n" << ToUtf8(display);
  }
}

TEST(DerivedCounts, OfAGroupCountItsSize) {
  EXPECT_EQ(
      testing::DifferentCount(u"RP/PARXX0100\n  0.25SCHOOL TRIP NICE NM: 2\n  1.MARTIN/EVE MRS   2.MARTIN/LEO MR\n"),
      "");
}

}  // namespace
}  // namespace wendrill::simulator
