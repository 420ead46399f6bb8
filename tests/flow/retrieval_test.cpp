// Retrieving PNRs.
#include <gtest/gtest.h>

#include "pnr/counts.h"
#include "pnr/pnr.h"
#include "simulated_desktop.h"

namespace wendrill::flow {
namespace {

class Retrieval : public SimulatedDesktop {
 protected:
  void SetUp() override {
    LoadText(
        uR"(
      session = [{ name = "A" }]

      [[pnr]]
      RecordLocator = "ABC123"
      on_display = true
      status = 3
      display = "RP/PARXX0100"

      [[pnr]]
      entries = ["SP2", "ER"]
      display = "RP/SPLIT"

      [[pnr]]
      RecordLocator = "NOHEAD"
      Header = { absent = true }

      [[pnr]]
      RecordLocator = "BROKEN"
      entries = ["SP9", "IR"]
      error = 0x80004005
    )");
    quillet.emplace(module);
  }

  std::optional<CQuillet> quillet;
  CPNR pnr{module};
};

TEST_F(Retrieval, RetrieveCurrentReadsThePnrOnDisplayAndReturnsTheToolkitsStatus) {
  EXPECT_EQ(quillet->RetrieveCurrent(), 3);
  EXPECT_EQ(pnr.RecordLocator(), u"ABC123");
  EXPECT_EQ(NewJournal(), "read pnr on display");
}

TEST_F(Retrieval, RetrieveCurrentWithoutAPnrOnDisplayRaises2500) {
  LoadText(u"session = [{ name = 'A' }]");
  quillet->ConnectSession(u"A");
  EXPECT_TRUE(Raises(2500, testing::kNoActivePnrMessage, [&] { quillet->RetrieveCurrent(); }));
}

TEST_F(Retrieval, RetrieveRecLocMakesTheToolkitSendRtAndTheLocator) {
  EXPECT_TRUE(quillet->RetrieveRecLoc(u"ABC123"));
  EXPECT_EQ(NewJournal(), "retrieve RTABC123");
}

TEST_F(Retrieval, SplitPnrMakesTheToolkitSendSpAndTheAssociation) {
  EXPECT_TRUE(quillet->SplitPNR(u"2"));
  EXPECT_EQ(pnr.Text(), Row(u"RP/SPLIT"));
  EXPECT_EQ(NewJournal(), "retrieve SP2");
}

TEST_F(Retrieval, ReadPnrTakesTheAlarmLockBeforeTheEntryAndReleasesItAfterwards) {
  EXPECT_TRUE(quillet->ReadPNR(u"ER"));
  EXPECT_EQ(NewJournal(), "alarm lock; retrieve ER; alarm unlock");
}

TEST_F(Retrieval, ReadPnrWithAnotherEntryTakesNoLock) {
  EXPECT_TRUE(quillet->ReadPNR(u"RTABC123"));
  EXPECT_EQ(NewJournal(), "retrieve RTABC123");
}

TEST_F(Retrieval, RetrieveRecLocWithAnEmptyLocatorReturnsFalseAndLeavesThePnrInPlace) {
  quillet->RetrieveRecLoc(u"ABC123");
  const ObjectRef before = module.gobjPNR;
  NewJournal();
  EXPECT_FALSE(quillet->RetrieveRecLoc(u""));
  EXPECT_FALSE(quillet->SplitPNR(u""));
  EXPECT_FALSE(quillet->ReadPNR(u""));
  EXPECT_EQ(module.gobjPNR, before);
  EXPECT_EQ(NewJournal(), "");
}

TEST_F(Retrieval, APnrThatDoesNotExistIsFalseAndLeavesAnEmptyPnr) {
  quillet->RetrieveRecLoc(u"ABC123");
  EXPECT_FALSE(quillet->RetrieveRecLoc(u"ZZZ999"));
  EXPECT_EQ(pnr.Text(), u"");
  EXPECT_EQ(pnr.RecordLocator(), u"");
}

TEST_F(Retrieval, ARetrievalWithoutAHeaderObjectLeavesNoPnrLoaded) {
  EXPECT_FALSE(quillet->RetrieveRecLoc(u"NOHEAD"));
  EXPECT_EQ(pnr.PNR(), nullptr);
  EXPECT_TRUE(RaisesNumber(91, [&] { pnr.Text(); }));
}

TEST_F(Retrieval, AFailingRetrievalRaisesTheMembersNumber) {
  EXPECT_TRUE(Raises(2501, testing::kNoPnrMessage, [&] { quillet->RetrieveRecLoc(u"BROKEN"); }));
  EXPECT_TRUE(Raises(2502, testing::kSplitMessage, [&] { quillet->SplitPNR(u"9"); }));
  EXPECT_TRUE(Raises(2503, testing::kReadMessage, [&] { quillet->ReadPNR(u"IR"); }));
}

TEST_F(Retrieval, WithoutASessionEveryRetrievalRaisesItsNumber) {
  quillet->StopLoop();
  EXPECT_TRUE(Raises(2500, testing::kNoActivePnrMessage, [&] { quillet->RetrieveCurrent(); }));
  EXPECT_TRUE(Raises(2501, testing::kNoPnrMessage, [&] { quillet->RetrieveRecLoc(u"ABC123"); }));
  EXPECT_TRUE(Raises(2502, testing::kSplitMessage, [&] { quillet->SplitPNR(u"2"); }));
  EXPECT_TRUE(Raises(2503, testing::kReadMessage, [&] { quillet->ReadPNR(u"ER"); }));
  EXPECT_EQ(NewJournal(), "alarm lock; alarm unlock");  // ReadPNR's
}

TEST_F(Retrieval, EveryPnrObjectSeesThePnrRetrievedLast) {
  CPNR other(module);
  quillet->RetrieveRecLoc(u"ABC123");
  EXPECT_EQ(other.RecordLocator(), u"ABC123");
  quillet->SplitPNR(u"2");
  EXPECT_EQ(other.Text(), Row(u"RP/SPLIT"));
  EXPECT_EQ(pnr.Text(), Row(u"RP/SPLIT"));
}

TEST_F(Retrieval, BeforeAnyRetrievalThePnrIsEmpty) {
  EXPECT_EQ(pnr.Text(), u"");
  EXPECT_EQ(pnr.RecordLocator(), u"");
  EXPECT_EQ(Count(module, CountOf::NameElements), 0);
}

}  // namespace
}  // namespace wendrill::flow
