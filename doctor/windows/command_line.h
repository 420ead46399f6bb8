#pragma once

#include <span>
#include <string>

namespace wendrill::doctor {

struct CommandLine {
  bool help = false;
  bool version = false;
  bool json = false;
  bool create = false;
  std::string program;  // the argument of --exe; empty when --exe was not given
};

struct UsageError {
  std::string message;
};

extern const char kHelp[];

// Parses the command line. `words` are the arguments without the program's name. Throws UsageError for an unknown
// argument, and when --exe has no argument.
CommandLine ReadCommandLine(std::span<wchar_t* const> words);

}  // namespace wendrill::doctor
