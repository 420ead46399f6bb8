#include "recording/replies.h"

#include <algorithm>
#include <map>
#include <set>
#include <span>
#include <utility>

#include "core/entry_matcher.h"
#include "recording/toml_text.h"

namespace wendrill::recording {
namespace {

constexpr std::u16string_view kNextPage = u"MD";

// The largest value of the key `late` in a scenario.
constexpr std::int64_t kMostLateReads = 1'000'000;

Answer AnswerOf(const Exchange& exchange) {
  Answer answer;
  answer.error = exchange.Error();
  answer.never = exchange.never;
  answer.late = std::min(exchange.late, kMostLateReads);
  if (answer.error != 0) {
    return answer;
  }
  if (const auto& response = exchange.told->response) {
    answer.type = response->type;
    answer.columns = response->columns;
    answer.lines = response->lines;
  }
  if (!answer.never) {
    answer.pages.push_back(exchange.buffer);
    if (exchange.text != exchange.buffer) {
      answer.text = exchange.text;
    }
  }
  return answer;
}

// Whether `next` is a further page of `first`. `first` is the answer that the session's screen shows, and `next` is the
// answer of `exchange`. True when all of these are true: `exchange` sent the entry MD; the screens of both answers are
// not empty; both have equal types, sizes and `late`; neither has a `text`.
bool IsNextPage(const Exchange& exchange, const Answer& next, const Answer& first) {
  const auto isShown = [](const Answer& answer) { return !answer.pages.empty() && !answer.pages.back().empty(); };
  return exchange.told->entry == kNextPage && exchange.told->response && isShown(first) && isShown(next) &&
         !first.text && !next.text && first.type == next.type && first.columns == next.columns &&
         first.lines == next.lines && first.late == next.late;
}

std::size_t OpenPlaces(const Reply& reply) {
  return reply.isForm ? static_cast<std::size_t>(std::ranges::count(reply.form, u'?')) : 0;
}

// Whether `reply` has a pattern that also matches an entry of `other`. A pattern is as long as the entries that it
// matches, because ? is its only wildcard.
bool AnswersOneOf(const Reply& reply, const Reply& other) {
  return reply.isForm && reply.session == other.session && reply.form.size() == other.form.size() &&
         std::ranges::any_of(other.entries,
                             [&](std::u16string_view entry) { return simulator::IsLike(entry, reply.form); });
}

// Removes the answers that `reply` does not need. `later` contains the replies that follow `reply` in the file.
// - When all answers are equal, only the first is kept, whatever `later` contains: the simulator always repeats a
//   single answer.
// - When only the last answers are equal, the first of these is kept if no reply in `later` matches an entry of
//   `reply`: the simulator then repeats the last answer. If a reply in `later` matches, all answers are kept: the
//   simulator gives each of them once and then goes on to the later reply.
void Shorten(Reply& reply, std::span<const Reply> later) {
  auto& answers = reply.answers;
  const auto isAsFirst = [&](const auto& each) { return each.second == answers.front().second; };
  if (std::ranges::all_of(answers, isAsFirst)) {
    answers.resize(1);
  }
  const auto repeats = [&] {
    return answers.size() > 1 && answers[answers.size() - 2].second == answers.back().second;
  };
  if (!repeats() || std::ranges::any_of(later, [&](const Reply& each) { return AnswersOneOf(each, reply); })) {
    return;
  }
  while (repeats()) {
    answers.pop_back();
  }
}

}  // namespace

Replies::Replies(const Story& story) : isReply_(story.events.size()) {
  struct OnScreen {
    std::size_t reply;
    std::size_t answer;
    bool isClosed;  // an entry MD failed after this answer, so this answer gets no further page
  };
  // For each session and pattern, the index of the reply in `replies_`.
  std::map<std::pair<std::u16string, std::u16string>, std::size_t> places;
  // The entries that are already in `entries` of a reply. Each entry is paired with the index of that reply in
  // `replies_`.
  std::set<std::pair<std::size_t, std::u16string_view>> answered;
  std::map<std::u16string, OnScreen> screens;
  for (std::size_t event = 0; event < story.events.size(); ++event) {
    const auto* exchange = std::get_if<Exchange>(&story.events[event]);
    const bool isKnown = exchange != nullptr && (exchange->Error() == 0 || ErrorLiteral(exchange->Error()));
    if (!isKnown || story.sessions.empty()) {
      continue;
    }
    Answer answer = AnswerOf(*exchange);
    if (const auto screen = screens.find(exchange->session); screen != screens.end()) {
      OnScreen& shown = screen->second;
      Answer& first = replies_[shown.reply].answers[shown.answer].second;
      if (!shown.isClosed && IsNextPage(*exchange, answer, first)) {
        first.pages.push_back(answer.pages.front());
        continue;
      }
      shown.isClosed = shown.isClosed || exchange->told->entry == kNextPage;
    }
    const auto [place, isNew] = places.try_emplace({exchange->session, exchange->form}, replies_.size());
    if (isNew) {
      replies_.push_back({exchange->session, exchange->form, exchange->IsHidden(), {}, {}});
    }
    Reply& reply = replies_[place->second];
    if (answered.emplace(place->second, exchange->told->entry).second) {
      reply.entries.push_back(exchange->told->entry);
    }
    isReply_[event] = true;
    if (answer.error == 0) {  // an entry that failed leaves the screen unchanged
      screens[exchange->session] = {place->second, reply.answers.size(), false};
    }
    reply.answers.emplace_back(event, std::move(answer));
  }
}

std::vector<Reply> Replies::InOrder(const std::vector<std::optional<std::size_t>>& states) const {
  std::vector<Reply> replies = replies_;
  for (Reply& reply : replies) {
    for (auto& [event, answer] : reply.answers) {
      answer.then = states[event];
    }
  }
  // The simulator answers with the first reply whose pattern matches. A pattern with more wildcards may match the
  // entries of a pattern with fewer wildcards. So the pattern with fewer wildcards comes first.
  std::ranges::stable_sort(replies, {}, OpenPlaces);
  for (auto reply = replies.begin(); reply != replies.end(); ++reply) {
    Shorten(*reply, {reply + 1, replies.end()});
  }
  return replies;
}

}  // namespace wendrill::recording
