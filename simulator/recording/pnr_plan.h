// Plans the [[pnr]] tables of a scenario that returns the PNRs that the terminal returned.
//
// A retrieval gets a PNR by an entry, or the PNR that is on display. The simulator considers only the PNRs of the
// current state of the scenario. The plan is made by going through the recorded retrievals in order, as the simulator
// will in a replay. A retrieval fits into the current state if a planned PNR of that state returns what was read, or if
// such a PNR can be added to the state. When a retrieval does not fit, a new state begins, with its own PNRs. The last
// event before the retrieval that can have the key `then` changes to the new state. Such an event is an answer to an
// entry or a retrieval of a PNR.
//
// A PNR with `then` changes the state each time the PNR is used. So such a PNR must be used only once in its own state.
// If a new state must begin after the second or a later use of a PNR, that use itself must become the first event of
// another new state. This requirement is discovered only when the recording has been processed up to that use; the plan
// is then made again from the beginning, with the requirement added.
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
