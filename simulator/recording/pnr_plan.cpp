#include "recording/pnr_plan.h"

#include <algorithm>

#include "recording/toml_text.h"

namespace wendrill::recording {
namespace {

constexpr std::u16string_view kRetrievalHead = u"RT";

// An index that means: no PNR, or no event.
constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// Requirements on the plan, which earlier attempts have discovered.
struct Demands {
  std::set<std::size_t> beginnings;  // events that must be the first event of a state
  std::set<std::size_t> misses;      // retrievals that found nothing and get an empty [[pnr]] for that result
  std::set<std::size_t> unplanned;   // retrievals that no scenario can reproduce
};

// One attempt to make the plan. Inside an attempt, a PNR is identified by its index in PnrPlan::pnrs.
class Attempt {
 public:
  Attempt(const Story& story, const Replies& replies, Demands& demands)
      : story_(story), replies_(replies), demands_(demands), uses_(story.events.size()) {
    plan_.then.resize(story.events.size());
  }

  // Makes the plan. Returns false when the attempt has added a demand, so that another attempt is needed.
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

  // The result of the first retrieval from the display of a session in this state. Retrievals that were made while a
  // PNR of this state was on that display do not count. `pnr` is kNone when the retrieval found no PNR.
  struct FirstOnDisplay {
    std::size_t pnr;
    // The locator of the PNR that was on display when the state began; empty when there was no such PNR.
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

  // Begins a new state after `last_`, the last event after which a state can begin. The retrievals between that event
  // and `event` found nothing or cannot be planned; they are processed again, because those that found nothing must
  // find nothing in the new state as well. Returns false when no state can begin after `last_`; BeginState has then
  // added a demand.
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

  // Whether a planned PNR of this state, or a PNR that this function adds to the state, returns what was read. Also
  // true for a retrieval that cannot be planned.
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

  // Whether the planned PNR returns what was read. The status is compared only for a reading from the display, because
  // no other reading has a status.
  bool Brings(std::size_t pnr, const Reading& reading) const {
    const PlannedPnr& planned = plan_.pnrs[pnr];
    const bool hasStatus = !reading.IsOfDisplay() || !planned.status || *planned.status == reading.told->pnr.status;
    return planned.error == reading.Error() && (planned.error != 0 || planned.content.AgreesWith(*reading.content)) &&
           hasStatus;
  }

  // The display that was read; empty for a reading that failed.
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

  // Whether the PNR of `reading`, added to this state, would change the result of an earlier reading from the display.
  // This happens when the PNR has the locator of the PNR that was on display when the state began: in a replay the
  // simulator would return the added PNR to the earlier reading, but the terminal returned another PNR.
  bool IsTakenBefore(const Reading& reading, std::size_t pnr) const {
    const auto first = onDisplay_.find(reading.session);
    return first != onDisplay_.end() && first->second.pnr != pnr && !first->second.locatorBefore.empty() &&
           first->second.locatorBefore == reading.content->locator;
  }

  // Adds a PNR for the reading to this state and returns the index of the PNR. Returns kNone when, in this state, the
  // entry RT with the PNR's locator has already had another result.
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
  std::size_t last_ = kNone;                      // the last event after which a state can begin
  std::size_t stateBegan_ = 0;                    // the first event of this state
  std::vector<Use> uses_;                         // the PNR that each event used, by event
  std::map<std::size_t, std::size_t> useCounts_;  // how often each PNR has been used, by PNR
  std::map<std::size_t, std::size_t> previous_;   // by event that used a PNR: the value of `last_` before that event
  // The members from here to `onDisplay_` are cleared when a state begins.
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
