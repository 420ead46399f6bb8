#include <gtest/gtest.h>

#include <string>

#include "session/quillet.h"
#include "support/raises.h"
#include "support/test_world.h"

namespace wendrill::testing {
namespace {

class Retrieval : public ::testing::Test {
 protected:
  // The PNR on display, which also every entry of these tests retrieves. The simulator takes its own session's
  // connection and no other.
  void AnswerWith(std::u16string_view header, std::u16string_view status = u"0") {
    world.With(u"[[pnr]]\nentries = [\"RTABC123\", \"SP2\", \"RT/SMITH\", \"ER\"]\non_display = true\nstatus = " +
               std::u16string(status) + u"\n[pnr.Header]\n" + std::u16string(header) + u"\n");
  }

  // A PNR object that answers as the simulator's never does.
  FakeObjectRef OddPnr() {
    const auto pnr = FakeObject::Make(world.calls, "PNR");
    world.platform.makePnr = [pnr] { return pnr; };
    return pnr;
  }

  TestWorld world;
  CQuillet quillet{world.module};
};

constexpr std::u16string_view kHeader = u"Text = \"RP/PARXX2100\"";
constexpr std::u16string_view kEmptyHeader = u"Text = \"\"";
constexpr std::u16string_view kNoHeader = u"absent = true";

using RetrieveCurrent = Retrieval;

TEST_F(RetrieveCurrent, ReadsThePnrOnDisplayAndPassesTheStatusThrough) {
  AnswerWith(kHeader, u"-70000");
  const auto before = world.module.gobjPNR;
  EXPECT_EQ(quillet.RetrieveCurrent(), -70000);
  EXPECT_EQ(world.Journal(), "read pnr on display");
  EXPECT_NE(world.module.gobjPNR, before);
  EXPECT_NE(world.module.gobjPNR, nullptr);
}

TEST_F(RetrieveCurrent, WithAnEmptyHeaderRaises2500AndKeepsTheNewObject) {
  AnswerWith(kEmptyHeader);
  const auto before = world.module.gobjPNR;
  EXPECT_TRUE(Raises(2500, u"Could not retrieve an active PNR. Make sure there is an active PNR/Session.",
                     [&] { quillet.RetrieveCurrent(); }));
  EXPECT_NE(world.module.gobjPNR, nullptr);
  EXPECT_NE(world.module.gobjPNR, before);
}

TEST_F(RetrieveCurrent, WithoutAHeaderRaises2500) {
  AnswerWith(kNoHeader);
  EXPECT_TRUE(Raises(2500, kNoActivePnrMessage, [&] { quillet.RetrieveCurrent(); }));
}

TEST_F(RetrieveCurrent, WithoutASessionRaises2500) {
  AnswerWith(kHeader);
  quillet.StopLoop();
  EXPECT_TRUE(Raises(2500, kNoActivePnrMessage, [&] { quillet.RetrieveCurrent(); }));
}

TEST_F(RetrieveCurrent, WithAStatusThatIsNoNumberRaises2500) {
  OddPnr()->With(80, u"NO NUMBER");
  EXPECT_TRUE(Raises(2500, kNoActivePnrMessage, [&] { quillet.RetrieveCurrent(); }));
}

using RetrieveRecLoc = Retrieval;

TEST_F(RetrieveRecLoc, WithTheLocatorAbc123MakesTheToolkitSendRtabc123) {
  AnswerWith(kHeader);
  EXPECT_TRUE(quillet.RetrieveRecLoc(u"ABC123"));
  EXPECT_EQ(world.Journal(), "retrieve RTABC123");
}

TEST_F(RetrieveRecLoc, WithAnEmptyLocatorReturnsFalseAndLeavesThePreviouslyLoadedPnrInPlace) {
  const auto before = world.module.gobjPNR;
  const auto callsBefore = world.calls->Count();
  EXPECT_FALSE(quillet.RetrieveRecLoc(u""));
  EXPECT_EQ(world.module.gobjPNR, before);
  EXPECT_EQ(world.calls->Count(), callsBefore);
}

TEST_F(RetrieveRecLoc, WhoseHeaderIsEmptyIsFalseAndKeepsTheNewEmptyObject) {
  AnswerWith(kEmptyHeader);
  const auto before = world.module.gobjPNR;
  EXPECT_FALSE(quillet.RetrieveRecLoc(u"ABC123"));
  EXPECT_NE(world.module.gobjPNR, nullptr);
  EXPECT_NE(world.module.gobjPNR, before);
}

TEST_F(RetrieveRecLoc, WhoseAnswerHasNoHeaderObjectLeavesNoPnrLoaded) {
  AnswerWith(kNoHeader);
  EXPECT_FALSE(quillet.RetrieveRecLoc(u"ABC123"));
  EXPECT_EQ(world.module.gobjPNR, nullptr);
}

TEST_F(RetrieveRecLoc, TakesAnEmptyHeaderValueForNoHeader) {
  OddPnr()->With(81, Value()).With(76, Value());
  EXPECT_FALSE(quillet.RetrieveRecLoc(u"ABC123"));
  EXPECT_EQ(world.module.gobjPNR, nullptr);
}

TEST_F(RetrieveRecLoc, WithoutASessionRaises2501) {
  AnswerWith(kHeader);
  quillet.StopLoop();
  EXPECT_TRUE(Raises(2501, u"Could not retrieve the PNR.", [&] { quillet.RetrieveRecLoc(u"ABC123"); }));
}

TEST_F(RetrieveRecLoc, ThatCannotMakeAPnrObjectRaises2501AndLeavesNoPnrLoaded) {
  world.During(u"CreatePnr", [] { Raise(RunTimeError::CannotCreateObject); });
  EXPECT_TRUE(Raises(2501, kNoPnrMessage, [&] { quillet.RetrieveRecLoc(u"ABC123"); }));
  EXPECT_EQ(world.module.gobjPNR, nullptr);
}

using SplitPNR = Retrieval;

TEST_F(SplitPNR, WithTheAssociation2SendsSp2) {
  AnswerWith(kHeader);
  EXPECT_TRUE(quillet.SplitPNR(u"2"));
  EXPECT_EQ(world.Journal(), "retrieve SP2");
}

TEST_F(SplitPNR, WithAnEmptyAssociationReturnsFalseAndKeepsThePnr) {
  const auto before = world.module.gobjPNR;
  EXPECT_FALSE(quillet.SplitPNR(u""));
  EXPECT_EQ(world.module.gobjPNR, before);
}

TEST_F(SplitPNR, WithoutASessionRaises2502) {
  AnswerWith(kHeader);
  quillet.StopLoop();
  EXPECT_TRUE(Raises(2502, u"Error when splitting the PNR.", [&] { quillet.SplitPNR(u"2"); }));
}

using ReadPNR = Retrieval;

TEST_F(ReadPNR, SendsTheEntryAsGiven) {
  AnswerWith(kHeader);
  EXPECT_TRUE(quillet.ReadPNR(u"RT/SMITH"));
  EXPECT_EQ(world.Journal(), "retrieve RT/SMITH");
}

TEST_F(ReadPNR, OfErTakesTheAlarmLockBeforeTheEntryAndReleasesItAfterwards) {
  AnswerWith(kHeader);
  EXPECT_TRUE(quillet.ReadPNR(u"ER"));
  EXPECT_EQ(world.Journal(), "alarm lock, retrieve ER, alarm unlock");
}

TEST_F(ReadPNR, ThatFindsNoPnrReleasesTheAlarmLockToo) {
  AnswerWith(kNoHeader);
  EXPECT_FALSE(quillet.ReadPNR(u"ER"));
  EXPECT_EQ(world.Journal(), "alarm lock, retrieve ER, alarm unlock");
}

TEST_F(ReadPNR, WithAnEmptyEntryReturnsFalseWithoutTheAlarmLock) {
  const auto callsBefore = world.calls->Count();
  EXPECT_FALSE(quillet.ReadPNR(u""));
  EXPECT_EQ(world.calls->Count(), callsBefore);
}

TEST_F(ReadPNR, WithoutASessionRaises2503AndUnlocks) {
  AnswerWith(kHeader);
  quillet.StopLoop();
  EXPECT_TRUE(Raises(2503, u"Error when reading the PNR.", [&] { quillet.ReadPNR(u"ER"); }));
  EXPECT_EQ(world.Journal(), "alarm lock, alarm unlock");
}

}  // namespace
}  // namespace wendrill::testing
