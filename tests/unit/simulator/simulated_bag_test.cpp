#include "core/simulated_bag.h"

#include <gtest/gtest.h>

#include "simulated_world.h"

namespace wendrill::simulator {
namespace {

class Bag : public SimulatedWorld {
 protected:
  std::shared_ptr<SimulatedBag> bag = world.MakeParamBag();
};

TEST_F(Bag, ANewOneIsEmpty) {
  EXPECT_EQ(bag->Count(), 0);
  EXPECT_TRUE(bag->Keys().items.empty());
}

TEST_F(Bag, GivesBackWhatWasSet) {
  bag->Set(u"strKeyText", u"PAY");
  bag->Set(u"intKeyIndex", std::int16_t{2});
  EXPECT_EQ(bag->Get(u"strKeyText"), Value(u"PAY"));
  EXPECT_EQ(bag->Get(u"intKeyIndex"), Value(std::int16_t{2}));
}

TEST_F(Bag, AKeyThatIsNotThereIsEmptyAndStaysAway) {
  EXPECT_TRUE(bag->Get(u"strKeyText").IsEmpty());
  EXPECT_TRUE(bag->Item(u"strKeyText").IsEmpty());
  EXPECT_EQ(bag->Count(), 0);
  EXPECT_FALSE(bag->Exists(u"strKeyText"));
}

TEST_F(Bag, SettingAKeyThatIsThereReplacesItsValueInItsPlace) {
  bag->Set(u"b", u"1");
  bag->Set(u"a", u"2");
  bag->PutItem(u"b", u"3");
  EXPECT_EQ(bag->Keys(), (TextArray{0, {u"b", u"a"}}));
  EXPECT_EQ(bag->Item(u"b"), Value(u"3"));
  EXPECT_EQ(bag->Count(), 2);
}

TEST_F(Bag, TheSlotsAndTheDefaultMemberSeeTheSameEntries) {
  bag->Set(u"set", u"1");
  bag->PutItem(u"put", u"2");
  EXPECT_EQ(bag->Item(u"set"), Value(u"1"));
  EXPECT_EQ(bag->Get(u"put"), Value(u"2"));
}

TEST_F(Bag, KeysAreComparedExactly) {
  bag->Set(u"strKeyText", u"PAY");
  EXPECT_FALSE(bag->Exists(u"STRKEYTEXT"));
  EXPECT_TRUE(bag->Exists(u"strKeyText"));
}

TEST_F(Bag, AnEmptyValueUnderAKeyIsAnEntry) {
  bag->PutItem(u"a", Value());
  EXPECT_TRUE(bag->Exists(u"a"));
  EXPECT_EQ(bag->Count(), 1);
}

TEST_F(Bag, RemoveAllStartsTheOrderAgain) {
  bag->Set(u"a", u"1");
  bag->Set(u"b", u"2");
  bag->RemoveAll();
  bag->Set(u"b", u"3");
  bag->Set(u"a", u"4");
  EXPECT_EQ(bag->Keys(), (TextArray{0, {u"b", u"a"}}));
  EXPECT_EQ(bag->Get(u"a"), Value(u"4"));
}

TEST_F(Bag, AFailedSetStoresNothing) {
  world.FailNext(u"Set", 13, 1);
  EXPECT_TRUE(RaisesNumber(13, [&] { bag->Set(u"a", u"1"); }));
  EXPECT_EQ(bag->Count(), 0);
}

TEST_F(Bag, EveryMemberCanBeMadeToFail) {
  const std::vector<std::function<void()>> calls = {[&] { bag->Set(u"a", u"1"); }, [&] { bag->Get(u"a"); },
                                                    [&] { bag->Item(u"a"); },      [&] { bag->PutItem(u"a", u"1"); },
                                                    [&] { bag->Exists(u"a"); },    [&] { bag->Keys(); },
                                                    [&] { bag->Count(); },         [&] { bag->RemoveAll(); }};
  for (const auto& call : calls) {
    world.FailNext(u"*", kUnspecifiedFailure, 1);
    EXPECT_TRUE(RaisesNumber(kUnspecifiedFailure, call));
  }
}

}  // namespace
}  // namespace wendrill::simulator
