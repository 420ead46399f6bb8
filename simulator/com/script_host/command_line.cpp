#include "command_line.h"

#include <filesystem>

namespace wendrill::script_host {

namespace {

std::wstring ExistingFile(const std::filesystem::path& path, std::wstring_view role) {
  std::error_code failure;
  if (!std::filesystem::is_regular_file(path, failure)) {
    throw UsageError{std::wstring(role) + L" file not found: " + path.wstring()};
  }
  return std::filesystem::absolute(path, failure).lexically_normal().wstring();
}

}  // namespace

const std::wstring_view kHelp =
    L"Runs a VBScript or JScript file beside the library and the simulator, without any registration.\n"
    L"\n"
    L"  script_host [--scenario FILE] SCRIPT.vbs|SCRIPT.js [ARGUMENTS...]\n"
    L"  script_host --terminal SCRIPT.vbs|SCRIPT.js [ARGUMENTS...]\n"
    L"\n"
    L"  --scenario FILE   what the simulated terminal answers from; it becomes QUILLET_SCENARIO\n"
    L"  --terminal        the library alone, without the simulator: the terminal is that of this machine\n"
    L"  --help            this text\n"
    L"\n"
    L"The script finds the usual WScript object: Echo, Quit, CreateObject, Arguments, Sleep, StdOut, StdErr,\n"
    L"ScriptName, ScriptFullName and so on. Output is UTF-8. The exit status is that of WScript.Quit, otherwise 0;\n"
    L"1 after a syntax error or an uncaught error, which is reported as\n"
    L"  SCRIPT.vbs(line, column) source: description (number)\n"
    L"and 2 when there was nothing to run or the scenario is wrong.\n";

CommandLine ReadCommandLine(std::span<wchar_t* const> words) {
  CommandLine line;
  while (!words.empty() && std::wstring_view(words.front()).starts_with(L"--")) {
    const std::wstring_view option = words.front();
    words = words.subspan(1);
    if (option == L"--help") {
      line.help = true;
      return line;
    }
    if (option == L"--terminal") {
      line.mode = Mode::Terminal;
      continue;
    }
    if (option != L"--scenario") {
      throw UsageError{L"unknown option: " + std::wstring(option)};
    }
    if (words.empty()) {
      throw UsageError{L"--scenario needs a file"};
    }
    line.scenario = ExistingFile(words.front(), L"scenario");
    words = words.subspan(1);
  }
  if (line.mode == Mode::Terminal && !line.scenario.empty()) {
    throw UsageError{L"--scenario is for the simulated terminal; it does not go with --terminal"};
  }
  if (words.empty()) {
    throw UsageError{L"no script named; --help tells how to call"};
  }
  line.script = ExistingFile(words.front(), L"script");
  line.arguments.assign(words.begin() + 1, words.end());
  return line;
}

}  // namespace wendrill::script_host
