#include "session/encode_utils.h"

#include <gtest/gtest.h>

#include <new>

#include "session/quillet.h"
#include "support/fake_platform.h"
#include "support/raises.h"

namespace wendrill::testing {
namespace {

void ExpectConnectError(FakeDesk& desk) {
  const auto error = ErrorOf([&] { CEncodeUtils utils(desk.module); });
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Number(), -2147220394);
  EXPECT_EQ(error->Source(), u"CEncodeUtils.Class_Initialize");
  EXPECT_EQ(error->Description(),
            u"Failed to connect to Selvarin Quillet Session.\x000D\x000DVerify that an Selvarin Quillet session is "
            u"started.");
}

TEST(EncodeUtils, WithNoSessionRunningFailsWithTwoPartsSeparatedByExactlyTwoCarriageReturns) {
  FakeDesk desk;
  desk.terminal->Sessions({});
  const auto before = desk.calls->liveObjects;
  ExpectConnectError(desk);
  EXPECT_EQ(desk.calls->liveObjects, before);
}

TEST(EncodeUtils, FailsTheSameWayWhateverGoesWrong) {
  for (std::size_t n = 1; n <= 3; ++n) {
    FakeDesk desk;
    const auto before = desk.calls->liveObjects;
    desk.calls->FailNth(n);
    ExpectConnectError(desk);
    EXPECT_EQ(desk.calls->Count(), n);
    EXPECT_EQ(desk.calls->liveObjects, before) << "call " << n;
  }
}

TEST(EncodeUtils, LetsTheLackOfMemoryPropagate) {
  for (std::size_t n = 1; n <= 3; ++n) {
    FakeDesk desk;
    const auto before = desk.calls->liveObjects;
    desk.calls->RunOutOfMemoryAtNth(n);
    EXPECT_THROW(CEncodeUtils utils(desk.module), std::bad_alloc) << "call " << n;
    EXPECT_EQ(desk.calls->liveObjects, before) << "call " << n;
  }
}

TEST(EncodeUtils, ReadTwiceReturnsTheSameConnectionObject) {
  FakeDesk desk;
  CEncodeUtils utils(desk.module);
  EXPECT_EQ(utils.EncodeSession(), desk.terminal->hostConnection);
  EXPECT_EQ(utils.EncodeSession(), utils.EncodeSession());
}

TEST(EncodeUtils, SharesNothingWithQuillet) {
  FakeDesk desk;
  CEncodeUtils utils(desk.module);
  EXPECT_EQ(desk.module.LiveInstanceCount, 0);
  EXPECT_EQ(desk.module.SharedSession, nullptr);
  {
    CQuillet quillet(desk.module);
    quillet.StopLoop();
  }
  EXPECT_EQ(utils.EncodeSession(), desk.terminal->hostConnection);
}

TEST(EncodeUtils, HoldsItsSessionAloneAndReleasesIt) {
  FakeDesk desk;
  const auto before = desk.calls->liveObjects;
  {
    const CEncodeUtils utils(desk.module);
    EXPECT_EQ(desk.calls->liveObjects, before + 1);
  }
  EXPECT_EQ(desk.calls->liveObjects, before);
}

TEST(EncodeUtils, PassesTheToolkitsErrorOnUnchanged) {
  FakeDesk desk;
  CEncodeUtils utils(desk.module);
  desk.calls->FailNth(1);
  const auto error = ErrorOf([&] { utils.EncodeSession(); });
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Number(), ForeignError().Number());
  EXPECT_EQ(error->Source(), ForeignError().Source());
}

}  // namespace
}  // namespace wendrill::testing
