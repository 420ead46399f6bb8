// One event, which is one line of a trace, and how the journal of the page shows it.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wendrill::transcript {

// The texts with which the journal shows an event, in UTF-8.
struct JournalLine {
  std::string text;     // what the event is about: the entry, key, operation, ...
  std::string problem;  // "unanswered", "not found", ...; empty when there is no problem
  std::string details;  // all other members, joined: "1.2 ms · type 22"
};

class Event {
 public:
  // Parses a line; nullopt when the line is not a JSON object. Half a surrogate pair becomes U+FFFD.
  static std::optional<Event> Read(std::string_view line);

  // The JSON text of the line, in which U+FFFD replaces each half of a surrogate pair that is alone.
  const std::string& Data() const { return data_; }

  // The value of a member as text; empty when the event does not have the member.
  std::string Text(std::string_view member) const;
  double Seconds() const;                                  // since the start of the run; 0 when the event has no `t`
  std::optional<std::int64_t> Number() const;              // the number of the event, its member `n`
  std::optional<std::int64_t> Same() const;                // the number of the event whose screen is shown again
  std::optional<std::vector<std::string>> Screen() const;  // the rows of the screen
  JournalLine Line() const;

 private:
  Event(std::string data, nlohmann::ordered_json object) : data_(std::move(data)), object_(std::move(object)) {}

  std::optional<std::int64_t> Integer(std::string_view member) const;
  // The text of the journal line, and the names of the members that the text contains.
  std::pair<std::string, std::vector<std::string_view>> Headline() const;
  std::string Problem() const;

  std::string data_;
  nlohmann::ordered_json object_;
};

}  // namespace wendrill::transcript
