// What the car and hotel members do beyond their data files.
#include <gtest/gtest.h>

#include "common/host_date.h"
#include "pnr/records.h"
#include "support/pnr_desk.h"

namespace wendrill::testing {
namespace {

FakeObjectRef Car(const PnrDesk& desk, std::u16string text) {
  auto association = desk.Object("association");
  association->With(u"Passengers", ObjectRef(FakeCollection(desk.calls, "passengers", {})));
  auto car = desk.Object("car");
  car->With(1, Value(std::move(text)))
      .With(2, std::int32_t{6})
      .With(8, u"NCE")
      .With(9, DateOf({2008, 6, 15}))
      .With(10, DateOf({2008, 6, 18}))
      .With(11, u"CDMR")
      .With(18, u"98765")
      .With(44, ObjectRef(association));
  return car;
}

FakeBagRef ReadCar(const PnrDesk& desk, std::u16string text) {
  desk.Hold(Collection::CarSegments, {Car(desk, std::move(text))});
  auto bag = desk.Bag();
  EXPECT_EQ(PnrRecords(desk.module).Get(GetMember::CarSegment, bag), nullptr);
  return bag;
}

TEST(CarSegment, TakesItsRateFromRgEvenWhenRqComesFirst) {
  const PnrDesk desk;
  const auto bag = ReadCar(desk, u"6 CCR ZE HK1/RQ-USD 30.50 WLY/RG-EUR 45.00 DLY");
  EXPECT_EQ(bag->Held(u"strKeyPrice"), Value(u"EUR 45.00"));
  EXPECT_EQ(bag->Held(u"strKeyPaymentBase"), Value(u"DLY"));
}

TEST(CarSegment, WithoutThreeCapitalLettersInItsRateHasNoPriceButAllOtherKeys) {
  const PnrDesk desk;
  const auto bag = ReadCar(desk, u"6 CCR ZE HK1/RG-45.00 PD/VV");
  EXPECT_EQ(bag->Settings().size(), 13U);
  EXPECT_EQ(bag->Held(u"strKeyPrice"), Value(u""));
  EXPECT_EQ(bag->Held(u"strKeyPaymentBase"), Value(u""));
  EXPECT_EQ(bag->Held(u"strKeyCity"), Value(u"NCE"));
  EXPECT_EQ(bag->Held(u"blnKeyVchr"), Value(true));
}

TEST(CarSegment, OfANegativeIndexWritesAllThirteenKeysEmptyOrFalse) {
  const PnrDesk desk;
  desk.Hold(Collection::CarSegments, {Car(desk, u"6 CCR ZE HK1/VV/RTSVCC")});
  const auto bag = desk.Bag(std::int16_t{-1});
  PnrRecords(desk.module).Get(GetMember::CarSegment, bag);
  EXPECT_EQ(bag->SettingsText(),
            "strKeySegment = \"\"\n"
            "strKeySegmentNr = \"\"\n"
            "strKeyCity = \"\"\n"
            "strKeyPuDate = \"\"\n"
            "strKeyDoCity = \"\"\n"
            "strKeyDoDate = \"\"\n"
            "strKeyPasAsso = \"\"\n"
            "strKeyCarCode = \"\"\n"
            "strKeyPrice = \"\"\n"
            "strKeyPaymentBase = \"\"\n"
            "blnKeyRTSVCC = False\n"
            "strKeyConfNo = \"\"\n"
            "blnKeyVchr = False\n");
}

TEST(CarSegment, HandsItsDatesToTheTextHelperAsTextsOfDates) {
  PnrDesk desk;
  std::vector<Value> handed;
  desk.desk.platform.hostDateText = [&handed](const Value& date) {
    handed.push_back(date);
    return std::u16string(u"?");
  };
  ReadCar(desk, u"6 CCR ZE HK1");
  EXPECT_EQ(handed, (std::vector<Value>{u"6/15/2008", u"6/18/2008"}));
}

TEST(CarSegment, HandsItsDatesOverInTheFormOfTheDesktop) {
  PnrDesk desk;
  desk.desk.texts.DayMonthYear();
  std::vector<Value> handed;
  desk.desk.platform.hostDateText = [&handed](const Value& date) {
    handed.push_back(date);
    return std::u16string(u"?");
  };
  ReadCar(desk, u"6 CCR ZE HK1");
  EXPECT_EQ(handed, (std::vector<Value>{u"15/06/2008", u"18/06/2008"}));
}

TEST(CarSegment, ComesOutWithTheDatesOfTheHostOnADayMonthYearDesktop) {
  PnrDesk desk;
  desk.desk.texts.DayMonthYear();
  const auto bag = ReadCar(desk, u"6 CCR ZE HK1");
  EXPECT_EQ(bag->Held(u"strKeyPuDate"), Value(u"15JUN08"));
  EXPECT_EQ(bag->Held(u"strKeyDoDate"), Value(u"18JUN08"));
}

TEST(CarSegment, StoresNothingWhenOneOfItsMembersFails) {
  const PnrDesk desk;
  const auto car = Car(desk, u"6 CCR ZE HK1");
  car->Failing(18);
  desk.Hold(Collection::CarSegments, {car});
  const auto bag = desk.Bag();
  EXPECT_TRUE(RaisesNumber(ForeignError().Number(), [&] { PnrRecords(desk.module).Get(GetMember::CarSegment, bag); }));
  EXPECT_TRUE(bag->Settings().empty());
}

// --- Hotels ---

FakeBagRef ReadHotel(const PnrDesk& desk, const std::u16string& tail) {
  auto hotel = TextElement(
      desk, u"5 HHL RT HK1 PAR IN15JUN OUT17JUN 1A1KCOR EUR120.00 DLY CD GRAND HOTEL/CF-AB12" + tail, Value(u"5"));
  hotel->With(u"City", u"PAR")
      .With(u"CheckinDate", DateOf({2008, 6, 15}))
      .With(u"CheckoutDate", DateOf({2008, 6, 17}))
      .With(u"ConfirmationNo", u"AB12")
      .With(u"RoomRateCode", u"1A1KCOR");
  desk.Hold(Collection::HotelSegments, {hotel});
  auto bag = desk.Bag();
  bag->Given(u"blnKeyRTSVCH", u"earlier").Given(u"strKeyPasAsso", u"earlier");
  EXPECT_EQ(PnrRecords(desk.module).Get(GetMember::HotelSegment, bag), nullptr);
  return bag;
}

TEST(HotelSegment, WithoutSeeRtsvchLeavesAnEarlierMarkUnchanged) {
  const PnrDesk desk;
  EXPECT_EQ(ReadHotel(desk, u"/RTSVCH")->Held(u"blnKeyRTSVCH"), Value(u"earlier"));
  EXPECT_EQ(ReadHotel(desk, u"/SEE RTSVCH")->Held(u"blnKeyRTSVCH"), Value(true));
}

TEST(HotelSegment, WithThePassengerMarkFollowedBy12YieldsPassenger1) {
  const PnrDesk desk;
  EXPECT_EQ(ReadHotel(desk, u"/P12")->Held(u"strKeyPasAsso"), Value(u"1"));
}

TEST(HotelSegment, WithoutADigitAfterThePassengerMarkLeavesAnEarlierPassengerUnchanged) {
  const PnrDesk desk;
  EXPECT_EQ(ReadHotel(desk, u"/PA")->Held(u"strKeyPasAsso"), Value(u"earlier"));
  EXPECT_EQ(ReadHotel(desk, u"/P")->Held(u"strKeyPasAsso"), Value(u"earlier"));
}

TEST(HotelSegment, HandsItsDatesToTheTextHelperAsTheyAre) {
  PnrDesk desk;
  std::vector<Value> handed;
  desk.desk.platform.hostDateText = [&handed](const Value& date) {
    handed.push_back(date);
    return std::u16string(u"?");
  };
  ReadHotel(desk, u"");
  EXPECT_EQ(handed, (std::vector<Value>{DateOf({2008, 6, 15}), DateOf({2008, 6, 17})}));
}

}  // namespace
}  // namespace wendrill::testing
