// The command line of the script host.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "trace/settings.h"

namespace wendrill::script_host {

enum class Mode {
  Simulated,  // the library with the simulated terminal
  Terminal,   // the library with the terminal that is installed on this machine
};

struct CommandLine {
  bool help = false;
  Mode mode = Mode::Simulated;
  bool strict = false;
  double timeout = 600;               // in seconds
  std::wstring scenario;              // full path; empty when the command line has no --scenario
  std::wstring junit;                 // full path of the JUnit file to write; empty for none
  std::wstring transcript;            // full path of the HTML page to write; empty for none
  bool traceIsForTranscript = false;  // the trace is only the input of the transcript: nobody asked for a trace file
  trace::Settings trace;  // what to trace, from the options, else from the environment; no trace when its file is empty
  std::wstring recording;  // full path of the scenario that the recorder writes; empty for none
  std::wstring tests;      // full path of the folder of --tests; empty when one script is run
  std::wstring script;     // full path of the script; empty with --tests
  // The arguments of the script.
  std::vector<std::wstring> arguments;
};

// The text that --help prints.
extern const std::wstring_view kHelp;

// Reads the words of the command line, without the program's name. Options may be before and after the script's name.
// All words after "--" are arguments of the script. Throws UsageError for an unknown option, an invalid value or
// options that contradict each other.
CommandLine ReadCommandLine(std::span<wchar_t* const> words);

// Thrown when the script host cannot do what the command line asks for. `message` is for the person who typed the
// command line.
struct UsageError {
  std::wstring message;
};

}  // namespace wendrill::script_host
