#include "session/encode_utils.h"

#include <gtest/gtest.h>

#include <new>

#include "session/quillet.h"
#include "support/raises.h"
#include "support/test_world.h"

namespace wendrill::testing {
namespace {

void ExpectConnectError(TestWorld& world) {
  const auto error = ErrorOf([&] { CEncodeUtils utils(world.module); });
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Number(), -2147220394);
  EXPECT_EQ(error->Source(), u"CEncodeUtils.Class_Initialize");
  EXPECT_EQ(error->Description(),
            u"Failed to connect to Selvarin Quillet Session.\x000D\x000DVerify that an Selvarin Quillet session is "
            u"started.");
}

TEST(EncodeUtils, WithNoSessionRunningFailsWithTwoPartsSeparatedByExactlyTwoCarriageReturns) {
  TestWorld world;
  world.Sessions({});
  const auto before = world.LiveObjects();
  ExpectConnectError(world);
  EXPECT_EQ(world.LiveObjects(), before);
}

TEST(EncodeUtils, FailsTheSameWayWhateverGoesWrong) {
  for (std::size_t n = 1; n <= 3; ++n) {
    TestWorld world;
    const auto before = world.LiveObjects();
    world.calls->FailNth(n);
    ExpectConnectError(world);
    EXPECT_EQ(world.calls->Count(), n);
    EXPECT_EQ(world.LiveObjects(), before) << "call " << n;
  }
}

TEST(EncodeUtils, LetsTheLackOfMemoryPropagate) {
  for (std::size_t n = 1; n <= 3; ++n) {
    TestWorld world;
    const auto before = world.LiveObjects();
    world.calls->RunOutOfMemoryAtNth(n);
    EXPECT_THROW(CEncodeUtils utils(world.module), std::bad_alloc) << "call " << n;
    EXPECT_EQ(world.LiveObjects(), before) << "call " << n;
  }
}

TEST(EncodeUtils, ReadTwiceReturnsTheSameConnectionObject) {
  TestWorld world;
  CEncodeUtils utils(world.module);
  EXPECT_EQ(utils.EncodeSession(), world.HostConnection());
  EXPECT_EQ(utils.EncodeSession(), utils.EncodeSession());
}

TEST(EncodeUtils, SharesNothingWithQuillet) {
  TestWorld world;
  CEncodeUtils utils(world.module);
  EXPECT_EQ(world.module.LiveInstanceCount, 0);
  EXPECT_EQ(world.module.SharedSession, nullptr);
  {
    CQuillet quillet(world.module);
    quillet.StopLoop();
  }
  EXPECT_EQ(utils.EncodeSession(), world.HostConnection());
}

TEST(EncodeUtils, HoldsItsSessionAloneAndReleasesIt) {
  TestWorld world;
  const auto before = world.LiveObjects();
  {
    const CEncodeUtils utils(world.module);
    EXPECT_EQ(world.LiveObjects(), before + 1);
  }
  EXPECT_EQ(world.LiveObjects(), before);
}

TEST(EncodeUtils, PassesTheToolkitsErrorOnUnchanged) {
  TestWorld world;
  CEncodeUtils utils(world.module);
  world.calls->FailNth(1);
  const auto error = ErrorOf([&] { utils.EncodeSession(); });
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Number(), ForeignError().Number());
  EXPECT_EQ(error->Source(), ForeignError().Source());
}

}  // namespace
}  // namespace wendrill::testing
