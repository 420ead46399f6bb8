// A call into the toolkit may let the caller's messages run, and a message may do anything: stop the loop, send,
// retrieve another PNR, call the same member again, release objects. Each intrusion runs inside each call of each
// member in turn. The interrupted member gives an answer or a clear error, nothing leaks, and the member works again.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <optional>

#include "common/error.h"
#include "common/text.h"
#include "pnr/counts.h"
#include "public_members.h"
#include "support/raises.h"

namespace wendrill::flow {
namespace {

// --- What a message may do ------------------------------------------------------------------------------------------

struct Intrusion {
  const char* name;
  void (*act)(MemberDesk& desk, const MemberRun& interrupted);
};

void StopTheLoop(MemberDesk& desk, const MemberRun& /*interrupted*/) {
  if (desk.quillet) {
    desk.quillet->StopLoop();
  }
}

// Another object, which may be the only one that lives, sends under the alarm lock and goes.
void SendAnAlarmEntry(MemberDesk& desk, const MemberRun& /*interrupted*/) {
  CQuillet passing(desk.module);
  passing.SendCommand(u"ER");
}

// The PNR that is being read is replaced by one without any element.
void RetrieveAnotherPnr(MemberDesk& desk, const MemberRun& /*interrupted*/) {
  CQuillet passing(desk.module);
  passing.RetrieveRecLoc(u"NOBODY");
}

// So that the arrays that are being filled, or copied out of, are created again and shorter.
void CountEverythingAnew(MemberDesk& desk, const MemberRun& interrupted) {
  RetrieveAnotherPnr(desk, interrupted);
  for (const DisplayKind* kind : kDisplayKinds) {
    desk.scans.Count(*kind);
  }
}

void CallTheSameMember(MemberDesk& desk, const MemberRun& interrupted) {
  if (!interrupted.isCreation) {
    interrupted.run(desk);
  }
}

// Whoever is in a member of a CQuillet holds that one.
void ReleaseTheOtherObjects(MemberDesk& desk, const MemberRun& interrupted) {
  desk.queue.RemoveAll();
  if (desk.batch) {
    desk.batch->SetCommands(nullptr);
  }
  if (interrupted.runsIn != RunsIn::Quillet) {
    desk.quillet.reset();
  }
}

constexpr Intrusion kIntrusions[] = {
    {"StopLoop", StopTheLoop},
    {"SendCommand of another object", SendAnAlarmEntry},
    {"retrieval of another PNR", RetrieveAnotherPnr},
    {"every display count", CountEverythingAnew},
    {"the same member", CallTheSameMember},
    {"release of the other objects", ReleaseTheOtherObjects},
};

// --- The sweep ------------------------------------------------------------------------------------------------------

// Runs `act` once, inside the n-th call from here on.
class Interruption {
 public:
  Interruption(simulator::World& world, int nth, std::function<void()> act) : world_(world) {
    world_.OnCall([this, nth, act = std::move(act)](std::u16string_view) {
      if (++calls_ == nth) {
        act();
      }
    });
  }
  ~Interruption() { world_.OnCall({}); }
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

  int Calls() const { return calls_; }

 private:
  simulator::World& world_;
  int calls_ = 0;
};

class ReentrySweep : public ::testing::TestWithParam<MemberRun> {
 protected:
  static inline std::int64_t interruptions = 0;

  static void SetUpTestSuite() { interruptions = 0; }
  static void TearDownTestSuite() {
    std::printf("re-entry sweep: %lld interruptions of %zu kinds\n", static_cast<long long>(interruptions),
                std::size(kIntrusions));
  }

  void SetUp() override { SetUpDesktop(world, GetParam()); }

  int CallsOfAnUndisturbedRun();
  void Interrupt(int nth, const Intrusion& intrusion);
  void ExpectAnswerOrClearError(MemberDesk& desk, const Intrusion& intrusion);
  void ExpectTheMemberToWorkAgain(MemberDesk& desk);

  simulator::World world;
};

int ReentrySweep::CallsOfAnUndisturbedRun() {
  MemberDesk desk(world);
  Prepare(desk, GetParam());
  const Interruption nobody(world, 0, [] {});
  GetParam().run(desk);
  return nobody.Calls();
}

// The PNR members do not notice that the session goes; the others may still have all that they need.
void ReentrySweep::ExpectAnswerOrClearError(MemberDesk& desk, const Intrusion& intrusion) {
  const auto error = testing::ErrorOf([&] { GetParam().run(desk); });
  if (error) {
    EXPECT_FALSE(error->Description().empty());
    EXPECT_FALSE(error->Source().empty());
    const bool isOwn = error->Number() == GetParam().number;
    const bool isRunTimeError = error->Number() > 0 && error->Number() < 512;
    // On an older terminal the lock is given back by an entry, which needs the session that the message dropped.
    const bool isUnlock = GetParam().unlockNumber != 0 && error->Number() == GetParam().unlockNumber;
    EXPECT_TRUE(isOwn || isRunTimeError || isUnlock) << error->Number() << ": " << ToUtf8(error->Description());
  }
  if (intrusion.act == StopTheLoop && GetParam().runsIn == RunsIn::Pnr) {
    EXPECT_FALSE(error) << error->Number();
  }
}

void ReentrySweep::ExpectTheMemberToWorkAgain(MemberDesk& desk) {
  if (desk.quillet && !desk.module.SharedSession) {
    desk.quillet->ConnectSession(u"A");
  }
  if (desk.batch) {
    desk.batch->SetCommands(std::make_shared<CQueue>(desk.module));
  }
  if (desk.quillet) {
    desk.quillet->LockUnLockAlarm(false);
  }
  Prepare(desk, GetParam());
  std::u16string result = GetParam().run(desk);
  if (GetParam().read) {
    result = GetParam().read(desk);
  }
  EXPECT_EQ(ToUtf8(result), ToUtf8(GetParam().result));
}

void ReentrySweep::Interrupt(int nth, const Intrusion& intrusion) {
  SCOPED_TRACE(std::string(intrusion.name) + " inside call " + std::to_string(nth));
  {
    MemberDesk desk(world);
    Prepare(desk, GetParam());
    {
      // What the message itself fails with is the message's own affair.
      const Interruption interruption(world, nth, [&] { testing::ErrorOf([&] { intrusion.act(desk, GetParam()); }); });
      ExpectAnswerOrClearError(desk, intrusion);
    }
    ExpectTheMemberToWorkAgain(desk);
  }
  EXPECT_EQ(world.LiveObjects(), 0);
}

TEST_P(ReentrySweep, EveryCallIsInterruptedInTurn) {
  const int calls = CallsOfAnUndisturbedRun();
  for (int nth = 1; nth <= calls; ++nth) {
    for (const Intrusion& intrusion : kIntrusions) {
      ++interruptions;
      Interrupt(nth, intrusion);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Members, ReentrySweep, ::testing::ValuesIn(MemberRuns()),
                         [](const auto& run) { return TestNameOf(run.param); });

}  // namespace
}  // namespace wendrill::flow
