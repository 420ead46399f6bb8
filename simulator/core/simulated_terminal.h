// The simulated session list, session and response, which replace the components of the toolkit with these names.
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

// The list of running sessions, which are the sessions of the scenario in force (World::InForce).
class SimulatedSessionList final : public HostSessionList {
 public:
  explicit SimulatedSessionList(World& world);

  std::int32_t Count() override;
  // The session with this name or at this position. A string is a name, compared exactly; any other value is a position
  // counted from 1. Raises 9 (index out of range) when no session runs with this name or at this position, and the
  // errors of ToInt32 when the value is neither a string nor a number.
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
  // Row `index` of the buffer, counted from 1. Raises 9 (index out of range) for a row that does not exist. Raises 9
  // for every row until the seconds in `after` of the answer have passed. Unlike Buffer, this function does not
  // simulate `late`, the number of readings of the buffer that return an empty string.
  std::u16string Line(std::int16_t index) override;

 private:
  const Screen& Page() const;
  // Whether the buffer is still empty because fewer seconds than `after` have passed since the entry was sent. When the
  // time has passed, sets `after` to 0, so that later calls do not read the clock.
  bool IsAwaited();

  World& world_;
  LiveMark live_;
  std::shared_ptr<ScreenContent> content_;
};

// A reference to a running session; several SimulatedSession objects may refer to one running session. When another
// scenario is loaded, the object keeps its running session. `running` is null when no session runs; in this case, every
// member of HostSession raises E_FAIL (0x80004005).
class SimulatedSession final : public HostSession {
 public:
  SimulatedSession(World& world, std::shared_ptr<RunningSession> running);

  // The newest response of the session; null before the first response, and when no session runs at all. For callers
  // inside the simulator: unlike LastResponse, this function does not count as a call of a member, raises no planned
  // failure, and raises no error when no session runs.
  std::shared_ptr<HostResponse> NewestResponse();

  // When `transmit` is true, transmits the entry and returns the response; raises the error that the scenario gives to
  // the answer. When `transmit` is false, only adds the entry to the journal and the trace as typed text, and returns
  // null.
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
  std::u16string RunningName() const;  // the session's name; empty when no session runs

  World& world_;
  LiveMark live_;
  std::shared_ptr<RunningSession> running_;
};

}  // namespace wendrill::simulator
