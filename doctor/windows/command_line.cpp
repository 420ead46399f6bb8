#include "windows/command_line.h"

#include <cstddef>

#include "windows/wide_text.h"

namespace wendrill::doctor {

const char kHelp[] =
    "Looks at this computer and says what is missing for scripts to reach the terminal. It changes nothing.\n"
    "\n"
    "  doctor [--json] [--create] [--exe PROGRAM.exe]\n"
    "\n"
    "  --create   also creates an object of each class, and counts the running sessions; this runs code of the "
    "terminal\n"
    "  --exe      also looks at a program that uses the library without registration\n"
    "  --json     for programs: {\"checks\": [{\"check\", \"found\", \"state\", \"what_to_do\"}...], \"status\"}\n"
    "  --version  prints the version\n"
    "  --help     prints this text\n"
    "\n"
    "The exit status is 0 when all is well, 1 with warnings, 2 when something is missing, 3 for wrong usage.\n";

CommandLine ReadCommandLine(std::span<wchar_t* const> words) {
  CommandLine line;
  for (std::size_t at = 0; at < words.size(); ++at) {
    const std::string word = Narrow(words[at]);
    if (word == "--json") {
      line.json = true;
    } else if (word == "--create") {
      line.create = true;
    } else if (word == "--help" || word == "/?") {
      line.help = true;
    } else if (word == "--version") {
      line.version = true;
    } else if (word == "--exe") {
      if (++at == words.size()) {
        throw UsageError{"--exe needs a program"};
      }
      line.program = Narrow(words[at]);
    } else {
      throw UsageError{"unknown argument: " + word};
    }
  }
  return line;
}

}  // namespace wendrill::doctor
