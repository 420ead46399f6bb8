// How a trace is written, as a person asks for it.
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <string_view>

#include "redaction/redactor.h"

namespace wendrill::trace {

// The environment variables that ask for a trace in any program that uses the simulator.
inline constexpr char16_t kFileVariable[] = u"QUILLET_TRACE";        // the file to write
inline constexpr char16_t kTimesVariable[] = u"QUILLET_TRACE_TIME";  // on or off
inline constexpr char16_t kKeptVariable[] = u"QUILLET_KEEP";         // names,cards,contacts,remarks

struct Settings {
  std::filesystem::path file;  // replaced when it is there
  bool withTimes = true;       // false: 0 for every time, so that traces can be compared
  std::set<redaction::Kind> kept;
};

// The settings that the texts of the variables, or of the options of the same meaning, ask for. An empty text is that
// of a variable that is not set. Raises 5 for a text that means nothing; `timesName` and `keptName` say in the
// description which one that is.
Settings SettingsOf(std::u16string_view file, std::u16string_view times, std::u16string_view kept,
                    std::u16string_view timesName = kTimesVariable, std::u16string_view keptName = kKeptVariable);

}  // namespace wendrill::trace
