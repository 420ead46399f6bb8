// What a recording was told, as it was told: nothing is hidden here yet.
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

// Texts that come again and again, each kept once: a program that polls its host shows the same screen a thousand
// times.
class KeptTexts {
 public:
  // A view that is valid as long as this object.
  std::u16string_view Keep(std::u16string_view text) {
    const auto known = texts_.find(text);
    return known == texts_.end() ? *texts_.emplace(text).first : *known;
  }

 private:
  redaction::TextSet texts_;
};

// Readings of a buffer one after the other, all with the same result.
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

// An entry that was transmitted.
struct ToldEntry {
  std::u16string_view session;
  std::u16string_view entry;
  std::int32_t error = 0;  // 0: sending it did not fail
  std::vector<Readings> readings;
  std::optional<ToldResponse> response;
  bool hadEvent = false;
};

// How many columns the rows of an answer have; those of a display where the terminal named none that are possible.
inline std::size_t ColumnsOf(const ToldEntry& told) {
  return told.response && told.response->columns > 0 ? static_cast<std::size_t>(told.response->columns) : kRowWidth;
}

// A PNR that was retrieved, by an entry or from the display.
struct ToldPnr {
  std::u16string_view session;
  std::optional<std::u16string_view> entry;
  std::int32_t error = 0;
  ReadPnr pnr;
  std::map<std::int32_t, std::vector<ReadObject>> collections;
};

using ToldCall = std::variant<ToldEntry, ToldPnr>;

// How often a key was pressed, by what happened.
struct ToldKey {
  std::int64_t refused = 0;
  std::int64_t accepted = 0;
  std::int64_t withEvent = 0;
  std::int64_t withoutEvent = 0;  // somebody listened in vain
};

// Answers to a question that a scenario answers always alike, or sentences for the user: each different answer once, in
// the order in which it came first.
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
  Answers<std::vector<std::u16string>> sessions;  // the lists of those that run
  Answers<std::u16string> usedSessions;           // those of which something was told
  Answers<std::u16string> versions;
  Answers<std::int32_t> terminalReady;
  Answers<std::int32_t> hostReady;
  Answers<std::int32_t> alarmCodes;
  bool alarmIsAbsent = false;
  bool alarmHasNoMethod = false;
  std::map<std::int32_t, ToldKey> keys;
  Answers<std::u16string> notReproducible;  // sentences
  bool isIncomplete = false;                // memory was short
};

}  // namespace wendrill::recording
