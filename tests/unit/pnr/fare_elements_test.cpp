// What tickets, forms of payment and commissions do beyond their data files.
#include <gtest/gtest.h>

#include "common/host_date.h"
#include "pnr/records.h"
#include "support/pnr_desk.h"
#include "unit/pnr/members.h"

namespace wendrill::testing {
namespace {

FakeBagRef ReadPayment(const PnrDesk& desk, std::u16string text) {
  desk.Hold(Collection::FormsOfPayment, {TextElement(desk, std::move(text))});
  auto bag = desk.Bag();
  EXPECT_EQ(PnrRecords(desk.module).Get(GetMember::FormOfPaymentElement, bag), bag);
  return bag;
}

TEST(FormOfPayment, WithoutASlashHasItsValueFromColumnSixAndNoOtherField) {
  const PnrDesk desk;
  EXPECT_EQ(ReadPayment(desk, u"7 FP CASH")->SettingsText(),
            "strKeyElement = \"7 FP CASH\"\n"
            "strKeyElementNr = \"1\"\n"
            "strKeyValue = \"CASH\"\n"
            "strKeyPasAsso = \"\"\n"
            "strKeySegAsso = \"\"\n"
            "strKeyExpireDate = \"\"\n"
            "strKeyManualApproval = \"\"\n");
}

TEST(FormOfPayment, WithASlashBelowColumn11AndThePassengerWordRaisesTheRunTimeError) {
  const PnrDesk desk;
  EXPECT_TRUE(RaisesNumber(5, [&] { ReadPayment(desk, u"7 FP PAX /S2"); }));
  // In column 11 the length is 0.
  EXPECT_EQ(ReadPayment(desk, u"7 FP PAX  /S2")->Held(u"strKeyValue"), Value(u""));
}

TEST(FormOfPayment, OfANegativeIndexReturnsTheBagUnchangedAndTheOtherMembersReturnNothing) {
  const PnrDesk desk;
  for (const char* name : {"FormOfPaymentElement", "TicketElement", "FareCommissionElement"}) {
    const MemberRow& member = *MemberNamed(name);
    member.hold(desk, {TextElement(desk, u"7 FP CASH")});
    const auto bag = desk.Bag(std::int16_t{-1});
    EXPECT_EQ(member.call(desk.module, bag), member.returnsBag ? ParamBagRef(bag) : nullptr) << name;
    EXPECT_TRUE(bag->Settings().empty()) << name;
  }
}

TEST(Ticket, HandsItsDateToTheTextHelperAsText) {
  PnrDesk desk;
  Value handed;
  desk.desk.platform.hostDateText = [&handed](const Value& date) {
    handed = date;
    return std::u16string(u"?");
  };
  const auto ticket = TextElement(desk, u"10 TK TL10JUN");
  ticket->With(u"Action", u"TL").With(u"Date", DateOf({2008, 6, 10}));
  desk.Hold(Collection::Tickets, {ticket});
  const auto bag = desk.Bag();
  PnrRecords(desk.module).Get(GetMember::TicketElement, bag);
  EXPECT_EQ(handed, Value(u"6/10/2008"));
  EXPECT_EQ(bag->Held(u"strKeyDate"), Value(u"?"));
}

TEST(Ticket, HandsItsDateOverInTheFormOfTheDesktop) {
  PnrDesk desk;
  desk.desk.texts.DayMonthYear();
  const auto ticket = TextElement(desk, u"10 TK TL12JUN");
  ticket->With(u"Action", u"TL").With(u"Date", DateOf({2008, 6, 12}));
  desk.Hold(Collection::Tickets, {ticket});
  const auto bag = desk.Bag();
  PnrRecords(desk.module).Get(GetMember::TicketElement, bag);
  EXPECT_EQ(bag->Held(u"strKeyDate"), Value(u"12JUN08"));
}

TEST(Ticket, StoresWhatItCopiesAsTheToolkitReturnsIt) {
  const PnrDesk desk;
  const auto ticket = TextElement(desk, u"10 TK", Value(std::int32_t{10}));
  ticket->With(u"Action", Value()).With(u"Date", u"");
  desk.Hold(Collection::Tickets, {ticket});
  const auto bag = desk.Bag();
  PnrRecords(desk.module).Get(GetMember::TicketElement, bag);
  EXPECT_EQ(bag->SettingsText(),
            "strKeyElement = \"10 TK\"\n"
            "strKeyElementNr = int32 10\n"
            "strKeyAction = Empty\n"
            "strKeyDate = \"\"\n");
}

}  // namespace
}  // namespace wendrill::testing
