// The state of one running terminal session: what is on its screen, which answers are used up, which handlers are
// connected.
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

// One answer of the host on the screen. All response objects for this answer share one ScreenContent, so that a late
// buffer fills for all of them at the same reading.
struct ScreenContent {
  std::shared_ptr<const ScenarioAnswer> answer;
  std::size_t page = 0;
  std::u16string entry;         // the entry that it answers
  std::int32_t emptyReads = 0;  // how many more readings of the buffer return an empty string
};

// A handler of a session's event.
using EventHandler = std::function<void()>;

class RunningSession {
 public:
  RunningSession(std::shared_ptr<const Scenario> scenario, std::u16string name)
      : scenario_(std::move(scenario)), name_(std::move(name)) {}

  const std::u16string& Name() const { return name_; }
  const std::shared_ptr<const Scenario>& Script() const { return scenario_; }

  // Whether an entry has an answer: the next page for an "MD", or a reply of the scenario.
  bool Knows(std::u16string_view entry) const;

  // Answers a transmitted entry: an "MD" with the next page while there is a next page, any other entry with the next
  // answer of its reply, an entry without a reply as unknown. An answer that is an error is used up and raised, and the
  // screen stays unchanged. Any other answer replaces the screen, and the remaining pages of the previous answer are
  // dropped.
  std::shared_ptr<ScreenContent> Answer(std::u16string_view entry);

  // What is on the screen; null before the first answer.
  const std::shared_ptr<ScreenContent>& Screen() const { return screen_; }

  // The objects created for this session, so that asking twice returns the same object. The session does not own them.
  std::weak_ptr<SimulatedConnection> connection;
  std::weak_ptr<SimulatedResponse> lastResponse;

  // The connected handlers, not owned: the entry of a handler that has disconnected is expired.
  std::vector<std::weak_ptr<EventHandler>> listeners;

 private:
  bool HasNextPage() const;
  std::size_t ReplyFor(std::u16string_view entry) const;
  std::shared_ptr<const ScenarioAnswer> TurnOf(std::u16string_view entry);

  std::shared_ptr<const Scenario> scenario_;
  std::u16string name_;
  std::shared_ptr<ScreenContent> screen_;
  std::vector<std::size_t> turns_;  // for each reply: how many of its answers are used up
};

}  // namespace wendrill::simulator
