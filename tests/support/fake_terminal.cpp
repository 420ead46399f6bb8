#include "support/fake_terminal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "common/error.h"
#include "common/text.h"
#include "support/us_text.h"

namespace wendrill::testing {
namespace {

// Enters the calls of one object in the log and counts it among the living.
class Presence {
 public:
  Presence(CallLogRef calls, std::string name) : calls_(std::move(calls)), name_(std::move(name)) {
    ++calls_->liveObjects;
  }
  ~Presence() { --calls_->liveObjects; }
  Presence(const Presence&) = delete;
  Presence& operator=(const Presence&) = delete;

  void Enter(const std::string& call) const { calls_->Enter(name_ + "." + call); }

 private:
  CallLogRef calls_;
  std::string name_;
};

class FakeResponse final : public HostResponse {
 public:
  FakeResponse(const CallLogRef& calls, std::u16string hostCommand, Reply reply)
      : presence_(calls, "response"), hostCommand_(std::move(hostCommand)), reply_(std::move(reply)) {}

  std::u16string Buffer() override {
    presence_.Enter("Buffer");
    if (reply_.late > 0) {
      --reply_.late;
      return {};
    }
    return reply_.buffer;
  }
  std::u16string HostCommand() override {
    presence_.Enter("HostCommand");
    return hostCommand_;
  }
  std::int32_t ResponseType() override {
    presence_.Enter("ResponseType");
    return reply_.type;
  }
  std::u16string Text() override {
    presence_.Enter("Text");
    return reply_.text.value_or(reply_.buffer);
  }
  std::int16_t NumberOfColumns() override {
    presence_.Enter("NumberOfColumns");
    return reply_.columns;
  }
  std::int16_t NumberOfLines() override {
    presence_.Enter("NumberOfLines");
    return reply_.lines;
  }
  std::u16string Line(std::int16_t index) override {
    presence_.Enter("Line " + std::to_string(index));
    return std::u16string(LineOf(reply_.buffer, index));
  }

 private:
  Presence presence_;
  std::u16string hostCommand_;
  Reply reply_;
};

class FakeConnection final : public EventConnection {
 public:
  FakeConnection(FakeTerminal& terminal, int connection)
      : presence_(terminal.Calls(), "events"), terminal_(terminal), connection_(connection) {}
  ~FakeConnection() override { terminal_.Disconnect(connection_); }
  FakeConnection(const FakeConnection&) = delete;
  FakeConnection& operator=(const FakeConnection&) = delete;

 private:
  Presence presence_;
  FakeTerminal& terminal_;
  int connection_;
};

class FakeSession final : public HostSession {
 public:
  FakeSession(FakeTerminalRef terminal, std::u16string name)
      : presence_(terminal->Calls(), "session"), terminal_(std::move(terminal)), name_(std::move(name)) {}

  std::shared_ptr<HostResponse> Send(std::u16string_view entry, bool transmit) override {
    presence_.Enter((transmit ? "Send " : "Send untransmitted ") + ToUtf8(entry));
    return terminal_->Answer(std::u16string(entry), transmit);
  }
  std::shared_ptr<HostResponse> LastResponse() override {
    presence_.Enter("LastResponse");
    return terminal_->onScreen;
  }
  std::u16string SessionName() override {
    presence_.Enter("SessionName");
    return name_;
  }
  ObjectRef HostConnection() override {
    presence_.Enter("HostConnection");
    return terminal_->hostConnection;
  }
  bool SendKey(KeyCode key) override {
    presence_.Enter("SendKey " + std::to_string(key));
    return terminal_->Press(key);
  }
  std::unique_ptr<EventConnection> OnReceivedResponse(std::function<void()> handler) override {
    presence_.Enter("OnReceivedResponse");
    return terminal_->Connect(std::move(handler));
  }

 private:
  Presence presence_;
  FakeTerminalRef terminal_;
  std::u16string name_;
};

class FakeSessionList final : public HostSessionList {
 public:
  explicit FakeSessionList(FakeTerminalRef terminal)
      : presence_(terminal->Calls(), "list"), terminal_(std::move(terminal)) {}

  std::int32_t Count() override {
    presence_.Enter("Count");
    return static_cast<std::int32_t>(terminal_->SessionNames().size());
  }
  std::shared_ptr<HostSession> Item(const Value& nameOrIndex) override {
    const std::u16string name = ToUsText(nameOrIndex);
    presence_.Enter("Item " + ToUtf8(name));
    if (std::ranges::find(terminal_->SessionNames(), name) == terminal_->SessionNames().end()) {
      Raise(RunTimeError::InvalidCall);
    }
    return MakeFakeSession(terminal_, name);
  }
  std::vector<std::shared_ptr<HostSession>> Sessions() override {
    presence_.Enter("Sessions");
    std::vector<std::shared_ptr<HostSession>> sessions;
    for (const auto& name : terminal_->SessionNames()) {
      sessions.push_back(MakeFakeSession(terminal_, name));
    }
    return sessions;
  }

 private:
  Presence presence_;
  FakeTerminalRef terminal_;
};

[[noreturn]] void FailUnexpected(const std::string& what) {
  ADD_FAILURE() << "unexpected: " << what;
  throw ForeignError();
}

}  // namespace

FakeTerminal& FakeTerminal::Sessions(std::vector<std::u16string> names) {
  sessions_ = std::move(names);
  return *this;
}

FakeTerminal& FakeTerminal::On(std::u16string entry, Reply reply) {
  replies_[std::move(entry)].push_back(std::move(reply));
  return *this;
}

FakeTerminal& FakeTerminal::Accepting(KeyCode key) {
  keys_[key] = true;
  return *this;
}

FakeTerminal& FakeTerminal::Refusing(KeyCode key) {
  keys_[key] = false;
  return *this;
}

void FakeTerminal::Show(std::u16string hostCommand, Reply reply) {
  onScreen = std::make_shared<FakeResponse>(calls_, std::move(hostCommand), std::move(reply));
}

void FakeTerminal::RaiseReceivedResponse() {
  const auto connected = handlers_;  // a handler may disconnect
  for (const auto& [connection, handler] : connected) {
    if (handlers_.contains(connection)) {
      handler();
    }
  }
}

std::shared_ptr<HostResponse> FakeTerminal::Answer(const std::u16string& entry, bool transmit) {
  const std::string line = (transmit ? "send " : "type ") + ToUtf8(entry);
  Note(line);
  if (whileSending) {
    whileSending(entry);
  }
  const auto scripted = replies_.find(entry);
  if (scripted == replies_.end()) {
    FailUnexpected(line);
  }
  auto& replies = scripted->second;
  const Reply reply = replies.front();
  if (replies.size() > 1) {
    replies.pop_front();
  }
  if (reply.nothing) {
    return nullptr;
  }
  Show(entry, reply);
  return onScreen;
}

bool FakeTerminal::Press(KeyCode key) {
  const std::string line = "key " + std::to_string(key);
  Note(line);
  if (whilePressing) {
    whilePressing(key);
  }
  const auto answer = keys_.find(key);
  if (answer == keys_.end()) {
    FailUnexpected(line);
  }
  return answer->second;
}

std::unique_ptr<EventConnection> FakeTerminal::Connect(std::function<void()> handler) {
  const int connection = nextConnection_++;
  handlers_[connection] = std::move(handler);
  return std::make_unique<FakeConnection>(*this, connection);
}

std::shared_ptr<HostSession> MakeFakeSession(const FakeTerminalRef& terminal, std::u16string name) {
  return std::make_shared<FakeSession>(terminal, std::move(name));
}

std::shared_ptr<HostSessionList> MakeFakeSessionList(const FakeTerminalRef& terminal) {
  return std::make_shared<FakeSessionList>(terminal);
}

}  // namespace wendrill::testing
