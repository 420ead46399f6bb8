// What the command line asks the script host to do.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "trace/settings.h"

namespace wendrill::script_host {

enum class Mode {
  Simulated,  // the library beside the simulated terminal
  Terminal,   // the library alone, with the terminal that is installed on this machine
};

struct CommandLine {
  bool help = false;
  Mode mode = Mode::Simulated;
  bool strict = false;
  double timeout = 600;               // seconds
  std::wstring scenario;              // full path; empty when the command line names no scenario
  std::wstring junit;                 // full path of the file to write; empty for none
  std::wstring transcript;            // full path of the page to write; empty for none
  bool traceIsForTranscript = false;  // nobody asked for the trace itself
  trace::Settings trace;   // of no file: no trace. What the command line leaves out comes from the environment
  std::wstring recording;  // full path of the scenario to write; empty for none
  std::wstring tests;      // full path of a folder of tests, in place of a script
  std::wstring script;     // full path
  std::vector<std::wstring> arguments;
};

extern const std::wstring_view kHelp;

// Reads the arguments, without the program's name. Options may be before and after the script's name; after "--" all
// words are the script's. Throws UsageError for arguments that make no sense.
CommandLine ReadCommandLine(std::span<wchar_t* const> words);

// A command line that cannot be carried out; `message` is for the person who typed it.
struct UsageError {
  std::wstring message;
};

}  // namespace wendrill::script_host
