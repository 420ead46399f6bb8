// The contents of the lines of a trace, one struct for each kind of line; kinds.h explains the members. Nothing is
// hidden in the texts here: class Trace hides personal data when it writes them.
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
  std::int32_t late = 0;
  std::int32_t type = 0;
  std::optional<Rows> screen = {};  // nullopt when no response comes
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
  bool always = false;  // true: every such call is written; false: only the first since the last line of another kind
  std::optional<Failure> error = {};
};

// The error that ended the script.
struct Failed {
  std::u16string_view text;
  std::optional<std::int32_t> number = {};
  std::u16string_view source = {};
  std::u16string_view file = {};
  std::uint32_t line = 0;  // counted from 1; 0 when the line is not known
  std::uint32_t column = 0;
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
  std::optional<std::int32_t> status = {};
  std::optional<Counts> counts = {};
};

}  // namespace wendrill::trace
