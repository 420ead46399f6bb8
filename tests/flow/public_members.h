// Every member that the library publishes, run once where all goes well, and what its caller meets when one of the
// calls that it makes into the toolkit fails.
//
// The tables say what the members promise, call by call; they are written from the promises, not from what the library
// did. Each run is one way through a member; a member with several ways has several runs.
#pragma once

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "member_desk.h"

namespace wendrill::flow {

// What a caller meets.
enum class Meets {
  OwnNumber,      // the member's own number, the library as the source, the number's message
  ToolkitsError,  // the toolkit's error as it came
  Nothing,        // the failure is passed over
};

// What a run leaves behind that was not so before it; the bits add up.
enum Leaves : unsigned {
  kNothingNew = 0,
  kResponse = 1,    // the response in progress is held
  kAlarmLock = 2,   // the alarm lock is held
  kOtherPnr = 4,    // every CPNR reads a new PNR object
  kNoPnr = 8,       // there is no PNR object any more
  kNoSession = 16,  // there is no shared session any more
  kSession = 32,    // there is a shared session, and there was none
};

// A number of calls that the promises leave open, one or more.
inline constexpr int kAnyNumber = 0;

// Every call, and every further call.
inline constexpr std::u16string_view kEveryCall = u"*";

// One call into the toolkit, and what its failure brings.
struct Step {
  std::u16string_view call;  // the operation
  Meets meets;
  unsigned leaves = kNothingNew;
  int times = 1;
  std::int32_t number = 0;                         // OwnNumber: where it is not the run's
  std::optional<std::u16string_view> result = {};  // Nothing: where it is not the run's
  bool locked = false;                             // OwnNumber: the alarm lock is held, and the way out gives it back
};
using Steps = std::vector<Step>;

// The object whose member runs.
enum class RunsIn { Quillet, Pnr, Another };

struct MemberRun {
  std::u16string_view member;  // as the type library spells it: "CQuillet.Command", "CQuillet.Command put"
  std::string manner;          // what tells this run from others of the member
  std::int32_t number;         // the member's own; 0: it has none
  std::function<void(MemberDesk&)> prepare;  // may be repeated on one desk
  std::function<std::u16string(MemberDesk&)> run;
  std::u16string result;  // what the run gives where all goes well
  unsigned leaves;        // and leaves behind
  Steps steps;            // its calls in their order; none at all: it calls nobody

  // Where the run fills a bag: what stands in it, read when the run is over.
  std::function<std::u16string(MemberDesk&)> read = {};

  // Where the alarm lock cannot be given back after a failing call: what the caller receives then. 0: not looked at.
  std::int32_t unlockNumber = 0;

  bool isCreation = false;  // the fixture has a place for one such object
  RunsIn runsIn = RunsIn::Another;
};

// "CQuillet.SendCommand, alarm entry"; the same in letters, digits and underscores for a test's name.
std::string NameOf(const MemberRun& run);
std::string TestNameOf(const MemberRun& run);
void PrintTo(const MemberRun& run, std::ostream* out);

// All runs of all members.
const std::vector<MemberRun>& MemberRuns();

// Puts the run's desktop in force: the PNR RCH001 with every kind of element, and some entries. An older terminal takes
// the entries LOCK and UNLOCK and has no alarm component. The clock moves by ten seconds at every reading.
void SetUpDesktop(simulator::World& world, const MemberRun& run);

void Prepare(MemberDesk& desk, const MemberRun& run);

}  // namespace wendrill::flow
