// The recorded answers as the [[reply]] tables of a scenario.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "recording/story.h"

namespace wendrill::recording {

// One [[reply]] but for what it answers.
struct Answer {
  std::vector<std::u16string_view> pages;  // empty: the host never answers, or sending fails
  std::optional<std::u16string_view> text;
  std::int32_t type = 0;
  std::int16_t columns = 0;  // 0: not known
  std::int16_t lines = -1;   // -1: not known
  std::int64_t late = 0;
  bool never = false;
  std::int32_t error = 0;
  std::optional<std::size_t> then;  // the number of the state after it

  friend bool operator==(const Answer&, const Answer&) = default;
};

// The answers to all entries of one form in one session, in turn.
struct Reply {
  std::u16string session;
  std::u16string form;
  bool isForm = false;                                  // `like`, else `entry`
  std::vector<std::u16string_view> entries;             // that it has answered, as they were sent
  std::vector<std::pair<std::size_t, Answer>> answers;  // with the number of the event
};

// How the events that are answers become replies.
class Replies {
 public:
  explicit Replies(const Story& story);

  // Whether the event is an answer that a reply of its own gives: no further page, no error that a scenario cannot say.
  bool IsReply(std::size_t event) const { return isReply_[event]; }

  // The replies in the order of the file, with as few answers as possible. `states` has the number of the state after
  // an event, where it begins one.
  std::vector<Reply> InOrder(const std::vector<std::optional<std::size_t>>& states) const;

 private:
  std::vector<Reply> replies_;
  std::vector<bool> isReply_;
};

}  // namespace wendrill::recording
