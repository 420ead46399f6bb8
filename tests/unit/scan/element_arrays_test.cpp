#include "scan/element_arrays.h"

#include <gtest/gtest.h>

#include <array>

#include "support/raises.h"

namespace wendrill::testing {
namespace {

constexpr std::array kKeys = {
    ArrayKey{u"strKeyText"},
    ArrayKey{u"blnKeyText", ArrayType::Text, u"False"},
    ArrayKey{u"blnKeyFlag", ArrayType::Flag},
};

TEST(ElementArraysTest, ResetLeavesIndexZeroWithItsInitialEntries) {
  ElementArrays arrays(kKeys);
  EXPECT_EQ(arrays.UpperBound(), -1);
  arrays.Reset();
  EXPECT_EQ(arrays.UpperBound(), 0);
  EXPECT_EQ(arrays.At(0, 0), Value(u""));
  EXPECT_EQ(arrays.At(1, 0), Value(u"False")) << "a text, not a Boolean";
  EXPECT_EQ(arrays.At(2, 0), Value(false));
}

TEST(ElementArraysTest, GrowingKeepsTheContentsAndNeverShrinks) {
  ElementArrays arrays(kKeys);
  arrays.Reset();
  arrays.SetText(0, 0, u"FIRST");
  arrays.GrowTo(2);
  arrays.SetFlag(2, 2, true);
  arrays.GrowTo(1);
  EXPECT_EQ(arrays.UpperBound(), 2);
  EXPECT_EQ(arrays.At(0, 0), Value(u"FIRST"));
  EXPECT_EQ(arrays.At(1, 2), Value(u"False"));
  EXPECT_EQ(arrays.At(2, 1), Value(false));
  EXPECT_EQ(arrays.At(2, 2), Value(true));
}

TEST(ElementArraysTest, EntriesOutsideTheBoundsAreSubscriptOutOfRange) {
  ElementArrays arrays(kKeys);
  EXPECT_TRUE(RaisesNumber(9, [&] { arrays.At(0, 0); }));
  arrays.Reset();
  EXPECT_TRUE(RaisesNumber(9, [&] { arrays.At(0, 1); }));
  EXPECT_TRUE(RaisesNumber(9, [&] { arrays.At(0, -1); }));
}

TEST(ElementArraysTest, RecordStoresUnderItsKeys) {
  ElementArrays arrays(kKeys);
  arrays.Reset();
  arrays.GrowTo(1);
  ElementRecord<kKeys> record(arrays, 1);
  record.Set(u"strKeyText", std::u16string(u"TEXT"));
  record.SetFlag(u"blnKeyFlag", true);
  EXPECT_EQ(arrays.At(0, 1), Value(u"TEXT"));
  EXPECT_EQ(arrays.At(2, 1), Value(true));
  EXPECT_EQ(arrays.At(0, 0), Value(u""));
}

}  // namespace
}  // namespace wendrill::testing
