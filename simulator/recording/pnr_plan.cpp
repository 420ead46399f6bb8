#include "recording/pnr_plan.h"

#include <algorithm>

#include "recording/toml_text.h"

namespace wendrill::recording {
namespace {

constexpr std::u16string_view kRetrievalHead = u"RT";

// The value of an index that refers to no PNR or to no event.
constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// The demands that the plan must meet. An attempt to make the plan fails when it discovers further demands, and adds
// them here for the next attempt. Events and retrievals are identified by their indexes in Story::events.
struct Demands {
  std::set<std::size_t> beginnings;  // events that must be the first event of a state
  std::set<std::size_t> misses;      // retrievals that found nothing and get an empty [[pnr]] for that result
  std::set<std::size_t> unplanned;   // retrievals that no scenario can reproduce
};

// One attempt to make the plan; it fails when it adds a demand to `demands`. Inside an attempt, a PNR is identified by
// its index in PnrPlan::pnrs.
class Attempt {
 public:
  Attempt(const Story& story, const Replies& replies, Demands& demands)
      : story_(story), replies_(replies), demands_(demands), uses_(story.events.size()) {
    plan_.then.resize(story.events.size());
  }

  // Makes the plan. Returns false when this attempt has added a demand, so that another attempt is needed.
  bool Succeeds() {
    for (std::size_t event = 0; event < story_.events.size(); ++event) {
      if (demands_.beginnings.contains(event) && !BeginState(event)) {
        return false;
      }
      if (std::holds_alternative<Exchange>(story_.events[event])) {
        last_ = replies_.IsReply(event) ? event : last_;
      } else if (!Fits(event) && (!BeginState(event) || (!Fits(event) && !DemandMissBefore(event)))) {
        return false;
      }
    }
    return true;
  }

  PnrPlan Take() { return std::move(plan_); }

 private:
  using Key = std::pair<std::u16string, std::u16string>;                 // a session and an entry
  using StoryKey = std::pair<std::u16string_view, std::u16string_view>;  // a session, and a display or a locator

  // The result of the first retrieval from a session's display in the current state, before an entry put a PNR on that
  // display in this state. `pnr` is kNone when the retrieval found no PNR.
  struct FirstOnDisplay {
    std::size_t pnr;
    // The locator of the PNR that the session's last retrieval by an entry put on display, in an earlier state. Empty
    // when there was no such retrieval, or when the PNR has no locator.
    std::u16string locatorBefore;
  };

  struct Use {
    std::size_t pnr = kNone;
    std::size_t number = 0;  // which use of the PNR this is, counted from 1
  };

  const Reading& ReadingAt(std::size_t event) const { return std::get<Reading>(story_.events[event]); }

  bool IsMiss(std::size_t event) const {
    const Reading& reading = ReadingAt(event);
    return reading.Error() == 0 && reading.told->pnr.status == 0 && reading.content->IsEmpty() &&
           !demands_.misses.contains(event);
  }

  // Begins a new state after `last_`, the last event that can have the key `then`. The retrievals between `last_` and
  // `event` found nothing or cannot be planned. They are processed again, because those that found nothing must find
  // nothing in the new state as well.
  // Returns false, after adding a demand, when the state cannot begin there:
  // - There is no such event in the current state.
  // - That event is not the first use of its PNR in the current state: every use would change the state.
  bool BeginState(std::size_t event) {
    if (last_ == kNone || last_ < stateBegan_) {
      return DemandMissBefore(event);
    }
    if (uses_[last_].number > 1) {
      for (std::size_t use = last_; uses_[use].number > 1; use = previous_[use]) {
        demands_.beginnings.insert(use);
      }
      return false;
    }
    ++plan_.states;
    stateBegan_ = last_ + 1;
    byEntry_.clear();
    byDisplay_.clear();
    byLocator_.clear();
    onDisplay_.clear();
    (uses_[last_].pnr == kNone ? plan_.then[last_] : plan_.pnrs[uses_[last_].pnr].then) = plan_.states - 1;
    for (std::size_t before = stateBegan_; before < event; ++before) {
      if (std::holds_alternative<Reading>(story_.events[before])) {
        Fits(before);
      }
    }
    return true;
  }

  // Adds a demand for the last retrieval before `event` that found nothing and has no empty [[pnr]] yet: that retrieval
  // gets an empty [[pnr]], so that a state can begin after it. When there is no such retrieval, marks `event` as
  // unplanned. Always returns false.
  bool DemandMissBefore(std::size_t event) {
    for (std::size_t before = event; before-- > 0;) {
      if (std::holds_alternative<Reading>(story_.events[before]) && IsWritable(ReadingAt(before)) && IsMiss(before)) {
        demands_.misses.insert(before);
        return false;
      }
    }
    demands_.unplanned.insert(event);
    return false;
  }

  // --- Whether a retrieval fits into the current state -------------------------------------------------------------

  // Whether the retrieval can have its recorded result in the current state. Adds a PNR to the state when the result
  // needs a PNR that the state does not have yet. Also returns true for a retrieval that cannot be planned.
  bool Fits(std::size_t event) {
    const Reading& reading = ReadingAt(event);
    if (!IsWritable(reading) || demands_.unplanned.contains(event)) {
      return true;  // the rehearsal reports the difference of a retrieval that cannot be planned
    }
    return reading.IsOfDisplay() ? FitsDisplay(event, reading) : FitsEntry(event, reading);
  }

  bool IsWritable(const Reading& reading) const {
    return !reading.IsHidden() && (reading.Error() == 0 || ErrorLiteral(reading.Error())) && !story_.sessions.empty() &&
           !reading.session.empty();
  }

  bool FitsEntry(std::size_t event, const Reading& reading) {
    const Key key{reading.session, reading.entry};
    std::size_t pnr = kNone;
    if (const auto known = byEntry_.find(key); known != byEntry_.end()) {
      if (known->second == kNone || IsMiss(event)) {
        return known->second == kNone && IsMiss(event);
      }
      pnr = known->second;
      if (!Brings(pnr, reading)) {
        return false;
      }
    } else if (IsMiss(event)) {
      byEntry_.emplace(key, kNone);
      return true;
    } else {
      pnr = FindSame(reading);
      if (IsTakenBefore(reading, pnr)) {
        return false;
      }
      if (pnr == kNone) {
        pnr = Add(reading);
      }
      if (pnr == kNone) {
        return false;
      }
      if (byEntry_.emplace(key, pnr).second) {
        plan_.pnrs[pnr].entries.push_back(reading.entry);
      }
    }
    Note(event, pnr, reading);
    if (reading.Error() == 0) {
      displayed_[reading.session] = pnr;
    }
    return true;
  }

  bool FitsDisplay(std::size_t event, const Reading& reading) {
    const auto displayed = displayed_.find(reading.session);
    const bool isBefore = displayed != displayed_.end();
    if (isBefore && IsOfThisState(displayed->second)) {
      return !IsMiss(event) && Brings(displayed->second, reading) && Note(event, displayed->second, reading);
    }
    if (const auto first = onDisplay_.find(reading.session); first != onDisplay_.end()) {
      if (first->second.pnr == kNone || IsMiss(event)) {
        return first->second.pnr == kNone && IsMiss(event);
      }
      return Brings(first->second.pnr, reading) && Note(event, first->second.pnr, reading);
    }
    if (IsMiss(event) && !isBefore) {
      onDisplay_.emplace(reading.session, FirstOnDisplay{kNone, {}});
      return true;
    }
    const std::u16string locatorBefore = isBefore ? plan_.pnrs[displayed->second].content.locator : std::u16string();
    std::size_t pnr = FindSame(reading);
    if (const std::size_t other = FindLocator(reading.session, locatorBefore); other != kNone && other != pnr) {
      return false;
    }
    if (pnr == kNone) {
      pnr = Add(reading);
    }
    if (pnr == kNone) {
      return false;
    }
    plan_.pnrs[pnr].onDisplay = true;
    onDisplay_.emplace(reading.session, FirstOnDisplay{pnr, locatorBefore});
    return Note(event, pnr, reading);
  }

  bool IsOfThisState(std::size_t pnr) const { return plan_.pnrs[pnr].state + 1 == plan_.states; }

  // Whether a retrieval of the planned PNR gives the recorded error number and status and, when the error number is 0,
  // the recorded content. The status is compared only when both are known: a retrieval by an entry has no status, and a
  // planned PNR has none until it is read from the display.
  bool Brings(std::size_t pnr, const Reading& reading) const {
    const PlannedPnr& planned = plan_.pnrs[pnr];
    const bool hasStatus = !reading.IsOfDisplay() || !planned.status || *planned.status == reading.told->pnr.status;
    return planned.error == reading.Error() && (planned.error != 0 || planned.content.AgreesWith(*reading.content)) &&
           hasStatus;
  }

  // The text of the display that the retrieval returned; empty for a retrieval that failed.
  static std::u16string_view DisplayOf(const Reading& reading) {
    return reading.Error() == 0 ? std::u16string_view(reading.content->display) : std::u16string_view();
  }

  std::size_t FindSame(const Reading& reading) const {
    const auto found = byDisplay_.find({reading.session, DisplayOf(reading)});
    if (found == byDisplay_.end()) {
      return kNone;
    }
    const auto same = std::find_if(found->second.rbegin(), found->second.rend(),
                                   [&](std::size_t pnr) { return Brings(pnr, reading); });
    return same == found->second.rend() ? kNone : *same;
  }

  std::size_t FindLocator(std::u16string_view session, std::u16string_view locator) const {
    const auto found = locator.empty() ? byLocator_.end() : byLocator_.find({session, locator});
    return found == byLocator_.end() ? kNone : found->second;
  }

  // Whether the PNR of `reading`, added to this state, would change the result of an earlier retrieval from the
  // display. This happens when the PNR has the locator of the PNR that was on display when the state began. In a
  // replay, the simulator would return the added PNR to the earlier retrieval, but the terminal returned another PNR.
  bool IsTakenBefore(const Reading& reading, std::size_t pnr) const {
    const auto first = onDisplay_.find(reading.session);
    return first != onDisplay_.end() && first->second.pnr != pnr && !first->second.locatorBefore.empty() &&
           first->second.locatorBefore == reading.content->locator;
  }

  // Adds a PNR for the retrieval to this state and returns the index of the PNR. Returns kNone when the entry RT with
  // the PNR's locator already has a result in this state.
  std::size_t Add(const Reading& reading) {
    const std::size_t pnr = plan_.pnrs.size();
    const PnrContent nothing;
    const PnrContent& content = reading.Error() == 0 ? *reading.content : nothing;
    if (!content.locator.empty()) {
      if (!byEntry_.emplace(Key(reading.session, std::u16string(kRetrievalHead) + content.locator), pnr).second) {
        return kNone;
      }
      byLocator_[{reading.session, content.locator}] = pnr;
    }
    plan_.pnrs.push_back({reading.session, plan_.states - 1, {}, false, reading.Error(), {}, content, {}});
    byDisplay_[{reading.session, DisplayOf(reading)}].push_back(pnr);
    return pnr;
  }

  bool Note(std::size_t event, std::size_t pnr, const Reading& reading) {
    PlannedPnr& planned = plan_.pnrs[pnr];
    if (reading.Error() == 0) {
      planned.content.Join(*reading.content);
    }
    if (reading.IsOfDisplay()) {
      planned.status = reading.told->pnr.status;
    }
    previous_[event] = last_;
    uses_[event] = {pnr, ++useCounts_[pnr]};
    last_ = event;
    return true;
  }

  const Story& story_;
  const Replies& replies_;
  Demands& demands_;
  PnrPlan plan_;
  std::size_t last_ = kNone;                      // the last event that can have the key `then`
  std::size_t stateBegan_ = 0;                    // the first event of this state
  std::vector<Use> uses_;                         // the PNR that each event used, by event
  std::map<std::size_t, std::size_t> useCounts_;  // how often each PNR has been used, by PNR
  std::map<std::size_t, std::size_t> previous_;   // by event that used a PNR: the value of `last_` before that event
  // These members, up to `onDisplay_`, describe only the current state and are cleared when a state begins. In
  // `byEntry_`, the value is kNone for an entry that found no PNR.
  std::map<Key, std::size_t> byEntry_;
  std::map<StoryKey, std::vector<std::size_t>> byDisplay_;
  std::map<StoryKey, std::size_t> byLocator_;  // the last PNR added to this state, by session and locator
  std::map<std::u16string, FirstOnDisplay> onDisplay_;

  // By session, the PNR that the last retrieval by an entry put on display. Not cleared when a state begins.
  std::map<std::u16string, std::size_t> displayed_;
};

}  // namespace

PnrPlan PlanOf(const Story& story, const Replies& replies) {
  Demands demands;
  for (;;) {
    Attempt attempt(story, replies, demands);
    if (attempt.Succeeds()) {
      return attempt.Take();
    }
  }
}

}  // namespace wendrill::recording
