// Plans the [[pnr]] tables of a scenario that returns the PNRs that the terminal returned.
//
// A retrieval gets a PNR by an entry, or the PNR that is on display. The simulator considers only the PNRs of the
// current state of the scenario. The plan goes through the recorded retrievals in order, as the simulator will in a
// replay. A retrieval fits into the current state if a PNR that is planned for this state returns what was read, or if
// such a PNR can be added to the state. When a retrieval does not fit, a new state begins, with PNRs of its own.
//
// In the scenario, the key `then` of an earlier event changes to the new state. Only an answer to an entry, or a
// retrieval that got a planned PNR, can have `then`. The plan gives it to the last such event before the retrieval.
//
// If that event is a retrieval, its PNR gets `then`. The simulator then changes the state at every use of that PNR, so
// the PNR may be used only once in its state. When the event is the second or a later use of its PNR, the plan needs
// one more state, which begins with this event: the PNR is planned again in that state and used there only once. This
// is discovered too late to begin that state, so the plan is made again from the beginning, with the requirement that a
// state begins with this event.
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

// One [[pnr]] table.
struct PlannedPnr {
  std::u16string session;
  std::size_t state = 0;
  std::vector<std::u16string> entries;  // the entries that retrieve the PNR, except RT with the PNR's locator
  bool onDisplay = false;
  std::int32_t error = 0;
  std::optional<std::int32_t> status;  // nullopt until the PNR is read from the display
  PnrContent content;
  std::optional<std::size_t> then;
};

struct PnrPlan {
  std::vector<PlannedPnr> pnrs;
  std::size_t states = 1;
  // For each event: the number of the state that begins after the event, if the event is an answer to an entry and a
  // state begins after that answer. Otherwise nullopt.
  std::vector<std::optional<std::size_t>> then;
};

PnrPlan PlanOf(const Story& story, const Replies& replies);

}  // namespace wendrill::recording
