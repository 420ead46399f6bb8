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
#include <string>
#include <string_view>
#include <vector>

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
  bool StrictAsked() const;

  // --- For everyone who sees a mistake -------------------------------------------------------------------------

  // Adds a warning, one line without a line break and without the scenario's name: "nothing reads intKeyIndx; nearest:
  // intKeyIndex". A warning that is there already is not added again.
  void Warn(std::u16string_view warning);

 private:
  std::vector<std::u16string> warnings_;
};

}  // namespace wendrill::simulator
