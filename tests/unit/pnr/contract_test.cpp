// The contract that all accessors share, member by member.
#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

#include "unit/pnr/members.h"

namespace wendrill::testing {
namespace {

std::string NameOf(const ::testing::TestParamInfo<MemberRow>& test) {
  return test.param.name;
}

template <typename Predicate>
std::vector<MemberRow> MembersThat(Predicate predicate) {
  std::vector<MemberRow> members;
  std::ranges::copy_if(Members(), std::back_inserter(members), predicate);
  return members;
}

bool HasIndex(const MemberRow& member) {
  return member.index != IndexRule::None;
}

bool IsSegment(const MemberRow& member) {
  return member.index == IndexRule::Segment;
}

bool IsElement(const MemberRow& member) {
  return HasIndex(member) && !IsSegment(member);
}

bool ReadsArrays(const MemberRow& member) {
  return member.index == IndexRule::Array;
}

TEST(EveryMemberOfIGet, IsHereInTheOrderOfTheInterface) {
  std::vector<std::string> names;
  for (const GetMember member : kEveryGetMember) {
    names.emplace_back(wendrill::NameOf(member));
  }
  names.emplace_back("MISElement");
  std::vector<std::string> here;
  std::ranges::transform(Members(), std::back_inserter(here), &MemberRow::name);
  EXPECT_EQ(here, names);
}

class EveryMember : public ::testing::TestWithParam<MemberRow> {
 protected:
  const MemberRow& member = GetParam();
  PnrDesk desk;
};

TEST_P(EveryMember, ReturnsTheCallersBagOrNothing) {
  HoldSamples(desk, member, 1);
  const auto bag = desk.Bag();
  EXPECT_EQ(member.call(desk.module, bag), member.returnsBag ? ParamBagRef(bag) : nullptr);
  EXPECT_FALSE(bag->Settings().empty());
}

TEST_P(EveryMember, WithoutABagIsObjectNotSet) {
  HoldSamples(desk, member, 1);
  EXPECT_TRUE(RaisesNumber(91, [&] { member.call(desk.module, nullptr); }));
}

TEST_P(EveryMember, WithoutAPnrIsObjectNotSet) {
  desk.module.gobjPNR.reset();
  // The validating airlines' count passes over every failure, so that the index is what is wrong.
  const std::int32_t number = member.name == "ValidatingAirlineElement" ? member.error : 91;
  EXPECT_TRUE(RaisesNumber(number, [&] { member.call(desk.module, desk.Bag()); }));
}

TEST_P(EveryMember, KeepsNothingOfTheToolkitsAlive) {
  HoldSamples(desk, member, 2);
  const auto bag = desk.Bag();
  const auto before = desk.calls->liveObjects;
  member.call(desk.module, bag);
  EXPECT_EQ(desk.calls->liveObjects, before);
}

TEST_P(EveryMember, ReadsEachPropertyOfItsElementOnce) {
  HoldSamples(desk, member, 1);
  desk.calls->Clear();
  member.call(desk.module, desk.Bag());
  auto reads = desk.calls->Calls();
  std::erase_if(reads, [](const std::string& call) { return !call.starts_with("element."); });
  std::ranges::sort(reads);
  EXPECT_EQ(std::ranges::adjacent_find(reads), reads.end());
}

INSTANTIATE_TEST_SUITE_P(Contract, EveryMember, ::testing::ValuesIn(Members()), NameOf);

class Index : public EveryMember {
 protected:
  // What the member stores for an index among five elements; an error as its number.
  std::string Stored(Value index) {
    HoldSamples(desk, member, 5);
    auto bag = std::make_shared<FakeBag>(desk.calls);
    if (!index.IsEmpty()) {
      bag->Given(u"intKeyIndex", std::move(index));
    }
    const auto error = ErrorOf([&] { member.call(desk.module, bag); });
    return error ? "error " + std::to_string(error->Number()) : bag->SettingsText();
  }

  // What is stored where no element stands at an index that passed the bound.
  std::string StoredForNone() {
    if (ReadsArrays(member)) {
      return "error 9";
    }
    return member.name == "CarSegment" ? Stored(std::int16_t{-1}) : "";
  }
};

TEST_P(Index, CountsFromZero) {
  const auto first = Stored(std::int16_t{0});
  const auto last = Stored(std::int16_t{4});
  EXPECT_NE(first, last);
  EXPECT_NE(first.find('0'), std::string::npos);
  EXPECT_FALSE(first.starts_with("error"));
  EXPECT_FALSE(last.starts_with("error"));
}

TEST_P(Index, EqualToTheCountOrBeyondItRaisesTheMembersNumber) {
  HoldSamples(desk, member, 5);
  for (const Value& index : {Value(std::int16_t{5}), Value(5.0), Value(u"5"), Value(std::int32_t{32767})}) {
    EXPECT_TRUE(Raises(member.error, kElementMessage, [&] { member.call(desk.module, desk.Bag(index)); }));
  }
}

TEST_P(Index, IsAnyValueThatConverts) {
  const auto third = Stored(std::int16_t{2});
  EXPECT_EQ(Stored(std::int32_t{2}), third);
  EXPECT_EQ(Stored(2.0), third);
  EXPECT_EQ(Stored(u"2"), third);
  EXPECT_EQ(Stored(u" 2 "), third);
}

TEST_P(Index, RoundsHalvesToTheEvenNeighbour) {
  EXPECT_EQ(Stored(0.6), Stored(std::int16_t{1}));
  EXPECT_EQ(Stored(0.5), Stored(std::int16_t{0}));
  EXPECT_EQ(Stored(1.5), Stored(std::int16_t{2}));
  EXPECT_EQ(Stored(2.5), Stored(std::int16_t{2}));
}

TEST_P(Index, ThatIsMissingIsZeroUnlessItsTextIsConverted) {
  EXPECT_EQ(Stored(Value()), ReadsArrays(member) ? "error 13" : Stored(std::int16_t{0}));
}

TEST_P(Index, ThatIsMissingWhereThereIsNoElementRaisesTheMembersNumber) {
  HoldSamples(desk, member, 0);
  EXPECT_TRUE(Raises(member.error, kElementMessage, [&] { member.call(desk.module, desk.Bag(Value())); }));
}

TEST_P(Index, BelowZeroFindsNoElement) {
  EXPECT_EQ(Stored(std::int16_t{-1}), StoredForNone());
  EXPECT_EQ(Stored(std::int16_t{-32768}), StoredForNone());
}

TEST_P(Index, BelowSixteenBitsOverflows) {
  EXPECT_EQ(Stored(std::int32_t{-32769}), "error 6");
  EXPECT_EQ(Stored(-1e300), "error 6");
}

TEST_P(Index, ThatIsNoNumberIsATypeMismatch) {
  EXPECT_EQ(Stored(u"FIRST"), "error 13");
  EXPECT_EQ(Stored(u""), "error 13");
  EXPECT_EQ(Stored(TextArray{}), "error 13");
}

TEST_P(Index, IsReadOnceOrAgainForEachElementOfTheWalk) {
  HoldSamples(desk, member, 5);
  const auto bag = desk.Bag(std::int16_t{3});
  desk.calls->Clear();
  member.call(desk.module, bag);
  const bool once = IsSegment(member) || ReadsArrays(member) || member.name == "MISElement";
  EXPECT_EQ(std::ranges::count(desk.calls->Calls(), "bag get intKeyIndex"), once ? 1 : 1 + 4);
}

TEST_P(Index, IsReadAndBoundBeforeTheCollectionIsWalked) {
  HoldSamples(desk, member, 5);
  desk.calls->Clear();
  EXPECT_TRUE(RaisesNumber(member.error, [&] { member.call(desk.module, desk.Bag(std::int16_t{5})); }));
  EXPECT_EQ(desk.calls->Calls().front(), "bag get intKeyIndex");
  for (const auto& call : desk.calls->Calls()) {
    EXPECT_FALSE(call.ends_with(" walk")) << call;
  }
}

INSTANTIATE_TEST_SUITE_P(Contract, Index, ::testing::ValuesIn(MembersThat(HasIndex)), NameOf);

class SegmentIndex : public Index {};

TEST_P(SegmentIndex, IsConvertedBeforeItIsCompared) {
  EXPECT_EQ(Stored(4.6), "error " + std::to_string(member.error)) << "it is 5 of 5";
  EXPECT_EQ(Stored(u"4.6"), "error " + std::to_string(member.error));
  EXPECT_EQ(Stored(4.5), Stored(std::int16_t{4}));
  EXPECT_EQ(Stored(-0.5), Stored(std::int16_t{0}));
}

TEST_P(SegmentIndex, BeyondSixteenBitsOverflows) {
  EXPECT_EQ(Stored(std::int32_t{40000}), "error 6");
  EXPECT_EQ(Stored(1e300), "error 6");
}

TEST_P(SegmentIndex, IsConvertedBeforeTheCountIsAsked) {
  HoldSamples(desk, member, 5);
  desk.calls->Clear();
  EXPECT_TRUE(RaisesNumber(13, [&] { member.call(desk.module, desk.Bag(u"FIRST")); }));
  EXPECT_EQ(desk.calls->Calls(), (std::vector<std::string>{"bag get intKeyIndex"}));
}

INSTANTIATE_TEST_SUITE_P(Contract, SegmentIndex, ::testing::ValuesIn(MembersThat(IsSegment)), NameOf);

class ElementIndex : public Index {};

TEST_P(ElementIndex, IsComparedBeforeItIsConverted) {
  EXPECT_EQ(Stored(4.9), StoredForNone()) << "it is below 5, but position 5 has no element";
}

TEST_P(ElementIndex, BeyondSixteenBitsIsBeyondTheCount) {
  EXPECT_EQ(Stored(std::int32_t{40000}), "error " + std::to_string(member.error));
  EXPECT_EQ(Stored(1e300), "error " + std::to_string(member.error));
}

INSTANTIATE_TEST_SUITE_P(Contract, ElementIndex, ::testing::ValuesIn(MembersThat(IsElement)), NameOf);

}  // namespace
}  // namespace wendrill::testing
