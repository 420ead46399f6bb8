#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "session/quillet.h"
#include "support/raises.h"
#include "support/screen.h"
#include "support/test_world.h"
#include "support/us_text.h"

namespace wendrill::testing {
namespace {

class ParameterisedEntries : public ::testing::Test {
 protected:
  TestWorld world;
  CQuillet quillet{world.module};
  FakeBagRef bag = std::make_shared<FakeBag>(world.calls);
};

using SendCommandFI = ParameterisedEntries;

TEST_F(SendCommandFI, WithAllFourKeysFalseSendsTheEntryOnceWithoutTheClearKeyAndReturnsTheBuffer) {
  bag->Given(u"blnKeyClear", false).Given(u"blnKeyGetAll", false).Given(u"blnKeyPNR", false).Given(u"blnKeyTST", false);
  world.On(u"AN", {.buffer = Screen({u"A", u")>1/2"})});
  EXPECT_EQ(quillet.SendCommandFI(u"AN", bag), Screen({u"A", u")>1/2"}));
  EXPECT_EQ(world.Journal(), "send AN");
  EXPECT_EQ(world.module.LastResponseObject, nullptr);
}

TEST_F(SendCommandFI, TakesMissingKeysForFalse) {
  world.On(u"AN", {.buffer = u"ANSWER"});
  EXPECT_EQ(quillet.SendCommandFI(u"AN", bag), u"ANSWER");
  EXPECT_EQ(world.Journal(), "send AN");
}

TEST_F(SendCommandFI, ReadsItsKeysInOrderAndConvertsThem) {
  bag->Given(u"blnKeyClear", u"True").Given(u"blnKeyGetAll", std::int16_t{0});
  world.On(u"AN", {.buffer = u"ANSWER"});
  const auto before = world.calls->Count();
  quillet.SendCommandFI(u"AN", bag);
  const auto& calls = world.calls->Calls();
  EXPECT_THAT(
      std::vector(calls.begin() + static_cast<std::ptrdiff_t>(before),
                  calls.begin() + static_cast<std::ptrdiff_t>(before) + 4),
      ::testing::ElementsAre("bag get blnKeyClear", "bag get blnKeyGetAll", "bag get blnKeyPNR", "bag get blnKeyTST"));
  EXPECT_EQ(world.Journal(), "key 322, send AN");
}

TEST_F(SendCommandFI, WithAnEmptyEntrySendsNothingAndLeavesAHeldLockAlone) {
  quillet.LockAlarm();
  world.ClearJournal();
  bag->Given(u"blnKeyClear", true);
  EXPECT_EQ(quillet.SendCommandFI(u"", bag), u"");
  EXPECT_EQ(world.Journal(), "");
}

TEST_F(SendCommandFI, WhoseClearKeyIsRejectedGivesTheLockBackAndRaises2506) {
  quillet.LockAlarm();
  world.ClearJournal();
  bag->Given(u"blnKeyClear", true);
  world.Refusing({kbClear});
  EXPECT_TRUE(Raises(2506, u"An error has occurred while communicating with Quillet.",
                     [&] { quillet.SendCommandFI(u"AN", bag); }));
  EXPECT_EQ(world.Journal(), "key 322, alarm unlock");
}

TEST_F(SendCommandFI, GivesTheAlarmLockBackWithoutGetAllToo) {
  world.On(u"ER", {.buffer = u"OK"});
  EXPECT_EQ(quillet.SendCommandFI(u"ER", bag), u"OK");
  EXPECT_EQ(world.Journal(), "alarm lock, send ER, alarm unlock");
}

TEST_F(SendCommandFI, WithGetAllAloneCollectsAllPages) {
  bag->Given(u"blnKeyGetAll", true);
  world.On(u"QE/1", {.buffer = Screen({u"HEAD", u"A", u")>1/2"})});
  world.On(u"MD", {.buffer = Screen({u"HEAD", u"B", u")>2/2"})});
  EXPECT_EQ(quillet.SendCommandFI(u"QE/1", bag), Screen({u"HEAD", u"A", u"B", u")>2/2"}));
  EXPECT_EQ(world.Journal(), "alarm lock, send QE/1, send MD, alarm unlock");
}

TEST_F(SendCommandFI, WithGetAllKnowsAPnrDisplayByItsResponseType) {
  bag->Given(u"blnKeyGetAll", true);
  world.On(u"RT", {.buffer = Screen({u"--- TC-BIZ RLP ---", u"RP/PARXX2100"}), .type = 22});
  EXPECT_EQ(quillet.SendCommandFI(u"RT", bag), Screen({u"RP/PARXX2100"}));
}

TEST_F(SendCommandFI, WithPnrReadsTheDisplayOfAFreshPnrObjectAndKeepsTheSharedOne) {
  bag->Given(u"blnKeyGetAll", true).Given(u"blnKeyPNR", true);
  world.On(u"RTABC123", {.buffer = u"RAW"});
  world.With(u"[[pnr]]\nentries = [\"RTABC123\"]\ndisplay = \"RP/PARXX2100\\n1.SMITH\"\nbreaks = true\n");
  const auto shared = world.module.gobjPNR;
  EXPECT_EQ(quillet.SendCommandFI(u"RTABC123", bag), u"RP/PARXX2100\r\n1.SMITH\r\n");
  EXPECT_EQ(world.Journal(), "send RTABC123, retrieve RTABC123");
  EXPECT_EQ(world.module.gobjPNR, shared);
}

TEST_F(SendCommandFI, WithTstHandsTheResponseToTheTicketingPageReader) {
  bag->Given(u"blnKeyGetAll", true).Given(u"blnKeyTST", true);
  world.On(u"TQT", {.buffer = Screen({u"", u"TST 1", u"FARE )"})});
  world.On(u"MD", {.buffer = Screen({u"TST 1", u"TAX  )"})}).On(u"MD", {.buffer = Screen({u"TOTAL"})});
  EXPECT_EQ(quillet.SendCommandFI(u"TQT", bag), Screen({u"TST 1", u"FARE )", u"TST 1", u"TAX  )", u"TOTAL"}));
  EXPECT_EQ(world.Journal(), "send TQT, send MD, send MD");
}

TEST_F(SendCommandFI, WithTstDropsTheFirstLineOfEveryPageOfAPf24Entry) {
  bag->Given(u"blnKeyGetAll", true).Given(u"blnKeyTST", true);
  world.On(u"PF24", {.buffer = Screen({u"TITLE", u"A )"})}).On(u"MD", {.buffer = Screen({u"TITLE", u"B"})});
  EXPECT_EQ(quillet.SendCommandFI(u"PF24", bag), Screen({u"A )", u"B"}));
}

TEST_F(SendCommandFI, WithPnrAndTstTakesTheTicketingReadersOutput) {
  bag->Given(u"blnKeyGetAll", true).Given(u"blnKeyPNR", true).Given(u"blnKeyTST", true);
  world.On(u"TQT", {.buffer = u"TST"});
  world.With(u"[[pnr]]\nentries = [\"TQT\"]\ndisplay = \"PNR\"\n");
  EXPECT_EQ(quillet.SendCommandFI(u"TQT", bag), u"TST");
}

TEST_F(SendCommandFI, OverlooksPnrAndTstWithoutGetAll) {
  bag->Given(u"blnKeyPNR", true).Given(u"blnKeyTST", true);
  world.On(u"TQT", {.buffer = u"TST )"});
  EXPECT_EQ(quillet.SendCommandFI(u"TQT", bag), u"TST )");
  EXPECT_EQ(world.Journal(), "send TQT");
}

TEST_F(SendCommandFI, WithoutABagRaises2506) {
  EXPECT_TRUE(Raises(2506, kCommunicationMessage, [&] { quillet.SendCommandFI(u"AN", nullptr); }));
}

TEST_F(SendCommandFI, WithAKeyThatIsNoBooleanRaises2506) {
  bag->Given(u"blnKeyTST", u"PERHAPS");
  EXPECT_TRUE(Raises(2506, kCommunicationMessage, [&] { quillet.SendCommandFI(u"AN", bag); }));
}

class SendCommandTicsPas : public ParameterisedEntries {
 protected:
  // A collection has been begun on the object: only then does the loop run.
  void BeginLoop() { quillet.SendCommandGetAll(u""); }
};

TEST_F(SendCommandTicsPas, WithABagWithoutCommandReturnsTheEmptyTextWithNoHostTraffic) {
  bag->Given(u"blnKeyGetAll", true).Given(u"blnKeyClear", true);
  EXPECT_EQ(quillet.SendCommandTicsPas(bag), u"");
  EXPECT_EQ(world.Journal(), "");
}

TEST_F(SendCommandTicsPas, ReadsItsKeysInOrder) {
  bag->Given(u"strKeyCommand", u"TICS");
  world.On(u"TICS", {.buffer = u"ANSWER"});
  const auto before = world.calls->Count();
  quillet.SendCommandTicsPas(bag);
  const auto& calls = world.calls->Calls();
  EXPECT_THAT(std::vector(calls.begin() + static_cast<std::ptrdiff_t>(before),
                          calls.begin() + static_cast<std::ptrdiff_t>(before) + 3),
              ::testing::ElementsAre("bag get strKeyCommand", "bag get blnKeyGetAll", "bag get blnKeyClear"));
}

TEST_F(SendCommandTicsPas, SendsTheEntryAndReturnsTheResponsesText) {
  bag->Given(u"strKeyCommand", u"ER");
  world.On(u"ER", {.buffer = u"RAW BUFFER", .text = u"THE TEXT+"});
  EXPECT_EQ(quillet.SendCommandTicsPas(bag), u"THE TEXT+");
  EXPECT_EQ(world.Journal(), "send ER");
  EXPECT_EQ(world.module.LastResponseObject, nullptr);
}

TEST_F(SendCommandTicsPas, ClearsFirstWhereAsked) {
  bag->Given(u"strKeyCommand", u"TICS").Given(u"blnKeyClear", true);
  world.On(u"TICS", {.buffer = u"ANSWER"});
  EXPECT_EQ(quillet.SendCommandTicsPas(bag), u"ANSWER");
  EXPECT_EQ(world.Journal(), "key 322, send TICS");
}

TEST_F(SendCommandTicsPas, WhoseClearKeyIsRejectedRaises2540) {
  bag->Given(u"strKeyCommand", u"TICS").Given(u"blnKeyClear", true);
  world.Refusing({kbClear});
  EXPECT_TRUE(Raises(2540, u"An error has occurred while communicating with Quillet.",
                     [&] { quillet.SendCommandTicsPas(bag); }));
  EXPECT_EQ(world.Journal(), "key 322");
}

TEST_F(SendCommandTicsPas, WithALoopThatIsNotActiveReturnsTheFirstResponse) {
  bag->Given(u"strKeyCommand", u"TICS").Given(u"blnKeyGetAll", true);
  world.On(u"TICS", {.buffer = u"FIRST+"});
  EXPECT_EQ(quillet.SendCommandTicsPas(bag), u"FIRST+");
  EXPECT_EQ(world.Journal(), "send TICS");
}

TEST_F(SendCommandTicsPas, PagesWithClearAndMdWhileTheTailAsksForMore) {
  BeginLoop();
  bag->Given(u"strKeyCommand", u"TICS").Given(u"blnKeyGetAll", true);
  world.On(u"TICS", {.buffer = Row(u"FIRST") + u"MD"});
  world.On(u"MD", {.buffer = Row(u"SECOND") + u"+  "}).On(u"MD", {.buffer = u"THIRD"});
  EXPECT_EQ(quillet.SendCommandTicsPas(bag), Screen({u"FIRST", u"MD", u"SECOND", u"+"}) + u"THIRD");
  EXPECT_EQ(world.Journal(), "send TICS, key 322, send MD, key 322, send MD");
  EXPECT_EQ(world.pump.passes, 2U);
}

TEST_F(SendCommandTicsPas, LooksAtTheLastThreeCharactersOnly) {
  BeginLoop();
  bag->Given(u"strKeyCommand", u"TICS").Given(u"blnKeyGetAll", true);
  world.On(u"TICS", {.buffer = u"FIRST+   "});
  EXPECT_EQ(quillet.SendCommandTicsPas(bag), u"FIRST+   ");
  EXPECT_EQ(world.Journal(), "send TICS");
}

TEST_F(SendCommandTicsPas, DropsNothingThatPassesRepeat) {
  BeginLoop();
  bag->Given(u"strKeyCommand", u"TICS").Given(u"blnKeyGetAll", true);
  world.On(u"TICS", {.buffer = u"SAME+"}).On(u"MD", {.buffer = u"SAME+"}).On(u"MD", {.buffer = u"SAME"});
  EXPECT_EQ(quillet.SendCommandTicsPas(bag), Row(u"SAME+") + Row(u"SAME+") + u"SAME");
}

TEST_F(SendCommandTicsPas, SendsNothingWhileTheResponseHoldsDacContAndReadsTheLastResponseAgain) {
  BeginLoop();
  bag->Given(u"strKeyCommand", u"TICS").Given(u"blnKeyGetAll", true);
  // Another program's entry brings the rest.
  world.On(u"TICS", {.buffer = u"DAC:CONT +"}).On(u"REST", {.buffer = u"COMPLETE"});
  world.pump.onPass = [&](std::size_t pass) {
    if (pass == 3) {
      world.simulated.MakeSession()->Send(u"REST", true);
    }
  };
  EXPECT_EQ(quillet.SendCommandTicsPas(bag), Row(u"DAC:CONT +") + u"COMPLETE");
  EXPECT_EQ(world.Journal(), "send TICS, send REST");
  EXPECT_EQ(world.pump.passes, 3U);
}

TEST_F(SendCommandTicsPas, StopLoopDuringACollectionEndsItAtTheNextPass) {
  BeginLoop();
  bag->Given(u"strKeyCommand", u"TICS").Given(u"blnKeyGetAll", true);
  world.On(u"TICS", {.buffer = u"FIRST+"}).On(u"MD", {.buffer = u"SECOND+"});
  world.pump.onPass = [&](std::size_t pass) {
    if (pass == 2) {
      quillet.StopLoop();
    }
  };
  EXPECT_EQ(quillet.SendCommandTicsPas(bag), Row(u"FIRST+") + u"SECOND+");
  EXPECT_EQ(world.Journal(), "send TICS, key 322, send MD, key 322, send MD");
}

TEST_F(SendCommandTicsPas, StopLoopOfAnotherObjectMakesItFail) {
  BeginLoop();
  CQuillet other(world.module);
  bag->Given(u"strKeyCommand", u"TICS").Given(u"blnKeyGetAll", true);
  world.On(u"TICS", {.buffer = u"DAC:CONT +"});
  world.pump.onPass = [&](std::size_t) { other.StopLoop(); };
  EXPECT_TRUE(Raises(2540, kCommunicationMessage, [&] { quillet.SendCommandTicsPas(bag); }));
}

TEST_F(SendCommandTicsPas, WithoutABagRaises2540) {
  EXPECT_TRUE(Raises(2540, kCommunicationMessage, [&] { quillet.SendCommandTicsPas(nullptr); }));
}

}  // namespace
}  // namespace wendrill::testing
