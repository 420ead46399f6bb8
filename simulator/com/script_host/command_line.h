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
  bool traceIsForTranscript = false;  // the trace is only the input of the transcript: no trace file was asked for
  trace::Settings trace;              // from the options, else from the environment; an empty trace.file means no trace
  std::wstring recording;             // full path of the scenario that the recorder writes; empty for none
  std::wstring tests;                 // full path of the folder of --tests; empty when one script is run
  std::wstring script;                // full path of the script; empty with --tests
  // The arguments of the script.
  std::vector<std::wstring> arguments;
};

// The text that --help prints.
extern const std::wstring_view kHelp;

// Reads the words of the command line, without the program's name. Options may be before and after the script's name.
// The first word that is neither an option nor the value of an option is the script, unless --tests is before the word;
// every further such word is an argument of the script. The word "--" ends the options: every word after it is taken as
// it is, even if the word begins with "--". The first word after "--" is the script when no script has been named yet.
// Throws UsageError in these cases:
// - an option is unknown, lacks its value, or has an empty or invalid value;
// - an environment variable that is read in place of a missing option has an invalid value;
// - options contradict each other, or an option lacks another option that it needs;
// - neither a script nor --tests is given, or a script and --tests are given together;
// - the script, the scenario or the folder of tests does not exist;
// - the file of the recording exists already.
// With --help, the following is not checked: the values of --trace-time and --keep, the environment variables, the file
// of the recording, whether the options fit together, and whether a script or --tests is given.
CommandLine ReadCommandLine(std::span<wchar_t* const> words);

// Thrown when the script host cannot do what the command line asks for; the exit status is then 2. `message` is for the
// person who typed the command line.
struct UsageError {
  std::wstring message;
};

}  // namespace wendrill::script_host
