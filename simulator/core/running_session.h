// The state of one running terminal session: the content of its screen, how often each group of replies and PNRs has
// answered, the PNR on display, and the connected event handlers.
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

// One answer of the host, as the screen shows it. All response objects for this answer share one ScreenContent, so a
// reading of the buffer through any of these objects decreases `emptyReads` for all of them.
struct ScreenContent {
  std::shared_ptr<const ScenarioAnswer> answer;
  std::size_t page = 0;
  std::u16string entry;         // the entry that was sent
  std::int32_t emptyReads = 0;  // how many further readings of the buffer return an empty string
  double after = 0;             // the buffer fills this many seconds after sending; 0: no delay, or the delay is over
  double sentAt = 0;            // the time of sending, in seconds since midnight; used while `after` is not 0
};

// A handler of a session's event ReceivedResponse.
using EventHandler = std::function<void()>;

class RunningSession {
 public:
  // A function that Answer calls for each part that the host carries out of a packed entry (several entries joined with
  // ";"). `answered` is false when nothing in the scenario answers the part. `refused` is true when the host refuses
  // the part. When the answer to the part is an error, Answer calls this function first and raises the error
  // afterwards.
  using PartWatcher = std::function<void(std::u16string_view part, bool answered, bool refused)>;

  RunningSession(std::shared_ptr<ScenarioRun> run, std::u16string name)
      : run_(std::move(run)), name_(std::move(name)) {}

  const std::u16string& Name() const { return name_; }
  const std::shared_ptr<const Scenario>& Script() const { return run_->SharedScript(); }

  // Whether the scenario has an answer to the entry. True in these cases:
  // - The entry is "MD", and there is a next page.
  // - A reply answers the entry, or the entry retrieves a PNR with a display.
  // - The entry is packed (several entries joined with ";"), even when nothing answers its parts.
  bool Knows(std::u16string_view entry) const;

  // Answers a transmitted entry. The first case that applies decides:
  //   - "MD" while there is a next page: the next page;
  //   - an entry that a reply answers: the next answer of the reply's group;
  //   - an entry that retrieves a PNR with a display: the display;
  //   - a packed entry (several entries joined with ";"): the session answers its parts one after another, and the
  //     result is the answer to the last part carried out;
  //   - any other entry: the answer of [unknown].
  //
  // An answer either raises an error or replaces the screen:
  //   - When the answer is an error, this function raises the error, and the screen stays unchanged. The answer of a
  //     reply counts as used also in this case.
  //   - Any other answer replaces the screen. After an answer other than a next page, the pages of the previous answer
  //     that were not shown are lost. Each part of a packed entry that is carried out replaces the screen.
  std::shared_ptr<ScreenContent> Answer(std::u16string_view entry, const PartWatcher& onPart);

  // The content of the screen; null before the first answer.
  const std::shared_ptr<ScreenContent>& Screen() const { return screen_; }

  // The PNR that an entry retrieves in this session and in the scenario's current state; null when the entry retrieves
  // no PNR. The retrieved PNR becomes the PNR on display, unless its `error` is set. Several PNRs for one entry answer
  // in the order that PnrInTurn determines.
  std::shared_ptr<const ScenarioPnr> RetrievePnr(std::u16string_view entry);

  // The PNR on display. The first case that applies decides; null when no case applies:
  //   - the PNR that this session retrieved last, if it answers in the current state;
  //   - another PNR with the record locator of the PNR retrieved last, if it answers in this session and the current
  //     state;
  //   - a PNR that the scenario puts on display (`on_display`), if it answers in this session and the current state;
  //   - the PNR that this session retrieved last, although it does not answer in the current state.
  std::shared_ptr<const ScenarioPnr> ReadPnrOnDisplay();

  // The existing HostConnection object of this session, and the existing response object for its newest answer. While
  // such an object exists, the member HostConnection or LastResponse returns it and creates no second object. The
  // session does not own the objects, so each pointer expires with its object.
  std::weak_ptr<SimulatedConnection> connection;
  std::weak_ptr<SimulatedResponse> lastResponse;

  // The connected handlers. The session does not own them: when a handler disconnects, its weak pointer expires.
  std::vector<std::weak_ptr<EventHandler>> listeners;

 private:
  // The answer to one entry, or to one part of a packed entry. `page` is the index (from 0) of the page of the answer
  // that the screen shows. `isKnown` is false for the answer of [unknown], which is given when nothing else in the
  // scenario answers.
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
  std::map<const ScenarioReply*, std::size_t> turns_;  // for each group of replies, how often it has answered
  // How often each group of PNRs has answered, keyed by the retrieving entry and by the circumstances that all PNRs of
  // the group have.
  std::map<std::pair<std::u16string, Circumstances>, std::size_t> pnrTurns_;
  const ScenarioPnr* displayed_ = nullptr;  // the PNR that was retrieved last without an error; null: no PNR yet
};

}  // namespace wendrill::simulator
