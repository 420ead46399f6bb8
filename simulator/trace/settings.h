// The settings of a trace, as environment variables or command-line options express them.
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <string_view>

#include "redaction/redactor.h"

namespace wendrill::trace {

// The environment variables that switch on and configure a trace in any program that uses the simulator.
inline constexpr char16_t kFileVariable[] = u"QUILLET_TRACE";        // the path of the file to write
inline constexpr char16_t kTimesVariable[] = u"QUILLET_TRACE_TIME";  // whether times are written: on or off
inline constexpr char16_t kKeptVariable[] = u"QUILLET_KEEP";         // what is not hidden, such as: names,cards

struct Settings {
  std::filesystem::path file;      // an existing file is replaced
  bool withTimes = true;           // false: every time is written as 0, so that two equal runs have equal traces
  std::set<redaction::Kind> kept;  // the kinds of personal data that are not hidden
};

// The settings that three strings express. `file`, `times` and `kept` are the values of the environment variables
// kFileVariable, kTimesVariable and kKeptVariable, or of the command-line options with the same meanings. An empty
// string means that the variable or option is not set. Raises 5 (invalid argument) for an invalid value of `times` or
// `kept`; the description of the error calls the variable or option `timesName` or `keptName`.
Settings SettingsOf(std::u16string_view file, std::u16string_view times, std::u16string_view kept,
                    std::u16string_view timesName = kTimesVariable, std::u16string_view keptName = kKeptVariable);

}  // namespace wendrill::trace
