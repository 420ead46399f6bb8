#include <gtest/gtest.h>

#include "unit/scan/scan_desk.h"

namespace wendrill::testing {
namespace {

constexpr const DisplayKind& kKind = kSURElements;

class SUR : public ::testing::Test {
 protected:
  // A line an element: number, "|", text.
  std::int16_t CountElements(const std::vector<std::u16string>& elements) { return desk.Count(kKind, Lines(elements)); }
  std::u16string Stored(std::u16string_view key, std::int32_t index = 1) const {
    return desk.Stored(kKind, key, index);
  }

  ScanDesk desk;
};

TEST_F(SUR, TextThatEndsInP2YieldsPassengerTwo) {
  EXPECT_EQ(CountElements({u"4|SUR/1030/A/PARIS/RUE DE RIVOLI/P2"}), 1);
  EXPECT_EQ(Stored(u"strKeyPasAsso"), u"2");
}

TEST_F(SUR, ThirdFieldATellsAnArrival) {
  CountElements({u"4|SUR/1030/A/PARIS/RUE DE RIVOLI"});
  EXPECT_EQ(Stored(u"blnKeyArrival"), u"True");
  EXPECT_EQ(Stored(u"blnKeyDeparture"), u"False");
}

TEST_F(SUR, ThirdFieldDTellsADeparture) {
  CountElements({u"4|SUR/1030/D/PARIS/RUE DE RIVOLI", u"5|SUR/1030/AD/PARIS/RUE DE RIVOLI"});
  EXPECT_EQ(Stored(u"blnKeyArrival", 1), u"False");
  EXPECT_EQ(Stored(u"blnKeyDeparture", 1), u"True");
  EXPECT_EQ(Stored(u"blnKeyArrival", 2), u"False");
  EXPECT_EQ(Stored(u"blnKeyDeparture", 2), u"False");
}

TEST_F(SUR, ElementIsCutAtItsSlashes) {
  CountElements({u"4|SUR/1030/A/PARIS/RUE DE RIVOLI/P2"});
  EXPECT_EQ(Stored(u"strKeyElement"), u"SUR/1030/A/PARIS/RUE DE RIVOLI/P2");
  EXPECT_EQ(Stored(u"strKeyElementNr"), u"4");
  EXPECT_EQ(Stored(u"strKeyPUTime"), u"1030");
  EXPECT_EQ(Stored(u"strKeyAddress"), u"RUE DE RIVOLI");
}

TEST_F(SUR, PassengerIsTheLastCharacterWhenTheMarkIsAmongTheLastFour) {
  CountElements({u"1|SUR/1/A/B/C/P12", u"2|SUR/1/A/B/C/P123", u"3|SUR/1/A/B/C/P"});
  EXPECT_EQ(Stored(u"strKeyPasAsso", 1), u"2");
  EXPECT_EQ(Stored(u"strKeyPasAsso", 2), u"");
  EXPECT_EQ(Stored(u"strKeyPasAsso", 3), u"P");
}

TEST_F(SUR, KeywordIsWithinTheFirstTenCharacters) {
  EXPECT_EQ(CountElements({u"1|1234567SUR", u"2|12345678SUR", u"3|AIR SEGMENT"}), 1);
  EXPECT_EQ(Stored(u"strKeyElementNr"), u"1");
}

TEST_F(SUR, FirstElementIsAtIndexOne) {
  CountElements({u"4|SUR/1030/A/PARIS/RUE DE RIVOLI"});
  EXPECT_EQ(Stored(u"strKeyElement", 0), u"");
  EXPECT_EQ(desk.scans.Arrays(kKind).UpperBound(), 1);
}

TEST_F(SUR, DisplayTextIsNotRead) {
  CountElements({u"4|SUR/1030/A/PARIS/RUE DE RIVOLI"});
  EXPECT_EQ(desk.pnr.Reads(), 0u);
}

TEST_F(SUR, MoreElementsThanSixteenBitsHoldOverflow) {
  TestWorld fakes;
  const auto element = FakeObject::Make(fakes.calls, "element");
  element->With(u"Text", u"SUR").With(u"ElementNo", u"1");
  const auto collection = FakeCollection(fakes.calls, "elements", std::vector<ObjectRef>(32768, element));
  const auto pnr = FakeObject::Make(fakes.calls, "PNR");
  pnr->With(3, ObjectRef(collection));
  fakes.module.gobjPNR = pnr;
  DisplayScans scans(fakes.module);
  EXPECT_TRUE(RaisesNumber(6, [&] { scans.Count(kKind); }));
  collection->WithItems(std::vector<ObjectRef>(32767, element));
  EXPECT_EQ(scans.Count(kKind), 32767);
}

}  // namespace
}  // namespace wendrill::testing
