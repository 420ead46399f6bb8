// The simulated desktop: a terminal with its sessions, a PNR object model, an alarm, a text helper and parameter bags.
// All of them answer from a scenario.
//
// One World is one whole desktop. The objects that it creates refer to it and must not outlive it. A World starts no
// thread: all its work is done on the caller's thread.
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

// The environment variable that contains the path of the scenario to start with.
inline constexpr char kScenarioVariable[] = "QUILLET_SCENARIO";

class World {
 public:
  World();
  ~World();
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  // --- Control -------------------------------------------------------------------------------------------------

  // Load and LoadText make another scenario the current one, with new sessions. Planned failures are dropped, the
  // journal is kept, and existing objects keep their session or PNR. Load raises 53 when the file cannot be opened.
  // Both functions raise 5 for a scenario with an error. After an error nothing has changed.
  void Load(std::u16string_view path);
  void LoadText(std::u16string_view toml, std::u16string_view name = u"scenario text");

  std::u16string Journal() const { return journal_.Text(); }
  void ClearJournal() { journal_.Clear(); }

  // The results of the run for the author of the script: Report as one text, Findings in parts; see RunReport.
  std::u16string Report() const { return report_.Text(); }
  RunReport& Findings() { return report_; }

  // Plans a failure of a later call; see Gate::FailNext.
  void FailNext(std::u16string_view operation, std::int32_t hresult, std::int32_t nth);

  // The expectations of a test, and which of them held. They are kept when another scenario is loaded.
  simulator::Expectations& Expectations() { return expectations_; }

  // Sets a hook that is called with each expectation when the expectation is recorded.
  void OnExpectation(std::function<void(const Expectation&)> hook) { onExpectation_ = std::move(hook); }

  // Sets a hook that is called at every call of a simulated member, before the call does anything. `argument`
  // identifies the call in a message: the entry of Send, the code of the key of SendKey, and for other members an empty
  // string. When the hook raises an error, the call fails with that error.
  using Watcher = std::function<void(std::u16string_view operation, std::u16string_view argument)>;
  void Watch(Watcher watcher) { watcher_ = std::move(watcher); }

  // The number of calls of simulated members so far. A test that makes each call of a run fail in turn uses it to count
  // the calls first.
  std::int64_t Calls() const { return gate_.Calls(); }

  // The number of simulated objects that exist now: session lists, sessions, responses, connections, PNR objects with
  // their headers, collections and elements, alarms, text helpers, bags.
  std::int32_t LiveObjects() const { return liveObjects_; }

  // --- The trace -----------------------------------------------------------------------------------------------

  // Starts a trace: from now on everything that reaches the desktop is written to it. `script` is the name of the
  // script or program for the first line of the trace. Raises 75 (path or file access error), with nothing changed,
  // when the file cannot be written.
  void StartTrace(const trace::Settings& settings, std::u16string_view script);

  // Writes the findings of the report and the last line of the trace. `status` is the exit status; nullopt when it is
  // not known. Does nothing when there is no trace or the trace has ended. The destructor calls this function too.
  void EndTrace(std::optional<std::int32_t> status);

  // The trace; null when the run is not traced.
  trace::Trace* Tracing() { return trace_.get(); }

  // --- Components ----------------------------------------------------------------------------------------------

  // The ports that the library calls. The simulated components below implement them.
  Platform& Ports() { return *ports_; }
  SimulatedClock& Time() { return clock_; }
  SimulatedPump& Pump() { return pump_; }

  std::shared_ptr<SimulatedSessionList> MakeSessionList();
  std::shared_ptr<SimulatedSession> MakeSession();  // refers to the first running session, or to none
  std::shared_ptr<SimulatedPnr> MakePnr();
  std::shared_ptr<SimulatedAlarmManager> MakeAlarmManager();  // raises 429 when the scenario has no alarm
  std::shared_ptr<SimulatedTextHelper> MakeTextHelper();
  std::shared_ptr<SimulatedBag> MakeParamBag();

  // --- Events --------------------------------------------------------------------------------------------------

  // Calls the handlers of the events that are pending now, in order. Skips a handler that has disconnected in the
  // meantime. Events that a handler causes remain pending until the next delivery.
  void DeliverPending();

  // Sets a hook that is called after each event is queued. An owner with a real message queue can post a message to
  // itself in the hook, and deliver the events when the message arrives.
  void OnEventQueued(std::function<void()> hook) { onEventQueued_ = std::move(hook); }

  // Sets a hook that runs inside every call of a simulated member, before the call can fail. The hook may call any
  // member: a test uses it to simulate a client that is called back in the middle of a call.
  void OnCall(std::function<void(std::u16string_view operation)> hook) { onCall_ = std::move(hook); }

  // --- For the components --------------------------------------------------------------------------------------

  // Every simulated member calls this first. Calls the hooks, counts the call, raises the failure that is planned for
  // it (see Gate::Enter), and writes a line to the trace. `argument` is the argument for the hook of Watch.
  void Enter(std::u16string_view operation, std::u16string_view argument = {}) {
    if (trace_ == nullptr) {
      EnterUntraced(operation, argument);
    } else {
      EnterTraced(operation, argument);
    }
  }

  // Does the work of Enter, but writes no line to the trace: for a member whose line has a kind of its own.
  void EnterUntraced(std::u16string_view operation, std::u16string_view argument = {}) {
    Tell(operation, argument);
    if (onCall_) {
      onCall_(operation);
    }
    gate_.Enter(operation);
  }

  // Calls the hook of Watch and nothing else. For members that no component of the terminal has, such as those of
  // QuilletSimulator.Expect: their calls are not counted and cannot be made to fail.
  void Tell(std::u16string_view operation, std::u16string_view argument = {}) {
    if (watcher_) {
      watcher_(operation, argument);
    }
  }

  simulator::Journal& Record() { return journal_; }
  std::int32_t& LiveCount() { return liveObjects_; }

  // The string forms of numbers and dates: those of US settings, unless UseTexts sets those of a user's desktop.
  const TextForms& Texts() const { return *texts_; }
  void UseTexts(const TextForms& texts) { texts_ = &texts; }

  // The clock that measures a scenario's waiting times: a SimulatedClock, unless UseClock sets that of a real desktop.
  Clock& CurrentClock() { return *currentClock_; }
  void UseClock(Clock& clock) { currentClock_ = &clock; }

  // The current scenario: the one that was loaded last. Before the first Load, it is the scenario in the file that the
  // environment variable names, or the built-in scenario when the variable is not set. Raises the errors of Load for
  // that file.
  const std::shared_ptr<const Scenario>& InForce();

  // The sessions of the current scenario.
  const std::vector<std::shared_ptr<RunningSession>>& RunningSessions();

  // Queues a ReceivedResponse event for every handler that is connected to the session.
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
  std::shared_ptr<const Scenario> scenario_;  // null until a scenario is needed for the first time
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
