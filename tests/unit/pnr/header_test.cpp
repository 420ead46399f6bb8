// The header beyond its data files.
#include <gtest/gtest.h>

#include <algorithm>

#include "pnr/records.h"
#include "support/pnr_desk.h"

namespace wendrill::testing {
namespace {

FakeObjectRef Header(const PnrDesk& desk) {
  auto header = desk.Object("header");
  header->With(u"Text", u"RP")
      .With(1, u"RP/PARXX0100/PARXX0200            AA/SU  12JUN08/0915Z   ABC123")
      .With(2, std::int32_t{1})
      .With(4, u"PARXX0100")
      .With(6, u"ABC123");
  desk.pnr->With(76, ObjectRef(header));
  return header;
}

Value AxrTag(std::u16string display) {
  const PnrDesk desk;
  Header(desk);
  desk.Display(std::move(display));
  const auto bag = std::make_shared<FakeBag>(desk.calls);
  EXPECT_EQ(PnrRecords(desk.module).Get(GetMember::PNRHeader, bag), nullptr);
  return bag->Held(u"blnKeyAXRTag");
}

TEST(PnrHeader, WhoseTextIsEmptyRaises2227AndStoresNothing) {
  const PnrDesk desk;
  Header(desk)->With(u"Text", u"");
  const auto bag = desk.Bag();
  EXPECT_TRUE(Raises(2227, kElementMessage, [&] { PnrRecords(desk.module).Get(GetMember::PNRHeader, bag); }));
  EXPECT_TRUE(bag->Settings().empty());
}

TEST(PnrHeader, OfADisplayWhoseAxrLineIsTheFourthOrLaterHasNoTag) {
  EXPECT_EQ(AxrTag(Rows({u"1", u"2", u"3", u"--- AXR ---"})), Value(false));
  EXPECT_EQ(AxrTag(Rows({u"1", u"2", u"3", u"4", u"--- AXR ---"})), Value(false));
  EXPECT_EQ(AxrTag(Rows({u"1", u"2", u"--- AXR ---", u"4"})), Value(true));
}

TEST(PnrHeader, OfADisplayOfFewerThanThreeLinesIsScannedAsFarAsItGoes) {
  EXPECT_EQ(AxrTag(u""), Value(false));
  EXPECT_EQ(AxrTag(u"RP/PARXX0100\r\n"), Value(false));
  EXPECT_EQ(AxrTag(u"RP/PARXX0100\r\n--- AXR ---"), Value(true));
}

TEST(PnrHeader, OfADisplayWithTheTagWithoutItsLeadingBlankHasNoTag) {
  EXPECT_EQ(AxrTag(Rows({u"AXR ---"})), Value(false));
  EXPECT_EQ(AxrTag(Rows({u"---AXR ---"})), Value(false));
  EXPECT_EQ(AxrTag(Rows({u"--- axr ---"})), Value(false));
}

TEST(PnrHeader, ReadsNoIndex) {
  const PnrDesk desk;
  Header(desk);
  const auto bag = std::make_shared<FakeBag>(desk.calls);
  PnrRecords(desk.module).Get(GetMember::PNRHeader, bag);
  EXPECT_EQ(std::ranges::count(desk.calls->Calls(), "bag get intKeyIndex"), 0);
  EXPECT_EQ(bag->Settings().size(), 7U);
}

TEST(PnrHeader, ReadsEachMemberWhenItsKeyIsStored) {
  const PnrDesk desk;
  Header(desk);
  const auto bag = std::make_shared<FakeBag>(desk.calls);
  PnrRecords(desk.module).Get(GetMember::PNRHeader, bag);
  EXPECT_EQ(desk.calls->Calls(),
            (std::vector<std::string>{"PNR.76", "header.Text", "PNR.75", "header.1", "bag set strKeyText",
                                      "bag set strKeyQueOfficeID", "header.2", "bag set strKeyElementNr", "header.4",
                                      "bag set strKeyOfficeID", "header.6", "bag set strKeyRecordLocator",
                                      "bag set blnKeyAXRTag", "bag set strKeyUpdateTime"}));
}

TEST(PnrHeader, ThatIsNotThereIsObjectNotSet) {
  const PnrDesk desk;
  desk.pnr->With(76, ObjectRef());
  EXPECT_TRUE(RaisesNumber(91, [&] { PnrRecords(desk.module).Get(GetMember::PNRHeader, desk.Bag()); }));
}

}  // namespace
}  // namespace wendrill::testing
