// The n-th call into the toolkit fails, for every n: the member's own number is raised, the alarm lock is given back
// where it was taken, and nothing is held. The same with a call that finds no memory left: that propagates as such.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session/quillet.h"
#include "support/raises.h"
#include "support/screen.h"
#include "support/test_world.h"

namespace wendrill::testing {
namespace {

struct MemberRow {
  const char* member;
  std::int32_t number;
  std::u16string_view message;
  std::function<void(CQuillet&)> call;
};

std::ostream& operator<<(std::ostream& out, const MemberRow& row) {
  return out << row.member;
}

const std::vector<MemberRow>& Members() {
  static const std::vector<MemberRow> members = {
      {"SendCommand", 2505, kCommunicationMessage, [](CQuillet& q) { q.SendCommand(u"ER"); }},
      {"SendCommandNoClear", 2530, kCommunicationMessage, [](CQuillet& q) { q.SendCommandNoClear(u"ER"); }},
      {"SendCommandNoTransmit", 2505, kCommunicationMessage, [](CQuillet& q) { q.SendCommandNoTransmit(u"ER"); }},
      {"SendCommandGetAll", 2525, kCommunicationMessage, [](CQuillet& q) { q.SendCommandGetAll(u"QE/1"); }},
      {"SendCommandGetAllNoClear", 2525, kCommunicationMessage,
       [](CQuillet& q) { q.SendCommandGetAllNoClear(u"QE/1"); }},
      {"GetTotalHostResponse", 2545, kCommunicationMessage, [](CQuillet& q) { q.GetTotalHostResponse(); }},
      {"SendCommandLines", 2600, kCommunicationMessage, [](CQuillet& q) { q.SendCommandLines(u"QE/1", u"1", u"2"); }},
      {"SendCommandCollectPages", 2557, kCommunicationMessage,
       [](CQuillet& q) {
         TextArray pages = {.lowerBound = 7, .items = {u"OLD"}};
         try {
           q.SendCommandCollectPages(u"QE/1", pages);
         } catch (...) {
           EXPECT_EQ(pages, (TextArray{.lowerBound = 7, .items = {u"OLD"}})) << "touched by a failing call";
           throw;
         }
       }},
      {"SendCommandFI", 2506, kCommunicationMessage,
       [](CQuillet& q) {
         auto bag = std::make_shared<FakeBag>();
         bag->Given(u"blnKeyClear", true).Given(u"blnKeyGetAll", true).Given(u"blnKeyPNR", true);
         bag->Given(u"blnKeyTST", true);
         q.SendCommandFI(u"TTP", bag);
       }},
      {"SendCommandTicsPas", 2540, kCommunicationMessage,
       [](CQuillet& q) {
         q.SendCommandGetAll(u"");
         auto bag = std::make_shared<FakeBag>();
         bag->Given(u"strKeyCommand", u"TICS").Given(u"blnKeyGetAll", true).Given(u"blnKeyClear", true);
         q.SendCommandTicsPas(bag);
       }},
      {"ConnectSession", 2535, kConnectMessage, [](CQuillet& q) { q.ConnectSession(u"A"); }},
      {"RetrieveCurrent", 2500, kNoActivePnrMessage, [](CQuillet& q) { q.RetrieveCurrent(); }},
      {"RetrieveRecLoc", 2501, kNoPnrMessage, [](CQuillet& q) { q.RetrieveRecLoc(u"ABC123"); }},
      {"SplitPNR", 2502, kSplitMessage, [](CQuillet& q) { q.SplitPNR(u"2"); }},
      {"ReadPNR", 2503, kReadMessage, [](CQuillet& q) { q.ReadPNR(u"ER"); }},
      {"SendKey", 2515, kGeneralMessage, [](CQuillet& q) { q.SendKey(kbClear); }},
      {"ChangeSMOD", 2520, kGeneralMessage, [](CQuillet& q) { q.ChangeSMOD(5); }},
  };
  return members;
}

// A world on which every member of the table succeeds; the entry's answer comes late, so that a member that waits does.
struct WorkingDesk : TestWorld {
  WorkingDesk() {
    On(u"ER", {.buffer = u"OK", .late = 1})
        .On(u"0500", {})
        .On(u"QE/1", {.buffer = Screen({u"A", u")>1/2"})})
        .On(u"TTP", {.buffer = u"TICKET)"})
        .On(u"TICS", {.buffer = u"FIRST+"})
        .On(u"MD", {.buffer = Screen({u"B", u")>2/2"})})
        .On(u"LOCK", {})
        .On(u"UNLOCK", {});
    During(u"SendKey", [this] { RaiseReceivedResponse(); });
    With(
        uR"([[pnr]]
on_display = true
entries = ["RTABC123", "SP2", "ER", "TTP"]
display = "RP/PARXX2100"
[pnr.Header]
Text = "RP/PARXX2100"
)");
  }
};

bool IsOfTheLock(std::string_view call) {
  constexpr std::string_view kCallsOfTheLock[] = {"CreateTextHelper", "TerminalReady",      "HostReady",
                                                  "TerminalVersion",  "CreateAlarmManager", "LockAlarm"};
  return std::ranges::find(kCallsOfTheLock, call) != std::end(kCallsOfTheLock);
}

// An unlock reaches the terminal only while the lock is held.
bool HoldsLock(TestWorld& world, CQuillet& quillet) {
  const auto before = world.JournalLines().size();
  quillet.UnLockAlarm();
  return world.JournalLines().size() != before;
}

enum class Failure { ErrorOfToolkit, OutOfMemory };

// What a member's call leaves behind: an error, the lack of memory, or neither.
struct Outcome {
  std::optional<Error> error;
  bool outOfMemory = false;

  bool Succeeded() const { return !error && !outOfMemory; }
};

Outcome OutcomeOf(const MemberRow& row, CQuillet& quillet) {
  Outcome outcome;
  try {
    outcome.error = ErrorOf([&] { row.call(quillet); });
  } catch (const std::bad_alloc&) {
    outcome.outOfMemory = true;
  }
  return outcome;
}

void ExpectFailure(const Outcome& outcome, const MemberRow& row, Failure failure) {
  if (failure == Failure::OutOfMemory) {
    EXPECT_TRUE(outcome.outOfMemory);
    return;
  }
  EXPECT_TRUE(Raises(row.number, row.message, [&] {
    if (outcome.error) {
      throw *outcome.error;
    }
  }));
}

void FailEachCallInTurn(const MemberRow& row, Failure failure) {
  for (std::size_t n = 1;; ++n) {
    WorkingDesk world;
    const auto before = world.LiveObjects();
    {
      CQuillet quillet(world.module);
      world.Show(u"QE/1", {.buffer = Screen({u"A", u")>1/2"})});
      const auto callsBefore = world.calls->Count();
      if (failure == Failure::OutOfMemory) {
        world.calls->RunOutOfMemoryAtNth(n);
      } else {
        world.calls->FailNth(n);
      }
      const Outcome outcome = OutcomeOf(row, quillet);
      if (world.calls->Count() < callsBefore + n) {
        EXPECT_GT(n, 1U) << "the member made no call at all";
        EXPECT_TRUE(outcome.Succeeded()) << "fails although no call failed";
        break;
      }
      const std::string failed = world.calls->Calls()[callsBefore + n - 1];
      SCOPED_TRACE("call " + std::to_string(n) + ": " + failed);
      world.calls->FailNone();
      if (IsOfTheLock(failed)) {
        // The lock ignores its own failures; what each means for the lock is tested where the lock is.
        EXPECT_TRUE(outcome.Succeeded());
      } else {
        ExpectFailure(outcome, row, failure);
        EXPECT_FALSE(HoldsLock(world, quillet));
      }
      EXPECT_EQ(world.ConnectedHandlers(), 0U);
    }
    EXPECT_EQ(world.LiveObjects(), before) << "call " << n;
  }
}

class FailingCall : public ::testing::TestWithParam<MemberRow> {};

TEST_P(FailingCall, RaisesTheMembersNumberUnlocksAndHoldsNothing) {
  FailEachCallInTurn(GetParam(), Failure::ErrorOfToolkit);
}

TEST_P(FailingCall, ForLackOfMemoryLetsThatPropagateUnlocksAndHoldsNothing) {
  FailEachCallInTurn(GetParam(), Failure::OutOfMemory);
}

INSTANTIATE_TEST_SUITE_P(Members, FailingCall, ::testing::ValuesIn(Members()),
                         [](const auto& test) { return std::string(test.param.member); });

}  // namespace
}  // namespace wendrill::testing
