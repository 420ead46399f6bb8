// The state of one running terminal session: what is on its screen, which answers are used up, which PNR is on display,
// which handlers are connected.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/scenario_run.h"
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
  double after = 0;             // how many seconds after sending the buffer fills; 0 once it has
  double sentAt = 0;            // in seconds since midnight; used while `after` is not 0
};

// A handler of a session's event.
using EventHandler = std::function<void()>;

class RunningSession {
 public:
  // Is told of each part of a packed entry that is carried out, before the part can fail.
  using PartWatcher = std::function<void(std::u16string_view part, bool answered, bool refused)>;

  RunningSession(std::shared_ptr<ScenarioRun> run, std::u16string name)
      : run_(std::move(run)), name_(std::move(name)) {}

  const std::u16string& Name() const { return name_; }
  const std::shared_ptr<const Scenario>& Script() const { return run_->SharedScript(); }

  // Whether an entry has an answer: the next page for an "MD", a reply of the scenario, a PNR's display, or the answers
  // to the parts of a packed entry, some of which may be unknown.
  bool Knows(std::u16string_view entry) const;

  // Answers a transmitted entry: an "MD" with the next page while there is a next page, any other entry with the next
  // answer of its reply, an entry without a reply with the display of the PNR that it retrieves, a packed entry part by
  // part and with the answer to the last part carried out, and everything else as unknown. An answer that is an error
  // is used up and raised, and the screen stays unchanged. Any other answer replaces the screen, and the remaining
  // pages of the previous answer are dropped.
  std::shared_ptr<ScreenContent> Answer(std::u16string_view entry, const PartWatcher& onPart);

  // What is on the screen; null before the first answer.
  const std::shared_ptr<ScreenContent>& Screen() const { return screen_; }

  // The PNR that an entry retrieves, which then is on display; null when no PNR matches. PNRs for one entry answer in
  // turn, as replies do.
  std::shared_ptr<const ScenarioPnr> RetrievePnr(std::u16string_view entry);

  // The PNR on display: the one that this session retrieved last, before the first retrieval the one that the scenario
  // puts there. When its state is over, another PNR with the same record locator takes its place, else one that the
  // scenario puts on display in the new state. Null when there is no such PNR.
  std::shared_ptr<const ScenarioPnr> ReadPnrOnDisplay();

  // The objects created for this session, so that asking twice returns the same object. The session does not own them.
  std::weak_ptr<SimulatedConnection> connection;
  std::weak_ptr<SimulatedResponse> lastResponse;

  // The connected handlers, not owned: the entry of a handler that has disconnected is expired.
  std::vector<std::weak_ptr<EventHandler>> listeners;

 private:
  // How one entry, or one part of a packed entry, is answered.
  struct Reaction {
    std::shared_ptr<const ScenarioAnswer> answer;
    std::size_t page = 0;
    bool isKnown = true;
  };

  bool HasNextPage() const;
  bool Holds(const Circumstances& where) const { return where.Hold(name_, run_->State()); }
  const ScenarioReply* ReplyFor(std::u16string_view entry) const;
  bool IsExhausted(const ScenarioReply& reply) const;
  bool KnowsWhole(std::u16string_view entry) const;
  bool ShowsPnr(std::u16string_view entry) const;

  Reaction React(std::u16string_view entry);
  std::shared_ptr<const ScenarioAnswer> TurnOf(const ScenarioReply& reply);
  std::shared_ptr<ScreenContent> AnswerWhole(std::u16string_view entry);
  std::shared_ptr<ScreenContent> AnswerParts(std::u16string_view entry, const std::vector<std::u16string_view>& parts,
                                             const PartWatcher& onPart);
  std::shared_ptr<ScreenContent> Show(std::u16string_view entry, const Reaction& reaction);
  const ScenarioPnr* PnrInTurn(std::u16string_view entry);
  const ScenarioPnr* PnrOnDisplay() const;
  std::vector<const ScenarioPnr*> PnrsFor(std::u16string_view entry) const;

  std::shared_ptr<ScenarioRun> run_;
  std::u16string name_;
  std::shared_ptr<ScreenContent> screen_;
  std::map<const ScenarioReply*, std::size_t> turns_;  // how many answers of each reply are used up
  std::map<std::pair<std::u16string, Circumstances>, std::size_t> pnrTurns_;  // for each entry that retrieves
  const ScenarioPnr* displayed_ = nullptr;  // the PNR that was retrieved last; null before the first retrieval
};

}  // namespace wendrill::simulator
