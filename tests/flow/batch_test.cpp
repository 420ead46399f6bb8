// Queued entries sent as a batch.
#include "batch/batch.h"

#include <gtest/gtest.h>

#include "batch/queue.h"
#include "simulated_desktop.h"

namespace wendrill::flow {
namespace {

class Batches : public SimulatedDesktop {
 protected:
  void SetUp() override {
    LoadText(
        uR"(
      session = [{ name = "A" }]
      reply = [
        { starts = "RM", screen = "RP/PARXX0100" },
        { starts = "RU", screen = "*T*" },
        { starts = "XX", screen = "CHECK ENTRY" },
      ]
    )");
  }

  CBatch batch{module};
};

TEST_F(Batches, ShortEntriesArePackedIntoOneHostEntry) {
  batch.Commands()->Add(u"RM ONE");
  batch.Commands()->Add(u"RM TWO;RM THREE");
  const auto bag = world.MakeParamBag();
  batch.SubmitWithResponse(bag);
  EXPECT_EQ(NewJournal(), "key 322; send RM ONE;RM TWO;RM THREE;   RM ONE;   RM TWO;   RM THREE");
  EXPECT_EQ(bag->Get(u"strKeyErr"), Value(u""));
  EXPECT_EQ(bag->Get(u"blnKeyResponseOK"), Value(true));
}

TEST_F(Batches, AnEntryThatStartsWithRuStartsAHostEntryAndOneWithXmitEndsIt) {
  batch.Commands()->Add(u"RM ONE");
  batch.Commands()->Add(u"RU QT HK1 PAR 20JUN");
  batch.Commands()->Add(u"<XMIT>");
  batch.Commands()->Add(u"RM TWO");
  batch.Submit();
  // The marker is an entry of its own: it is joined with ";" before it is taken out again.
  EXPECT_EQ(NewJournal(),
            "key 322; send RM ONE; key 322; send RU QT HK1 PAR 20JUN;;   RU QT HK1 PAR 20JUN; key 322; send RM TWO");
}

TEST_F(Batches, AHostEntryThatIsRejectedIsReportedByItsNumber) {
  batch.Commands()->Add(u"RM ONE");
  batch.Commands()->Add(u"RU TWO<XMIT>");
  batch.Commands()->Add(u"XX THREE");
  const auto bag = world.MakeParamBag();
  batch.SubmitWithResponse(bag);
  EXPECT_EQ(bag->Get(u"strKeyErr"), Value(u"3"));
  EXPECT_EQ(bag->Get(u"blnKeyResponseOK"), Value(false));
}

TEST_F(Batches, AddingWithoutARunningSessionRaises2400) {
  LoadFile("empty_desktop");
  EXPECT_TRUE(Raises(2400, testing::kGeneralMessage, [&] { batch.Commands()->Add(u"RM ONE"); }));
  EXPECT_EQ(world.LiveObjects(), 0);
}

TEST_F(Batches, AFailingSendRaisesTheBatchsNumber) {
  batch.Commands()->Add(u"RM ONE");
  world.FailNext(u"Send", kUnspecifiedFailure, 1);
  EXPECT_TRUE(Raises(2300, testing::kGeneralMessage, [&] { batch.Submit(); }));
}

}  // namespace
}  // namespace wendrill::flow
