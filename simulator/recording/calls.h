// The recorded calls, with all texts verbatim. Personal data is hidden only in the story that is made of the calls.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "common/text.h"
#include "recording/recording.h"
#include "redaction/pseudonyms.h"

namespace wendrill::recording {

// Stores each distinct text only once, because a program that polls its host receives the same screen a thousand times.
class KeptTexts {
 public:
  // Returns a view of the stored text, valid as long as this object exists.
  std::u16string_view Keep(std::u16string_view text) {
    const auto known = texts_.find(text);
    return known == texts_.end() ? *texts_.emplace(text).first : *known;
  }

 private:
  redaction::TextSet texts_;
};

// Consecutive readings of a response's buffer with equal results, all made by the program or all made by the recorder.
struct Readings {
  std::u16string_view buffer;
  std::int64_t times = 0;
  bool byTheProgram = true;
};

struct ToldResponse {
  std::u16string_view entry;
  std::u16string_view text;
  std::int32_t type = 0;
  std::int16_t columns = 0;
  std::int16_t lines = 0;
};

// An entry that the program sent, and what the program and the recorder read of the host's answer.
struct ToldEntry {
  std::u16string_view session;
  std::u16string_view entry;
  std::int32_t error = 0;  // the error number of Send; 0 when Send succeeded
  std::vector<Readings> readings;
  std::optional<ToldResponse> response;
  bool hadEvent = false;
};

// The number of columns in the rows of an answer: the response's number of columns if that number was read and is
// positive, else kRowWidth.
inline std::size_t ColumnsOf(const ToldEntry& told) {
  return told.response && told.response->columns > 0 ? static_cast<std::size_t>(told.response->columns) : kRowWidth;
}

// A retrieval of a PNR, by an entry or, when `entry` is nullopt, from the display.
struct ToldPnr {
  std::u16string_view session;
  std::optional<std::u16string_view> entry;
  std::int32_t error = 0;
  ReadPnr pnr;
  std::map<std::int32_t, std::vector<ReadObject>> collections;
};

using ToldCall = std::variant<ToldEntry, ToldPnr>;

// How often one key was pressed: a count for each outcome.
struct ToldKey {
  std::int64_t refused = 0;
  std::int64_t accepted = 0;
  std::int64_t withEvent = 0;
  std::int64_t withoutEvent = 0;  // accepted, and the program listened, but no event came
};

// A list without duplicates, in the order of first appearance. One use is a list of the different versions that the
// terminal reported: a scenario can express only the first version, and Differ returns whether there were others.
// Another use is a list of sentences for the user.
template <typename Answer>
class Answers {
 public:
  void Add(const Answer& answer) {
    if (!known_.contains(answer)) {
      all_.push_back(answer);
      known_.insert(answer);
    }
  }
  const std::vector<Answer>& All() const { return all_; }
  std::vector<Answer> Take() && { return std::move(all_); }
  bool Differ() const { return all_.size() > 1; }
  std::optional<Answer> First() const { return all_.empty() ? std::nullopt : std::optional(all_.front()); }

 private:
  std::vector<Answer> all_;
  std::set<Answer> known_;
};

struct Calls {
  KeptTexts texts;
  std::vector<ToldCall> all;
  Answers<std::vector<std::u16string>> sessions;  // each different list of running sessions that the terminal returned
  Answers<std::u16string> usedSessions;           // the names of the sessions that occur in a recorded call
  Answers<std::u16string> versions;
  Answers<std::int32_t> terminalReady;
  Answers<std::int32_t> hostReady;
  Answers<std::int32_t> alarmCodes;
  bool alarmIsAbsent = false;
  bool alarmHasNoMethod = false;
  std::map<std::int32_t, ToldKey> keys;
  Answers<std::u16string> notReproducible;  // sentences for the user
  bool isIncomplete = false;                // whether a call or an event is missing because memory was short
};

}  // namespace wendrill::recording
