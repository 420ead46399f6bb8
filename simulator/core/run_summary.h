// The results of a run of one scenario, as text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/scenario_run.h"

namespace wendrill::simulator {

// The results of a run of one scenario. `text` contains all results. The lists contain only the results that make a
// strict run fail: `unanswered` the entries that nothing answered, `unused` the titles (TitleOf) of replies and PNRs
// that were never used, `warnings` the warnings.
struct RunSummary {
  std::u16string text;  // all results, each line ended by CR LF; empty when there is nothing to report
  std::vector<std::u16string> unanswered;
  std::vector<std::u16string> unused;
  std::vector<std::u16string> warnings;

  friend bool operator==(const RunSummary&, const RunSummary&) = default;
};

// The part of a path after its last slash or backslash; the whole path when it has neither.
std::u16string_view FileName(std::u16string_view path);

// The results of a run so far. The list of warnings ends with `furtherWarnings`, after the warnings about the scenario.
RunSummary Summarize(const ScenarioRun& run, const std::vector<std::u16string>& furtherWarnings = {});

}  // namespace wendrill::simulator
