// One loaded scenario during a run: the scenario's current state, and the data for the report at the end of the run.
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

// An entry that nothing in the scenario answered, or an attempt to read a PNR that found none.
struct Miss {
  std::u16string entry;    // empty when a script read the PNR on display while no PNR was on display
  std::u16string session;  // the session in which this happened first
  std::u16string state;    // the scenario's state when this happened first
  std::int32_t times = 0;  // how often this happened
};

// A list with one Miss for each entry, in the order in which the entries were added first.
class MissList {
 public:
  void Add(std::u16string_view entry, std::u16string_view session, std::u16string_view state);
  const std::vector<Miss>& All() const { return misses_; }

 private:
  std::vector<Miss> misses_;
  std::map<std::u16string, std::size_t, std::less<>> places_;
};

// A packed entry (several entries joined with ";") of which the host carried out only the first parts, because it
// refused or never answered one of them.
struct CutShort {
  std::u16string entry;
  std::int32_t part;  // the last part that was carried out, counted from 1 without empty parts
  std::u16string partText;
  friend bool operator==(const CutShort&, const CutShort&) = default;
};

// A group of replies or PNRs that had to answer although all its members had already answered, so that its last member
// answered again. In ScenarioRun::Overruns, the key is the line of this last member in the scenario file.
struct Overrun {
  std::int32_t turn;  // how often the group has answered, in the session in which it answered most often
  std::int32_t of;    // how many replies or PNRs the group has
};

class ScenarioRun {
 public:
  explicit ScenarioRun(std::shared_ptr<const Scenario> scenario) : scenario_(std::move(scenario)) {}

  const Scenario& Script() const { return *scenario_; }
  const std::shared_ptr<const Scenario>& SharedScript() const { return scenario_; }

  // The current state of the scenario, which all sessions share; "" at the start.
  const std::u16string& State() const { return state_; }

  // --- Recording a run -----------------------------------------------------------------------------------------

  // Marks the answer or the PNR as used. When it has `then`, the scenario changes to the state in `then`.
  void Use(const ScenarioAnswer& answer);
  void Use(const ScenarioPnr& pnr);

  void NoteUnanswered(std::u16string_view entry, std::u16string_view session);
  void NoteNoPnr(std::u16string_view entry, std::u16string_view session);
  void NoteOverrun(std::int32_t line, std::size_t turn, std::size_t of);
  void NoteCutShort(CutShort cut);

  // --- Data for the report -------------------------------------------------------------------------------------

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
  std::unordered_set<const void*> used_;  // the addresses of the answers and PNRs that were used
  MissList unanswered_;
  MissList withoutPnr_;
  std::map<std::int32_t, Overrun> overruns_;
  std::vector<CutShort> cutsShort_;
};

}  // namespace wendrill::simulator
