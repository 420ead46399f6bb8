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

// The sessions that run now, whichever scenario was loaded last.
class SimulatedSessionList final : public HostSessionList {
 public:
  explicit SimulatedSessionList(World& world);

  std::int32_t Count() override;
  // A text is a name, compared exactly; anything else a position counted from 1. 9 when there is no such session.
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
  std::u16string Line(std::int16_t index) override;  // a row of the buffer counted from 1; 9 outside

 private:
  const Screen& Page() const;

  World& world_;
  LiveMark live_;
  std::shared_ptr<ScreenContent> content_;
};

// A hand on a running session; several may hold the same one. Without one every member fails and says so. It goes on
// with its running session when another scenario is loaded.
class SimulatedSession final : public HostSession {
 public:
  SimulatedSession(World& world, std::shared_ptr<RunningSession> running);

  // The response that ReceivedResponse hands to its listeners: what LastResponse gives, without counting as a call.
  std::shared_ptr<HostResponse> NewestResponse();

  // Nothing for an entry that is not transmitted.
  std::shared_ptr<HostResponse> Send(std::u16string_view entry, bool transmit) override;
  std::shared_ptr<HostResponse> LastResponse() override;
  std::u16string SessionName() override;
  ObjectRef HostConnection() override;
  bool SendKey(KeyCode key) override;
  std::unique_ptr<EventConnection> OnReceivedResponse(std::function<void()> handler) override;

 private:
  RunningSession& Running() const;

  World& world_;
  LiveMark live_;
  std::shared_ptr<RunningSession> running_;
};

}  // namespace wendrill::simulator
