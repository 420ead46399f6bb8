// Converts the recorded answers to the [[reply]] tables of a scenario.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "recording/story.h"

namespace wendrill::recording {

// The contents of one [[reply]], except the keys that say which entries the reply answers.
struct Answer {
  std::vector<std::u16string_view> pages;  // empty when the host never answers, or when sending fails
  std::optional<std::u16string_view> text;
  std::int32_t type = 0;
  std::int16_t columns = 0;  // 0: unknown
  std::int16_t lines = -1;   // -1: unknown
  std::int64_t late = 0;
  bool never = false;
  std::int32_t error = 0;
  std::optional<std::size_t> then;  // the state that begins after this answer; nullopt: no state begins

  friend bool operator==(const Answer&, const Answer&) = default;
};

// The answers of one session to the entries that match one pattern. The simulator gives the answers in their order.
struct Reply {
  std::u16string session;
  std::u16string form;
  bool isForm = false;                                  // true: `form` is a `like` pattern; false: `form` is an entry
  std::vector<std::u16string_view> entries;             // each distinct entry that this reply answered, verbatim
  std::vector<std::pair<std::size_t, Answer>> answers;  // each with the index of its event in the story
};

// Creates the replies from the answers in a story: one reply for each session and pattern of entries.
class Replies {
 public:
  explicit Replies(const Story& story);

  // Whether the event became an answer of a reply. False for a retrieval of a PNR, for a further page of an earlier
  // answer, and for an error number that a scenario cannot contain. Always false when the story has no session.
  bool IsReply(std::size_t event) const { return isReply_[event]; }

  // Returns the replies in the order of the file, each with as few answers as possible. `states` contains, for each
  // event, the number of the state that begins after that event; nullopt when no state begins after that event.
  std::vector<Reply> InOrder(const std::vector<std::optional<std::size_t>>& states) const;

 private:
  std::vector<Reply> replies_;
  std::vector<bool> isReply_;
};

}  // namespace wendrill::recording
