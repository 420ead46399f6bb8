// The n-th call into the toolkit fails, for every n: the member's own number is raised, the alarm lock is given back
// where it was taken, and nothing is held. The same with a call that finds no memory left: that propagates as such.
#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include "session/quillet.h"
#include "support/fake_platform.h"
#include "support/raises.h"
#include "support/screen.h"

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

// A desk on which every member of the table succeeds; the entry's answer comes late, so that a member that waits does.
struct WorkingDesk : FakeDesk {
  WorkingDesk() {
    terminal->On(u"ER", {.buffer = u"OK", .late = 1})
        .On(u"0500", {})
        .On(u"QE/1", {.buffer = Screen({u"A", u")>1/2"})})
        .On(u"TTP", {.buffer = u"TICKET)"})
        .On(u"TICS", {.buffer = u"FIRST+"})
        .On(u"MD", {.buffer = Screen({u"B", u")>2/2"})})
        .On(u"LOCK", {})
        .On(u"UNLOCK", {})
        .Accepting(kbPA2);
    terminal->whilePressing = [this](KeyCode) { terminal->RaiseReceivedResponse(); };
    platform.makePnr = [this]() -> ObjectRef {
      auto header = FakeObject::Make(calls, "header");
      header->With(u"Text", u"RP/PARXX2100");
      auto pnr = FakeObject::Make(calls, "PNR");
      pnr->With(76, Value(ObjectRef(header))).With(75, u"RP/PARXX2100").With(80, std::int32_t{1}).With(81, Value());
      return pnr;
    };
  }
};

bool IsOfTheLock(const std::string& call) {
  return call.starts_with("helper.") || call.starts_with("alarm.") || call == "create alarm manager" ||
         call == "create text helper";
}

// An unlock reaches the terminal only while the lock is held.
bool HoldsLock(const FakeDesk& desk, CQuillet& quillet) {
  const auto before = desk.terminal->Journal().size();
  quillet.UnLockAlarm();
  return desk.terminal->Journal().size() != before;
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
    WorkingDesk desk;
    const auto before = desk.calls->liveObjects;
    {
      CQuillet quillet(desk.module);
      desk.terminal->Show(u"QE/1", {.buffer = Screen({u"A", u")>1/2"})});
      const auto callsBefore = desk.calls->Count();
      if (failure == Failure::OutOfMemory) {
        desk.calls->RunOutOfMemoryAtNth(n);
      } else {
        desk.calls->FailNth(n);
      }
      const Outcome outcome = OutcomeOf(row, quillet);
      if (desk.calls->Count() < callsBefore + n) {
        EXPECT_GT(n, 1U) << "the member made no call at all";
        EXPECT_TRUE(outcome.Succeeded()) << "fails although no call failed";
        break;
      }
      const std::string failed = desk.calls->Calls()[callsBefore + n - 1];
      SCOPED_TRACE("call " + std::to_string(n) + ": " + failed);
      desk.calls->FailNone();
      if (IsOfTheLock(failed)) {
        // The lock ignores its own failures; what each means for the lock is tested where the lock is.
        EXPECT_TRUE(outcome.Succeeded());
      } else {
        ExpectFailure(outcome, row, failure);
        EXPECT_FALSE(HoldsLock(desk, quillet));
      }
      EXPECT_EQ(desk.terminal->ConnectedHandlers(), 0U);
    }
    desk.terminal->onScreen.reset();
    EXPECT_EQ(desk.calls->liveObjects, before) << "call " << n;
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
