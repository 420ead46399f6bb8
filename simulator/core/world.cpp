#include "core/world.h"

#include <utility>

#include "common/error.h"
#include "common/text.h"
#include "core/environment.h"
#include "core/traced.h"

namespace wendrill::simulator {
namespace {

std::shared_ptr<const Scenario> DefaultScenario() {
  const std::u16string path = EnvironmentText(FromUtf8(kScenarioVariable));
  return path.empty() ? BuiltInScenario() : ReadScenarioFile(path);
}

}  // namespace

class World::SimulatedPlatform final : public Platform {
 public:
  explicit SimulatedPlatform(World& world) : world_(world) {}

  std::shared_ptr<HostSessionList> CreateSessionList() override { return world_.MakeSessionList(); }
  std::shared_ptr<HostSession> CreateSession() override { return world_.MakeSession(); }
  ObjectRef CreatePnr() override { return world_.MakePnr(); }
  std::shared_ptr<AlarmManager> CreateAlarmManager() override { return world_.MakeAlarmManager(); }
  std::shared_ptr<TextHelperService> CreateTextHelper() override { return world_.MakeTextHelper(); }
  ParamBagRef CreateParamBag() override { return world_.MakeParamBag(); }

 private:
  World& world_;
};

World::World() : ports_(std::make_unique<SimulatedPlatform>(*this)) {
  expectations_.OnRecorded([this](const Expectation& expectation) {
    if (trace_ != nullptr) {
      trace_->Write(trace::Expected{expectation.name, expectation.failure});
    }
    if (onExpectation_) {
      onExpectation_(expectation);
    }
  });
}

World::~World() {
  try {
    EndTrace(std::nullopt);
  } catch (...) {  // for lack of memory, the report could not be made; the trace ends without its last line
  }
}

void World::Load(std::u16string_view path) {
  PutInForce(ReadScenarioFile(path));
  gate_.Forget();
  TraceControl(u"Control.Load", FileName(path));
}

void World::LoadText(std::u16string_view toml, std::u16string_view name) {
  PutInForce(ParseScenario(ToUtf8(toml), name));
  gate_.Forget();
  TraceControl(u"Control.LoadText", name);
}

void World::FailNext(std::u16string_view operation, std::int32_t hresult, std::int32_t nth) {
  gate_.FailNext(operation, hresult, nth);
  TraceControl(u"Control.FailNext", operation);
}

std::shared_ptr<SimulatedSessionList> World::MakeSessionList() {
  return std::make_shared<SimulatedSessionList>(*this);
}

std::shared_ptr<SimulatedSession> World::MakeSession() {
  const auto& sessions = RunningSessions();
  return std::make_shared<SimulatedSession>(*this, sessions.empty() ? nullptr : sessions.front());
}

std::shared_ptr<SimulatedPnr> World::MakePnr() {
  return std::make_shared<SimulatedPnr>(*this);
}

std::shared_ptr<SimulatedAlarmManager> World::MakeAlarmManager() {
  if (!InForce()->alarm.present) {
    Fail(static_cast<std::int32_t>(RunTimeError::CannotCreateObject), u"The scenario has no alarm component.");
  }
  return std::make_shared<SimulatedAlarmManager>(*this);
}

std::shared_ptr<SimulatedTextHelper> World::MakeTextHelper() {
  return std::make_shared<SimulatedTextHelper>(*this);
}

std::shared_ptr<SimulatedBag> World::MakeParamBag() {
  return std::make_shared<SimulatedBag>(*this);
}

void World::DeliverPending() {
  if (trace_ != nullptr) {
    TraceEvents();
  }
  for (std::size_t left = pendingEvents_.size(); left > 0 && !pendingEvents_.empty(); --left) {
    const std::shared_ptr<EventHandler> handler = pendingEvents_.front().handler.lock();
    pendingEvents_.pop_front();
    if (handler != nullptr) {
      (*handler)();
    }
  }
}

const std::shared_ptr<const Scenario>& World::InForce() {
  if (scenario_ == nullptr) {
    PutInForce(DefaultScenario());
  }
  return scenario_;
}

const std::vector<std::shared_ptr<RunningSession>>& World::RunningSessions() {
  InForce();
  return runningSessions_;
}

void World::QueueEvent(RunningSession& session) {
  std::erase_if(session.listeners, [](const auto& listener) { return listener.expired(); });
  for (const auto& listener : session.listeners) {
    pendingEvents_.push_back({listener, session.Name()});
    if (onEventQueued_) {
      onEventQueued_();
    }
  }
}

void World::PutInForce(std::shared_ptr<const Scenario> scenario) {
  auto run = std::make_shared<ScenarioRun>(scenario);
  std::vector<std::shared_ptr<RunningSession>> sessions;
  for (const std::u16string& name : scenario->sessions) {
    sessions.push_back(std::make_shared<RunningSession>(run, name));
  }
  if (trace_ != nullptr) {
    LearnFrom(*scenario, *trace_);
  }
  scenario_ = std::move(scenario);
  runningSessions_ = std::move(sessions);
  report_.Begin(std::move(run));
}

// --- The trace ---------------------------------------------------------------------------------------------------

void World::StartTrace(const trace::Settings& settings, std::u16string_view script) {
  auto trace = std::make_unique<trace::Trace>(settings);
  std::u16string name;
  try {
    // When no scenario has been loaded yet, the trace learns the names in the default scenario. The default scenario
    // does not become the current scenario here, because a script may load another scenario before its first call that
    // needs one.
    const auto scenario = scenario_ == nullptr ? DefaultScenario() : scenario_;
    LearnFrom(*scenario, *trace);
    name = FileName(scenario->name);
  } catch (const Error&) {
    // An error in the default scenario is ignored here: the first call that needs the scenario raises the error again.
  }
  trace->Begin(script, name);
  trace_ = std::move(trace);
}

void World::EndTrace(std::optional<std::int32_t> status) {
  if (trace_ == nullptr || trace_->HasEnded()) {
    return;
  }
  const auto writeAll = [this](trace::About about, const std::vector<std::u16string>& texts) {
    for (const std::u16string& text : texts) {
      trace_->Write(trace::Warned{about, text});
    }
  };
  const auto unanswered = report_.Unanswered();
  writeAll(trace::About::Unanswered, unanswered);
  writeAll(trace::About::Unused, report_.Unused());
  writeAll(trace::About::Warning, report_.Warnings());
  trace_->Write(
      trace::Ended{status, trace::Counts{.unanswered = static_cast<std::int64_t>(unanswered.size()),
                                         .calls = Calls(),
                                         .expectations = static_cast<std::int64_t>(expectations_.All().size()),
                                         .failed = expectations_.Failed(),
                                         .findings = report_.Findings()}});
}

void World::EnterTraced(std::u16string_view operation, std::u16string_view argument) {
  Traced(trace_.get(), trace::Called{.operation = operation, .argument = argument}, [&](trace::Called&) {
    EnterUntraced(operation, argument);
    return true;
  });
}

// Writes a line for a call of QuilletSimulator.Control that changes the simulator. A repeated call of Control is
// written too, although repeated calls of simulated members are left out of the trace: Control has an effect each time.
// For example, a scenario that is loaded again starts from its beginning.
void World::TraceControl(std::u16string_view operation, std::u16string_view argument) {
  if (trace_ != nullptr) {
    trace_->Write(trace::Called{.operation = operation, .argument = argument, .always = true});
  }
}

// Writes the lines for the events that are about to be delivered. Consecutive events of one session share one line,
// which contains the number of these events. Events whose handler has disconnected are not counted.
void World::TraceEvents() {
  // One pair for each line that is written, in the order of delivery: the session, and the number of events that the
  // line represents. When several handlers wait for the same event of the terminal, each handler receives an event of
  // its own, and each of these events is counted.
  std::vector<std::pair<std::u16string, std::int32_t>> handlers;
  for (const PendingEvent& event : pendingEvents_) {
    if (event.handler.expired()) {
      continue;
    }
    if (handlers.empty() || handlers.back().first != event.session) {
      handlers.emplace_back(event.session, 0);
    }
    ++handlers.back().second;
  }
  for (const auto& [session, count] : handlers) {
    trace_->Write(trace::EventDelivered{session, count});
  }
}

}  // namespace wendrill::simulator
