// One loaded scenario at work: the state that it is in, and what there is to tell about it at the end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "core/scenario.h"

namespace wendrill::simulator {

// An entry that nothing answered, or that retrieved no PNR.
struct Miss {
  std::u16string entry;  // empty: the PNR on display was read, and there was none
  std::u16string session;
  std::u16string state;  // of the scenario; this and the session are those of the first time
  std::int32_t times = 0;
};

// Misses in the order of their first time, each entry once.
class MissList {
 public:
  void Add(std::u16string_view entry, std::u16string_view session, std::u16string_view state);
  const std::vector<Miss>& All() const { return misses_; }

 private:
  std::vector<Miss> misses_;
  std::map<std::u16string, std::size_t, std::less<>> places_;
};

// A packed entry that was not carried out to its end.
struct CutShort {
  std::u16string entry;
  std::int32_t part;  // counted from 1, empty parts not counted
  std::u16string partText;
  friend bool operator==(const CutShort&, const CutShort&) = default;
};

// Replies that went on answering after their last turn. The key is the line of the last reply or PNR.
struct Overrun {
  std::int32_t turn;  // the highest
  std::int32_t of;    // how many there are
};

class ScenarioRun {
 public:
  explicit ScenarioRun(std::shared_ptr<const Scenario> scenario) : scenario_(std::move(scenario)) {}

  const Scenario& Script() const { return *scenario_; }
  const std::shared_ptr<const Scenario>& SharedScript() const { return scenario_; }

  // The state of the scenario, which all sessions share. It begins in "".
  const std::u16string& State() const { return state_; }

  // --- What happens --------------------------------------------------------------------------------------------

  // A reply or a PNR was used: notes it, and puts the scenario into the state that it names.
  void Use(const ScenarioAnswer& answer);
  void Use(const ScenarioPnr& pnr);

  void NoteUnanswered(std::u16string_view entry, std::u16string_view session);
  void NoteNoPnr(std::u16string_view entry, std::u16string_view session);
  void NoteOverrun(std::int32_t line, std::size_t turn, std::size_t of);
  void NoteCutShort(CutShort cut);

  // --- What there is to tell -----------------------------------------------------------------------------------

  bool IsUsed(const ScenarioAnswer& answer) const { return used_.contains(&answer); }
  bool IsUsed(const ScenarioPnr& pnr) const { return used_.contains(&pnr); }
  const MissList& Unanswered() const { return unanswered_; }
  const MissList& WithoutPnr() const { return withoutPnr_; }
  const std::map<std::int32_t, Overrun>& Overruns() const { return overruns_; }
  const std::vector<CutShort>& CutsShort() const { return cutsShort_; }

 private:
  void Follow(const std::optional<std::u16string>& then);

  std::shared_ptr<const Scenario> scenario_;
  std::u16string state_;
  std::unordered_set<const void*> used_;  // answers and PNRs of the scenario
  MissList unanswered_;
  MissList withoutPnr_;
  std::map<std::int32_t, Overrun> overruns_;
  std::vector<CutShort> cutsShort_;
};

}  // namespace wendrill::simulator
