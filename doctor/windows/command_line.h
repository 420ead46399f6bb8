#pragma once

#include <span>
#include <string>

namespace wendrill::doctor {

struct CommandLine {
  bool help = false;
  bool version = false;
  bool json = false;
  bool create = false;
  std::string program;  // after --exe; empty when it was not given
};

struct UsageError {
  std::string message;
};

extern const char kHelp[];

// The words after the program's name. Throws UsageError.
CommandLine ReadCommandLine(std::span<wchar_t* const> words);

}  // namespace wendrill::doctor
