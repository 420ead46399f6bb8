#include "core/scenario_index.h"

#include <algorithm>
#include <iterator>

#include "core/scenario.h"

namespace wendrill::simulator {
namespace {

Positions Merged(const Positions& one, const Positions& other) {
  Positions all;
  all.reserve(one.size() + other.size());
  std::merge(one.begin(), one.end(), other.begin(), other.end(), std::back_inserter(all));
  return all;
}

// Appends the position, unless the last item of `positions` already equals it. Without this check, a PNR whose
// `entries` contain an entry twice would have its position twice in the list for this entry.
void AddOnce(Positions& positions, std::size_t position) {
  if (positions.empty() || positions.back() != position) {
    positions.push_back(position);
  }
}

}  // namespace

ScenarioIndex::ScenarioIndex(const std::vector<ScenarioReply>& replies, const std::vector<ScenarioPnr>& pnrs) {
  for (std::size_t i = 0; i < replies.size(); ++i) {
    const EntryMatcher& matcher = replies[i].matcher;
    (matcher.kind == MatchKind::Entry ? replies_[matcher.text] : forms_).push_back(i);
  }
  for (std::size_t i = 0; i < pnrs.size(); ++i) {
    for (const std::u16string& entry : pnrs[i].RetrievingEntries()) {
      pnrs_[entry].Add(pnrs[i], i);
    }
    if (pnrs[i].onDisplay) {
      onDisplay_.Add(pnrs[i], i);
    }
  }
}

Positions ScenarioIndex::RepliesFor(std::u16string_view entry) const {
  const auto found = replies_.find(entry);
  return found == replies_.end() ? forms_ : Merged(found->second, forms_);
}

// When `matcher` has a pattern, only replies with a pattern are candidates: a reply for one exact entry cannot match
// every entry that fits the pattern.
Positions ScenarioIndex::RepliesThatMayCover(const EntryMatcher& matcher) const {
  return matcher.kind == MatchKind::Entry ? RepliesFor(matcher.text) : forms_;
}

Positions ScenarioIndex::PnrsFor(std::u16string_view entry, const std::optional<std::u16string>& state) const {
  const auto found = pnrs_.find(entry);
  return found == pnrs_.end() ? Positions() : found->second.In(state);
}

Positions ScenarioIndex::PnrsOnDisplay(const std::optional<std::u16string>& state) const {
  return onDisplay_.In(state);
}

void ScenarioIndex::ByState::Add(const ScenarioPnr& pnr, std::size_t position) {
  AddOnce(pnr.where.when ? inOne[*pnr.where.when] : inEach, position);
}

Positions ScenarioIndex::ByState::In(const std::optional<std::u16string>& state) const {
  const auto found = state ? inOne.find(*state) : inOne.end();
  return found == inOne.end() ? inEach : Merged(found->second, inEach);
}

}  // namespace wendrill::simulator
