#include "recording/proof.h"

#include <gtest/gtest.h>

namespace wendrill::recording {
namespace {

const std::set<std::u16string> kTokens{u"SMITH", u"ENTRY", u"4111111111111111", u"4111 1111 1111 1111"};

bool Holds(std::string_view text) {
  return HoldsToken(text, kTokens);
}

TEST(Proof, FindsNamesAsWholeWordsWhateverTheirCapitals) {
  EXPECT_TRUE(Holds("reply = [{ entry = 'X', screen = 'MR SMITH' }]"));
  EXPECT_TRUE(Holds("reply = [{ entry = 'X', screen = 'smith@example.com' }]"));
  EXPECT_TRUE(Holds("reply = [{ like = 'NM1Smith/?', screen = 'OK' }]"));
  EXPECT_TRUE(Holds("pnr = [{ RecordLocator = 'A', Names = [{ LastName = 'SMITH' }] }]"));
  EXPECT_TRUE(Holds("# not reproduced: the PNR of \"RT/SMITH\" differs\n"));
  EXPECT_FALSE(Holds("reply = [{ entry = 'X', screen = 'BLACKSMITH SMITHS' }]"));
}

TEST(Proof, TakesNoKeyForAName) {
  EXPECT_FALSE(Holds("# the entry of a scenario\nreply = [{ entry = 'X', screen = 'OK' }]"));
  EXPECT_TRUE(Holds("reply = [{ entry = 'X', screen = 'NO ENTRY' }]"));
}

TEST(Proof, FindsEscapedNames) {
  EXPECT_TRUE(Holds(R"(reply = [{ entry = "X", screen = "\u0053MITH" }])"));
}

TEST(Proof, FindsNumbersAnywhere) {
  EXPECT_TRUE(Holds("reply = [{ entry = 'X', screen = 'CC4111111111111111/1210' }]"));
  EXPECT_TRUE(Holds("pnr = [{ RecordLocator = 'A', Remarks = [{ FreeFlow = 4111111111111111.0 }] }]"));
  EXPECT_TRUE(Holds("# 4111 1111 1111 1111\n"));
  EXPECT_FALSE(Holds("reply = [{ entry = 'X', screen = '4000000000000002' }]"));
}

// A number that goes on in the next row was written with the end of its row.
TEST(Proof, FindsNumbersAcrossRows) {
  const std::set<std::u16string> tokens{u"41111111\n     11111111"};
  const std::string start(72, 'X');
  EXPECT_TRUE(HoldsToken("reply = [{ entry = 'X', screen = \"" + start + "41111111\\n     11111111\" }]", tokens));
  EXPECT_FALSE(HoldsToken("reply = [{ entry = 'X', screen = \"" + start + "40000000\\n     00000002\" }]", tokens));
}

TEST(Proof, FindsNothingWithoutTokens) {
  EXPECT_FALSE(HoldsToken("reply = [{ entry = 'SMITH', screen = 'OK' }]", {}));
}

}  // namespace
}  // namespace wendrill::recording
