// Which [[pnr]] tables bring what the terminal returned.
//
// A scenario finds a PNR by what retrieves it and by the state that the scenario is in. The plan goes through the
// recording as the simulator will go through the replay: as long as a PNR that is there already, or one that can be
// added, brings what was read, the state stays. Where that would be something else, a new state begins, with PNRs of
// its own. The last event before it brings it about: the answer to an entry, else a PNR that was read.
//
// A PNR brings its state about whenever it is used. So the one that begins a state must be used but once in its own
// state; where it is used more often, its last use begins a state, too. That is found when the recording has been gone
// through up to there: then the plan is made again from the beginning, with what is known now.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "recording/replies.h"
#include "recording/story.h"

namespace wendrill::recording {

// One [[pnr]].
struct PlannedPnr {
  std::u16string session;
  std::size_t state = 0;
  std::vector<std::u16string> entries;  // beside RT and the locator
  bool onDisplay = false;
  std::int32_t error = 0;
  std::optional<std::int32_t> status;  // known once it was read from the display
  PnrContent content;
  std::optional<std::size_t> then;
};

struct PnrPlan {
  std::vector<PlannedPnr> pnrs;
  std::size_t states = 1;
  std::vector<std::optional<std::size_t>> then;  // for each event that is an answer: the state after it
};

PnrPlan PlanOf(const Story& story, const Replies& replies);

}  // namespace wendrill::recording
