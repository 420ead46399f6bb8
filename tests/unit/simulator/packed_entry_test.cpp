#include "core/packed_entry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulated_world.h"

namespace wendrill::simulator {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(PackedEntry, IsSplitAtSemicolonsWithoutItsEmptyParts) {
  EXPECT_THAT(PartsOf(u"RMONE;RMTWO;ER"), ElementsAre(u"RMONE", u"RMTWO", u"ER"));
  EXPECT_THAT(PartsOf(u";ER;;IG;"), ElementsAre(u"ER", u"IG"));
}

TEST(PackedEntry, AnEntryWithoutSemicolonOrWithNothingElseIsNotPacked) {
  EXPECT_THAT(PartsOf(u"ER"), IsEmpty());
  EXPECT_THAT(PartsOf(u";;"), IsEmpty());
  EXPECT_THAT(PartsOf(u""), IsEmpty());
}

TEST(PackedEntry, ConfidentialRemarksOtherServicesAndSpecialServicesHoldTheirSemicolons) {
  EXPECT_THAT(PartsOf(u"RCPARXX-A;B"), IsEmpty());
  EXPECT_THAT(PartsOf(u"OSAF VIP;X"), IsEmpty());
  EXPECT_THAT(PartsOf(u"SRVGML;X"), IsEmpty());
  EXPECT_THAT(PartsOf(u"RMA;RCB"), ElementsAre(u"RMA", u"RCB"));
}

class PackedEntries : public SimulatedWorld {
 protected:
  void SetUp() override {
    Load(
        uR"(
      session = [{ name = "A" }]
      reply = [
        { starts = "RMA", screen = "FIRST" },
        { entry = "RMB", screen = "SECOND" },
        { entry = "BAD", screen = "REFUSED", refuses = true },
        { entry = "FAILS", error = 438 },
        { entry = "SILENT", never = true },
        { entry = "SLOW", screen = "SLOW", late = 1 },
        { entry = "AN", pages = ["1", "2"] },
        { entry = "RMB;RMB", screen = "WHOLE" },
      ]
    )");
    session = world.MakeSession();
  }

  std::u16string Sent(std::u16string_view entry) { return session->Send(entry, true)->Buffer(); }

  std::shared_ptr<SimulatedSession> session;
};

TEST_F(PackedEntries, TheResponseIsThatOfTheLastPart) {
  Load(u"session = [{ name = 'A' }]\nreply = [{ entry = 'X', screen = '1' }, { entry = 'Y', screen = '2', type = 5 }]");
  session = world.MakeSession();
  const auto response = session->Send(u"X;Y", true);
  EXPECT_EQ(response->Buffer(), Row(u"2"));
  EXPECT_EQ(response->ResponseType(), 5);
  EXPECT_EQ(response->HostCommand(), u"X;Y");
  EXPECT_EQ(session->LastResponse(), response);
  EXPECT_EQ(world.Journal(), u"send X;Y\r\n  X\r\n  Y\r\n");
}

TEST_F(PackedEntries, AReplyThatHoldsTheSemicolonWins) {
  EXPECT_EQ(Sent(u"RMB;RMB"), Row(u"WHOLE"));
  EXPECT_EQ(world.Journal(), u"send RMB;RMB\r\n");
}

TEST_F(PackedEntries, AReplyForABeginningAnswersItsPartAlone) {
  EXPECT_EQ(Sent(u"RMATEXT;RMB"), Row(u"SECOND"));
  EXPECT_EQ(Sent(u"RMATEXT;BAD;RMB"), Row(u"REFUSED"));
}

TEST_F(PackedEntries, ARefusedPartEndsTheEntryAndIsTheOneThatIsTold) {
  EXPECT_EQ(Sent(u"RMB;AN;BAD;ER"), Row(u"REFUSED"));
  EXPECT_EQ(world.Journal(), u"send RMB;AN;BAD;ER\r\n  RMB\r\n  AN\r\n  BAD (refused)\r\n");
  EXPECT_TRUE(Contains(world.Report(),
                       u"test.toml: 1 packed entry was not carried out to its end\r\n"
                       u"  RMB;AN;BAD;ER  ended with part 3, BAD\r\n"))
      << ToUtf8(world.Report());
  EXPECT_TRUE(world.Findings().Unanswered().empty());
}

TEST_F(PackedEntries, SeveralThatWereCutShortAreToldInOneList) {
  Sent(u"RMB;AN;BAD;ER");
  Sent(u"AN;BAD;ER");
  EXPECT_TRUE(Contains(world.Report(),
                       u"test.toml: 2 packed entries were not carried out to their ends\r\n"
                       u"  RMB;AN;BAD;ER  ended with part 3, BAD\r\n"
                       u"  AN;BAD;ER  ended with part 2, BAD\r\n"))
      << ToUtf8(world.Report());
}

TEST_F(PackedEntries, AnUnknownPartAnswersAsUnknownAndTheNextOneFollows) {
  EXPECT_EQ(Sent(u"RMB;TYPO"), Row(u"ENTRY NOT UNDERSTOOD"));
  EXPECT_EQ(Sent(u"TYPO;RMB"), Row(u"SECOND"));
  EXPECT_EQ(world.Journal(),
            u"send RMB;TYPO\r\n  RMB\r\n  TYPO (unanswered)\r\nsend TYPO;RMB\r\n  TYPO (unanswered)\r\n  RMB\r\n");
  EXPECT_THAT(world.Findings().Unanswered(), ElementsAre(u"TYPO"));
}

TEST_F(PackedEntries, AnErrorOfAPartFailsTheSend) {
  EXPECT_EQ(Refusal(438, [&] { Sent(u"RMB;FAILS;RMB"); }), "The scenario lets the entry \"FAILS\" fail.");
  EXPECT_EQ(world.Journal(), u"send RMB;FAILS;RMB\r\n  RMB\r\n  FAILS\r\n");
}

TEST_F(PackedEntries, ALatePartMakesTheResponseLateAndASilentOneEndsTheEntry) {
  const auto late = session->Send(u"SLOW;RMB", true);
  EXPECT_EQ(late->Buffer(), u"");
  EXPECT_EQ(late->Buffer(), Row(u"SECOND"));
  const auto silent = session->Send(u"SILENT;RMB", true);
  for (int i = 0; i < 100; ++i) {
    EXPECT_EQ(silent->Buffer(), u"");
  }
  EXPECT_TRUE(Contains(world.Journal(), u"send SILENT;RMB\r\n  SILENT\r\n"));
}

TEST_F(PackedEntries, APlannedFailureCountsThePackedEntryAsOneSendAndCarriesNothingOut) {
  world.FailNext(u"Send", 5, 2);
  Sent(u"RMB;AN");
  EXPECT_TRUE(RaisesNumber(5, [&] { Sent(u"RMB;AN"); }));
  EXPECT_EQ(Sent(u"MD"), Row(u"2"));  // the screen of the first one
  EXPECT_EQ(world.Journal(), u"send RMB;AN\r\n  RMB\r\n  AN\r\nsend RMB;AN\r\nsend MD\r\n");
}

TEST_F(PackedEntries, APageAfterAPagedPartIsItsNext) {
  EXPECT_EQ(Sent(u"AN;MD"), Row(u"2"));
}

TEST_F(PackedEntries, AnEntryOfSemicolonsAloneIsUnknown) {
  EXPECT_EQ(Sent(u";;"), Row(u"ENTRY NOT UNDERSTOOD"));
  EXPECT_EQ(world.Journal(), u"send ;; (unanswered)\r\n");
}

}  // namespace
}  // namespace wendrill::simulator
