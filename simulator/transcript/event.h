// One line of a trace, and what the journal says about it.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wendrill::transcript {

// What the journal shows of an event, in UTF-8.
struct JournalLine {
  std::string text;     // what was sent, pressed, called, ...
  std::string problem;  // "unanswered", "not found", ...; empty when all is well
  std::string details;  // all other members: "type 22 · ms 1.2"
};

class Event {
 public:
  // nullopt for a line that is no object of JSON. Halves of surrogate pairs that stand alone become U+FFFD.
  static std::optional<Event> Read(std::string_view line);

  // The line, repaired where it had to be.
  const std::string& Data() const { return data_; }

  // A member as text; empty when the event does not have it.
  std::string Text(std::string_view member) const;
  double Seconds() const;                                  // since the start of the run; 0 where the event does not say
  std::optional<std::int64_t> Number() const;              // n
  std::optional<std::int64_t> Same() const;                // n of the event whose screen is shown again
  std::optional<std::vector<std::string>> Screen() const;  // the rows
  JournalLine Line() const;

 private:
  Event(std::string data, nlohmann::ordered_json object) : data_(std::move(data)), object_(std::move(object)) {}

  std::optional<std::int64_t> Integer(std::string_view member) const;
  // The text of the line, and the members of which it consists.
  std::pair<std::string, std::vector<std::string_view>> Headline() const;
  std::string Problem() const;

  std::string data_;
  nlohmann::ordered_json object_;
};

}  // namespace wendrill::transcript
