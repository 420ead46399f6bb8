// The simulated desktop: a terminal with its sessions, a PNR object model, an alarm, a text helper and parameter bags,
// all answering from a scenario.
//
// One World is one desktop; there is nothing beside it. The objects that it makes refer to it and must not outlive it.
// Everything happens on the caller's thread.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/text_forms.h"
#include "core/desktop.h"
#include "core/gate.h"
#include "core/journal.h"
#include "core/pnr_objects.h"
#include "core/running_session.h"
#include "core/scenario.h"
#include "core/simulated_bag.h"
#include "core/simulated_time.h"
#include "core/terminal.h"
#include "toolkit/platform.h"

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

  // Puts another scenario in force, with fresh sessions; planned failures are forgotten, the journal stays. Objects
  // that are held go on as they are. 53 for a file that is not there, 5 for one that is wrong, in both cases with
  // nothing changed.
  void Load(std::u16string_view path);
  void LoadText(std::u16string_view toml, std::u16string_view name = u"scenario text");

  std::u16string Journal() const { return journal_.Text(); }
  void ClearJournal() { journal_.Clear(); }

  // See Gate::FailNext.
  void FailNext(std::u16string_view operation, std::int32_t hresult, std::int32_t nth) {
    gate_.FailNext(operation, hresult, nth);
  }

  // How many calls of simulated members there were. A test that lets each call of a run fail in turn counts them first.
  std::int64_t Calls() const { return gate_.Calls(); }

  // How many simulated objects live: lists, sessions, responses, connections, PNR objects with their headers,
  // collections and elements, alarms, text helpers, bags.
  std::int32_t LiveObjects() const { return liveObjects_; }

  // --- Components ----------------------------------------------------------------------------------------------

  // The library's ports, made of the components below.
  Platform& Ports() { return *ports_; }
  SimulatedClock& Time() { return clock_; }
  SimulatedPump& Pump() { return pump_; }

  std::shared_ptr<SimulatedSessionList> MakeSessionList();
  std::shared_ptr<SimulatedSession> MakeSession();  // on the first running session, if any
  std::shared_ptr<SimulatedPnr> MakePnr();
  std::shared_ptr<SimulatedAlarmManager> MakeAlarmManager();  // 429 where the scenario has no alarm
  std::shared_ptr<SimulatedTextHelper> MakeTextHelper();
  std::shared_ptr<SimulatedBag> MakeParamBag();

  // --- Events --------------------------------------------------------------------------------------------------

  // Calls the handlers of the events that are pending now, in order; one that has disconnected meanwhile is passed
  // over. Events that a handler brings about wait for the next delivery.
  void DeliverPending();

  // Called after each event that is queued. Whoever has a real message queue posts itself a message to deliver then.
  void OnEventQueued(std::function<void()> hook) { onEventQueued_ = std::move(hook); }

  // Runs inside every call of a simulated member, before the call can fail: what a client does that is called back in
  // the middle of a call. May itself call any member.
  void OnCall(std::function<void(std::u16string_view operation)> hook) { onCall_ = std::move(hook); }

  // --- For the components --------------------------------------------------------------------------------------

  // Every call of a simulated member goes through here first; see Gate::Enter.
  void Enter(std::u16string_view operation) {
    if (onCall_) {
      onCall_(operation);
    }
    gate_.Enter(operation);
  }

  simulator::Journal& Record() { return journal_; }
  std::int32_t& LiveCount() { return liveObjects_; }

  // The forms of the desktop's texts: the US ones, unless there is a real desktop.
  const TextForms& Texts() const { return *texts_; }
  void UseTexts(const TextForms& texts) { texts_ = &texts; }

  // The scenario in force: what was loaded last; before that the file that the environment names, else the built-in
  // one. Fails as Load does when that file is wrong.
  const std::shared_ptr<const Scenario>& InForce();

  // The sessions of the scenario in force.
  const std::vector<std::shared_ptr<RunningSession>>& RunningSessions();

  // Queues a ReceivedResponse for everybody who listens to the session.
  void QueueEvent(RunningSession& session);

 private:
  class SimulatedPlatform;

  void PutInForce(std::shared_ptr<const Scenario> scenario);

  Gate gate_;
  simulator::Journal journal_;
  std::int32_t liveObjects_ = 0;
  std::shared_ptr<const Scenario> scenario_;  // none until one is needed
  std::vector<std::shared_ptr<RunningSession>> runningSessions_;
  std::deque<std::weak_ptr<EventHandler>> pendingEvents_;
  std::function<void()> onEventQueued_;
  std::function<void(std::u16string_view)> onCall_;
  const TextForms* texts_ = &UsTextForms();
  SimulatedClock clock_;
  SimulatedPump pump_{*this};
  std::unique_ptr<Platform> ports_;
};

}  // namespace wendrill::simulator
