// Where the replies and PNRs of a scenario are that an entry may mean: a recording has thousands of both, and each
// entry of a run asks for them.
//
// All positions are indexes from 0 in the scenario's lists, in ascending order. Whether something at a position really
// answers is left to the caller: its session, the form of a pattern, whose turn it is.
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

  // The replies for this entry alone, and those for entries of a form.
  Positions RepliesFor(std::u16string_view entry) const;

  // The replies that may answer first all that this matcher matches.
  Positions RepliesThatMayCover(const EntryMatcher& matcher) const;

  // The PNRs that the entry retrieves, or that the scenario puts on display: those of this state and those of each one.
  // Without a state those of each one alone.
  Positions PnrsFor(std::u16string_view entry, const std::optional<std::u16string>& state) const;
  Positions PnrsOnDisplay(const std::optional<std::u16string>& state) const;

 private:
  struct ByState {
    std::map<std::u16string, Positions> inOne;
    Positions inEach;

    void Add(const ScenarioPnr& pnr, std::size_t position);
    Positions In(const std::optional<std::u16string>& state) const;
  };

  std::map<std::u16string, Positions, std::less<>> replies_;  // by their one entry
  Positions forms_;
  std::map<std::u16string, ByState, std::less<>> pnrs_;  // by each entry that retrieves them
  ByState onDisplay_;
};

}  // namespace wendrill::simulator
