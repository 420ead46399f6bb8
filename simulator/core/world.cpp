#include "core/world.h"

#include <cstdlib>
#include <utility>

#include "common/error.h"
#include "common/text.h"

namespace wendrill::simulator {
namespace {

// The path of the scenario that the environment variable names; empty when it is not set.
std::u16string ScenarioOfEnvironment() {
#ifdef _WIN32
  static_assert(sizeof(wchar_t) == sizeof(char16_t));
  constexpr std::string_view kName = kScenarioVariable;
  const wchar_t* path = _wgetenv(std::wstring(kName.begin(), kName.end()).c_str());
  const std::wstring_view text = path == nullptr ? std::wstring_view() : path;
  return {text.begin(), text.end()};
#else
  const char* path = std::getenv(kScenarioVariable);
  return path == nullptr ? std::u16string() : FromUtf8(path);
#endif
}

std::shared_ptr<const Scenario> DefaultScenario() {
  const std::u16string path = ScenarioOfEnvironment();
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

World::World() : ports_(std::make_unique<SimulatedPlatform>(*this)) {}

World::~World() = default;

void World::Load(std::u16string_view path) {
  PutInForce(ReadScenarioFile(path));
  gate_.Forget();
}

void World::LoadText(std::u16string_view toml, std::u16string_view name) {
  PutInForce(ParseScenario(ToUtf8(toml), name));
  gate_.Forget();
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
  for (std::size_t left = pendingEvents_.size(); left > 0 && !pendingEvents_.empty(); --left) {
    const std::shared_ptr<EventHandler> handler = pendingEvents_.front().lock();
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
    pendingEvents_.push_back(listener);
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
  scenario_ = std::move(scenario);
  runningSessions_ = std::move(sessions);
  report_.Begin(std::move(run));
}

}  // namespace wendrill::simulator
