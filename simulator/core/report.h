// The report of a run for the author of the script. It lists:
//   - entries that nothing answered, each with the nearest replies and PNRs;
//   - replies and PNRs that were never used;
//   - packed entries (several entries joined with ";") that ended early, because the host refused or never answered a
//     part before the last;
//   - retrievals that found no PNR;
//   - groups of replies or PNRs whose last member answered again, because all members had answered;
//   - warnings.
//
// The simulated components write to the report while they work. The report is read in three ways:
//   - By a script or by the script host: through the COM object QuilletSimulator.Control. Its properties return single
//     results of this class: Report is Text(), Strict is StrictAsked(), and Findings is a number.
//   - In C++: World::Findings() returns the whole RunReport, not a number. The number is World::Findings().Findings().
//   - In C++, as text only: World::Report() returns Text().
#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/run_summary.h"
#include "core/scenario_run.h"

namespace wendrill::simulator {

class RunReport {
 public:
  // --- Results -------------------------------------------------------------------------------------------------

  // The whole report as text, each line ended by CR LF; empty when there is nothing to report. The results of the
  // scenarios appear in the order in which the scenarios were loaded.
  std::u16string Text() const;

  // The entries that nothing answered, scenario by scenario, each in the order in which the entries were first sent. An
  // entry that was sent several times during one scenario is listed once.
  std::vector<std::u16string> Unanswered() const;

  // The titles of the replies and PNRs that were never used, such as: line 7, entry = "NEVERUSED"
  // Replies and PNRs with `optional = true` are left out.
  std::vector<std::u16string> Unused() const;

  // The warnings of all scenarios. The warnings of Warn, and of keys that NoteUnreadKey added, belong to the current
  // scenario and follow its own warnings.
  std::vector<std::u16string> Warnings() const;

  // The number of unanswered entries, unused replies and PNRs, and warnings together. A strict run fails when this
  // number is not 0.
  std::int32_t Findings() const;

  // Whether any scenario of this run has `on = true` in [strict].
  bool StrictAsked() const { return strictAsked_; }

  // --- For everyone who sees a mistake -------------------------------------------------------------------------

  // Adds a warning: one line without a line break and without the scenario's name, such as "nothing reads intKeyIndx;
  // nearest: intKeyIndex". Ignores an empty warning and a warning that was added before.
  void Warn(std::u16string_view warning);

  // The report warns of each key that was added with NoteUnreadKey, unless NoteReadKey was called with the key before
  // or afterwards. NoteUnreadKey adds a key that a script stored in a parameter bag and that the library does not read.
  // NoteReadKey marks a key as used: a script read the key from a bag, or the library stored it in a bag.
  void NoteUnreadKey(std::u16string_view key);
  void NoteReadKey(std::u16string_view key);

  // --- For the desktop -----------------------------------------------------------------------------------------

  // Makes `run` the current scenario. The results of earlier scenarios stay in the report. Earlier scenarios whose
  // results are equal appear in the report only once, if no simulated object refers to them any more.
  void Begin(std::shared_ptr<ScenarioRun> run);

 private:
  // One loaded scenario. While simulated objects refer to the run of an earlier scenario, its results may still change.
  // Once no object refers to that run, the next call of Begin closes the part: the part keeps the summary and releases
  // the run.
  struct Part {
    std::shared_ptr<ScenarioRun> run;  // null when the part is closed
    RunSummary summary;                // empty until the part is closed
  };

  std::vector<RunSummary> Summaries() const;
  std::vector<std::u16string> OwnWarnings() const;
  void CloseUnusedParts();

  std::vector<Part> parts_;  // in the order of loading; the last part is the current scenario
  bool strictAsked_ = false;
  std::vector<std::u16string> warnings_;    // the warnings that were added with Warn
  std::vector<std::u16string> unreadKeys_;  // each key once, in the order in which the keys were added
  std::set<std::u16string, std::less<>> readKeys_;
};

}  // namespace wendrill::simulator
