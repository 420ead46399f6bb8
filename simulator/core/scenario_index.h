// Finds the replies and PNRs of a scenario that may answer an entry, without a search through all of them: a scenario
// from the recorder has thousands of replies and PNRs.
//
// The results are positions: indexes from 0 into Scenario::replies or Scenario::pnrs, in ascending order. A position is
// only a candidate. The caller checks the rest:
//   - whether the reply or PNR at the position answers in the session;
//   - for a reply also whether its pattern matches the entry, and whether it answers in the current state;
//   - whether the group of the reply or PNR still has an unused answer.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/entry_matcher.h"

namespace wendrill::simulator {

struct ScenarioReply;
struct ScenarioPnr;

using Positions = std::vector<std::size_t>;

class ScenarioIndex {
 public:
  ScenarioIndex() = default;
  ScenarioIndex(const std::vector<ScenarioReply>& replies, const std::vector<ScenarioPnr>& pnrs);

  // The positions of the replies for exactly this entry and of all replies with a pattern (starts, contains or like),
  // whether or not the pattern matches the entry.
  Positions RepliesFor(std::u16string_view entry) const;

  // The positions of the replies that may match every entry that `matcher` matches. Some of these replies may not; the
  // caller checks each reply with EntryMatcher::Covers.
  Positions RepliesThatMayCover(const EntryMatcher& matcher) const;

  // The positions of the PNRs that the entry retrieves in the state `state`: the PNRs whose `when` is this state, and
  // the PNRs without `when`. When `state` is nullopt, the result has only the PNRs without `when`.
  Positions PnrsFor(std::u16string_view entry, const std::optional<std::u16string>& state) const;

  // The positions of the PNRs with `on_display` that answer in the state `state`: the PNRs whose `when` is this state,
  // and the PNRs without `when`. When `state` is nullopt, the result has only the PNRs without `when`.
  Positions PnrsOnDisplay(const std::optional<std::u16string>& state) const;

 private:
  // The positions of PNRs, grouped by the state in which the PNRs answer.
  struct ByState {
    std::map<std::u16string, Positions> inOne;  // the PNRs with `when`, keyed by the state in `when`
    Positions inEach;                           // the PNRs without `when`, which answer in every state

    void Add(const ScenarioPnr& pnr, std::size_t position);
    Positions In(const std::optional<std::u16string>& state) const;
  };

  std::map<std::u16string, Positions, std::less<>> replies_;  // keyed by the exact entry that the replies answer
  Positions forms_;                                           // the replies with a pattern
  std::map<std::u16string, ByState, std::less<>> pnrs_;       // keyed by each entry that retrieves the PNRs
  ByState onDisplay_;                                         // the PNRs with `on_display`
};

}  // namespace wendrill::simulator
