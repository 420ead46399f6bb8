#include "scan/display_walk.h"

#include <gtest/gtest.h>

#include <array>

#include "support/raises.h"

namespace wendrill::testing {
namespace {

constexpr std::array kKeys = {ArrayKey{u"strKeyText"}};

// As many lines as a test wants, then an empty one.
class CountedLines {
 public:
  explicit CountedLines(int lines) : lines_(lines) {}
  TextView Next() { return lines_-- > 0 ? TextView(u"LINE") : TextView(); }

 private:
  int lines_;
};

LineMeaning EveryLineIsAnElement(TextView line) {
  return line.empty() ? LineMeaning::End : LineMeaning::Element;
}

template <Counting counting>
std::int16_t Scan(int lines, ElementArrays& arrays) {
  arrays.Reset();
  CountedLines source(lines);
  return ScanLines<counting>(source, arrays, EveryLineIsAnElement, [&](TextView line, std::int16_t index) {
    ElementRecord<kKeys>(arrays, index).Set(u"strKeyText", line);
  });
}

TEST(ScanLinesTest, CountingWhenMovingOnStoresFromIndexZero) {
  ElementArrays arrays(kKeys);
  EXPECT_EQ(Scan<Counting::WhenMovingOn>(2, arrays), 2);
  EXPECT_EQ(arrays.UpperBound(), 1);
  EXPECT_EQ(arrays.At(0, 0), Value(u"LINE"));
}

TEST(ScanLinesTest, CountingBeforeStoringLeavesIndexZeroEmpty) {
  ElementArrays arrays(kKeys);
  EXPECT_EQ(Scan<Counting::BeforeStoring>(2, arrays), 2);
  EXPECT_EQ(arrays.UpperBound(), 2);
  EXPECT_EQ(arrays.At(0, 0), Value(u""));
  EXPECT_EQ(arrays.At(0, 2), Value(u"LINE"));
}

TEST(ScanLinesTest, MoreElementsThanSixteenBitsHoldOverflow) {
  ElementArrays arrays(kKeys);
  EXPECT_EQ(Scan<Counting::WhenMovingOn>(32767, arrays), 32767);
  EXPECT_EQ(Scan<Counting::BeforeStoring>(32767, arrays), 32767);
  EXPECT_TRUE(RaisesNumber(6, [&] { Scan<Counting::WhenMovingOn>(32768, arrays); }));
  EXPECT_TRUE(RaisesNumber(6, [&] { Scan<Counting::BeforeStoring>(32768, arrays); }));
}

TEST(ScanLinesTest, AbandonedWalkCountsZero) {
  ElementArrays arrays(kKeys);
  arrays.Reset();
  CountedLines source(3);
  const auto abandon = [](TextView line) { return line.empty() ? LineMeaning::Abandoned : LineMeaning::Element; };
  EXPECT_EQ(ScanLines<Counting::WhenMovingOn>(source, arrays, abandon, [](TextView, std::int16_t) {}), 0);
  EXPECT_EQ(arrays.UpperBound(), 2);
}

}  // namespace
}  // namespace wendrill::testing
