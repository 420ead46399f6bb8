// What names, remarks and contacts do beyond their data files.
#include <gtest/gtest.h>

#include "pnr/records.h"
#include "support/pnr_desk.h"
#include "unit/pnr/members.h"

namespace wendrill::testing {
namespace {

constexpr const char* kMembers[] = {
    "NameElement",
    "BillingAddressElements",
    "ConfidentialRemarkElements",
    "MailingAddressElements",
    "OptionElements",
    "ContactElements",
    "RemarkElement",
};

FakeObjectRef Name(const PnrDesk& desk, std::u16string text) {
  auto name = TextElement(desk, std::move(text));
  name->With(u"Initial", u"JOHN").With(u"LastName", u"SMITH");
  return name;
}

// An element that every member of the family can read.
FakeObjectRef AnyElement(const PnrDesk& desk) {
  auto element = Name(desk, u"1.SMITH/JOHN");
  element->With(u"FreeFlow", u"");
  return element;
}

class NamesAndRemarks : public ::testing::TestWithParam<const char*> {
 protected:
  const MemberRow& member = *MemberNamed(GetParam());
  PnrDesk desk;
};

TEST_P(NamesAndRemarks, OfAPnrWithNoElementOfTheKindRaiseTheMembersNumberForEveryIndex) {
  member.hold(desk, {});
  for (const std::int16_t index : {std::int16_t{0}, std::int16_t{1}, std::int16_t{32767}}) {
    EXPECT_TRUE(Raises(member.error, kElementMessage, [&] { member.call(desk.module, desk.Bag(index)); })) << index;
  }
}

TEST_P(NamesAndRemarks, OfAnIndexEqualToTheCountRaiseTheMembersNumberAndTheLastValidIndexIsOneBelow) {
  const auto last = AnyElement(desk);
  last->With(u"ElementNo", u"last");
  member.hold(desk, {AnyElement(desk), AnyElement(desk), last});
  EXPECT_TRUE(Raises(member.error, kElementMessage, [&] { member.call(desk.module, desk.Bag(std::int16_t{3})); }));
  const auto bag = desk.Bag(std::int16_t{2});
  EXPECT_EQ(member.call(desk.module, bag), nullptr);
  EXPECT_EQ(bag->Held(u"strKeyElementNr"), Value(u"last"));
}

TEST_P(NamesAndRemarks, OfANegativeIndexStoreNothingAndRaiseNothing) {
  member.hold(desk, {AnyElement(desk)});
  const auto bag = desk.Bag(std::int16_t{-1});
  EXPECT_EQ(member.call(desk.module, bag), nullptr);
  EXPECT_TRUE(bag->Settings().empty());
}

TEST_P(NamesAndRemarks, ReadTheIndexAgainForEachElement) {
  const auto second = AnyElement(desk);
  second->With(u"ElementNo", u"second");
  member.hold(desk, {AnyElement(desk), second, AnyElement(desk)});
  // At the bound test 0, at the first element 2, at the second 1: the second is the one.
  std::vector<std::int16_t> answers = {0, 2, 1};
  std::size_t reads = 0;
  const auto bag = desk.Bag();
  bag->Answering(u"intKeyIndex", [&]() -> Value { return answers.at(reads++); });
  member.call(desk.module, bag);
  EXPECT_EQ(reads, 3U);
  EXPECT_EQ(bag->Held(u"strKeyElementNr"), Value(u"second"));
}

INSTANTIATE_TEST_SUITE_P(Members, NamesAndRemarks, ::testing::ValuesIn(kMembers),
                         [](const auto& test) { return std::string(test.param); });

// The display's group makes the count, so that the collection may be larger than any count.
TEST(NameElement, AfterMoreElementsThanSixteenBitsCountOverflows) {
  const PnrDesk desk;
  desk.Display(Rows({u"  0. 10SKI CLUB NM: 1"}));
  std::vector<ObjectRef> names(32767, AnyElement(desk));
  const auto bag = desk.Bag(std::int16_t{-1});
  desk.Hold(Collection::Names, names);
  EXPECT_EQ(PnrRecords(desk.module).Get(GetMember::NameElement, bag), nullptr);
  names.push_back(names.front());
  desk.Hold(Collection::Names, names);
  EXPECT_TRUE(RaisesNumber(6, [&] { PnrRecords(desk.module).Get(GetMember::NameElement, bag); }));
}

TEST(OptionElements, RaiseTheNumberOfTheMailingAddresses) {
  const PnrDesk desk;
  desk.HoldNothing();
  PnrRecords records(desk.module);
  EXPECT_TRUE(Raises(2237, kElementMessage, [&] { records.Get(GetMember::OptionElements, desk.Bag()); }));
  EXPECT_TRUE(Raises(2237, kElementMessage, [&] { records.Get(GetMember::MailingAddressElements, desk.Bag()); }));
}

TEST(NameElement, WithoutAParenthesisLeavesAnEarlierPassengerTypeAsItWas) {
  const PnrDesk desk;
  desk.Hold(Collection::Names, {Name(desk, u"1.SMITH/JOHN MR(ADT)"), Name(desk, u"2.DOE/JANE")});
  PnrRecords records(desk.module);
  const auto bag = desk.Bag(std::int16_t{1});
  records.Get(GetMember::NameElement, bag);
  EXPECT_FALSE(bag->Holds(u"strKeyPapType"));
  bag->Given(u"intKeyIndex", std::int16_t{0});
  records.Get(GetMember::NameElement, bag);
  bag->Given(u"intKeyIndex", std::int16_t{1});
  records.Get(GetMember::NameElement, bag);
  EXPECT_EQ(bag->Held(u"strKeyPapType"), Value(u"ADT"));
}

Value ContactPassenger(std::u16string text) {
  const PnrDesk desk;
  desk.Hold(Collection::Contacts, {TextElement(desk, std::move(text))});
  const auto bag = desk.Bag();
  PnrRecords(desk.module).Get(GetMember::ContactElements, bag);
  return bag->Held(u"strKeyPasAsso");
}

TEST(ContactElement, WithAnythingButANumberAfterItsFirstPassengerMarkStoresAnEmptyPassenger) {
  EXPECT_EQ(ContactPassenger(u"9 AP NCE/P1-2"), Value(u""));
  EXPECT_EQ(ContactPassenger(u"9 AP NCE/PA/P1"), Value(u""));
  EXPECT_EQ(ContactPassenger(u"9 AP NCE/P"), Value(u""));
  EXPECT_EQ(ContactPassenger(u"9 AP NCE/P1"), Value(u"1"));
}

FakeBagRef ReadRemark(const PnrDesk& desk, std::u16string text, std::u16string freeFlow) {
  auto remark = TextElement(desk, std::move(text), Value(u"14"));
  remark->With(u"FreeFlow", Value(std::move(freeFlow)));
  desk.Hold(Collection::Remarks, {remark});
  auto bag = desk.Bag();
  PnrRecords(desk.module).Get(GetMember::RemarkElement, bag);
  return bag;
}

TEST(RemarkElement, WhosePassengerMarkComesBeforeItsSegmentMarkRaisesTheRunTimeErrorAndNotItsOwn) {
  const PnrDesk desk;
  EXPECT_TRUE(RaisesNumber(5, [&] { ReadRemark(desk, u"14 RM PAY/P1/S3", u"PAY/P1/S3"); }));
}

TEST(RemarkElement, SkipsAMarkThatALetterFollowsAndSearchesOn) {
  const PnrDesk desk;
  const auto bag = ReadRemark(desk, u"14 RM A/SB/PC/S/P/S3/P1", u"A/SB/PC/S/P/S3/P1");
  EXPECT_EQ(bag->Held(u"strKeySegAsso"), Value(u"3"));
  EXPECT_EQ(bag->Held(u"strKeyPasAsso"), Value(u"1"));
  EXPECT_EQ(bag->Held(u"strKeyText"), Value(u"A/SB/PC/S/P"));
}

}  // namespace
}  // namespace wendrill::testing
