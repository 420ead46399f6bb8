// The state of one running terminal session: what it has on its screen, which replies are used up, who listens.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/scenario.h"
#include "toolkit/terminal.h"

namespace wendrill::simulator {

class SimulatedConnection;
class SimulatedResponse;

// One answer of the host as it stands on the screen. Every response object for it reads the same one, so that a late
// buffer fills for all of them together.
struct ScreenContent {
  std::shared_ptr<const ScenarioAnswer> answer;
  std::size_t page = 0;
  std::u16string entry;         // what was sent for it
  std::int32_t emptyReads = 0;  // how often its buffer still reads empty
};

// Somebody connected to a session's event.
using EventHandler = std::function<void()>;

class RunningSession {
 public:
  RunningSession(std::shared_ptr<const Scenario> scenario, std::u16string name)
      : scenario_(std::move(scenario)), name_(std::move(name)) {}

  const std::u16string& Name() const { return name_; }
  const std::shared_ptr<const Scenario>& Script() const { return scenario_; }

  // Whether an entry would be answered by the page that follows or by a reply, rather than as unknown.
  bool Knows(std::u16string_view entry) const;

  // Answers a transmitted entry: with the next page for an "MD" while there is one, else with the reply's turn, else as
  // unknown. An answer that is an error is raised and leaves the screen as it was, its turn being used up. Otherwise
  // the answer is the screen from now on, and the pages of the one before are gone.
  std::shared_ptr<ScreenContent> Answer(std::u16string_view entry);

  // What is on the screen; none before the first answer.
  const std::shared_ptr<ScreenContent>& Screen() const { return screen_; }

  // The objects that live for this session, so that asking twice gives one object. They are not kept alive.
  std::weak_ptr<SimulatedConnection> connection;
  std::weak_ptr<SimulatedResponse> lastResponse;

  // The connected handlers; one that has disconnected is gone. The session does not keep them.
  std::vector<std::weak_ptr<EventHandler>> listeners;

 private:
  bool HasNextPage() const;
  std::size_t ReplyFor(std::u16string_view entry) const;
  std::shared_ptr<const ScenarioAnswer> TurnOf(std::u16string_view entry);

  std::shared_ptr<const Scenario> scenario_;
  std::u16string name_;
  std::shared_ptr<ScreenContent> screen_;
  std::vector<std::size_t> turns_;  // of each reply: how many of its answers are used up
};

}  // namespace wendrill::simulator
