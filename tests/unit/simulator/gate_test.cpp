#include "core/gate.h"

#include <gtest/gtest.h>

#include "simulated_world.h"

namespace wendrill::simulator {
namespace {

constexpr std::int32_t kFail = kUnspecifiedFailure;

TEST(Gate, LetsEveryCallPassWithoutAPlan) {
  Gate gate;
  EXPECT_FALSE(ErrorOf([&] { gate.Enter(u"Send"); }));
  EXPECT_FALSE(ErrorOf([&] { gate.Enter(u"Buffer"); }));
}

TEST(Gate, CountsTheCallsThatPassAndThoseThatFail) {
  Gate gate;
  gate.FailNext(u"Send", kFail, 1);
  gate.Enter(u"Buffer");
  EXPECT_TRUE(RaisesNumber(kFail, [&] { gate.Enter(u"Send"); }));
  EXPECT_EQ(gate.Calls(), 2);
}

TEST(Gate, FailsTheNextCallOnce) {
  Gate gate;
  gate.FailNext(u"Send", kFail, 1);
  EXPECT_EQ(Refusal(kFail, [&] { gate.Enter(u"Send"); }), "Send was made to fail, as planned.");
  gate.Enter(u"Send");
}

TEST(Gate, CountsOnlyTheCallsOfTheOperation) {
  Gate gate;
  gate.FailNext(u"Send", kFail, 2);
  gate.Enter(u"Send");
  gate.Enter(u"Buffer");
  gate.Enter(u"SendKey");
  EXPECT_TRUE(RaisesNumber(kFail, [&] { gate.Enter(u"Send"); }));
}

TEST(Gate, AStarCountsTheCallsOfAllMembers) {
  Gate gate;
  gate.FailNext(u"*", kFail, 3);
  gate.Enter(u"Send");
  gate.Enter(u"Buffer");
  EXPECT_EQ(Refusal(kFail, [&] { gate.Enter(u"Set"); }), "Set was made to fail, as planned.");
}

TEST(Gate, ComparesNamesWithoutCase) {
  Gate gate;
  gate.FailNext(u"sendKEY", kFail, 1);
  EXPECT_TRUE(RaisesNumber(kFail, [&] { gate.Enter(u"SendKey"); }));
}

TEST(Gate, PlansStandSideBySide) {
  Gate gate;
  gate.FailNext(u"Send", kFail, 1);
  gate.FailNext(u"Send", static_cast<std::int32_t>(0x800A01AD), 2);
  EXPECT_TRUE(RaisesNumber(kFail, [&] { gate.Enter(u"Send"); }));
  EXPECT_TRUE(RaisesNumber(429, [&] { gate.Enter(u"Send"); }));
  gate.Enter(u"Send");
}

TEST(Gate, TheEarlierOfTwoPlansForOneCallStrikesAndBothAreSpent) {
  Gate gate;
  gate.FailNext(u"Send", 13, 1);
  gate.FailNext(u"*", 6, 1);
  EXPECT_TRUE(RaisesNumber(13, [&] { gate.Enter(u"Send"); }));
  gate.Enter(u"Send");
}

TEST(Gate, ForgetsItsPlans) {
  Gate gate;
  gate.FailNext(u"Send", kFail, 1);
  gate.Forget();
  EXPECT_FALSE(ErrorOf([&] { gate.Enter(u"Send"); }));
}

TEST(Gate, AStatusOfARunTimeErrorFailsWithItsNumber) {
  Gate gate;
  gate.FailNext(u"LockAlarm", static_cast<std::int32_t>(0x800A01B6), 1);
  EXPECT_TRUE(RaisesNumber(438, [&] { gate.Enter(u"LockAlarm"); }));
}

// A planned failure has a description, and such a failure reaches the caller with the status that it has.
TEST(Gate, AStandardFailureFailsWithItsStatus) {
  Gate gate;
  constexpr auto kAccessDenied = static_cast<std::int32_t>(0x80070005);
  gate.FailNext(u"LockAlarm", kAccessDenied, 1);
  EXPECT_TRUE(RaisesNumber(kAccessDenied, [&] { gate.Enter(u"LockAlarm"); }));
}

TEST(Gate, ANumberOfARunTimeErrorMeansItself) {
  Gate gate;
  gate.FailNext(u"LockAlarm", 438, 1);
  EXPECT_TRUE(RaisesNumber(438, [&] { gate.Enter(u"LockAlarm"); }));
}

TEST(Gate, RejectsANameThatNoComponentHas) {
  Gate gate;
  const std::string refusal = Refusal(5, [&] { gate.FailNext(u"Sned", kFail, 1); });
  EXPECT_NE(refusal.find("\"Sned\""), std::string::npos) << refusal;
  EXPECT_NE(refusal.find("Send, SendKey, SessionName"), std::string::npos) << refusal;
  EXPECT_NE(refusal.find("known are *, "), std::string::npos) << refusal;
}

TEST(Gate, RejectsAStatusThatIsNoFailure) {
  Gate gate;
  EXPECT_NE(Refusal(5, [&] { gate.FailNext(u"Send", 0, 1); }).find("0 is not the status of a failure"),
            std::string::npos);
  EXPECT_TRUE(RaisesNumber(5, [&] { gate.FailNext(u"Send", 65536, 1); }));
}

TEST(Gate, RejectsACallBeforeTheNext) {
  Gate gate;
  EXPECT_NE(Refusal(5, [&] { gate.FailNext(u"Send", kFail, 0); }).find("counted from 1"), std::string::npos);
}

TEST(Gate, AFailureNumberMayBeWrittenWithItsSignOrWithout) {
  EXPECT_EQ(FailureNumber(0x80004005LL), kFail);
  EXPECT_EQ(FailureNumber(kFail), kFail);
  EXPECT_EQ(FailureNumber(0x800A0005LL), 5);
  EXPECT_EQ(FailureNumber(5), 5);
  EXPECT_EQ(FailureNumber(0), 0);
  EXPECT_EQ(FailureNumber(0x10000), 0);
  EXPECT_EQ(FailureNumber(0x100000000LL), 0);
}

TEST(Gate, ALiveMarkCountsAsLongAsItLives) {
  std::int32_t count = 0;
  {
    const LiveMark first(count);
    const LiveMark second(count);
    EXPECT_EQ(count, 2);
  }
  EXPECT_EQ(count, 0);
}

}  // namespace
}  // namespace wendrill::simulator
