// Every call that every published member makes into the toolkit fails in turn, with each of three errors. After each
// failure: the caller met what the member promises, the alarm lock, the response in progress, the PNR and the session
// are what they should be, nothing leaked, and the same member works again.
//
// public_members.h holds the members and the promises; the type library says which members there are.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <iterator>
#include <set>

#include "common/error.h"
#include "common/text.h"
#include "public_members.h"
#include "support/raises.h"
#include "type_library_members.h"

namespace wendrill::flow {
namespace {

// --- The errors -----------------------------------------------------------------------------------------------------

struct PlannedError {
  std::int32_t status;  // as the toolkit fails with it
  std::int32_t number;  // as a caller reads it
};

constexpr PlannedError kErrors[] = {
    {static_cast<std::int32_t>(0x80004005), -2147467259},  // unspecified
    {static_cast<std::int32_t>(0x800A01B6), 438},          // the object has no such member
    {static_cast<std::int32_t>(0x80070005), -2147024891},  // access denied
};

// The messages of the library's numbers, as published.
std::u16string_view MessageFor(std::int32_t number) {
  switch (number) {
    case 2500:
    case 2510:
      return testing::kNoActivePnrMessage;
    case 2501:
      return testing::kNoPnrMessage;
    case 2502:
      return testing::kSplitMessage;
    case 2503:
      return testing::kReadMessage;
    case 2535:
      return testing::kConnectMessage;
    case 2515:
    case 2520:
    case 2300:
    case 2305:
    case 2315:
    case 2400:
      return testing::kGeneralMessage;
    case -2147220394:
      return u"Failed to connect to Selvarin Quillet Session.\r\rVerify that an Selvarin Quillet session is started.";
    default:
      return number < 2300 ? u"An error has occurred while retrieving a PNR element/segment."
                           : testing::kCommunicationMessage;
  }
}

std::u16string_view SourceFor(std::int32_t number) {
  return number == -2147220394 ? u"CEncodeUtils.Class_Initialize" : u"Wendrill23";
}

// --- One run --------------------------------------------------------------------------------------------------------

// What a run came to: its result or its error, and what it left behind.
struct Outcome {
  std::u16string result;
  std::optional<Error> error;
  unsigned leaves = kNothingNew;
  std::int32_t leaked = 0;  // objects that live and belong to nobody
};

std::string Describe(unsigned leaves) {
  constexpr std::pair<Leaves, const char*> kNames[] = {{kResponse, "the response in progress"},
                                                       {kAlarmLock, "the alarm lock"},
                                                       {kOtherPnr, "another PNR"},
                                                       {kNoPnr, "no PNR"},
                                                       {kNoSession, "no session"},
                                                       {kSession, "a session"}};
  std::string text;
  for (const auto& [bit, name] : kNames) {
    if ((leaves & bit) != 0) {
      text += (text.empty() ? "" : ", ") + std::string(name);
    }
  }
  return text.empty() ? "nothing" : text;
}

std::string Describe(const Outcome& outcome) {
  std::string text = "\"" + ToUtf8(outcome.result) + "\"";
  if (outcome.error) {
    text = "error " + std::to_string(outcome.error->Number()) + " from " + ToUtf8(outcome.error->Source()) + ": " +
           ToUtf8(outcome.error->Description());
  }
  return text + "\n    leaving " + Describe(outcome.leaves) +
         (outcome.leaked == 0 ? "" : " and " + std::to_string(outcome.leaked) + " leaked objects");
}

bool operator==(const Outcome& left, const Outcome& right) {
  if (left.error.has_value() != right.error.has_value() || left.leaves != right.leaves || left.leaked != right.leaked) {
    return false;
  }
  return left.error ? left.error->Number() == right.error->Number() && left.error->Source() == right.error->Source() &&
                          left.error->Description() == right.error->Description()
                    : left.result == right.result;
}

// The objects that module-wide state keeps alive.
std::int32_t HeldBy(const ModuleState& module) {
  return static_cast<std::int32_t>(module.SharedSession != nullptr) + (module.gobjPNR != nullptr) +
         (module.LastResponseObject != nullptr) + (module.TextHelper != nullptr);
}

// The lock can only be felt: giving it back reaches the terminal when it is held.
bool AlarmLockIsHeld(MemberDesk& desk) {
  if (!desk.quillet || !desk.module.SharedSession) {
    return false;
  }
  desk.world.ClearJournal();
  desk.quillet->LockUnLockAlarm(false);
  return !desk.world.Journal().empty();
}

unsigned StateLeft(MemberDesk& desk, const ObjectRef& pnrBefore, bool hadSession) {
  const ModuleState& module = desk.module;
  unsigned leaves = kNothingNew;
  leaves |= module.LastResponseObject ? kResponse : kNothingNew;
  if (pnrBefore && module.gobjPNR != pnrBefore) {
    leaves |= module.gobjPNR ? kOtherPnr : kNoPnr;
  }
  if (hadSession != (module.SharedSession != nullptr)) {
    leaves |= hadSession ? kNoSession : kSession;
  }
  return leaves | (AlarmLockIsHeld(desk) ? kAlarmLock : kNothingNew);
}

// Runs a member on a prepared desk. A creation hands out objects of its own, so leaks are told only where it failed.
Outcome OutcomeOf(MemberDesk& desk, const MemberRun& member) {
  ObjectRef pnrBefore = desk.module.gobjPNR;
  const bool hadSession = desk.module.SharedSession != nullptr;
  const std::int32_t othersBefore = desk.world.LiveObjects() - HeldBy(desk.module);
  Outcome outcome;
  try {
    outcome.result = member.run(desk);
  } catch (const Error& error) {
    outcome.error = error;
    const std::int32_t pnrKeptHere = pnrBefore && desk.module.gobjPNR != pnrBefore ? 1 : 0;
    outcome.leaked = desk.world.LiveObjects() - HeldBy(desk.module) - othersBefore - pnrKeptHere;
  }
  outcome.leaves = StateLeft(desk, pnrBefore, hadSession);
  if (member.read && !outcome.error) {
    outcome.result = member.read(desk);
  }
  return outcome;
}

// --- The sweep ------------------------------------------------------------------------------------------------------

struct Tally {
  std::set<std::u16string> members;
  std::int64_t calls = 0;
  std::int64_t failures = 0;
  std::int64_t differences = 0;
};

class FaultSweep : public ::testing::TestWithParam<MemberRun> {
 protected:
  static Tally tally;

  static void SetUpTestSuite() { tally = {}; }

  static void TearDownTestSuite() {
    std::printf("fault sweep: %zu members, %lld calls x %zu errors: %lld failures, %lld differences\n",
                tally.members.size(), static_cast<long long>(tally.calls), std::size(kErrors),
                static_cast<long long>(tally.failures), static_cast<long long>(tally.differences));
  }

  void SetUp() override {
    SetUpDesktop(world, GetParam());
    tally.members.insert(std::u16string(GetParam().member));
  }

  void Differ(const std::string& what) {
    ++tally.differences;
    ADD_FAILURE() << NameOf(GetParam()) << ": " << what;
  }

  void Expect(const Outcome& expected, const Outcome& actual, const std::string& when) {
    if (!(expected == actual)) {
      Differ(when + "\n  expected " + Describe(expected) + "\n  but was  " + Describe(actual));
    }
  }

  // The calls of an undisturbed run, in order.
  std::vector<std::u16string> UndisturbedCalls();

  // The step of each call, in the order of the calls; fewer where the promised steps and the calls do not fit.
  std::vector<const Step*> StepsOf(const std::vector<std::u16string>& calls);

  // `alsoPlan` plans what else fails in the same run.
  void FailCall(
      std::int32_t nth, const Step& step, const std::u16string& call, const PlannedError& planned,
      const std::function<void()>& alsoPlan = [] {});

  simulator::World world;
};

Tally FaultSweep::tally;

std::vector<std::u16string> FaultSweep::UndisturbedCalls() {
  MemberDesk desk(world);
  Prepare(desk, GetParam());
  std::vector<std::u16string> calls;
  const auto run = [&](MemberDesk& onDesk) {
    world.OnCall([&](std::u16string_view call) { calls.emplace_back(call); });
    std::u16string result = GetParam().run(onDesk);
    world.OnCall({});
    return result;
  };
  MemberRun listened = GetParam();
  listened.run = run;
  Expect({.result = GetParam().result, .error = {}, .leaves = GetParam().leaves}, OutcomeOf(desk, listened),
         "where all goes well");
  return calls;
}

std::vector<const Step*> FaultSweep::StepsOf(const std::vector<std::u16string>& calls) {
  std::vector<const Step*> steps;
  auto call = calls.begin();
  for (const Step& step : GetParam().steps) {
    int times = 0;
    const auto fits = [&] { return call != calls.end() && (step.call == kEveryCall || step.call == *call); };
    while (fits() && (step.times == kAnyNumber || times < step.times)) {
      steps.push_back(&step);
      ++times;
      ++call;
    }
    if (times < std::max(step.times, 1)) {
      Differ("call " + std::to_string(call - calls.begin() + 1) + " should be " + ToUtf8(step.call) + " and is " +
             (call == calls.end() ? "not made" : ToUtf8(*call)));
      return steps;
    }
  }
  if (call != calls.end()) {
    Differ("call " + std::to_string(call - calls.begin() + 1) + ", " + ToUtf8(*call) + ", is not among its steps");
  }
  return steps;
}

Outcome ExpectedOf(const MemberRun& member, const Step& step, const std::u16string& call, const PlannedError& planned) {
  Outcome expected;
  expected.leaves = step.leaves;
  const std::int32_t number = step.number != 0 ? step.number : member.number;
  switch (step.meets) {
    case Meets::OwnNumber:
      expected.error.emplace(number, std::u16string(SourceFor(number)), std::u16string(MessageFor(number)));
      break;
    case Meets::ToolkitsError:
      expected.error.emplace(planned.number, u"QuilletSimulator", call + u" was made to fail, as planned.");
      break;
    case Meets::Nothing:
      expected.result = step.result ? std::u16string(*step.result) : member.result;
  }
  return expected;
}

void FaultSweep::FailCall(std::int32_t nth, const Step& step, const std::u16string& call, const PlannedError& planned,
                          const std::function<void()>& alsoPlan) {
  const std::string when =
      "call " + std::to_string(nth) + " (" + ToUtf8(call) + ") fails with " + std::to_string(planned.number);
  {
    MemberDesk desk(world);
    Prepare(desk, GetParam());
    world.FailNext(u"*", planned.status, nth);
    alsoPlan();
    Expect(ExpectedOf(GetParam(), step, call, planned), OutcomeOf(desk, GetParam()), when);

    Prepare(desk, GetParam());
    const Outcome again = OutcomeOf(desk, GetParam());
    if (again.error || again.result != GetParam().result) {
      Differ(when + ", and the next run is\n  " + Describe(again));
    }
  }
  if (world.LiveObjects() != 0) {
    Differ(when + ", and at the end " + std::to_string(world.LiveObjects()) + " objects are left");
  }
}

TEST_P(FaultSweep, EveryCallFailsInTurn) {
  const std::vector<std::u16string> calls = UndisturbedCalls();
  const std::vector<const Step*> steps = StepsOf(calls);
  ASSERT_EQ(steps.size(), calls.size());
  tally.calls += std::ssize(calls);
  for (std::size_t call = 0; call < calls.size(); ++call) {
    for (const PlannedError& planned : kErrors) {
      ++tally.failures;
      FailCall(static_cast<std::int32_t>(call + 1), *steps[call], calls[call], planned);
    }
  }
}

// The same while the alarm lock cannot be given back either: on an older terminal the clear key of the unlock on the
// way out fails too. The lock stays held, and the next unlock takes it back.
class FaultSweepOfTheUnlock : public FaultSweep {
 protected:
  static void SetUpTestSuite() {}  // its differences are among the sweep's own failures
  static void TearDownTestSuite() {}
};

TEST_P(FaultSweepOfTheUnlock, EveryCallUnderTheLockFailsInTurnAndTheUnlockAfterIt) {
  const std::vector<std::u16string> calls = UndisturbedCalls();
  const std::vector<const Step*> steps = StepsOf(calls);
  ASSERT_EQ(steps.size(), calls.size());
  int underTheLock = 0;
  std::int32_t keys = 0;
  for (std::size_t call = 0; call < calls.size(); ++call) {
    keys += calls[call] == u"SendKey" ? 1 : 0;
    if (!steps[call]->locked) {
      continue;
    }
    ++underTheLock;
    Step unlockFails = *steps[call];
    unlockFails.number = GetParam().unlockNumber;
    unlockFails.leaves |= kAlarmLock;
    for (const PlannedError& planned : kErrors) {
      const auto nextKey = [&] { world.FailNext(u"SendKey", planned.status, keys + 1); };
      FailCall(static_cast<std::int32_t>(call + 1), unlockFails, calls[call], planned, nextKey);
    }
  }
  EXPECT_GE(underTheLock, 3);
}

std::vector<MemberRun> RunsUnderTheLock() {
  std::vector<MemberRun> runs;
  std::copy_if(MemberRuns().begin(), MemberRuns().end(), std::back_inserter(runs),
               [](const MemberRun& run) { return run.unlockNumber != 0; });
  return runs;
}

INSTANTIATE_TEST_SUITE_P(Members, FaultSweepOfTheUnlock, ::testing::ValuesIn(RunsUnderTheLock()),
                         [](const auto& run) { return TestNameOf(run.param); });

INSTANTIATE_TEST_SUITE_P(Members, FaultSweep, ::testing::ValuesIn(MemberRuns()),
                         [](const auto& run) { return TestNameOf(run.param); });

// IGet and IGetPNR as classes of their own do nothing and exist in the automation layer alone.
constexpr std::array<std::u16string_view, 2> kEmptyClasses = {u"IGet", u"IGetPNR"};

TEST(FaultSweepMembers, AreThoseOfTheTypeLibrary) {
  std::set<std::u16string_view> published(kTypeLibraryMembers.begin(), kTypeLibraryMembers.end());
  for (const auto name : kEmptyClasses) {
    published.erase(name);
  }
  std::set<std::u16string_view> swept;
  for (const MemberRun& run : MemberRuns()) {
    swept.insert(run.member);
    EXPECT_TRUE(published.contains(run.member)) << ToUtf8(run.member) << " is not published";
  }
  for (const auto name : published) {
    EXPECT_TRUE(swept.contains(name)) << ToUtf8(name) << " has no run";
  }
}

}  // namespace

}  // namespace wendrill::flow
