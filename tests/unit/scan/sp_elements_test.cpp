#include <gtest/gtest.h>

#include "unit/scan/scan_desk.h"

namespace wendrill::testing {
namespace {

constexpr const DisplayKind& kKind = kSPElements;

class SP : public ::testing::Test {
 protected:
  std::u16string Stored(std::u16string_view key, std::int32_t index = 1) const {
    return desk.Stored(kKind, key, index);
  }

  ScanDesk desk;
};

TEST_F(SP, LastSixCharactersOfTheLineAreTheRecordLocator) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"HEADER", u"  * SP 12JUN/0001AA/PARXX0100-ABC123  "})), 1);
  EXPECT_EQ(Stored(u"strKeyElement"), u"* SP 12JUN/0001AA/PARXX0100-ABC123");
  EXPECT_EQ(Stored(u"strKeyRecLoc"), u"ABC123");
}

TEST_F(SP, FirstElementIsAtIndexOne) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"* SP-ABC123", u"* SP-DEF456"})), 2);
  EXPECT_EQ(Stored(u"strKeyRecLoc", 0), u"");
  EXPECT_EQ(Stored(u"strKeyRecLoc", 1), u"ABC123");
  EXPECT_EQ(Stored(u"strKeyRecLoc", 2), u"DEF456");
}

TEST_F(SP, EmptyLinesOneAndTwoAreNoEnd) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"", u"", u"* SP-ABC123"})), 1);
  EXPECT_EQ(desk.Count(kKind, Lines({u"", u"", u"", u"* SP-ABC123"})), 0);
}

TEST_F(SP, PromptAnywhereInALineEndsTheWalkAndLeavesTheCount) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"* SP-ABC123", u"X > Y", u"* SP-DEF456"})), 1);
  EXPECT_EQ(desk.Count(kKind, Lines({u"> ", u"* SP-ABC123"})), 0);
}

TEST_F(SP, DisplayIsReadAgainForEveryLine) {
  desk.Count(kKind, Lines({u"HEADER", u"* SP-ABC123", u"TEXT"}));
  EXPECT_EQ(desk.pnr.Reads(), 4u) << "three lines and the empty one behind them";
}

TEST_F(SP, LineOfADisplayThatChangedIsTakenFromTheNewText) {
  desk.pnr.Show({Lines({u"HEADER", u"* SP-ABC123", u"TEXT"}), Lines({u"HEADER", u"* SP-ABC123", u"TEXT"}),
                 Lines({u"ANOTHER HEADER", u"TEXT", u"* SP-DEF456", u"* SP-GHI789"})});
  EXPECT_EQ(desk.scans.Count(kKind), 3);
  EXPECT_EQ(Stored(u"strKeyRecLoc", 1), u"ABC123");
  EXPECT_EQ(Stored(u"strKeyRecLoc", 2), u"DEF456");
  EXPECT_EQ(Stored(u"strKeyRecLoc", 3), u"GHI789");
}

TEST_F(SP, MarkOpensTheTrimmedLine) {
  EXPECT_EQ(desk.Count(kKind, Lines({u"X * SP-ABC123", u"*SP-ABC123", u"* S P-ABC123"})), 0);
}

}  // namespace
}  // namespace wendrill::testing
