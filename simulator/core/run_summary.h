// What there is to tell about one scenario at the end of its run, as text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/scenario_run.h"

namespace wendrill::simulator {

struct RunSummary {
  std::u16string text;  // each line ended by CR LF; empty when there is nothing to tell
  std::vector<std::u16string> unanswered;
  std::vector<std::u16string> unused;
  std::vector<std::u16string> warnings;

  friend bool operator==(const RunSummary&, const RunSummary&) = default;
};

// The last part of a path.
std::u16string_view FileName(std::u16string_view path);

// `furtherWarnings` come after those of the scenario.
RunSummary Summarize(const ScenarioRun& run, const std::vector<std::u16string>& furtherWarnings = {});

}  // namespace wendrill::simulator
