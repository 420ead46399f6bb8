#include "common/value.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>
#include <vector>

#include "common/foreign_value.h"
#include "common/text.h"
#include "support/describe.h"
#include "support/fake_object.h"
#include "support/fake_text_forms.h"
#include "support/raises.h"
#include "support/us_text.h"

namespace wendrill::testing {
namespace {

constexpr std::int32_t kOverflow = 6;
constexpr std::int32_t kTypeMismatch = 13;
constexpr std::int32_t kObjectNotSet = 91;
constexpr std::int32_t kInvalidUseOfNull = 94;
constexpr std::int32_t kObjectRequired = 424;

ObjectRef SomeObject() {
  return FakeObject::Make(std::make_shared<CallLog>(), "object");
}

struct Refusal {
  Value value;
  std::int32_t number;
};

// What no conversion to a number, a Boolean or a text accepts.
std::vector<Refusal> Refusals() {
  return {
      {Null(), kInvalidUseOfNull},
      {ObjectRef(), kObjectNotSet},
      {SomeObject(), kTypeMismatch},
      {TextArray{1, {u"12"}}, kTypeMismatch},
      {ValueArray{0, {Value(std::int16_t{12})}}, kTypeMismatch},
  };
}

TEST(Conversions, RejectNullObjectsAndArrays) {
  for (const auto& [value, number] : Refusals()) {
    EXPECT_TRUE(RaisesNumber(number, [&value = value] { ToInt16(value); })) << Describe(value);
    EXPECT_TRUE(RaisesNumber(number, [&value = value] { ToInt32(value); })) << Describe(value);
    EXPECT_TRUE(RaisesNumber(number, [&value = value] { ToDouble(value); })) << Describe(value);
    EXPECT_TRUE(RaisesNumber(number, [&value = value] { ToBoolean(value); })) << Describe(value);
    EXPECT_TRUE(RaisesNumber(number, [&value = value] { ToUsText(value); })) << Describe(value);
  }
}

TEST(Conversions, ReadEmptyAsNothingAtAll) {
  EXPECT_EQ(ToInt16(Value()), 0);
  EXPECT_EQ(ToInt32(Value()), 0);
  EXPECT_EQ(ToDouble(Value()), 0);
  EXPECT_FALSE(ToBoolean(Value()));
  EXPECT_EQ(ToUsText(Value()), u"");
}

TEST(ToInt16, ReadsBooleansAsMinusOneAndZero) {
  EXPECT_EQ(ToInt16(true), -1);
  EXPECT_EQ(ToInt16(false), 0);
}

TEST(ToInt16, RoundsHalvesToTheEvenNeighbour) {
  EXPECT_EQ(ToInt16(2.5), 2);
  EXPECT_EQ(ToInt16(3.5), 4);
  EXPECT_EQ(ToInt16(-2.5), -2);
  EXPECT_EQ(ToInt16(u"2.5"), 2);
  EXPECT_EQ(ToInt16(Date{1.5}), 2);
}

TEST(ToInt16, KeepsWhatFits) {
  EXPECT_EQ(ToInt16(std::int16_t{-32768}), -32768);
  EXPECT_EQ(ToInt16(std::int32_t{32767}), 32767);
  EXPECT_EQ(ToInt16(u" 1,234 "), 1234);
}

TEST(ToInt16, OverflowsWhereTheNumberDoesNotFit) {
  for (const Value& value : {Value(std::int32_t{32768}), Value(std::int32_t{-32769}), Value(32767.5), Value(u"40000"),
                             Value(Date{39611}), Value(u"1e400")}) {
    EXPECT_TRUE(RaisesNumber(kOverflow, [&value] { ToInt16(value); })) << Describe(value);
  }
}

TEST(ToInt16, RejectsTextThatIsNoNumber) {
  for (const char16_t* text : {u"", u" ", u"A", u"True", u"6/12/2008"}) {
    EXPECT_TRUE(RaisesNumber(kTypeMismatch, [text] { ToInt16(text); })) << ToUtf8(text);
  }
}

TEST(ToInt32, KeepsEveryThirtyTwoBitNumber) {
  constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();
  EXPECT_EQ(ToInt32(kLowest), kLowest);
  EXPECT_EQ(ToInt32(kHighest), kHighest);
  EXPECT_EQ(ToInt32(std::int16_t{-7}), -7);
  EXPECT_EQ(ToInt32(2147483646.5), 2147483646);
  EXPECT_EQ(ToInt32(u"2147483647"), kHighest);
  EXPECT_EQ(ToInt32(Date{39611.25}), 39611);
}

TEST(ToInt32, OverflowsWhereTheNumberDoesNotFit) {
  EXPECT_TRUE(RaisesNumber(kOverflow, [] { ToInt32(2147483647.5); }));
  EXPECT_TRUE(RaisesNumber(kOverflow, [] { ToInt32(u"2147483648"); }));
}

TEST(ToDouble, ReadsNumbersDatesBooleansAndTexts) {
  EXPECT_EQ(ToDouble(0.1), 0.1);
  EXPECT_EQ(ToDouble(std::int32_t{-3}), -3);
  EXPECT_EQ(ToDouble(Date{39611.25}), 39611.25);
  EXPECT_EQ(ToDouble(true), -1);
  EXPECT_EQ(ToDouble(u"(1.5)"), -1.5);
  EXPECT_TRUE(Raises(kTypeMismatch, u"Type mismatch", [] { ToDouble(u"12JUN"); }));
  EXPECT_TRUE(Raises(kOverflow, u"Overflow", [] { ToDouble(u"1e400"); }));
}

TEST(ToBoolean, HoldsForEveryNumberButZero) {
  EXPECT_TRUE(ToBoolean(std::int16_t{-1}));
  EXPECT_TRUE(ToBoolean(std::int32_t{2}));
  EXPECT_TRUE(ToBoolean(0.4));
  EXPECT_TRUE(ToBoolean(Date{0.4}));
  EXPECT_FALSE(ToBoolean(std::int16_t{0}));
  EXPECT_FALSE(ToBoolean(0.0));
}

TEST(ToBoolean, ReadsTheTwoWordsWhateverTheirCase) {
  EXPECT_TRUE(ToBoolean(u"True"));
  EXPECT_TRUE(ToBoolean(u"true"));
  EXPECT_TRUE(ToBoolean(u"TRUE"));
  EXPECT_FALSE(ToBoolean(u"False"));
  EXPECT_FALSE(ToBoolean(u"FALSE"));
}

TEST(ToBoolean, ReadsATextThatIsANumber) {
  EXPECT_TRUE(ToBoolean(u"-1"));
  EXPECT_TRUE(ToBoolean(u"0.4"));
  EXPECT_FALSE(ToBoolean(u"0.0"));
}

TEST(ToBoolean, RejectsAnyOtherText) {
  for (const char16_t* text : {u"", u" True", u"True ", u"Tru", u"yes"}) {
    EXPECT_TRUE(RaisesNumber(kTypeMismatch, [text] { ToBoolean(text); })) << ToUtf8(text);
  }
}

TEST(ToText, WritesWholeNumbersInDigits) {
  EXPECT_EQ(ToUsText(std::int16_t{-32768}), u"-32768");
  EXPECT_EQ(ToUsText(std::int32_t{2147483647}), u"2147483647");
}

TEST(ToText, WritesBooleansDatesAndTexts) {
  EXPECT_EQ(ToUsText(true), u"True");
  EXPECT_EQ(ToUsText(false), u"False");
  EXPECT_EQ(ToUsText(Date{39611}), u"6/12/2008");
  EXPECT_EQ(ToUsText(Date{39611.5}), u"6/12/2008 12:00:00 PM");
  EXPECT_EQ(ToUsText(u" as it stands\r\n"), u" as it stands\r\n");
}

TEST(ToText, FollowsTheSettingsOfTheDesktop) {
  FakeTextForms dayMonthYear;
  dayMonthYear.DayMonthYear();
  EXPECT_EQ(ToText(1234.5, dayMonthYear), u"1234,5");
  EXPECT_EQ(ToText(Date{39611}, dayMonthYear), u"12/06/2008");
  EXPECT_EQ(ToText(std::int16_t{-7}, dayMonthYear), u"-7");
  EXPECT_EQ(ToText(u"1234.5", dayMonthYear), u"1234.5");
}

TEST(ToText, TakesTheTextOutOfAValueThatNobodyKeeps) {
  std::u16string display(1000, u'X');
  const char16_t* characters = display.data();
  EXPECT_EQ(ToText(Value(std::move(display)), UsTextForms()).data(), characters);
  const Value kept(u"TEXT");
  EXPECT_EQ(ToUsText(kept), u"TEXT");
  EXPECT_EQ(kept, Value(u"TEXT"));
}

// A value of a type that the core does not have.
struct FakeForeignValue final : ForeignValue {
  double Number() const override { return 2.5; }
  std::u16string Text() const override { return u"2,50"; }
};

TEST(ForeignValue, IsReadAsANumberAndAsTheTextOfItsType) {
  const Value value = ForeignValueRef(std::make_shared<FakeForeignValue>());
  EXPECT_EQ(ToDouble(value), 2.5);
  EXPECT_EQ(ToInt16(value), 2);
  EXPECT_EQ(ToInt32(value), 2);
  EXPECT_TRUE(ToBoolean(value));
  EXPECT_EQ(ToUsText(value), u"2,50");
  EXPECT_EQ(ToInt16ViaText(value), 2);
  EXPECT_TRUE(RaisesNumber(kObjectRequired, [&value] { ToObject(value); }));
}

TEST(ForeignValue, EqualsItselfAlone) {
  const Value value = ForeignValueRef(std::make_shared<FakeForeignValue>());
  EXPECT_EQ(value, Value(value));
  EXPECT_NE(value, Value(ForeignValueRef(std::make_shared<FakeForeignValue>())));
}

// The comma of a desktop would make 15 of one and a half.
TEST(ToInt16ViaText, IsTheSameOnEveryDesktop) {
  EXPECT_EQ(ToInt16ViaText(1.5), 2);
  EXPECT_EQ(ToInt16ViaText(0.5), 0);
  EXPECT_EQ(ToInt16ViaText(u"1"), 1);
  EXPECT_EQ(ToInt16ViaText(std::int32_t{-1}), -1);
  EXPECT_TRUE(RaisesNumber(kOverflow, [] { ToInt16ViaText(40000.0); }));
  for (const Value& value : {Value(), Value(true), Value(Date{1})}) {
    EXPECT_TRUE(RaisesNumber(kTypeMismatch, [&value] { ToInt16ViaText(value); })) << Describe(value);
  }
}

TEST(ToObject, IsTheObject) {
  const ObjectRef object = SomeObject();
  EXPECT_EQ(ToObject(object), object);
}

TEST(ToObject, TellsNothingFromAValueThatIsNoObject) {
  EXPECT_TRUE(RaisesNumber(kObjectNotSet, [] { ToObject(ObjectRef()); }));
  for (const Value& value : {Value(), Value(Null()), Value(std::int16_t{1}), Value(u"text"), Value(TextArray())}) {
    EXPECT_TRUE(RaisesNumber(kObjectRequired, [&value] { ToObject(value); })) << Describe(value);
  }
}

TEST(Value, ComparesTypeAndContent) {
  EXPECT_EQ(Value(u"A"), Value(std::u16string(u"A")));
  EXPECT_NE(Value(std::int16_t{1}), Value(std::int32_t{1}));
  EXPECT_NE(Value(), Value(Null()));
  EXPECT_EQ(Value(TextArray{1, {u"A"}}), Value(TextArray{1, {u"A"}}));
  EXPECT_NE(Value(TextArray{0, {u"A"}}), Value(TextArray{1, {u"A"}}));
}

}  // namespace
}  // namespace wendrill::testing
