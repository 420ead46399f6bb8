#include "core/running_session.h"

#include <algorithm>

#include "common/text.h"
#include "core/gate.h"
#include "core/packed_entry.h"

namespace wendrill::simulator {
namespace {

constexpr std::u16string_view kNextPage = u"MD";

// The type of a response that shows a PNR.
constexpr std::int32_t kPnrResponseType = 22;

void RaiseErrorOf(const ScenarioAnswer& answer, std::u16string_view entry) {
  if (answer.error != 0) {
    Fail(answer.error, u"The scenario lets the entry \"" + std::u16string(entry) + u"\" fail.");
  }
}

// The answer to an entry that retrieves this PNR: one page with the display of the PNR.
std::shared_ptr<const ScenarioAnswer> DisplayOf(const ScenarioPnr& pnr) {
  auto answer = std::make_shared<ScenarioAnswer>();
  answer->pages.push_back(RawScreen(pnr.display, kRowWidth));
  answer->type = kPnrResponseType;
  return answer;
}

// Whether every member of a group of replies or PNRs has answered once. `turns` is how often the group has answered,
// `members` is the number of its members. Always false for a group of one member, because a single member answers every
// time.
bool IsExhausted(std::size_t turns, std::size_t members) {
  return members > 1 && turns >= members;
}

}  // namespace

// --- Entries -----------------------------------------------------------------------------------------------------

bool RunningSession::Knows(std::u16string_view entry) const {
  return KnowsWhole(entry) || !PartsOf(entry).empty();
}

bool RunningSession::KnowsWhole(std::u16string_view entry) const {
  return (entry == kNextPage && HasNextPage()) || ReplyFor(entry) != nullptr || ShowsPnr(entry);
}

std::shared_ptr<ScreenContent> RunningSession::Answer(std::u16string_view entry, const PartWatcher& onPart) {
  const auto parts = PartsOf(entry);
  return parts.empty() || KnowsWhole(entry) ? AnswerWhole(entry) : AnswerParts(entry, parts, onPart);
}

std::shared_ptr<ScreenContent> RunningSession::AnswerWhole(std::u16string_view entry) {
  const Reaction reaction = React(entry);
  RaiseErrorOf(*reaction.answer, entry);
  return Show(entry, reaction);
}

// The host carries out the parts of a packed entry one after another, and each answer replaces the screen. After one of
// these parts, no further part is carried out:
// - a part whose answer is an error: this function raises the error;
// - a part that the host refuses or never answers.
//
// The result is the answer to the last part that was carried out. Its buffer fills as late as the buffer of the slowest
// part that was carried out.
std::shared_ptr<ScreenContent> RunningSession::AnswerParts(std::u16string_view entry,
                                                           const std::vector<std::u16string_view>& parts,
                                                           const PartWatcher& onPart) {
  std::shared_ptr<ScreenContent> content;
  std::int32_t emptyReads = 0;
  double after = 0;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const Reaction reaction = React(parts[i]);
    const ScenarioAnswer& answer = *reaction.answer;
    onPart(parts[i], reaction.isKnown, answer.refuses);
    RaiseErrorOf(answer, parts[i]);
    content = Show(entry, reaction);
    emptyReads = std::max(emptyReads, answer.late);
    after = std::max(after, answer.after);
    if (answer.refuses || answer.never) {
      if (i + 1 < parts.size()) {
        run_->NoteCutShort({std::u16string(entry), static_cast<std::int32_t>(i) + 1, std::u16string(parts[i])});
      }
      break;
    }
  }
  content->emptyReads = emptyReads;
  content->after = after;
  return content;
}

RunningSession::Reaction RunningSession::React(std::u16string_view entry) {
  if (entry == kNextPage && HasNextPage()) {
    return {screen_->answer, screen_->page + 1};
  }
  if (const ScenarioReply* reply = ReplyFor(entry)) {
    return {TurnOf(*reply)};
  }
  if (ShowsPnr(entry)) {
    return {DisplayOf(*RetrievePnr(entry))};
  }
  run_->NoteUnanswered(entry, name_);
  return {Script()->unknown, 0, false};
}

std::shared_ptr<ScreenContent> RunningSession::Show(std::u16string_view entry, const Reaction& reaction) {
  auto content = std::make_shared<ScreenContent>();
  content->answer = reaction.answer;
  content->page = reaction.page;
  content->entry = entry;
  content->emptyReads = reaction.answer->late;
  content->after = reaction.answer->after;
  screen_ = content;
  return content;
}

bool RunningSession::HasNextPage() const {
  return screen_ != nullptr && screen_->page + 1 < screen_->answer->pages.size();
}

// The group of replies that answers the entry in this session and state; null when no group matches. Of the matching
// groups, the first in the file that is not exhausted answers. When all of them are exhausted, the last of them
// answers. A group is exhausted when it has several replies and all of them have answered (IsExhausted).
//
// A packed entry (several entries joined with ";") is compared as a whole, and only with replies whose matcher text
// contains a ";".
const ScenarioReply* RunningSession::ReplyFor(std::u16string_view entry) const {
  const bool isPacked = !PartsOf(entry).empty();
  const ScenarioReply* last = nullptr;
  for (const std::size_t position : Script()->index.RepliesFor(entry)) {
    const ScenarioReply& reply = Script()->replies[position];
    if (Holds(reply.where) && reply.Matches(entry) && (!isPacked || HoldsSeparator(reply.matcher.text))) {
      last = &reply;
      if (!IsExhausted(reply)) {
        break;
      }
    }
  }
  return last;
}

bool RunningSession::IsExhausted(const ScenarioReply& reply) const {
  const auto turns = turns_.find(&reply);
  return turns != turns_.end() && simulator::IsExhausted(turns->second, reply.answers.size());
}

std::shared_ptr<const ScenarioAnswer> RunningSession::TurnOf(const ScenarioReply& reply) {
  const auto& answers = reply.answers;
  const std::size_t turn = turns_[&reply]++;
  const auto& answer = answers[std::min(turn, answers.size() - 1)];
  if (simulator::IsExhausted(turn, answers.size())) {
    run_->NoteOverrun(answer->line, turn + 1, answers.size());
  }
  run_->Use(*answer);
  return answer;
}

// --- PNRs --------------------------------------------------------------------------------------------------------

std::shared_ptr<const ScenarioPnr> RunningSession::RetrievePnr(std::u16string_view entry) {
  const ScenarioPnr* pnr = PnrInTurn(entry);
  if (pnr == nullptr) {
    run_->NoteNoPnr(entry, name_);
    return nullptr;
  }
  if (pnr->error == 0) {
    displayed_ = pnr;
  }
  run_->Use(*pnr);
  return {Script(), pnr};
}

std::shared_ptr<const ScenarioPnr> RunningSession::ReadPnrOnDisplay() {
  const ScenarioPnr* pnr = PnrOnDisplay();
  if (pnr == nullptr) {
    run_->NoteNoPnr({}, name_);
    return nullptr;
  }
  run_->Use(*pnr);
  return {Script(), pnr};
}

std::vector<const ScenarioPnr*> RunningSession::PnrsFor(std::u16string_view entry) const {
  std::vector<const ScenarioPnr*> pnrs;
  for (const std::size_t position : Script()->index.PnrsFor(entry, run_->State())) {
    const ScenarioPnr& pnr = Script()->pnrs[position];
    if (Holds(pnr.where)) {
      pnrs.push_back(&pnr);
    }
  }
  return pnrs;
}

bool RunningSession::ShowsPnr(std::u16string_view entry) const {
  const auto pnrs = PnrsFor(entry);
  return !pnrs.empty() && !pnrs.front()->display.empty();
}

// The PNR that answers the entry this time; null when the entry retrieves no PNR in this session and state. Adds 1 to
// the number of answers of the PNR's group. A group is all PNRs for the entry whose `session` and `when` are equal:
// - The PNRs of a group answer one after another. When all of them have answered, the next group answers.
// - When the last group is exhausted too, the last PNR of this group answers every further time.
// - A group of a single PNR answers every time, so the groups after it never answer.
const ScenarioPnr* RunningSession::PnrInTurn(std::u16string_view entry) {
  std::vector<std::vector<const ScenarioPnr*>> groups;
  for (const ScenarioPnr* pnr : PnrsFor(entry)) {
    const auto group = std::find_if(groups.begin(), groups.end(),
                                    [pnr](const auto& each) { return each.front()->where == pnr->where; });
    (group == groups.end() ? groups.emplace_back() : *group).push_back(pnr);
  }
  for (const auto& group : groups) {
    std::size_t& turns = pnrTurns_[{std::u16string(entry), group.front()->where}];
    const bool exhausted = simulator::IsExhausted(turns, group.size());
    if (exhausted && &group != &groups.back()) {
      continue;
    }
    const ScenarioPnr* pnr = group[std::min(turns, group.size() - 1)];
    ++turns;
    if (exhausted) {
      run_->NoteOverrun(pnr->line, turns, group.size());
    }
    return pnr;
  }
  return nullptr;
}

const ScenarioPnr* RunningSession::PnrOnDisplay() const {
  if (displayed_ != nullptr && Holds(displayed_->where)) {
    return displayed_;
  }
  const ScenarioIndex& index = Script()->index;
  if (displayed_ != nullptr && !displayed_->recordLocator.empty()) {
    for (const std::size_t position : index.PnrsFor(displayed_->RetrievingEntries().front(), run_->State())) {
      const ScenarioPnr& pnr = Script()->pnrs[position];
      if (pnr.recordLocator == displayed_->recordLocator && Holds(pnr.where)) {
        return &pnr;
      }
    }
  }
  for (const std::size_t position : index.PnrsOnDisplay(run_->State())) {
    const ScenarioPnr& pnr = Script()->pnrs[position];
    if (Holds(pnr.where)) {
      return &pnr;
    }
  }
  return displayed_;
}

}  // namespace wendrill::simulator
