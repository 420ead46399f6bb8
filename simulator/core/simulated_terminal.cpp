#include "core/simulated_terminal.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "common/error.h"
#include "common/text.h"
#include "core/host_keys.h"
#include "core/seconds_passed.h"
#include "core/simulated_pnr.h"
#include "core/traced.h"
#include "core/world.h"

namespace wendrill::simulator {
namespace {

constexpr std::int32_t kSubscriptOutOfRange = static_cast<std::int32_t>(RunTimeError::SubscriptOutOfRange);

// The error that every HostSession member of a SimulatedSession raises when no session runs: E_FAIL, the HRESULT of an
// unspecified failure.
constexpr std::int32_t kNoSessionRuns = static_cast<std::int32_t>(0x80004005);

bool Holds(const auto& keys, KeyCode key) {
  return std::find(std::begin(keys), std::end(keys), key) != std::end(keys);
}

// Copies the answer of the host into `line`, which is the line that the trace writes for the transmitted entry.
void Describe(const ScreenContent& content, trace::Sent& line) {
  const ScenarioAnswer& answer = *content.answer;
  line.refused = answer.refuses;
  line.never = answer.never;
  line.late = content.emptyReads;
  line.after = content.after;
  line.type = answer.type;
  if (!answer.never) {
    line.screen = answer.pages[content.page].rows;
  }
}

class SimulatedEventConnection final : public EventConnection {
 public:
  explicit SimulatedEventConnection(std::shared_ptr<EventHandler> handler) : handler_(std::move(handler)) {}

 private:
  std::shared_ptr<EventHandler> handler_;
};

}  // namespace

SimulatedSessionList::SimulatedSessionList(World& world) : world_(world), live_(world.LiveCount()) {
  // Reads the scenario in the constructor. So an error in the scenario file makes the creation of this object fail, and
  // not a later call of a member.
  world_.InForce();
}

std::int32_t SimulatedSessionList::Count() {
  world_.Enter(u"Count");
  return static_cast<std::int32_t>(world_.RunningSessions().size());
}

std::shared_ptr<HostSession> SimulatedSessionList::Item(const Value& nameOrIndex) {
  world_.Enter(u"Item");
  const auto& sessions = world_.RunningSessions();
  if (const auto* name = nameOrIndex.As<std::u16string>()) {
    const auto found = std::find_if(sessions.begin(), sessions.end(),
                                    [name](const auto& session) { return session->Name() == *name; });
    if (found != sessions.end()) {
      return std::make_shared<SimulatedSession>(world_, *found);
    }
    Fail(kSubscriptOutOfRange, u"No session of the name \"" + *name + u"\" runs.");
  }
  const std::int32_t position = ToInt32(nameOrIndex);
  if (position < 1 || static_cast<std::size_t>(position) > sessions.size()) {
    Fail(kSubscriptOutOfRange, u"No session runs at position " + DecimalText(position) + u".");
  }
  return std::make_shared<SimulatedSession>(world_, sessions[static_cast<std::size_t>(position) - 1]);
}

std::vector<std::shared_ptr<HostSession>> SimulatedSessionList::Sessions() {
  world_.Enter(u"_NewEnum");
  std::vector<std::shared_ptr<HostSession>> sessions;
  for (const auto& running : world_.RunningSessions()) {
    sessions.push_back(std::make_shared<SimulatedSession>(world_, running));
  }
  return sessions;
}

SimulatedResponse::SimulatedResponse(World& world, std::shared_ptr<ScreenContent> content)
    : world_(world), live_(world.LiveCount()), content_(std::move(content)) {}

std::u16string SimulatedResponse::Buffer() {
  world_.Enter(u"Buffer");
  if (IsAwaited()) {
    return {};
  }
  if (content_->emptyReads > 0) {
    --content_->emptyReads;
    return {};
  }
  return Page().buffer;
}

std::u16string SimulatedResponse::HostCommand() {
  world_.Enter(u"HostCommand");
  return content_->entry;
}

std::int32_t SimulatedResponse::ResponseType() {
  world_.Enter(u"ResponseType");
  return content_->answer->type;
}

std::u16string SimulatedResponse::Text() {
  world_.Enter(u"Text");
  return IsAwaited() ? std::u16string() : content_->answer->text.value_or(Page().buffer);
}

std::int16_t SimulatedResponse::NumberOfColumns() {
  world_.Enter(u"NumberOfColumns");
  return content_->answer->columns;
}

std::int16_t SimulatedResponse::NumberOfLines() {
  world_.Enter(u"NumberOfLines");
  return content_->answer->lines;
}

std::u16string SimulatedResponse::Line(std::int16_t index) {
  world_.Enter(u"Line");
  const auto& rows = Page().rows;
  if (IsAwaited() || index < 1 || static_cast<std::size_t>(index) > rows.size()) {
    Fail(kSubscriptOutOfRange, u"The buffer has no line " + DecimalText(index) + u".");
  }
  return rows[static_cast<std::size_t>(index) - 1];
}

bool SimulatedResponse::IsAwaited() {
  if (content_->after > 0) {
    if (SecondsPassed(content_->sentAt, world_.CurrentClock().SecondsSinceMidnight()) < content_->after) {
      return true;
    }
    content_->after = 0;
  }
  return false;
}

const Screen& SimulatedResponse::Page() const {
  return content_->answer->pages[content_->page];
}

SimulatedSession::SimulatedSession(World& world, std::shared_ptr<RunningSession> running)
    : world_(world), live_(world.LiveCount()), running_(std::move(running)) {}

std::shared_ptr<HostResponse> SimulatedSession::NewestResponse() {
  if (running_ == nullptr || running_->Screen() == nullptr) {
    return nullptr;
  }
  auto response = running_->lastResponse.lock();
  if (response == nullptr) {
    response = std::make_shared<SimulatedResponse>(world_, running_->Screen());
    running_->lastResponse = response;
  }
  return response;
}

std::shared_ptr<HostResponse> SimulatedSession::Send(std::u16string_view entry, bool transmit) {
  if (transmit) {
    return Transmit(entry);
  }
  Type(entry);
  return nullptr;
}

std::shared_ptr<HostResponse> SimulatedSession::Transmit(std::u16string_view entry) {
  trace::Trace* const trace = world_.Tracing();
  trace::Sent sent{.session = RunningName(), .entry = entry, .began = trace == nullptr ? 0 : trace->Seconds()};
  return Traced(trace, std::move(sent), [&](trace::Sent& line) {
    if (running_ != nullptr) {
      line.answered = running_->Knows(entry);
      world_.Record().Send(entry, line.answered);
    }
    world_.EnterUntraced(u"Send", entry);
    RunningSession& running = Running();
    const auto onPart = [&](std::u16string_view part, bool answered, bool refused) {
      world_.Record().Part(part, answered, refused);
      if (trace != nullptr) {
        line.parts.push_back({part, answered, refused});
        line.answered = line.answered && answered;
      }
    };
    // With std::cref, the std::function parameter stores only a reference to onPart and allocates no memory.
    const auto content = running.Answer(entry, std::cref(onPart));
    if (content->after > 0) {
      content->sentAt = world_.CurrentClock().SecondsSinceMidnight();
    }
    auto response = std::make_shared<SimulatedResponse>(world_, content);
    running.lastResponse = response;
    if (trace != nullptr) {
      Describe(*content, line);
    }
    if (!content->answer->never) {
      world_.QueueEvent(running);
    }
    return response;
  });
}

void SimulatedSession::Type(std::u16string_view entry) {
  Traced(world_.Tracing(), trace::Typed{.session = RunningName(), .text = entry}, [&](trace::Typed&) {
    if (running_ != nullptr) {
      world_.Record().Type(entry);
    }
    world_.EnterUntraced(u"Send", entry);
    return &Running();
  });
}

std::shared_ptr<HostResponse> SimulatedSession::LastResponse() {
  world_.Enter(u"LastResponse");
  Running();
  return NewestResponse();
}

std::u16string SimulatedSession::SessionName() {
  world_.Enter(u"SessionName");
  return Running().Name();
}

ObjectRef SimulatedSession::HostConnection() {
  world_.Enter(u"HostConnection");
  RunningSession& running = Running();
  auto connection = running.connection.lock();
  if (connection == nullptr) {
    connection = std::make_shared<SimulatedConnection>(world_, running_);
    running.connection = connection;
  }
  return connection;
}

bool SimulatedSession::SendKey(KeyCode key) {
  return Traced(world_.Tracing(), trace::KeyPressed{.session = RunningName(), .code = key}, [&](auto& line) {
    if (running_ != nullptr) {
      world_.Record().Key(key);
    }
    world_.EnterUntraced(u"SendKey", DecimalText(key));
    RunningSession& running = Running();
    const ScenarioTerminal& terminal = running.Script()->terminal;
    line.accepted = !Holds(terminal.refuses, key);
    if (line.accepted && Holds(kHostKeys, key) && !Holds(terminal.silent, key)) {
      world_.QueueEvent(running);
    }
    return line.accepted;
  });
}

std::unique_ptr<EventConnection> SimulatedSession::OnReceivedResponse(std::function<void()> handler) {
  world_.Enter(u"ReceivedResponse");
  RunningSession& running = Running();
  auto shared = std::make_shared<EventHandler>(std::move(handler));
  running.listeners.push_back(shared);
  return std::make_unique<SimulatedEventConnection>(std::move(shared));
}

std::u16string SimulatedSession::RunningName() const {
  return running_ == nullptr ? std::u16string() : running_->Name();
}

RunningSession& SimulatedSession::Running() const {
  if (running_ == nullptr) {
    Fail(kNoSessionRuns, u"No session of the terminal runs.");
  }
  return *running_;
}

}  // namespace wendrill::simulator
