// One event, which is one line of a trace, and the texts with which the journal of the HTML page shows the event.
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
  // The other members of the event, joined: "1.2 ms · type 22". These members are left out: the members that `text` or
  // `problem` expresses, the members that the journal shows in columns, the members about the screen, and every Boolean
  // that can mean a problem (such as `answered`), whatever its value.
  std::string details;
};

class Event {
 public:
  // The event in a line of a trace; nullopt when the line is not a JSON object. The escape of a lone surrogate (\ud800)
  // becomes U+FFFD.
  static std::optional<Event> Read(std::string_view line);

  // The JSON text of the line, with \ufffd in place of each escape of a lone surrogate.
  const std::string& Data() const { return data_; }

  // The value of a member as text; empty when the event does not have the member.
  std::string Text(std::string_view member) const;

  // The seconds since the start of the run (the member `t`); 0 when the event has no member `t` or when `t` is not a
  // number.
  double Seconds() const;

  // Number returns the number of the event (the member `n`). Same returns the number of the earlier event whose screen
  // this event shows again (the member `same`). Each returns nullopt when its member is missing or is not an integer.
  std::optional<std::int64_t> Number() const;
  std::optional<std::int64_t> Same() const;

  // The rows of the screen (the member `screen`); nullopt when the member is missing or is not an array.
  std::optional<std::vector<std::string>> Screen() const;

  JournalLine Line() const;

 private:
  Event(std::string data, nlohmann::ordered_json object) : data_(std::move(data)), object_(std::move(object)) {}

  std::optional<std::int64_t> Integer(std::string_view member) const;
  // The text of the event's journal line (JournalLine::text), and the names of the members that this text expresses and
  // that JournalLine::details therefore leaves out. Both are empty when Headline makes no special text for the event's
  // kind and the event has no member of kSubjects (event.cpp).
  std::pair<std::string, std::vector<std::string_view>> Headline() const;
  std::string Problem() const;

  std::string data_;
  nlohmann::ordered_json object_;
};

}  // namespace wendrill::transcript
