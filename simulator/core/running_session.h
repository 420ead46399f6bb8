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

// One answer of the host, as the screen shows it. All response objects for this answer share one ScreenContent. So a
// reading of the buffer through any of these objects counts towards `emptyReads`.
struct ScreenContent {
  std::shared_ptr<const ScenarioAnswer> answer;
  std::size_t page = 0;
  std::u16string entry;         // the entry that was sent
  std::int32_t emptyReads = 0;  // how many further readings of the buffer return an empty string
  double after = 0;             // the buffer fills this many seconds after sending; 0 once the buffer has filled
  double sentAt = 0;            // the time of sending, in seconds since midnight; used while `after` is not 0
};

// A handler of a session's event ReceivedResponse.
using EventHandler = std::function<void()>;

class RunningSession {
 public:
  // A function that is called for each part of a packed entry that is carried out. When the part raises an error, the
  // function is called before the error is raised.
  using PartWatcher = std::function<void(std::u16string_view part, bool answered, bool refused)>;

  RunningSession(std::shared_ptr<ScenarioRun> run, std::u16string name)
      : run_(std::move(run)), name_(std::move(name)) {}

  const std::u16string& Name() const { return name_; }
  const std::shared_ptr<const Scenario>& Script() const { return run_->SharedScript(); }

  // Whether an entry has an answer: the next page for "MD", a reply, the display of a PNR, or the answers to the parts
  // of a packed entry. A packed entry counts as answered even when nothing answers its parts.
  bool Knows(std::u16string_view entry) const;

  // Answers a transmitted entry. The first case that applies decides:
  //   - "MD" while there is a next page: the next page;
  //   - an entry with a reply: the next answer of the reply;
  //   - an entry that retrieves a PNR with a display: the display;
  //   - a packed entry: the session answers its parts one after another, and the result is the answer to the last part
  //     carried out;
  //   - any other entry: the answer of [unknown].
  //
  // An answer that is an error is used up and raised, and the screen stays unchanged. Any other answer replaces the
  // screen, and the remaining pages of the previous answer are dropped. Each part of a packed entry changes the screen
  // in this way.
  std::shared_ptr<ScreenContent> Answer(std::u16string_view entry, const PartWatcher& onPart);

  // The content of the screen; null before the first answer.
  const std::shared_ptr<ScreenContent>& Screen() const { return screen_; }

  // The PNR that an entry retrieves; null when no PNR matches. The retrieved PNR becomes the PNR on display, unless its
  // `error` is set. Several PNRs for one entry answer one after another, as the replies of a group do.
  std::shared_ptr<const ScenarioPnr> RetrievePnr(std::u16string_view entry);

  // The PNR on display; null when nothing was retrieved and the scenario puts no PNR on display. The first case that
  // applies decides:
  //   - the PNR that this session retrieved last, if it answers in the current state;
  //   - another PNR with the same record locator, if it answers in this session and the current state;
  //   - a PNR that the scenario puts on display (`on_display`), if it answers in this session and the current state;
  //   - the PNR that this session retrieved last, although it does not answer in the current state.
  std::shared_ptr<const ScenarioPnr> ReadPnrOnDisplay();

  // The connection object and the newest response object of this session; expired when the object does not exist or no
  // longer exists. While an object exists, every further request returns the same object. The session does not own the
  // objects.
  std::weak_ptr<SimulatedConnection> connection;
  std::weak_ptr<SimulatedResponse> lastResponse;

  // The connected handlers. The session does not own them: when a handler disconnects, its weak pointer expires.
  std::vector<std::weak_ptr<EventHandler>> listeners;

 private:
  // The answer to one entry, or to one part of a packed entry.
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
  // For each retrieving entry and each group of PNRs with equal circumstances, how often the group has answered.
  std::map<std::pair<std::u16string, Circumstances>, std::size_t> pnrTurns_;
  const ScenarioPnr* displayed_ = nullptr;  // the PNR that was retrieved last without an error; null: no PNR yet
};

}  // namespace wendrill::simulator
