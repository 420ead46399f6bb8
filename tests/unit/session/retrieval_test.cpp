#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "session/quillet.h"
#include "support/fake_platform.h"
#include "support/raises.h"
#include "support/us_text.h"

namespace wendrill::testing {
namespace {

class Retrieval : public ::testing::Test {
 protected:
  // Every PNR object made from here on answers with this header and notes what it was asked to send.
  void AnswerWith(const Value& header) {
    desk.platform.makePnr = [this, header]() -> ObjectRef {
      auto pnr = FakeObject::Make(desk.calls, "PNR");
      pnr->With(76, header);
      pnr->Answering(80, [this](std::span<const Value> arguments) {
        EXPECT_EQ(arguments.size(), 1U);
        EXPECT_EQ(ToObject(arguments[0]), desk.terminal->hostConnection);
        desk.terminal->Note("read pnr on display");
        return Value(status);
      });
      pnr->Answering(81, [this](std::span<const Value> arguments) {
        EXPECT_EQ(arguments.size(), 2U);
        EXPECT_EQ(ToObject(arguments[0]), desk.terminal->hostConnection);
        desk.terminal->Note("retrieve " + ToUtf8(ToUsText(arguments[1])));
        return Value();
      });
      return pnr;
    };
  }

  Value Header(const char16_t* text) {
    auto header = FakeObject::Make(desk.calls, "header");
    header->With(u"Text", text);
    return Value(ObjectRef(header));
  }

  FakeDesk desk;
  Value status = std::int32_t{0};
  CQuillet quillet{desk.module};
};

using RetrieveCurrent = Retrieval;

TEST_F(RetrieveCurrent, ReadsThePnrOnDisplayAndPassesTheStatusThrough) {
  AnswerWith(Header(u"RP/PARXX2100"));
  status = std::int32_t{-70000};
  const auto before = desk.module.gobjPNR;
  EXPECT_EQ(quillet.RetrieveCurrent(), -70000);
  EXPECT_EQ(desk.Journal(), "read pnr on display");
  EXPECT_NE(desk.module.gobjPNR, before);
  EXPECT_NE(desk.module.gobjPNR, nullptr);
}

TEST_F(RetrieveCurrent, WithAnEmptyHeaderRaises2500AndKeepsTheNewObject) {
  AnswerWith(Header(u""));
  const auto before = desk.module.gobjPNR;
  EXPECT_TRUE(Raises(2500, u"Could not retrieve an active PNR. Make sure there is an active PNR/Session.",
                     [&] { quillet.RetrieveCurrent(); }));
  EXPECT_NE(desk.module.gobjPNR, nullptr);
  EXPECT_NE(desk.module.gobjPNR, before);
}

TEST_F(RetrieveCurrent, WithoutAHeaderRaises2500) {
  AnswerWith(Value(ObjectRef()));
  EXPECT_TRUE(Raises(2500, kNoActivePnrMessage, [&] { quillet.RetrieveCurrent(); }));
}

TEST_F(RetrieveCurrent, WithoutASessionRaises2500) {
  AnswerWith(Header(u"RP/"));
  quillet.StopLoop();
  EXPECT_TRUE(Raises(2500, kNoActivePnrMessage, [&] { quillet.RetrieveCurrent(); }));
}

TEST_F(RetrieveCurrent, WithAStatusThatIsNoNumberRaises2500) {
  AnswerWith(Header(u"RP/"));
  status = Value(u"NO NUMBER");
  EXPECT_TRUE(Raises(2500, kNoActivePnrMessage, [&] { quillet.RetrieveCurrent(); }));
}

using RetrieveRecLoc = Retrieval;

TEST_F(RetrieveRecLoc, WithTheLocatorAbc123MakesTheToolkitSendRtabc123) {
  AnswerWith(Header(u"RP/PARXX2100"));
  EXPECT_TRUE(quillet.RetrieveRecLoc(u"ABC123"));
  EXPECT_EQ(desk.Journal(), "retrieve RTABC123");
}

TEST_F(RetrieveRecLoc, WithAnEmptyLocatorReturnsFalseAndLeavesThePreviouslyLoadedPnrInPlace) {
  const auto before = desk.module.gobjPNR;
  const auto callsBefore = desk.calls->Count();
  EXPECT_FALSE(quillet.RetrieveRecLoc(u""));
  EXPECT_EQ(desk.module.gobjPNR, before);
  EXPECT_EQ(desk.calls->Count(), callsBefore);
}

TEST_F(RetrieveRecLoc, WhoseHeaderIsEmptyIsFalseAndKeepsTheNewEmptyObject) {
  AnswerWith(Header(u""));
  const auto before = desk.module.gobjPNR;
  EXPECT_FALSE(quillet.RetrieveRecLoc(u"ABC123"));
  EXPECT_NE(desk.module.gobjPNR, nullptr);
  EXPECT_NE(desk.module.gobjPNR, before);
}

TEST_F(RetrieveRecLoc, WhoseAnswerHasNoHeaderObjectLeavesNoPnrLoaded) {
  AnswerWith(Value(ObjectRef()));
  EXPECT_FALSE(quillet.RetrieveRecLoc(u"ABC123"));
  EXPECT_EQ(desk.module.gobjPNR, nullptr);
}

TEST_F(RetrieveRecLoc, TakesAnEmptyHeaderValueForNoHeader) {
  AnswerWith(Value());
  EXPECT_FALSE(quillet.RetrieveRecLoc(u"ABC123"));
  EXPECT_EQ(desk.module.gobjPNR, nullptr);
}

TEST_F(RetrieveRecLoc, WithoutASessionRaises2501) {
  AnswerWith(Header(u"RP/"));
  quillet.StopLoop();
  EXPECT_TRUE(Raises(2501, u"Could not retrieve the PNR.", [&] { quillet.RetrieveRecLoc(u"ABC123"); }));
}

TEST_F(RetrieveRecLoc, ThatCannotMakeAPnrObjectRaises2501AndLeavesNoPnrLoaded) {
  desk.platform.makePnr = []() -> ObjectRef { Raise(RunTimeError::CannotCreateObject); };
  EXPECT_TRUE(Raises(2501, kNoPnrMessage, [&] { quillet.RetrieveRecLoc(u"ABC123"); }));
  EXPECT_EQ(desk.module.gobjPNR, nullptr);
}

using SplitPNR = Retrieval;

TEST_F(SplitPNR, WithTheAssociation2SendsSp2) {
  AnswerWith(Header(u"RP/PARXX2100"));
  EXPECT_TRUE(quillet.SplitPNR(u"2"));
  EXPECT_EQ(desk.Journal(), "retrieve SP2");
}

TEST_F(SplitPNR, WithAnEmptyAssociationReturnsFalseAndKeepsThePnr) {
  const auto before = desk.module.gobjPNR;
  EXPECT_FALSE(quillet.SplitPNR(u""));
  EXPECT_EQ(desk.module.gobjPNR, before);
}

TEST_F(SplitPNR, WithoutASessionRaises2502) {
  AnswerWith(Header(u"RP/"));
  quillet.StopLoop();
  EXPECT_TRUE(Raises(2502, u"Error when splitting the PNR.", [&] { quillet.SplitPNR(u"2"); }));
}

using ReadPNR = Retrieval;

TEST_F(ReadPNR, SendsTheEntryAsGiven) {
  AnswerWith(Header(u"RP/PARXX2100"));
  EXPECT_TRUE(quillet.ReadPNR(u"RT/SMITH"));
  EXPECT_EQ(desk.Journal(), "retrieve RT/SMITH");
}

TEST_F(ReadPNR, OfErTakesTheAlarmLockBeforeTheEntryAndReleasesItAfterwards) {
  AnswerWith(Header(u"RP/PARXX2100"));
  EXPECT_TRUE(quillet.ReadPNR(u"ER"));
  EXPECT_EQ(desk.Journal(), "alarm lock, retrieve ER, alarm unlock");
}

TEST_F(ReadPNR, ThatFindsNoPnrReleasesTheAlarmLockToo) {
  AnswerWith(Value(ObjectRef()));
  EXPECT_FALSE(quillet.ReadPNR(u"ER"));
  EXPECT_EQ(desk.Journal(), "alarm lock, retrieve ER, alarm unlock");
}

TEST_F(ReadPNR, WithAnEmptyEntryReturnsFalseWithoutTheAlarmLock) {
  const auto callsBefore = desk.calls->Count();
  EXPECT_FALSE(quillet.ReadPNR(u""));
  EXPECT_EQ(desk.calls->Count(), callsBefore);
}

TEST_F(ReadPNR, WithoutASessionRaises2503AndUnlocks) {
  AnswerWith(Header(u"RP/"));
  quillet.StopLoop();
  EXPECT_TRUE(Raises(2503, u"Error when reading the PNR.", [&] { quillet.ReadPNR(u"ER"); }));
  EXPECT_EQ(desk.Journal(), "alarm lock, alarm unlock");
}

}  // namespace
}  // namespace wendrill::testing
