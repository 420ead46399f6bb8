#include <gtest/gtest.h>

#include <string>

#include "session/quillet.h"
#include "support/raises.h"
#include "support/test_world.h"

namespace wendrill::testing {
namespace {

TEST(SendKey, PassesTheKeyOn) {
  TestWorld world;
  CQuillet quillet(world.module);
  quillet.SendKey(780);
  EXPECT_EQ(world.Journal(), "key 780");
}

TEST(SendKey, DoesNotReportThatTheTerminalRejectedTheKey) {
  TestWorld world;
  CQuillet quillet(world.module);
  world.Refusing({kbPA2});
  quillet.SendKey(kbPA2);
  EXPECT_EQ(world.Journal(), "key 353");
}

TEST(SendKey, WithoutASessionRaises2515) {
  TestWorld world;
  CQuillet quillet(world.module);
  quillet.StopLoop();
  EXPECT_TRUE(Raises(2515, u"A general error has occurred.", [&] { quillet.SendKey(kbClear); }));
}

// The terminal answers each PA2 with an event, delivered while messages run.
class ChangeSMOD : public ::testing::Test {
 protected:
  ChangeSMOD() {
    world.pump.onPass = [this](std::size_t pass) {
      if (pass % 3 == 0) {
        world.RaiseReceivedResponse();
      }
    };
  }

  TestWorld world;
  CQuillet quillet{world.module};
};

TEST_F(ChangeSMOD, WithMode5AndNoFormSends0500) {
  world.On(u"0500", {.buffer = u""});
  quillet.ChangeSMOD(5);
  EXPECT_EQ(world.Journal(), "key 353, key 353, send 0500");
}

TEST_F(ChangeSMOD, WithMode5AndForm12Sends0512) {
  world.On(u"0512", {.buffer = u""});
  quillet.ChangeSMOD(5, 12);
  EXPECT_EQ(world.Journal(), "key 353, key 353, send 0512");
}

TEST_F(ChangeSMOD, WithMode123Sends12300) {
  world.On(u"12300", {.buffer = u""});
  quillet.ChangeSMOD(123);
  EXPECT_EQ(world.Journal(), "key 353, key 353, send 12300");
}

TEST_F(ChangeSMOD, WritesTheSignOfANegativeModeBeforeItsTwoDigits) {
  world.On(u"-05-32768", {.buffer = u""});
  quillet.ChangeSMOD(-5, -32768);
  EXPECT_EQ(world.Journal(), "key 353, key 353, send -05-32768");
}

TEST_F(ChangeSMOD, WaitsForAnEventAfterEachKeyWithoutATimeLimit) {
  world.On(u"0500", {.buffer = u""});
  world.pump.secondsPerPass = 3600;
  quillet.ChangeSMOD(5);
  EXPECT_EQ(world.pump.passes, 6U);
}

TEST_F(ChangeSMOD, ReleasesItsOwnSessionAndTheResponse) {
  world.On(u"0500", {.buffer = u""});
  world.Show(u"AN", {});
  const auto before = world.LiveObjects();
  quillet.ChangeSMOD(5);
  EXPECT_EQ(world.LiveObjects(), before);  // the response on the screen replaced another one
  EXPECT_EQ(world.ConnectedHandlers(), 0U);
  EXPECT_EQ(world.module.LastResponseObject, nullptr);
}

TEST_F(ChangeSMOD, DoesNotWaitForAKeysEventThatCameAtOnce) {
  world.On(u"0500", {.buffer = u""});
  world.During(u"SendKey", [this] { world.RaiseReceivedResponse(); });
  quillet.ChangeSMOD(5);
  EXPECT_EQ(world.pump.passes, 0U);
}

TEST_F(ChangeSMOD, WithoutASharedSessionRaises2520AndReleasesItsOwn) {
  quillet.StopLoop();
  EXPECT_TRUE(Raises(2520, u"A general error has occurred.", [&] { quillet.ChangeSMOD(5); }));
  EXPECT_EQ(world.ConnectedHandlers(), 0U);
}

}  // namespace
}  // namespace wendrill::testing
