// The simulated desktop: a terminal with its sessions, a PNR object model, an alarm, a text helper and parameter bags,
// all answering from a scenario.
//
// One World is one whole desktop. The objects that it creates refer to it and must not outlive it. Everything happens
// on the caller's thread.
//
// Terms such as PNR, entry, segment and association: docs/glossary.md.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/text_forms.h"
#include "core/expectations.h"
#include "core/gate.h"
#include "core/journal.h"
#include "core/report.h"
#include "core/running_session.h"
#include "core/scenario.h"
#include "core/simulated_bag.h"
#include "core/simulated_helpers.h"
#include "core/simulated_pnr.h"
#include "core/simulated_terminal.h"
#include "core/simulated_time.h"
#include "toolkit/platform.h"
#include "trace/trace.h"

namespace wendrill::simulator {

// The environment variable that names the scenario to start with.
inline constexpr char kScenarioVariable[] = "QUILLET_SCENARIO";

class World {
 public:
  World();
  ~World();
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  // --- Control -------------------------------------------------------------------------------------------------

  // Makes another scenario the current one, with new sessions; planned failures are dropped, the journal is kept.
  // Existing objects keep their session or PNR. Raises 53 for a missing file and 5 for a scenario with an error, in
  // both cases with nothing changed.
  void Load(std::u16string_view path);
  void LoadText(std::u16string_view toml, std::u16string_view name = u"scenario text");

  std::u16string Journal() const { return journal_.Text(); }
  void ClearJournal() { journal_.Clear(); }

  // What the run has to tell its author, as a text and in its parts; see RunReport.
  std::u16string Report() const { return report_.Text(); }
  RunReport& Findings() { return report_; }

  // See Gate::FailNext.
  void FailNext(std::u16string_view operation, std::int32_t hresult, std::int32_t nth);

  // What a test expects, and what held. Loading another scenario keeps it.
  simulator::Expectations& Expectations() { return expectations_; }

  // Sets a hook that is called with each expectation when it is recorded.
  void OnExpectation(std::function<void(const Expectation&)> hook) { onExpectation_ = std::move(hook); }

  // Sets a hook that is told of every call of a simulated member before the call does anything. `argument` identifies
  // the call in a message: a quoted entry, a key's code; else it is empty. An error that the hook raises is the call's.
  using Watcher = std::function<void(std::u16string_view operation, std::u16string_view argument)>;
  void Watch(Watcher watcher) { watcher_ = std::move(watcher); }

  // The number of calls of simulated members so far. A test that makes each call of a run fail in turn counts the calls
  // first.
  std::int64_t Calls() const { return gate_.Calls(); }

  // The number of simulated objects that exist: lists, sessions, responses, connections, PNR objects with their
  // headers, collections and elements, alarms, text helpers, bags.
  std::int32_t LiveObjects() const { return liveObjects_; }

  // --- The trace -----------------------------------------------------------------------------------------------

  // From now on everything that reaches the desktop is written to a trace, which begins with the name of the script or
  // program. Raises 75, with nothing changed, when the file cannot be written.
  void StartTrace(const trace::Settings& settings, std::u16string_view script);

  // Writes what the report finds and the end of the trace. `status` is the exit status; absent when it is not known.
  // The destructor does this too when nobody has done it.
  void EndTrace(std::optional<std::int32_t> status);

  // Null when nothing is traced.
  trace::Trace* Tracing() { return trace_.get(); }

  // --- Components ----------------------------------------------------------------------------------------------

  // The library's ports, implemented by the components below.
  Platform& Ports() { return *ports_; }
  SimulatedClock& Time() { return clock_; }
  SimulatedPump& Pump() { return pump_; }

  std::shared_ptr<SimulatedSessionList> MakeSessionList();
  std::shared_ptr<SimulatedSession> MakeSession();  // refers to the first running session, if there is one
  std::shared_ptr<SimulatedPnr> MakePnr();
  std::shared_ptr<SimulatedAlarmManager> MakeAlarmManager();  // raises 429 when the scenario has no alarm
  std::shared_ptr<SimulatedTextHelper> MakeTextHelper();
  std::shared_ptr<SimulatedBag> MakeParamBag();

  // --- Events --------------------------------------------------------------------------------------------------

  // Calls the handlers of the events that are pending now, in order, and skips a handler that has disconnected
  // meanwhile. Events that a handler causes wait for the next delivery.
  void DeliverPending();

  // Sets a hook that is called after each event is queued. An owner with a real message queue posts itself a message
  // there and delivers the events when the message arrives.
  void OnEventQueued(std::function<void()> hook) { onEventQueued_ = std::move(hook); }

  // Sets a hook that runs inside every call of a simulated member, before the call can fail. It plays a client
  // that is called back in the middle of a call, and may itself call any member.
  void OnCall(std::function<void(std::u16string_view operation)> hook) { onCall_ = std::move(hook); }

  // --- For the components --------------------------------------------------------------------------------------

  // Every simulated member calls this first; see Gate::Enter. `argument` as in Watch.
  void Enter(std::u16string_view operation, std::u16string_view argument = {}) {
    if (trace_ == nullptr) {
      EnterUntraced(operation, argument);
    } else {
      EnterTraced(operation, argument);
    }
  }

  // The same for a member that writes a line of its own form to the trace.
  void EnterUntraced(std::u16string_view operation, std::u16string_view argument = {}) {
    Tell(operation, argument);
    if (onCall_) {
      onCall_(operation);
    }
    gate_.Enter(operation);
  }

  // Calls the hook of Watch. For the calls that are not a terminal's: they can be neither counted nor made to fail.
  void Tell(std::u16string_view operation, std::u16string_view argument = {}) {
    if (watcher_) {
      watcher_(operation, argument);
    }
  }

  simulator::Journal& Record() { return journal_; }
  std::int32_t& LiveCount() { return liveObjects_; }

  // The string forms of numbers and dates: US settings, unless UseTexts sets those of a real desktop.
  const TextForms& Texts() const { return *texts_; }
  void UseTexts(const TextForms& texts) { texts_ = &texts; }

  // The clock on which a scenario's waits pass: a simulated one, unless UseClock sets that of a real desktop.
  Clock& CurrentClock() { return *currentClock_; }
  void UseClock(Clock& clock) { currentClock_ = &clock; }

  // The current scenario: the one loaded last; before the first Load the file that the environment variable names, else
  // the built-in scenario. Raises the same errors as Load for that file.
  const std::shared_ptr<const Scenario>& InForce();

  // The sessions of the current scenario.
  const std::vector<std::shared_ptr<RunningSession>>& RunningSessions();

  // Queues a ReceivedResponse event for every handler connected to the session.
  void QueueEvent(RunningSession& session);

 private:
  class SimulatedPlatform;

  // An event that waits for its delivery to one handler.
  struct PendingEvent {
    std::weak_ptr<EventHandler> handler;
    std::u16string session;
  };

  void EnterTraced(std::u16string_view operation, std::u16string_view argument);
  void TraceControl(std::u16string_view operation, std::u16string_view argument);
  void TraceEvents();
  void PutInForce(std::shared_ptr<const Scenario> scenario);

  Gate gate_;
  simulator::Journal journal_;
  RunReport report_;
  simulator::Expectations expectations_;
  std::int32_t liveObjects_ = 0;
  std::shared_ptr<const Scenario> scenario_;  // null until a scenario is first needed
  std::vector<std::shared_ptr<RunningSession>> runningSessions_;
  std::deque<PendingEvent> pendingEvents_;
  std::function<void()> onEventQueued_;
  std::function<void(std::u16string_view)> onCall_;
  Watcher watcher_;
  std::function<void(const Expectation&)> onExpectation_;
  const TextForms* texts_ = &UsTextForms();
  SimulatedClock clock_;
  Clock* currentClock_ = &clock_;
  SimulatedPump pump_{*this};
  std::unique_ptr<Platform> ports_;
  std::unique_ptr<trace::Trace> trace_;
};

}  // namespace wendrill::simulator
