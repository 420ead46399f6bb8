// What a scenario's author relies on: changed PNRs, packed batches, hosts that never answer, and the report.
#include <gtest/gtest.h>

#include "batch/batch.h"
#include "batch/queue.h"
#include "pnr/pnr.h"
#include "simulated_desktop.h"

namespace wendrill::flow {
namespace {

class Scenarios : public SimulatedDesktop {
 protected:
  std::string Report() const { return ToUtf8(Replaced(world.Report(), u"\r\n", u"\n")); }
};

TEST_F(Scenarios, AfterRemarkAndEndOfTransactionTheChangedPnrIsRetrieved) {
  LoadText(
      uR"(
    session = [{ name = "A" }]
    reply = [
      { starts = "RM", screen = "RP/\n*T*", then = "changed" },
      { entry = "ER", when = "changed", screen = "RP/\nEND OF TRANSACTION", then = "stored" },
    ]
    pnr = [
      { RecordLocator = "ABC123", when = "stored", display = "RP/PARXX0100\n  1 RM PAY AT AIRPORT" },
      { RecordLocator = "ABC123", display = "RP/PARXX0100" },
    ]
  )");
  CQuillet quillet(module);
  CPNR pnr(module);
  EXPECT_TRUE(quillet.RetrieveRecLoc(u"ABC123"));
  EXPECT_EQ(pnr.Text(), Row(u"RP/PARXX0100"));
  quillet.SendCommand(u"RMPAY AT AIRPORT");
  quillet.SendCommand(u"ER");
  EXPECT_TRUE(quillet.RetrieveRecLoc(u"ABC123"));
  EXPECT_EQ(pnr.Text(), Row(u"RP/PARXX0100") + Row(u"  1 RM PAY AT AIRPORT"));
  quillet.RetrieveCurrent();
  EXPECT_EQ(pnr.Text(), Row(u"RP/PARXX0100") + Row(u"  1 RM PAY AT AIRPORT"));
  EXPECT_EQ(Report(), "");
}

TEST_F(Scenarios, APackedBatchWhoseThirdEntryIsRefusedReportsExactlyThatOne) {
  LoadText(
      uR"(
    session = [{ name = "A" }]
    reply = [
      { starts = "RM", screen = "RP/PARXX0100" },
      { starts = "TK", screen = "CHECK DATE", refuses = true },
      { entry = "ER", screen = "RP/PARXX0100", optional = true },
    ]
  )");
  CBatch batch(module);
  for (const std::u16string_view entry : {u"RM ONE", u"RM TWO", u"TKTL99XXX", u"ER"}) {
    batch.Commands()->Add(entry);
  }
  const auto bag = world.MakeParamBag();
  batch.SubmitWithResponse(bag);
  EXPECT_EQ(bag->Get(u"strKeyErr"), Value(u"1"));
  EXPECT_EQ(bag->Get(u"blnKeyResponseOK"), Value(false));
  EXPECT_EQ(NewJournal(), "key 322; send RM ONE;RM TWO;TKTL99XXX;ER;   RM ONE;   RM TWO;   TKTL99XXX (refused)");
  EXPECT_EQ(Report(),
            "flow.toml: 1 packed entry was not carried out to its end\n"
            "  RM ONE;RM TWO;TKTL99XXX;ER  ended with part 3, TKTL99XXX\n");
}

TEST_F(Scenarios, AMisspelledEntryOfAPackedBatchIsTheOneThatIsNotAnswered) {
  LoadText(
      uR"(
    session = [{ name = "A" }]
    reply = [{ starts = "RM", screen = "RP/PARXX0100" }, { entry = "TKOK", screen = "RP/PARXX0100", optional = true }]
  )");
  CBatch batch(module);
  batch.Commands()->Add(u"RM ONE");
  batch.Commands()->Add(u"TKKO");
  batch.Submit();
  EXPECT_EQ(Report(),
            "flow.toml: 1 entry was not answered\n"
            "  TKKO  sent first in session A\n"
            "  nearest: line 3, entry = \"TKOK\"; column 3: \"K\" sent, \"O\" expected\n");
}

TEST_F(Scenarios, AHostThatNeverAnswersMakesSendCommandNoClearRaise2530AfterItsWaits) {
  LoadText(u"session = [{ name = 'A' }]\nreply = [{ entry = 'JI', never = true }]");
  CQuillet quillet(module);
  world.Time().SetSeconds(1000);
  world.Time().SetStep(std::chrono::milliseconds(500));
  EXPECT_TRUE(Raises(2530, testing::kCommunicationMessage, [&] { quillet.SendCommandNoClear(u"JI"); }));
  EXPECT_EQ(NewJournal(), "send JI; send JI; send JI");
  EXPECT_GE(world.Time().SecondsSinceMidnight() - 1000, 92);  // two waits of 46 seconds
  EXPECT_EQ(Report(), "");
}

TEST_F(Scenarios, AHostThatAnswersAfterAWhileIsWaitedFor) {
  LoadText(u"session = [{ name = 'A' }]\nreply = [{ entry = 'JI', screen = 'DONE', after = 30 }]");
  CQuillet quillet(module);
  world.Time().SetSeconds(1000);
  world.Time().SetStep(std::chrono::milliseconds(500));
  EXPECT_EQ(quillet.SendCommandNoClear(u"JI"), Row(u"DONE"));
  EXPECT_EQ(NewJournal(), "send JI");
  const double waited = world.Time().SecondsSinceMidnight() - 1000;
  EXPECT_GE(waited, 30);
  EXPECT_LE(waited, 33);
}

TEST_F(Scenarios, AClockThatIsSetBackDoesNotFillTheBuffer) {
  LoadText(u"session = [{ name = 'A' }]\nreply = [{ entry = 'JI', screen = 'DONE', after = 30 }]");
  CQuillet quillet(module);
  world.Time().SetSeconds(1000);
  world.Time().SetStep(std::chrono::milliseconds(500));
  int runs = 0;
  world.Pump().OnRun([&] {
    if (++runs == 1) {
      world.Time().SetSeconds(995);
    }
  });
  EXPECT_EQ(quillet.SendCommandNoClear(u"JI"), Row(u"DONE"));
  EXPECT_GE(world.Time().SecondsSinceMidnight(), 1030);
}

TEST_F(Scenarios, AMisspelledKeyAndKindOfAnElementAreWarnings) {
  LoadFile("rich_pnr");
  CQuillet quillet(module);
  quillet.RetrieveCurrent();
  CPNR pnr(module);
  const auto bag = world.MakeParamBag();
  bag->PutItem(u"intKeyIndx", std::int32_t{1});
  pnr.GetMISElement(bag);
  EXPECT_EQ(Report(), "rich_pnr.toml: 1 warning\n  nothing reads intKeyIndx; nearest: intKeyIndex\n");
}

}  // namespace
}  // namespace wendrill::flow
