// The report of a run for the author of the script. It lists the entries that nothing answered, with the nearest
// replies and PNRs; replies and PNRs that were never used; packed entries that ended early; retrievals that found no
// PNR; groups of replies or PNRs that had to answer again although all their members had answered; and warnings.
//
// The simulated components write to the report while they work. The report is read by:
//   - the script host, which is another program than the simulator: through QuilletSimulator.Control, whose members
//     Report, Unanswered, Unused, Warnings, Strict, Findings and Warn call the functions below;
//   - objects inside QuilletSimulator.dll: through TheSimulation().world.Findings();
//   - native tests: through World::Findings(), and World::Report() for the text.
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

  // The whole report, each line ended by CR LF; empty when there is nothing to report. Scenarios appear in the order in
  // which they were loaded.
  std::u16string Text() const;

  // The entries that nothing answered, each once per loaded scenario, in the order in which they were first sent.
  std::vector<std::u16string> Unanswered() const;

  // The titles of the replies and PNRs that were never used, such as: line 7, entry = "NEVERUSED"
  // Replies and PNRs with `optional = true` are left out.
  std::vector<std::u16string> Unused() const;

  // The warnings of all scenarios. Those of the current scenario include the warnings of Warn and NoteUnreadKey.
  std::vector<std::u16string> Warnings() const;

  // The number of findings that make a strict run fail: unanswered entries, unused replies and PNRs, and warnings.
  std::int32_t Findings() const;

  // Whether any scenario of this run has `on = true` in [strict].
  bool StrictAsked() const { return strictAsked_; }

  // --- For everyone who sees a mistake -------------------------------------------------------------------------

  // Adds a warning: one line without a line break and without the scenario's name, such as "nothing reads intKeyIndx;
  // nearest: intKeyIndex". Ignores an empty warning and a warning that was added before.
  void Warn(std::u16string_view warning);

  // NoteUnreadKey adds a key that a script stored in a bag and that the library does not read. NoteReadKey marks a key
  // as used by the script or the library. Each added key becomes a warning, unless it is marked as used: the mark may
  // be set before or after the key is added.
  void NoteUnreadKey(std::u16string_view key);
  void NoteReadKey(std::u16string_view key);

  // --- For the desktop -----------------------------------------------------------------------------------------

  // Makes `run` the current scenario. The results of earlier scenarios stay in the report. When several earlier
  // scenarios have equal results, and no simulated object refers to these scenarios any more, the report contains the
  // results only once.
  void Begin(std::shared_ptr<ScenarioRun> run);

 private:
  // One loaded scenario. Begin closes each part to whose run no other object refers: the part keeps the summary of the
  // run and releases the run.
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
