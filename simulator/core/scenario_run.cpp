#include "core/scenario_run.h"

#include <algorithm>
#include <utility>

namespace wendrill::simulator {

void MissList::Add(std::u16string_view entry, std::u16string_view session, std::u16string_view state) {
  const auto [place, isNew] = places_.try_emplace(std::u16string(entry), misses_.size());
  if (isNew) {
    misses_.push_back({place->first, std::u16string(session), std::u16string(state), 0});
  }
  ++misses_[place->second].times;
}

void ScenarioRun::Use(const ScenarioAnswer& answer) {
  used_.insert(&answer);
  Follow(answer.then);
}

void ScenarioRun::Use(const ScenarioPnr& pnr) {
  used_.insert(&pnr);
  Follow(pnr.then);
}

void ScenarioRun::NoteUnanswered(std::u16string_view entry, std::u16string_view session) {
  unanswered_.Add(entry, session, state_);
}

void ScenarioRun::NoteNoPnr(std::u16string_view entry, std::u16string_view session) {
  withoutPnr_.Add(entry, session, state_);
}

void ScenarioRun::NoteOverrun(std::int32_t line, std::size_t turn, std::size_t of) {
  Overrun& overrun = overruns_[line];
  overrun.turn = std::max(overrun.turn, static_cast<std::int32_t>(turn));
  overrun.of = static_cast<std::int32_t>(of);
}

void ScenarioRun::NoteCutShort(CutShort cut) {
  if (std::find(cutsShort_.begin(), cutsShort_.end(), cut) == cutsShort_.end()) {
    cutsShort_.push_back(std::move(cut));
  }
}

void ScenarioRun::Follow(const std::optional<std::u16string>& then) {
  if (then) {
    state_ = *then;
  }
}

}  // namespace wendrill::simulator
