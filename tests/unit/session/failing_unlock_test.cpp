// The members that give the alarm lock back when they fail, while the alarm cannot be unlocked.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "session/quillet.h"
#include "support/raises.h"
#include "support/test_world.h"

namespace wendrill::testing {
namespace {

constexpr std::int32_t kUnlockFailed = 2559;

struct MemberRow {
  const char* member;
  std::int32_t number;
  std::u16string_view message;
  std::int32_t unlockNumber;  // where the unlock on the way out fails
  std::function<void(CQuillet&)> call;
};

std::ostream& operator<<(std::ostream& out, const MemberRow& row) {
  return out << row.member;
}

const std::vector<MemberRow>& Members() {
  static const std::vector<MemberRow> members = {
      {"SendCommand", 2505, kCommunicationMessage, kUnlockFailed, [](CQuillet& q) { q.SendCommand(u"ER"); }},
      {"SendCommandNoClear", 2530, kCommunicationMessage, kUnlockFailed,
       [](CQuillet& q) { q.SendCommandNoClear(u"ER"); }},
      {"SendCommandGetAllNoClear", 2525, kCommunicationMessage, kUnlockFailed,
       [](CQuillet& q) { q.SendCommandGetAllNoClear(u"ER"); }},
      {"SendCommandGetAll", 2525, kCommunicationMessage, 2525, [](CQuillet& q) { q.SendCommandGetAll(u"ER"); }},
      {"SendCommandCollectPages", 2557, kCommunicationMessage, kUnlockFailed,
       [](CQuillet& q) {
         TextArray pages;
         q.SendCommandCollectPages(u"ER", pages);
       }},
      {"SendCommandFI", 2506, kCommunicationMessage, kUnlockFailed,
       [](CQuillet& q) { q.SendCommandFI(u"ER", std::make_shared<FakeBag>()); }},
      {"ReadPNR", 2503, kReadMessage, kUnlockFailed, [](CQuillet& q) { q.ReadPNR(u"ER"); }},
  };
  return members;
}

class FailingUnlock : public ::testing::TestWithParam<MemberRow> {
 protected:
  FailingUnlock() {
    world.On(u"ER", {.buffer = u"OK"});
    world.platform.lockAlarm = [this](bool lock) {
      unlocks += lock ? 0 : 1;
      return Value(std::int16_t(!lock && unlocks <= failingUnlocks ? -3 : 0));
    };
    world.With(u"[[pnr]]\nentries = [\"ER\"]\n[pnr.Header]\nText = \"RP/PARXX2100\"\n");
  }

  void MakeWorkFail() {
    for (const auto* operation : {u"Send", u"CreatePnr"}) {
      world.During(operation, [] { throw Error(-2147467259, u"Toolkit", u"unspecified"); });
    }
  }

  ::testing::AssertionResult CallRaises(std::int32_t number) {
    const std::u16string_view message = number == GetParam().number ? GetParam().message : kCommunicationMessage;
    return Raises(number, message, [&] { GetParam().call(quillet); });
  }

  TestWorld world;
  CQuillet quillet{world.module};
  int unlocks = 0;
  int failingUnlocks = 0;
};

TEST_P(FailingUnlock, OnceAfterSuccessIsTriedAgainAndRaisesTheMembersNumber) {
  failingUnlocks = 1;
  EXPECT_TRUE(CallRaises(GetParam().number));
  EXPECT_EQ(unlocks, 2);
  quillet.UnLockAlarm();
  EXPECT_EQ(unlocks, 2) << "the lock is still held";
}

TEST_P(FailingUnlock, TwiceAfterSuccessRaises2559AndHoldsTheLock) {
  failingUnlocks = 2;
  EXPECT_TRUE(CallRaises(GetParam().unlockNumber));
  EXPECT_EQ(unlocks, 2);
  quillet.UnLockAlarm();
  EXPECT_EQ(unlocks, 3) << "the lock was not held any more";
}

TEST_P(FailingUnlock, AfterAFailureRaises2559WhateverFailedFirst) {
  MakeWorkFail();
  failingUnlocks = 1;
  EXPECT_TRUE(CallRaises(GetParam().unlockNumber));
  EXPECT_EQ(unlocks, 1);
}

TEST_P(FailingUnlock, ThatWorksAfterAFailureLeavesTheMembersNumber) {
  MakeWorkFail();
  EXPECT_TRUE(CallRaises(GetParam().number));
  EXPECT_EQ(unlocks, 1);
}

INSTANTIATE_TEST_SUITE_P(Members, FailingUnlock, ::testing::ValuesIn(Members()),
                         [](const auto& test) { return std::string(test.param.member); });

}  // namespace
}  // namespace wendrill::testing
