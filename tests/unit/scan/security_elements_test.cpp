#include <gtest/gtest.h>

#include "unit/scan/scan_desk.h"

namespace wendrill::testing {
namespace {

constexpr const DisplayKind& kKind = kSecurityElements;

class Security : public ::testing::Test {
 protected:
  std::u16string Stored(std::u16string_view key, std::int32_t index) const { return desk.Stored(kKind, key, index); }

  ScanDesk desk;
};

TEST_F(Security, LineWithFewerThanTwoSlashesBeginsAListOfOneEntryALine) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"HEADER", u"  * ES/G", u"B PARXX0 100A", u"R LONXX0 ALL  "})), 3);
  EXPECT_EQ(Stored(u"strKeyOfficeID", 0), u"* ES/G") << "the line with the marker is the first entry";
  EXPECT_EQ(Stored(u"strKeyAccessMode", 0), u"");
  EXPECT_EQ(Stored(u"strKeyAccessMode", 1), u"B");
  EXPECT_EQ(Stored(u"strKeyOfficeID", 1), u"PARXX0 100A");
  EXPECT_EQ(Stored(u"strKeyItem", 1), u"100A");
  EXPECT_EQ(Stored(u"strKeyAccessMode", 2), u"R");
  EXPECT_EQ(Stored(u"strKeyItem", 2), u"ALL");
}

TEST_F(Security, ListHasFiveEntriesAtMost) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"  * ES/G", u"B 1", u"B 2", u"B 3", u"B 4", u"B 5"})), 5);
  EXPECT_EQ(Stored(u"strKeyOfficeID", 4), u"4");
}

TEST_F(Security, ListEndsAtAnEmptyLineOrAtThePrompt) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"  * ES/G", u"B 1", u"", u"B 2"})), 2);
  EXPECT_EQ(desk.Count(kKind, Lines({u"  * ES/G", u"B 1", u"> ", u"B 2"})), 2);
}

TEST_F(Security, LineWithTwoSlashesOrMoreHoldsAllEntries) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"HEADER", u"  * ES/B PARXX0 100A/R LONXX0 ALL", u"B NOT ONE"})), 2);
  EXPECT_EQ(Stored(u"strKeyAccessMode", 0), u"B");
  EXPECT_EQ(Stored(u"strKeyOfficeID", 0), u"PARXX0 100A");
  EXPECT_EQ(Stored(u"strKeyItem", 0), u"100A");
  EXPECT_EQ(Stored(u"strKeyAccessMode", 1), u"R");
  EXPECT_EQ(Stored(u"strKeyItem", 1), u"ALL");
}

TEST_F(Security, OneLineHoldsFiveEntriesAtMost) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"  * ES/B 1/B 2/B 3/B 4/B 5/B 6"})), 5);
  EXPECT_EQ(Stored(u"strKeyOfficeID", 4), u"5");
}

TEST_F(Security, MarkerIsAtTheStartOfTheLineWithItsTwoBlanks) {
  EXPECT_EQ(desk.Count(kKind, Lines({u" * ES/B 1/B 2", u"   * ES/B 1/B 2", u"  *ES/B 1/B 2", u"X  * ES/B"})), 0);
}

TEST_F(Security, EmptyLinesBeforeTheMarkerAreSkipped) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"HEADER", u"", u"", u"  * ES/B 1/B 2"})), 2);
}

TEST_F(Security, PromptBeforeTheMarkerEndsTheSearch) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"HEADER", u"> ", u"  * ES/B 1/B 2"})), 0);
}

TEST_F(Security, FirstMarkerAloneCounts) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"  * ES/B 1/B 2", u"  * ES/B 3/B 4"})), 2);
  EXPECT_EQ(Stored(u"strKeyOfficeID", 0), u"1");
}

TEST_F(Security, DisplayWithoutAMarkerYieldsZero) {
  EXPECT_EQ(desk.Count(kKind, u""), 0);
  EXPECT_EQ(desk.Count(kKind, Lines({u"", u""})), 0);
}

}  // namespace
}  // namespace wendrill::testing
