// What a run has to tell its author at the end: the entries that no reply answered, with the replies that are nearest
// to them, the replies that were never used, the retrievals that found no PNR, and warnings.
//
// The simulated components write to it while they work. Those who show it:
//   - the script host, which is another program than the simulator: through QuilletSimulator.Control, whose members
//     Report, Unanswered, Unused, Warnings, Strict, Findings and Warn are the functions below;
//   - objects inside QuilletSimulator.dll: TheSimulation().world.Findings();
//   - native tests: World::Findings(), and World::Report() for the text.
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

  // The whole report, each line ended by CR LF; empty when there is nothing to tell. Scenarios are told in the order
  // in which they were loaded.
  std::u16string Text() const;

  // The entries that no reply answered, each once, in the order in which they were first sent.
  std::vector<std::u16string> Unanswered() const;

  // The replies and PNRs that were never used, as the report names them: line 7, entry = "NEVERUSED"
  std::vector<std::u16string> Unused() const;

  std::vector<std::u16string> Warnings() const;

  // The number of things that strictness counts: unanswered entries, unused replies and PNRs, warnings. 0: a strict run
  // is a good one.
  std::int32_t Findings() const;

  // Whether a scenario of this run says "[strict] on = true".
  bool StrictAsked() const { return strictAsked_; }

  // --- For everyone who sees a mistake -------------------------------------------------------------------------

  // Adds a warning, one line without a line break and without the scenario's name: "nothing reads intKeyIndx; nearest:
  // intKeyIndex". An empty one, or one that is there already, is not added.
  void Warn(std::u16string_view warning);

  // A bag was given a key that nothing in the library reads. It becomes a warning unless someone reads it after all.
  void NoteUnreadKey(std::u16string_view key);
  void NoteReadKey(std::u16string_view key);

  // --- For the desktop -----------------------------------------------------------------------------------------

  // Another scenario is in use from now on. What the earlier ones leave to tell stays in the report; the same scenario,
  // loaded again with the same result, is told once.
  void Begin(std::shared_ptr<ScenarioRun> run);

 private:
  // A scenario that was loaded. Once nothing can use it any more, its summary takes its place.
  struct Part {
    std::shared_ptr<ScenarioRun> run;  // null: closed
    RunSummary summary;                // of a closed part
  };

  std::vector<RunSummary> Summaries() const;
  std::vector<std::u16string> OwnWarnings() const;
  void CloseUnusedParts();

  std::vector<Part> parts_;  // the last one is the scenario in use
  bool strictAsked_ = false;
  std::vector<std::u16string> warnings_;    // of the whole run
  std::vector<std::u16string> unreadKeys_;  // in the order of first setting
  std::set<std::u16string, std::less<>> readKeys_;
};

}  // namespace wendrill::simulator
