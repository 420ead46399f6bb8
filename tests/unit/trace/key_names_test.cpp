#include "trace/key_names.h"

#include <gtest/gtest.h>

namespace wendrill::trace {
namespace {

TEST(KeyNames, AreTheConstantsOfTheLibrary) {
  EXPECT_EQ(KeyName(257), u"kbPF1");
  EXPECT_EQ(KeyName(272), u"kbEnter");
  EXPECT_EQ(KeyName(386), u"kbFieldRight");
  EXPECT_EQ(KeyName(780), u"kbPF24");
}

TEST(KeyNames, OfTwoConstantsWithOneCodeTheFirst) {
  EXPECT_EQ(KeyName(369), u"kbClean");
}

TEST(KeyNames, CodesWithoutAConstantHaveNone) {
  EXPECT_EQ(KeyName(0), u"");
  EXPECT_EQ(KeyName(-1), u"");
  EXPECT_EQ(KeyName(351), u"");
}

}  // namespace
}  // namespace wendrill::trace
