#include "batch/batch.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <string>
#include <vector>

#include "support/describe.h"
#include "support/raises.h"
#include "support/test_world.h"

namespace wendrill::testing {
namespace {

class Batch : public ::testing::Test {
 protected:
  void Queue(std::initializer_list<const char16_t*> commands) {
    for (const char16_t* command : commands) {
      batch.Commands()->Add(command);
    }
  }

  Value Reported(TextView key) const { return bag->Held(key); }

  static Value Responses(std::vector<Value> items) { return ValueArray{.lowerBound = 0, .items = std::move(items)}; }

  TestWorld world;
  CBatch batch{world.module};
  FakeBagRef bag = std::make_shared<FakeBag>(world.calls);
};

TEST_F(Batch, IsCreatedWithNoSessionRunning) {
  TestWorld empty;
  empty.Sessions({});
  const CBatch created(empty.module);
  EXPECT_EQ(created.Commands()->Count(), 0);
  EXPECT_EQ(created.Separator(), u"");
  EXPECT_EQ(empty.calls->Count(), 0U);
}

TEST_F(Batch, TakesACallersQueueByReference) {
  const auto queue = std::make_shared<CQueue>(world.module);
  batch.SetCommands(queue);
  EXPECT_EQ(batch.Commands(), queue);
  queue->Add(u"AN");
  EXPECT_EQ(batch.Commands()->Count(), 1);
}

TEST_F(Batch, PacksShortQueuedEntriesIntoOneHostEntryJoinedBySemicolons) {
  Queue({u"NM1SMITH/J", u"AP 123;TKOK", u"RFME"});
  world.On(u"NM1SMITH/J;AP 123;TKOK;RFME", {.buffer = u"RP/PARXX2100"});
  batch.SubmitWithResponse(bag);
  EXPECT_EQ(world.Journal(), "key 322, send NM1SMITH/J;AP 123;TKOK;RFME");
}

TEST_F(Batch, WithNoFailedEntryReportsNoErrorAndThatAllIsWell) {
  Queue({u"AP 1", u"RU2", u"RU3"});
  world.On(u"AP 1", {.buffer = u"RP/PAR"}).On(u"RU2", {.buffer = u"*T* DONE"}).On(u"RU3", {.buffer = u"X*C*"});
  batch.SubmitWithResponse(bag);
  EXPECT_EQ(Reported(u"strKeyErr"), Value(u""));
  EXPECT_EQ(Reported(u"blnKeyResponseOK"), Value(true));
  EXPECT_EQ(Reported(u"strKeyResponseArray"), Responses({u"RP/PAR", u"*T* DONE", u"X*C*"}));
}

TEST_F(Batch, NumbersRejectedEntriesFromOne) {
  Queue({u"RU1", u"RU2", u"RU3", u"RU4"});
  world.On(u"RU1", {.buffer = u"INVALID FORMAT"})
      .On(u"RU2", {.buffer = u"RP/PAR"})
      .On(u"RU3", {.buffer = u""})
      .On(u"RU4", {.buffer = u"*c* rp/ *t*"});
  batch.SubmitWithResponse(bag);
  EXPECT_EQ(Reported(u"strKeyErr"), Value(u"1,3,4"));
  EXPECT_EQ(Reported(u"blnKeyResponseOK"), Value(false));
  EXPECT_EQ(Reported(u"strKeyResponseArray"), Responses({u"INVALID FORMAT", u"RP/PAR", u"", u"*c* rp/ *t*"}));
}

TEST_F(Batch, ReportsItsKeysInOrder) {
  Queue({u"RU1"});
  world.On(u"RU1", {.buffer = u"RP/"});
  batch.SubmitWithResponse(bag);
  EXPECT_EQ(bag->SettingsText(),
            "strKeyResponseArray = from 0 [ \"RP/\" ]\nstrKeyErr = \"\"\nblnKeyResponseOK = True\n");
}

TEST_F(Batch, SendsNothingForAnEmptyEntryAndDoesNotNumberIt) {
  Queue({u"", u"<XMIT>", u"RU1"});
  world.On(u"RU1", {.buffer = u"REFUSED"});
  batch.SubmitWithResponse(bag);
  EXPECT_EQ(world.Journal(), "key 322, send RU1");
  EXPECT_EQ(Reported(u"strKeyErr"), Value(u"1"));
}

TEST_F(Batch, OfAnEmptyQueueReportsThatAllIsWellWithoutASession) {
  world.Sessions({});
  batch.SubmitWithResponse(bag);
  EXPECT_EQ(Reported(u"strKeyResponseArray"), Responses({}));
  EXPECT_EQ(Reported(u"strKeyErr"), Value(u""));
  EXPECT_EQ(Reported(u"blnKeyResponseOK"), Value(true));
  EXPECT_EQ(world.Journal(), "");
}

TEST_F(Batch, EndsAHostEntryAtTheTransmitMarkerAndDoesNotSendTheMarker) {
  Queue({u"A<XMIT>B", u"C"});
  world.On(u"A;B", {.buffer = u"RP/"}).On(u"C", {.buffer = u"RP/"});
  batch.SubmitWithResponse(bag);
  EXPECT_EQ(world.Journal(), "key 322, send A;B, key 322, send C");
}

TEST_F(Batch, CutsQueuedCommandsAtItsSeparatorAndJoinsWithSemicolonsAllTheSame) {
  batch.SetSeparator(u"+");
  EXPECT_EQ(batch.Separator(), u"+");
  Queue({u"A+RU1+B"});
  world.On(u"A", {.buffer = u"RP/"}).On(u"RU1;B", {.buffer = u"RP/"});
  batch.SubmitWithResponse(bag);
  EXPECT_EQ(world.Journal(), "key 322, send A, key 322, send RU1;B");
}

TEST_F(Batch, KeepsItsQueue) {
  Queue({u"RU1"});
  world.On(u"RU1", {.buffer = u"RP/"});
  batch.SubmitWithResponse(bag);
  EXPECT_EQ(batch.Commands()->Count(), 1);
}

TEST_F(Batch, SendsThroughOneObjectOfItsOwnThatItReleases) {
  Queue({u"RU1", u"RU2"});
  std::vector<std::int16_t> live;
  world.On(u"RU1", {.buffer = u"RP/"}).On(u"RU2", {.buffer = u"RP/"});
  world.During(u"Send", [&] { live.push_back(world.module.LiveInstanceCount); });
  batch.SubmitWithResponse(bag);
  EXPECT_EQ(live, (std::vector<std::int16_t>{3, 3}));
  EXPECT_EQ(world.module.LiveInstanceCount, 2);
}

TEST_F(Batch, TakesTheAlarmLockForAnAlarmEntry) {
  Queue({u"ER"});
  world.On(u"ER", {.buffer = u"RP/"});
  batch.SubmitWithResponse(bag);
  EXPECT_EQ(world.Journal(), "key 322, alarm lock, send ER, alarm unlock");
}

TEST_F(Batch, SubmitSendsWithABagOfItsOwnAndDiscardsIt) {
  Queue({u"RU1"});
  world.On(u"RU1", {.buffer = u"REFUSED"});
  batch.Submit();
  EXPECT_EQ(world.Journal(), "key 322, send RU1");
  ASSERT_NE(world.lastBag, nullptr);
  EXPECT_EQ(world.lastBag->Held(u"strKeyErr"), Value(u"1"));
  EXPECT_EQ(world.lastBag.use_count(), 1);
}

TEST_F(Batch, WhoseSendingFailsRaises2315AndTouchesNoBag) {
  Queue({u"RU1", u"RU2"});
  world.On(u"RU1", {.buffer = u"RP/"});
  world.Refusing({kbClear});
  EXPECT_TRUE(Raises(2315, u"A general error has occurred.", [&] { batch.SubmitWithResponse(bag); }));
  EXPECT_TRUE(bag->Settings().empty());
}

TEST_F(Batch, WhoseSubmitFailsRaises2300) {
  Queue({u"RU1"});
  world.Refusing({kbClear});
  EXPECT_TRUE(Raises(2300, u"A general error has occurred.", [&] { batch.Submit(); }));
}

TEST_F(Batch, WhoseUnlockFailsKeepsItsNumbers) {
  Queue({u"ER"});
  world.On(u"ER", {.buffer = u"*T*"});
  world.platform.lockAlarm = [](bool lock) { return Value(std::int16_t(lock ? 0 : -3)); };
  EXPECT_TRUE(Raises(2315, kGeneralMessage, [&] { batch.SubmitWithResponse(bag); }));
  EXPECT_TRUE(Raises(2300, kGeneralMessage, [&] { batch.Submit(); }));
}

TEST_F(Batch, WithoutABagRaises2315) {
  EXPECT_TRUE(Raises(2315, kGeneralMessage, [&] { batch.SubmitWithResponse(nullptr); }));
}

TEST_F(Batch, WithoutAQueueRaises2315) {
  batch.SetCommands(nullptr);
  EXPECT_TRUE(Raises(2315, kGeneralMessage, [&] { batch.SubmitWithResponse(bag); }));
}

TEST_F(Batch, OfMoreEntriesThanSixteenBitsCountRaises2315AndSendsNothing) {
  std::u16string command;
  for (int entry = 0; entry < 32768; ++entry) {
    command += u"A;";
  }
  batch.Commands()->Add(command);
  EXPECT_TRUE(Raises(2315, kGeneralMessage, [&] { batch.SubmitWithResponse(bag); }));
  EXPECT_EQ(world.Journal(), "");
}

TEST_F(Batch, LetsTheLackOfMemoryPropagate) {
  world.On(u"RU1", {.buffer = u"RP/"});
  world.During(u"Send", [] { throw std::bad_alloc(); });
  batch.Commands()->Add(u"RU1");
  EXPECT_THROW(batch.Submit(), std::bad_alloc);
  EXPECT_THROW(batch.SubmitWithResponse(std::make_shared<FakeBag>()), std::bad_alloc);
}

// Making the bag, connecting, sending, reporting: whichever call fails, the member's number is raised and nothing is
// held.
TEST_F(Batch, RaisesItsNumberWhicheverCallFails) {
  for (std::size_t n = 1;; ++n) {
    TestWorld other;
    other.On(u"RU1", {.buffer = u"RP/"});
    const auto before = other.LiveObjects();
    {
      CBatch failing(other.module);
      failing.Commands()->Add(u"RU1");
      const auto callsBefore = other.calls->Count();
      other.calls->FailNth(n);
      const auto error = ErrorOf([&] { failing.Submit(); });
      if (other.calls->Count() < callsBefore + n) {
        EXPECT_FALSE(error.has_value());
        break;
      }
      const std::string failed = other.calls->Calls()[callsBefore + n - 1];
      // The unlock passes over its own failures.
      const bool isOfTheLock = failed == "TerminalReady" || failed == "HostReady" || failed == "CreateTextHelper";
      EXPECT_EQ(error.has_value(), !isOfTheLock) << failed;
      if (error) {
        EXPECT_TRUE(Raises(2300, kGeneralMessage, [&] { throw *error; })) << failed;
      }
      EXPECT_EQ(other.module.LiveInstanceCount, 1) << failed;
    }
    other.lastBag.reset();
    EXPECT_EQ(other.LiveObjects(), before) << "call " << n;
  }
}

TEST_F(Batch, RMBatchHandsElementsBackCountedFromZero) {
  TextArray elements = {.lowerBound = 5, .items = {u"OLD"}};
  batch.RMBatch(u"RM*" + std::u16string(124, u'x') + u"/P1", elements);
  EXPECT_EQ(elements.lowerBound, 0);
  EXPECT_EQ(elements.items, (std::vector<std::u16string>{u"RM*" + std::u16string(123, u'x') + u"/P1", u"RM*x/P1"}));
}

TEST_F(Batch, RMBatchRaisesItsHelpersNumberUnchangedAndTouchesNothing) {
  TextArray elements = {.lowerBound = 5, .items = {u"OLD"}};
  EXPECT_TRUE(Raises(2310, u"A general error has occurred.",
                     [&] { batch.RMBatch(std::u16string(std::size_t{123} * 32768, u'x'), elements); }));
  EXPECT_EQ(elements, (TextArray{.lowerBound = 5, .items = {u"OLD"}}));
}

}  // namespace
}  // namespace wendrill::testing
