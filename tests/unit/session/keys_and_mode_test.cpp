#include <gtest/gtest.h>

#include <string>

#include "session/quillet.h"
#include "support/fake_platform.h"
#include "support/raises.h"

namespace wendrill::testing {
namespace {

TEST(SendKey, PassesTheKeyOn) {
  FakeDesk desk;
  CQuillet quillet(desk.module);
  desk.terminal->Accepting(780);
  quillet.SendKey(780);
  EXPECT_EQ(desk.Journal(), "key 780");
}

TEST(SendKey, DoesNotReportThatTheTerminalRejectedTheKey) {
  FakeDesk desk;
  CQuillet quillet(desk.module);
  desk.terminal->Refusing(kbPA2);
  quillet.SendKey(kbPA2);
  EXPECT_EQ(desk.Journal(), "key 353");
}

TEST(SendKey, WithoutASessionRaises2515) {
  FakeDesk desk;
  CQuillet quillet(desk.module);
  quillet.StopLoop();
  EXPECT_TRUE(Raises(2515, u"A general error has occurred.", [&] { quillet.SendKey(kbClear); }));
}

// The terminal answers each PA2 with an event, delivered while messages run.
class ChangeSMOD : public ::testing::Test {
 protected:
  ChangeSMOD() {
    desk.terminal->Accepting(kbPA2);
    desk.pump.onPass = [this](std::size_t pass) {
      if (pass % 3 == 0) {
        desk.terminal->RaiseReceivedResponse();
      }
    };
  }

  FakeDesk desk;
  CQuillet quillet{desk.module};
};

TEST_F(ChangeSMOD, WithMode5AndNoFormSends0500) {
  desk.terminal->On(u"0500", {.buffer = u""});
  quillet.ChangeSMOD(5);
  EXPECT_EQ(desk.Journal(), "key 353, key 353, send 0500");
}

TEST_F(ChangeSMOD, WithMode5AndForm12Sends0512) {
  desk.terminal->On(u"0512", {.buffer = u""});
  quillet.ChangeSMOD(5, 12);
  EXPECT_EQ(desk.Journal(), "key 353, key 353, send 0512");
}

TEST_F(ChangeSMOD, WithMode123Sends12300) {
  desk.terminal->On(u"12300", {.buffer = u""});
  quillet.ChangeSMOD(123);
  EXPECT_EQ(desk.Journal(), "key 353, key 353, send 12300");
}

TEST_F(ChangeSMOD, WritesTheSignOfANegativeModeBeforeItsTwoDigits) {
  desk.terminal->On(u"-05-32768", {.buffer = u""});
  quillet.ChangeSMOD(-5, -32768);
  EXPECT_EQ(desk.Journal(), "key 353, key 353, send -05-32768");
}

TEST_F(ChangeSMOD, WaitsForAnEventAfterEachKeyWithoutATimeLimit) {
  desk.terminal->On(u"0500", {.buffer = u""});
  desk.pump.secondsPerPass = 3600;
  quillet.ChangeSMOD(5);
  EXPECT_EQ(desk.pump.passes, 6U);
}

TEST_F(ChangeSMOD, ReleasesItsOwnSessionAndTheResponse) {
  desk.terminal->On(u"0500", {.buffer = u""});
  desk.terminal->Show(u"", {});
  const auto before = desk.calls->liveObjects;
  quillet.ChangeSMOD(5);
  EXPECT_EQ(desk.calls->liveObjects, before);  // the response on the screen replaced another one
  EXPECT_EQ(desk.terminal->ConnectedHandlers(), 0U);
  EXPECT_EQ(desk.module.LastResponseObject, nullptr);
}

TEST_F(ChangeSMOD, DoesNotWaitForAKeysEventThatCameAtOnce) {
  desk.terminal->On(u"0500", {.buffer = u""});
  desk.terminal->whilePressing = [this](KeyCode) { desk.terminal->RaiseReceivedResponse(); };
  quillet.ChangeSMOD(5);
  EXPECT_EQ(desk.pump.passes, 0U);
}

TEST_F(ChangeSMOD, WithoutASharedSessionRaises2520AndReleasesItsOwn) {
  quillet.StopLoop();
  EXPECT_TRUE(Raises(2520, u"A general error has occurred.", [&] { quillet.ChangeSMOD(5); }));
  EXPECT_EQ(desk.terminal->ConnectedHandlers(), 0U);
}

}  // namespace
}  // namespace wendrill::testing
