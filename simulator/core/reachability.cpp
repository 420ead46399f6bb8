#include "core/reachability.h"

#include <algorithm>
#include <set>

#include "common/text.h"
#include "core/differences.h"
#include "core/host_keys.h"
#include "core/nearest.h"

namespace wendrill::simulator {
namespace {

constexpr std::u16string_view kFirstState;

bool Holds(const auto& items, const auto& item) {
  return std::find(std::begin(items), std::end(items), item) != std::end(items);
}

std::u16string WithNearest(const std::u16string& text, std::u16string_view name,
                           const std::set<std::u16string>& known) {
  const std::vector<std::u16string_view> names(known.begin(), known.end());
  const auto nearest = NearestName(name, names);
  return nearest.empty() ? text : text + u"; nearest: " + InQuotes(nearest);
}

// Checks the session and the state that a reply or a PNR requires (Circumstances). WrongWith returns a description of
// the first mistake, or an empty string:
//   - no session with this name runs;
//   - no reply and no PNR sets this state, and the state is not the state at the start.
class CircumstancesCheck {
 public:
  explicit CircumstancesCheck(const Scenario& scenario)
      : sessions_(scenario.sessions.begin(), scenario.sessions.end()) {
    states_.insert(std::u16string(kFirstState));
    for (const ScenarioReply& reply : scenario.replies) {
      for (const auto& answer : reply.answers) {
        AddState(answer->then);
      }
    }
    for (const ScenarioPnr& pnr : scenario.pnrs) {
      AddState(pnr.then);
    }
  }

  std::u16string WrongWith(const Circumstances& where) const {
    if (where.session && !sessions_.contains(*where.session)) {
      return WithNearest(u"no session " + InQuotes(*where.session) + u" runs", *where.session, sessions_);
    }
    if (where.when && !states_.contains(*where.when)) {
      return WithNearest(u"nothing sets the state " + InQuotes(*where.when), *where.when, states_);
    }
    return {};
  }

 private:
  void AddState(const std::optional<std::u16string>& then) {
    if (then) {
      states_.insert(*then);
    }
  }

  std::set<std::u16string> sessions_;
  std::set<std::u16string> states_;
};

std::u16string NeverReached(const std::u16string& title, const std::u16string& why) {
  return title + u" is never reached: " + why;
}

std::u16string AnswersFirst(const std::u16string& title) {
  return title + u" always answers first";
}

// Finds the first element of `all` that precedes `later` and for which `comesFirst` returns true. Only the elements at
// the positions `candidates`, which are in ascending order, are tried. Null when there is no such element.
template <typename Part, typename ComesFirst>
const Part* FirstBefore(const Part& later, const std::vector<Part>& all, const Positions& candidates,
                        const ComesFirst& comesFirst) {
  for (const std::size_t position : candidates) {
    if (&all[position] >= &later) {
      break;
    }
    if (comesFirst(all[position], later)) {
      return &all[position];
    }
  }
  return nullptr;
}

// Whether `earlier` answers every entry that `later` could answer, so that `later` never answers. Always false when the
// group `earlier` has several replies: after each of them has answered once, `later` answers. May also be false
// although `later` never answers, where EntryMatcher::Covers does not recognise it.
bool AlwaysAnswersFirst(const ScenarioReply& earlier, const ScenarioReply& later) {
  return earlier.answers.size() == 1 && earlier.where.Cover(later.where) && earlier.matcher.Covers(later.matcher);
}

void CheckReplies(const Scenario& scenario, const CircumstancesCheck& circumstances,
                  std::vector<std::u16string>& warnings) {
  const auto& replies = scenario.replies;
  for (auto later = replies.begin(); later != replies.end(); ++later) {
    const std::u16string title = TitleOf(*later, *later->answers.front());
    if (const auto wrong = circumstances.WrongWith(later->where); !wrong.empty()) {
      warnings.push_back(NeverReached(title, wrong));
      continue;
    }
    if (const ScenarioReply* earlier =
            FirstBefore(*later, replies, scenario.index.RepliesThatMayCover(later->matcher), AlwaysAnswersFirst)) {
      warnings.push_back(NeverReached(title, AnswersFirst(TitleOf(*earlier, *earlier->answers.front()))));
    }
  }
}

// Whether `pnr` is at one of `positions`, and no other PNR at `positions` has the same session and state
// (Circumstances). `positions` are the PNRs that one entry retrieves. A PNR that is alone in this way is found every
// time. Several PNRs with the same session and state form a group: after each of them has been found once, the entry
// finds a PNR outside of the group.
bool IsAlone(const ScenarioPnr& pnr, const std::vector<ScenarioPnr>& all, const Positions& positions) {
  const auto isInGroup = [&](std::size_t position) { return all[position].where == pnr.where; };
  const auto first = std::ranges::find_if(positions, isInGroup);
  return first != positions.end() && &all[*first] == &pnr &&
         std::find_if(std::next(first), positions.end(), isInGroup) == positions.end();
}

void CheckPnrs(const Scenario& scenario, const CircumstancesCheck& circumstances,
               std::vector<std::u16string>& warnings) {
  const auto& pnrs = scenario.pnrs;
  for (auto later = pnrs.begin(); later != pnrs.end(); ++later) {
    std::vector<Positions> retrieved;  // for each entry that retrieves `later`: all PNRs that the entry retrieves
    for (const std::u16string& entry : later->RetrievingEntries()) {
      retrieved.push_back(scenario.index.PnrsFor(entry, later->where.when));
    }
    const auto alwaysFoundFirst = [&](const ScenarioPnr& before, const ScenarioPnr& after) {
      return before.where != after.where && before.where.Cover(after.where) &&
             std::ranges::all_of(retrieved,
                                 [&](const Positions& positions) { return IsAlone(before, pnrs, positions); });
    };
    const ScenarioPnr* const earlier =
        retrieved.empty() ? nullptr : FirstBefore(*later, pnrs, retrieved.front(), alwaysFoundFirst);
    if (const auto wrong = circumstances.WrongWith(later->where); !wrong.empty()) {
      warnings.push_back(NeverReached(TitleOf(*later), wrong));
    } else if (!later->onDisplay && retrieved.empty()) {
      warnings.push_back(
          NeverReached(TitleOf(*later), u"it has no RecordLocator and no entries, and is not on display"));
    } else if (!later->onDisplay && earlier != nullptr) {
      warnings.push_back(NeverReached(TitleOf(*later), AnswersFirst(TitleOf(*earlier))));
    }
  }
}

void CheckKeys(const ScenarioTerminal& terminal, std::vector<std::u16string>& warnings) {
  for (const std::int32_t key : terminal.silent) {
    const std::u16string name = u"silent key " + DecimalText(key);
    if (Holds(terminal.refuses, key)) {
      warnings.push_back(name + u" has no effect: the terminal refuses it");
    } else if (!Holds(kHostKeys, key)) {
      warnings.push_back(name + u" has no effect: it never raises an event");
    }
  }
}

}  // namespace

std::vector<std::u16string> UnreachableParts(const Scenario& scenario) {
  const CircumstancesCheck circumstances(scenario);
  std::vector<std::u16string> warnings;
  CheckKeys(scenario.terminal, warnings);
  CheckReplies(scenario, circumstances, warnings);
  CheckPnrs(scenario, circumstances, warnings);
  return warnings;
}

}  // namespace wendrill::simulator
