#include "derive/segments.h"

#include <gtest/gtest.h>

namespace wendrill::simulator {
namespace {

TEST(AirSegment, HasItsParts) {
  const auto air = AirSegmentIn(u"AF 321 M 29JUN 7 NCELYS HK2      2330 0030+1");
  ASSERT_TRUE(air);
  EXPECT_EQ(air->kind, SegmentKind::Timed);
  EXPECT_EQ(air->bookingClass, u"M");
  EXPECT_EQ(air->date, u"29JUN");
  EXPECT_EQ(air->weekday, 7);
  EXPECT_EQ(air->boardPoint, u"NCE");
  EXPECT_EQ(air->offPoint, u"LYS");
  EXPECT_EQ(air->departureTime, u"2330");
  EXPECT_EQ(air->arrivalTime, u"0030");
  EXPECT_EQ(air->dayChange, u"1");
}

TEST(AirSegment, MayArriveOnTheDayBefore) {
  EXPECT_EQ(AirSegmentIn(u"NZ  10 Y 15JUN 7 AKLHNL HK1      0015 0730-1")->dayChange, u"-1");
}

TEST(AirSegment, IsOpenWithTheOpenMark) {
  const auto air = AirSegmentIn(u"SKOPEN Y 20JUN 5 LHRCDG");
  ASSERT_TRUE(air);
  EXPECT_EQ(air->kind, SegmentKind::Open);
  EXPECT_EQ(air->departureTime, u"");
  EXPECT_EQ(air->dayChange, u"");
}

TEST(AirSegment, IsFlownWithTheFlownMark) {
  EXPECT_EQ(AirSegmentIn(u"AF7700 Y 10JUN 2 NCECDG FLWN")->kind, SegmentKind::Flown);
}

// A terminal and a meal stand between status and times, a confirmation number after them.
TEST(AirSegment, HasItsTimesWhereTwoTimesFollowEachOther) {
  const auto air = AirSegmentIn(u"U2 456 Y 15JUN 7*CDGLHR GK3  1 2F 1200 1220       K7PQ2R");
  ASSERT_TRUE(air);
  EXPECT_EQ(air->weekday, 7);
  EXPECT_EQ(air->boardPoint, u"CDG");
  EXPECT_EQ(air->departureTime, u"1200");
  EXPECT_EQ(air->arrivalTime, u"1220");
  EXPECT_EQ(air->dayChange, u"0");
}

TEST(AirSegment, MayLackClassDateAndWeekday) {
  EXPECT_EQ(AirSegmentIn(u"AF 123A 15JUN NCECDG HK1")->date, u"15JUN");
  EXPECT_EQ(AirSegmentIn(u"AFOPEN LHRNCE")->boardPoint, u"LHR");
}

TEST(AirSegment, IsNoOtherText) {
  for (const TextView text : {u"", u"A", u"AF", u"AF 123", u"AF 12345 Y 15JUN 7 NCECDG", u"12 123 Y 15JUN 7 NCECDG",
                              u"AF 123 Y 15JUN 7 NCE CDG HK1", u"ARNK", u"CCR QC HK1 CDG 15JUN-18JUN ECMN",
                              u"ATX QT HK1 NCECDG 20JUN-TAXI", u"TK OK12JUN/PARXX0100"}) {
    EXPECT_FALSE(AirSegmentIn(text)) << text.size();
  }
}

TEST(CarSegment, HasItsPartsAroundItsDates) {
  const CarParts car = CarPartsIn(u"QC HK1 CDG 15JUN-18JUN ECMN/BS-12345675/DO-ORY");
  EXPECT_EQ(car.city, u"CDG");
  EXPECT_EQ(car.pickUp, u"15JUN");
  EXPECT_EQ(car.dropOff, u"18JUN");
  EXPECT_EQ(car.type, u"ECMN");
}

TEST(CarSegment, WithoutDatesHasNoParts) {
  EXPECT_EQ(CarPartsIn(u"QC HK1 CDG ECMN/15JUN-18JUN").city, u"");
}

TEST(HotelSegment, HasItsPartsAroundItsDates) {
  const HotelParts hotel =
      HotelPartsIn(u"QH HK1 NCE IN15JUN OUT18JUN EUR120.00 DLY A1KRAC-BED GRAND PLAGE HOTEL/CF-98765");
  EXPECT_EQ(hotel.city, u"NCE");
  EXPECT_EQ(hotel.checkIn, u"15JUN");
  EXPECT_EQ(hotel.checkOut, u"18JUN");
  EXPECT_EQ(hotel.rateCode, u"A1KRAC");
}

TEST(HotelSegment, MayLackItsCheckOut) {
  const HotelParts hotel = HotelPartsIn(u"QH HK1 INV IN15JUN");
  EXPECT_EQ(hotel.city, u"INV");
  EXPECT_EQ(hotel.checkIn, u"15JUN");
  EXPECT_EQ(hotel.checkOut, u"");
  EXPECT_EQ(hotel.rateCode, u"");
  EXPECT_EQ(HotelPartsIn(u"QH HK1 INV").city, u"");
}

TEST(Confirmation, EndsAtTheNextSlash) {
  EXPECT_EQ(ConfirmationIn(u"QC/CF-H1234567890/VV"), u"H1234567890");
  EXPECT_EQ(ConfirmationIn(u"QC/CF-I555"), u"I555");
  EXPECT_EQ(ConfirmationIn(u"QC/BS-1"), u"");
}

TEST(Passengers, AreNumbersAndRanges) {
  EXPECT_EQ(PassengersIn(u"X/P1"), PassengerNumbers({u"1"}));
  EXPECT_EQ(PassengersIn(u"X/PAR/P1-3,5/VV"), PassengerNumbers({u"1", u"2", u"3", u"5"}));
  EXPECT_EQ(PassengersIn(u"X/P3-1"), PassengerNumbers());
  EXPECT_EQ(PassengersIn(u"X/PAR"), PassengerNumbers());
  EXPECT_EQ(PassengersIn(u"X"), PassengerNumbers());
  EXPECT_EQ(PassengersIn(u"X/P1-999,1-999").size(), 999U);
}

TEST(Ticket, HasAnActionAndPerhapsADate) {
  EXPECT_EQ(TicketPartsIn(u"OK12JUN/PARXX0100").action, u"OK");
  EXPECT_EQ(TicketPartsIn(u"OK12JUN/PARXX0100").date, u"12JUN");
  EXPECT_EQ(TicketPartsIn(u"PAX TL30JUN/1200").date, u"30JUN");
  EXPECT_EQ(TicketPartsIn(u"OK").action, u"OK");
  EXPECT_EQ(TicketPartsIn(u"OK").date, u"");
  EXPECT_EQ(TicketPartsIn(u"1").action, u"");
}

TEST(Percent, IsTheNumberAfterAMark) {
  EXPECT_EQ(PercentIn(u"*M*5"), u"5");
  EXPECT_EQ(PercentIn(u"9.50/S3"), u"9.50");
  EXPECT_EQ(PercentIn(u"PAX *F*0"), u"0");
  EXPECT_EQ(PercentIn(u"NET"), u"");
}

}  // namespace
}  // namespace wendrill::simulator
