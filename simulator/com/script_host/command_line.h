// What the host was asked to do.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace wendrill::script_host {

enum class Mode {
  Simulated,  // the library beside the simulated terminal
  Terminal,   // the library alone: the terminal is the one of this machine
};

struct CommandLine {
  bool help = false;
  Mode mode = Mode::Simulated;
  std::wstring scenario;  // full path; empty: none was named
  std::wstring script;    // full path
  std::vector<std::wstring> arguments;
};

extern const std::wstring_view kHelp;

// What stands behind the program's name. Raises UsageError for a call that makes no sense.
CommandLine ReadCommandLine(std::span<wchar_t* const> words);

// A call that cannot be carried out, said in words for the person who typed it.
struct UsageError {
  std::wstring message;
};

}  // namespace wendrill::script_host
