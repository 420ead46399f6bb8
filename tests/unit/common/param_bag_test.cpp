#include "common/param_bag.h"

#include <gtest/gtest.h>

#include "common/text_forms.h"
#include "support/fake_bag.h"
#include "support/raises.h"

namespace wendrill::testing {
namespace {

TEST(BagOf, IsTheBagOfTheReference) {
  const auto bag = std::make_shared<FakeBag>();
  EXPECT_EQ(&BagOf(bag), bag.get());
}

TEST(BagOf, RaisesObjectNotSetForNothing) {
  EXPECT_TRUE(Raises(91, u"Object variable or With block variable not set", [] { BagOf(ParamBagRef()); }));
}

TEST(BooleanKey, ReadsAMissingKeyAsFalse) {
  FakeBag bag;
  EXPECT_FALSE(BooleanKey(bag, u"blnKeyGetAll"));
}

TEST(BooleanKey, ReadsABoolean) {
  FakeBag bag;
  bag.Given(u"blnKeyGetAll", true).Given(u"blnKeyPNR", false);
  EXPECT_TRUE(BooleanKey(bag, u"blnKeyGetAll"));
  EXPECT_FALSE(BooleanKey(bag, u"blnKeyPNR"));
}

TEST(BooleanKey, ConvertsAnyOtherValue) {
  FakeBag bag;
  bag.Given(u"one", std::int16_t{1}).Given(u"zero", std::int32_t{0}).Given(u"text", u"true").Given(u"no", u"No");
  EXPECT_TRUE(BooleanKey(bag, u"one"));
  EXPECT_FALSE(BooleanKey(bag, u"zero"));
  EXPECT_TRUE(BooleanKey(bag, u"text"));
  EXPECT_TRUE(RaisesNumber(13, [&bag] { BooleanKey(bag, u"no"); }));
}

TEST(TextKey, ReadsAMissingKeyAsTheEmptyText) {
  FakeBag bag;
  EXPECT_EQ(TextKey(bag, u"strKeyErr", UsTextForms()), u"");
}

TEST(TextKey, ReadsTextAndConvertsAnyOtherValue) {
  FakeBag bag;
  bag.Given(u"text", u" RP/ ").Given(u"number", std::int16_t{-3}).Given(u"truth", true);
  EXPECT_EQ(TextKey(bag, u"text", UsTextForms()), u" RP/ ");
  EXPECT_EQ(TextKey(bag, u"number", UsTextForms()), u"-3");
  EXPECT_EQ(TextKey(bag, u"truth", UsTextForms()), u"True");
}

TEST(TextKey, PassesOnTheBagsOwnError) {
  const auto calls = std::make_shared<CallLog>();
  FakeBag bag(calls);
  calls->FailNth(1);
  const auto error = ErrorOf([&bag] { TextKey(bag, u"strKeyErr", UsTextForms()); });
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Number(), ForeignError().Number());
  EXPECT_EQ(error->Source(), ForeignError().Source());
  EXPECT_EQ(error->Description(), ForeignError().Description());
}

TEST(BooleanKey, ReadsTheBagOnce) {
  const auto calls = std::make_shared<CallLog>();
  FakeBag bag(calls);
  BooleanKey(bag, u"blnKeyTST");
  EXPECT_EQ(calls->Calls(), std::vector<std::string>{"bag get blnKeyTST"});
}

}  // namespace
}  // namespace wendrill::testing
