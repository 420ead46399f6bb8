// The simulated terminal toolkit: session list, session, response.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/gate.h"
#include "core/running_session.h"
#include "toolkit/terminal.h"

namespace wendrill::simulator {

class World;

// The sessions that run now: those of the scenario loaded last.
class SimulatedSessionList final : public HostSessionList {
 public:
  explicit SimulatedSessionList(World& world);

  std::int32_t Count() override;
  // A string is a name, compared exactly; any other value is a position counted from 1. Raises 9 when there is no such
  // session.
  std::shared_ptr<HostSession> Item(const Value& nameOrIndex) override;
  std::vector<std::shared_ptr<HostSession>> Sessions() override;

 private:
  World& world_;
  LiveMark live_;
};

class SimulatedResponse final : public HostResponse {
 public:
  SimulatedResponse(World& world, std::shared_ptr<ScreenContent> content);

  std::u16string Buffer() override;
  std::u16string HostCommand() override;
  std::int32_t ResponseType() override;
  std::u16string Text() override;
  std::int16_t NumberOfColumns() override;
  std::int16_t NumberOfLines() override;
  std::u16string Line(std::int16_t index) override;  // a row of the buffer, counted from 1; raises 9 outside

 private:
  const Screen& Page() const;
  bool IsAwaited();  // whether the time after which the buffer fills is not over yet

  World& world_;
  LiveMark live_;
  std::shared_ptr<ScreenContent> content_;
};

// A reference to a running session; several SimulatedSession objects may refer to the same running session. An object
// that refers to no running session raises an error that says so on every call. When another scenario is loaded, the
// object keeps its running session.
class SimulatedSession final : public HostSession {
 public:
  SimulatedSession(World& world, std::shared_ptr<RunningSession> running);

  // The response that the event ReceivedResponse passes to its handlers: what LastResponse returns, but not counted as
  // a call.
  std::shared_ptr<HostResponse> NewestResponse();

  // Returns Nothing for an entry that is not transmitted.
  std::shared_ptr<HostResponse> Send(std::u16string_view entry, bool transmit) override;
  std::shared_ptr<HostResponse> LastResponse() override;
  std::u16string SessionName() override;
  ObjectRef HostConnection() override;
  bool SendKey(KeyCode key) override;
  std::unique_ptr<EventConnection> OnReceivedResponse(std::function<void()> handler) override;

 private:
  std::shared_ptr<HostResponse> Transmit(std::u16string_view entry);
  void Type(std::u16string_view entry);
  RunningSession& Running() const;
  std::u16string RunningName() const;  // empty when no session runs

  World& world_;
  LiveMark live_;
  std::shared_ptr<RunningSession> running_;
};

}  // namespace wendrill::simulator
