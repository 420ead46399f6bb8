// The simulated desktop: a terminal with its sessions, a PNR object model, an alarm, a text helper and parameter bags.
// All except the bags answer from a scenario.
//
// One World is one whole desktop. The objects that a World creates refer to the World and must not outlive it. A World
// starts no thread: all its work is done on the caller's thread.
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

// The environment variable that contains the path of the scenario file that is used until another scenario is loaded.
inline constexpr char kScenarioVariable[] = "QUILLET_SCENARIO";

class World {
 public:
  World();
  ~World();
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  // --- Control -------------------------------------------------------------------------------------------------

  // Load and LoadText make another scenario the current scenario, with new sessions. They drop the planned failures and
  // keep the journal. Existing session and PNR objects keep the session or PNR of the earlier scenario.
  //
  // Load raises 53 (file not found) when the file cannot be opened. Load and LoadText raise 5 (invalid argument) for a
  // scenario with an error. After such an error, the current scenario and the planned failures are unchanged.
  void Load(std::u16string_view path);
  void LoadText(std::u16string_view toml, std::u16string_view name = u"scenario text");

  std::u16string Journal() const { return journal_.Text(); }
  void ClearJournal() { journal_.Clear(); }

  // The results of the run for the author of the script, such as unanswered entries and unused replies. Report returns
  // them as one text. Findings returns the RunReport object, from which single results can be read.
  std::u16string Report() const { return report_.Text(); }
  RunReport& Findings() { return report_; }

  // Plans a failure: the nth call of the member `operation` from now on raises the error `hresult`; see Gate::FailNext.
  void FailNext(std::u16string_view operation, std::int32_t hresult, std::int32_t nth);

  // The expectations of a test with their outcomes. Loading another scenario keeps the expectations.
  simulator::Expectations& Expectations() { return expectations_; }

  // Sets a hook that is called with each expectation as soon as its outcome is known.
  void OnExpectation(std::function<void(const Expectation&)> hook) { onExpectation_ = std::move(hook); }

  // Sets a hook that is called at every call of a simulated member, and of a member of QuilletSimulator.Expect, before
  // the call has an effect on the simulated desktop. `argument` identifies the call in a message: the entry of Send,
  // the code of the key of SendKey, and an empty string for any other member. When the hook raises an error, the call
  // fails with that error.
  using Watcher = std::function<void(std::u16string_view operation, std::u16string_view argument)>;
  void Watch(Watcher watcher) { watcher_ = std::move(watcher); }

  // The number of calls of simulated members so far, failed calls included. A test that repeats a run once for each
  // call, with a planned failure of that call, first counts the calls with this function.
  std::int64_t Calls() const { return gate_.Calls(); }

  // The number of simulated objects that exist now: session lists, sessions, responses, connections, PNR objects with
  // their headers, collections and elements, alarms, text helpers, bags.
  std::int32_t LiveObjects() const { return liveObjects_; }

  // --- The trace -----------------------------------------------------------------------------------------------

  // Starts a trace: from now on every call, event and expectation is written to the trace file. Only repetitions of a
  // call with equal operation and argument may be left out (see trace::Called::always). `script` is the name of the
  // script or program for the first line of the trace. Raises 75 (path or file access error), with nothing changed,
  // when the file cannot be written.
  void StartTrace(const trace::Settings& settings, std::u16string_view script);

  // Writes the unanswered entries, the unused replies and PNRs, the warnings, and the last line of the trace. `status`
  // is the exit status of the run; nullopt when the status is not known. Does nothing when the run is not traced or the
  // trace has already ended. The destructor of World calls this function with nullopt.
  void EndTrace(std::optional<std::int32_t> status);

  // The trace; null when the run is not traced.
  trace::Trace* Tracing() { return trace_.get(); }

  // --- Components ----------------------------------------------------------------------------------------------

  // The port through which the library creates components. Its functions call the Make functions below.
  Platform& Ports() { return *ports_; }
  SimulatedClock& Time() { return clock_; }
  SimulatedPump& Pump() { return pump_; }

  // The Make functions create simulated components. All of them except MakePnr and MakeParamBag raise the errors of
  // InForce.
  std::shared_ptr<SimulatedSessionList> MakeSessionList();
  // The new SimulatedSession refers to the first running session. When no session runs, it refers to no session.
  std::shared_ptr<SimulatedSession> MakeSession();
  std::shared_ptr<SimulatedPnr> MakePnr();
  // Raises 429 (cannot create object) when the scenario's [alarm] has `present = false`. Raises the errors of InForce.
  std::shared_ptr<SimulatedAlarmManager> MakeAlarmManager();
  std::shared_ptr<SimulatedTextHelper> MakeTextHelper();
  std::shared_ptr<SimulatedBag> MakeParamBag();

  // --- Events --------------------------------------------------------------------------------------------------

  // Calls the handlers of the events that are pending now, in order. Skips a handler that has disconnected since the
  // event was queued. Events that a handler causes remain pending until the next call of DeliverPending.
  void DeliverPending();

  // Sets a hook that is called after each event is queued. When the owner of this World has a real message queue, the
  // hook can post a message to this queue; when the message arrives, the owner calls DeliverPending.
  void OnEventQueued(std::function<void()> hook) { onEventQueued_ = std::move(hook); }

  // Sets a hook that runs inside every call of a simulated member, after the hook of Watch and before a planned failure
  // is raised. The hook may call any member: a test uses the hook to simulate a client that is called back in the
  // middle of a call.
  void OnCall(std::function<void(std::u16string_view operation)> hook) { onCall_ = std::move(hook); }

  // --- For the components --------------------------------------------------------------------------------------

  // Every simulated member calls Enter or EnterUntraced before it does its work. Enter calls the hooks, counts the
  // call, raises the failure that is planned for the call (see Gate::Enter), and writes the call or its failure to the
  // trace. `argument` is the argument for the hook of Watch.
  void Enter(std::u16string_view operation, std::u16string_view argument = {}) {
    if (trace_ == nullptr) {
      EnterUntraced(operation, argument);
    } else {
      EnterTraced(operation, argument);
    }
  }

  // Does the work of Enter, but writes no line to the trace: for members such as Send, which write a line of another
  // kind themselves.
  void EnterUntraced(std::u16string_view operation, std::u16string_view argument = {}) {
    Tell(operation, argument);
    if (onCall_) {
      onCall_(operation);
    }
    gate_.Enter(operation);
  }

  // Calls the hook of Watch and nothing else. Called by members that no component of the terminal has, such as the
  // members of QuilletSimulator.Expect. Calls of such members are not counted, and no failure can be planned for them.
  void Tell(std::u16string_view operation, std::u16string_view argument = {}) {
    if (watcher_) {
      watcher_(operation, argument);
    }
  }

  simulator::Journal& Record() { return journal_; }
  std::int32_t& LiveCount() { return liveObjects_; }

  // How numbers and dates are converted to strings: with US settings, unless UseTexts has set the regional settings of
  // a user.
  const TextForms& Texts() const { return *texts_; }
  void UseTexts(const TextForms& texts) { texts_ = &texts; }

  // The clock that measures a scenario's waiting times: a SimulatedClock, unless UseClock has set a real clock.
  Clock& CurrentClock() { return *currentClock_; }
  void UseClock(Clock& clock) { currentClock_ = &clock; }

  // The current scenario, which is the scenario that was loaded last. Before the first Load or LoadText, the current
  // scenario comes from the file whose path is in the environment variable QUILLET_SCENARIO; when the variable is not
  // set, it is the built-in scenario. Raises the errors of Load for the file in the variable.
  const std::shared_ptr<const Scenario>& InForce();

  // The sessions of the current scenario, in the order of the file. Raises the errors of InForce.
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
  std::shared_ptr<const Scenario> scenario_;  // null before the first call of Load, LoadText or InForce
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
