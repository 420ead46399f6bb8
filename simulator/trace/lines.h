// The contents of the lines of a trace, one struct for each kind of line; kinds.h explains the members. The texts in
// these structs contain personal data, which class Trace hides when it writes a line.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace wendrill::trace {

// The error of a failed call.
struct Failure {
  std::int32_t number;  // as in Err.Number
  std::u16string text;
};

// The rows of a screen.
using Rows = std::span<const std::u16string>;

struct Part {
  std::u16string_view entry;
  bool answered;
  bool refused;
};

struct Sent {
  std::u16string session = {};
  std::u16string_view entry;
  bool answered = false;
  bool refused = false;
  std::vector<Part> parts = {};
  double began = 0;  // the value of Trace::Seconds when the call began
  double after = 0;  // the seconds for which the scenario delays the response
  bool never = false;
  std::int32_t late = 0;            // how many readings of the buffer return an empty string before it fills
  std::int32_t type = 0;            // the type of the response
  std::optional<Rows> screen = {};  // nullopt when sending failed or the host never answers
  std::optional<Failure> error = {};
};

struct KeyPressed {
  std::u16string session = {};
  std::int32_t code = 0;
  bool accepted = false;
  std::optional<Failure> error = {};
};

struct Typed {
  std::u16string session = {};
  std::u16string_view text;
  std::optional<Failure> error = {};
};

struct AlarmSet {
  bool lock = false;
  std::optional<Failure> error = {};
};

struct Retrieved {
  std::u16string session = {};
  std::optional<std::u16string_view> entry = {};  // nullopt: the PNR on display was read
  bool found = false;
  std::u16string locator = {};
  std::vector<std::u16string> display = {};  // the rows of the PNR's display; empty for a PNR without a display
  std::optional<Failure> error = {};
};

struct EventDelivered {
  std::u16string_view session;
  std::int32_t handlers;
};

struct Called {
  std::u16string_view operation;
  std::u16string_view argument = {};
  // Whether the line is written even for a repeated call. A call is repeated when it succeeded and a call with the same
  // operation and the same argument was made since the last line of a kind other than "call".
  bool always = false;
  std::optional<Failure> error = {};
};

// The error, the time limit or the crash that ended the script.
struct Failed {
  std::u16string_view text;
  std::optional<std::int32_t> number = {};  // as in Err.Number; nullopt for the time limit and for a crash
  std::u16string_view source = {};
  std::u16string_view file = {};
  std::uint32_t line = 0;    // counted from 1; 0 when the line is not known
  std::uint32_t column = 0;  // counted from 1; 0 when the column is not known
};

struct Expected {
  std::u16string_view name;
  std::u16string_view failure;  // empty when the expectation held
};

enum class About { Unanswered, Unused, Warning };

struct Warned {
  About about;
  std::u16string_view text;
};

struct Counts {
  std::int64_t unanswered = 0;
  std::int64_t calls = 0;
  std::int64_t expectations = 0;
  std::int64_t failed = 0;
  std::int64_t findings = 0;
};

struct Ended {
  std::optional<std::int32_t> status = {};  // the exit status; nullopt when the status is not known
  // The counts of the whole run. nullopt when the script ran with a real terminal instead of the simulator, and when
  // the time limit ended the process of the script.
  std::optional<Counts> counts = {};
};

}  // namespace wendrill::trace
