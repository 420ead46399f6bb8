#include "core/running_session.h"

#include <algorithm>

#include "core/gate.h"

namespace wendrill::simulator {
namespace {

constexpr std::u16string_view kNextPage = u"MD";

}  // namespace

bool RunningSession::Knows(std::u16string_view entry) const {
  return (entry == kNextPage && HasNextPage()) || ReplyFor(entry) < scenario_->replies.size();
}

std::shared_ptr<ScreenContent> RunningSession::Answer(std::u16string_view entry) {
  auto content = std::make_shared<ScreenContent>();
  if (entry == kNextPage && HasNextPage()) {
    content->answer = screen_->answer;
    content->page = screen_->page + 1;
  } else {
    content->answer = TurnOf(entry);
  }
  if (content->answer->error != 0) {
    Fail(content->answer->error, u"The scenario lets the entry \"" + std::u16string(entry) + u"\" fail.");
  }
  content->entry = entry;
  content->emptyReads = content->answer->late;
  screen_ = content;
  return content;
}

bool RunningSession::HasNextPage() const {
  return screen_ != nullptr && screen_->page + 1 < screen_->answer->pages.size();
}

// The index of the reply for an entry; the number of replies when no reply matches.
std::size_t RunningSession::ReplyFor(std::u16string_view entry) const {
  const auto& replies = scenario_->replies;
  const auto found = std::find_if(replies.begin(), replies.end(),
                                  [entry](const ScenarioReply& reply) { return reply.Matches(entry); });
  return static_cast<std::size_t>(found - replies.begin());
}

std::shared_ptr<const ScenarioAnswer> RunningSession::TurnOf(std::u16string_view entry) {
  const std::size_t place = ReplyFor(entry);
  if (place == scenario_->replies.size()) {
    return scenario_->unknown;
  }
  turns_.resize(scenario_->replies.size());
  const auto& answers = scenario_->replies[place].answers;
  const std::size_t turn = std::min(turns_[place], answers.size() - 1);
  ++turns_[place];
  return answers[turn];
}

}  // namespace wendrill::simulator
