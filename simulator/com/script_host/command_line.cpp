#include "command_line.h"

#include <cmath>
#include <cwchar>
#include <filesystem>
#include <optional>

#include "com/recorder/run_recorder.h"
#include "com/server/automation_types.h"
#include "common/error.h"
#include "core/environment.h"
#include "nearest_name.h"

namespace wendrill::script_host {

namespace {

// The limits of --timeout, in seconds.
constexpr double kShortestTimeout = 0.1;
constexpr double kLongestTimeout = 86400;

std::wstring FullPath(const std::filesystem::path& path) {
  std::error_code failure;
  return std::filesystem::absolute(path, failure).lexically_normal().wstring();
}

std::wstring ExistingFile(const std::filesystem::path& path, std::wstring_view role) {
  std::error_code failure;
  if (!std::filesystem::is_regular_file(path, failure)) {
    throw UsageError{std::wstring(role) + L" file not found: " + path.wstring()};
  }
  return FullPath(path);
}

std::wstring ExistingFolder(const std::filesystem::path& path) {
  std::error_code failure;
  if (!std::filesystem::is_directory(path, failure)) {
    throw UsageError{L"folder of tests not found: " + path.wstring()};
  }
  return FullPath(path);
}

// Returns `word`, the value of an option. Throws UsageError for an empty value: later code treats an empty value as an
// option that is not given.
std::wstring Named(const std::wstring& word) {
  if (word.empty()) {
    throw UsageError{L"an option has an empty value"};
  }
  return word;
}

double Seconds(const std::wstring& text) {
  wchar_t* end = nullptr;
  const double seconds = std::wcstod(text.c_str(), &end);
  if (text.empty() || *end != L'\0' || !(seconds >= kShortestTimeout && seconds <= kLongestTimeout)) {
    throw UsageError{L"--timeout needs seconds from 0.1 to 86400, not \"" + text + L"\""};
  }
  return seconds;
}

// The values of the options for the trace and the recording. Where an option is not given, its member is nullopt, and
// the environment variable with the same meaning is used.
struct TraceWords {
  std::optional<std::wstring> recording;
  std::optional<std::wstring> file;
  std::optional<std::wstring> times;
  std::optional<std::wstring> kept;
};

// Returns the value of an option, or the environment variable when the option is not given; empty when neither is set.
std::u16string WordOr(const std::optional<std::wstring>& word, std::u16string_view variable) {
  return word ? std::u16string(com::TextOf(std::wstring_view(*word))) : simulator::EnvironmentText(variable);
}

trace::Settings SettingsOf(const TraceWords& words) {
  try {
    trace::Settings settings = trace::SettingsOf(
        WordOr(words.file, trace::kFileVariable), WordOr(words.times, trace::kTimesVariable),
        WordOr(words.kept, trace::kKeptVariable), words.times ? u"--trace-time" : trace::kTimesVariable,
        words.kept ? u"--keep" : trace::kKeptVariable);
    if (!settings.file.empty()) {
      settings.file = FullPath(settings.file);
    }
    return settings;
  } catch (const Error& error) {
    throw UsageError{std::wstring(com::WideOf(error.Description()))};
  }
}

// Returns the full path of the file that the recorder will write; empty when no recording is asked for. Throws
// UsageError when the file exists. A recording never replaces a file, because an earlier recording cannot be obtained
// again.
std::wstring RecordingOf(const TraceWords& words) {
  const std::u16string file = WordOr(words.recording, recorder::kFileVariable);
  std::error_code failure;
  if (file.empty()) {
    return {};
  }
  if (std::filesystem::exists(std::filesystem::path(file), failure)) {
    throw UsageError{L"exists already, and a recording replaces no file: " + std::wstring(com::WideOf(file))};
  }
  return FullPath(file);
}

struct Option {
  std::wstring_view name;
  std::wstring_view needs;  // the kind of value, for messages: "a file"; empty when the option has no value
  void (*take)(CommandLine& line, TraceWords& trace, const std::wstring& value);
};

constexpr Option kOptions[] = {
    {L"--scenario", L"a file",
     [](CommandLine& line, TraceWords&, const std::wstring& value) {
       line.scenario = ExistingFile(value, L"scenario");
     }},
    {L"--terminal", L"", [](CommandLine& line, TraceWords&, const std::wstring&) { line.mode = Mode::Terminal; }},
    {L"--strict", L"", [](CommandLine& line, TraceWords&, const std::wstring&) { line.strict = true; }},
    {L"--timeout", L"seconds",
     [](CommandLine& line, TraceWords&, const std::wstring& value) { line.timeout = Seconds(value); }},
    {L"--junit", L"a file",
     [](CommandLine& line, TraceWords&, const std::wstring& value) { line.junit = FullPath(Named(value)); }},
    {L"--tests", L"a folder",
     [](CommandLine& line, TraceWords&, const std::wstring& value) { line.tests = ExistingFolder(value); }},
    {L"--trace", L"a file",
     [](CommandLine&, TraceWords& trace, const std::wstring& value) { trace.file = Named(value); }},
    {L"--transcript", L"a file",
     [](CommandLine& line, TraceWords&, const std::wstring& value) { line.transcript = FullPath(Named(value)); }},
    {L"--trace-time", L"on or off",
     [](CommandLine&, TraceWords& trace, const std::wstring& value) { trace.times = Named(value); }},
    {L"--record", L"a file",
     [](CommandLine&, TraceWords& trace, const std::wstring& value) { trace.recording = Named(value); }},
    {L"--keep", L"names, cards, contacts or remarks",
     [](CommandLine&, TraceWords& trace, const std::wstring& value) { trace.kept = Named(value); }},
    {L"--help", L"", [](CommandLine& line, TraceWords&, const std::wstring&) { line.help = true; }},
};

const Option& OptionOf(const std::wstring& word) {
  std::vector<std::wstring> names;
  for (const Option& option : kOptions) {
    if (option.name == word) {
      return option;
    }
    names.emplace_back(option.name);
  }
  throw UsageError{L"unknown option: " + word + NearestRemark(word, names) +
                   L" (an argument of the script that begins with -- comes after a --)"};
}

// Throws UsageError when options contradict each other, when an option lacks another option that it needs, and when
// neither a script nor a folder of tests is named.
void RequireSense(const CommandLine& line, const TraceWords& trace) {
  if (line.mode == Mode::Terminal && !line.scenario.empty()) {
    throw UsageError{L"--scenario is for the simulated terminal; it does not go with --terminal"};
  }
  if (line.mode == Mode::Terminal && line.strict) {
    throw UsageError{L"--strict is for the simulated terminal; it does not go with --terminal"};
  }
  if (!line.tests.empty() && (!line.script.empty() || !line.arguments.empty())) {
    throw UsageError{L"--tests runs the scripts of a folder; it takes no script"};
  }
  if (!line.tests.empty() && !line.trace.file.empty()) {
    throw UsageError{L"a trace is that of one script; --trace, --transcript and QUILLET_TRACE do not go with --tests"};
  }
  if (!line.tests.empty() && !line.recording.empty()) {
    throw UsageError{L"a recording is that of one script; --record and QUILLET_RECORD do not go with --tests"};
  }
  if (line.trace.file.empty() && trace.times) {
    throw UsageError{L"--trace-time is for a trace; --trace FILE or --transcript FILE is missing"};
  }
  if (line.trace.file.empty() && line.recording.empty() && trace.kept) {
    throw UsageError{
        L"--keep is for a trace or a recording; --trace FILE, --transcript FILE or --record FILE is missing"};
  }
  if (line.tests.empty() && line.script.empty()) {
    throw UsageError{L"no script named; --help tells how to call"};
  }
}

}  // namespace

const std::wstring_view kHelp =
    L"Runs a VBScript or JScript file beside the library and the simulator, without any registration.\n"
    L"\n"
    L"  script_host [OPTIONS] SCRIPT.vbs|SCRIPT.js [OPTIONS] [--] [ARGUMENTS...]\n"
    L"  script_host [OPTIONS] --tests FOLDER\n"
    L"\n"
    L"  --scenario FILE    what the simulated terminal answers from; it becomes QUILLET_SCENARIO\n"
    L"  --strict           unanswered entries, unused replies and warnings give status 3\n"
    L"  --timeout SECONDS  ends a script that takes longer, with status 124; 0.1 to 86400, 600 unless set\n"
    L"  --junit FILE       writes the results as JUnit XML\n"
    L"  --trace FILE       writes what the script did and what the host showed, as JSON Lines; replaces the file. "
    L"Names,\n"
    L"                     card numbers, contacts and remarks are hidden\n"
    L"  --transcript FILE  writes the same as a page to open in a browser; replaces the file\n"
    L"  --trace-time off   writes 0 for every time, so that two traces can be compared; on unless set\n"
    L"  --record FILE      writes a scenario that lets the simulator answer as the terminal did, with what is "
    L"personal\n"
    L"                     hidden; replaces no file\n"
    L"  --keep KINDS       what trace and recording do not hide: names, cards, contacts, remarks; several joined with "
    L"commas\n"
    L"  --tests FOLDER     runs every *_test.vbs and *_test.js there, each with the scenario of its own name\n"
    L"                     (mine_test.toml for mine_test.vbs) where there is one\n"
    L"  --terminal         the library alone, without the simulator: the terminal is that of this machine\n"
    L"  --help             this text\n"
    L"\n"
    L"Without --trace, --trace-time, --keep and --record the variables QUILLET_TRACE, QUILLET_TRACE_TIME, "
    L"QUILLET_KEEP\n"
    L"and QUILLET_RECORD count.\n"
    L"\n"
    L"All words after -- are the script's. The script finds the usual WScript object: Echo, Quit, CreateObject,\n"
    L"Arguments, Sleep, StdIn, StdOut, StdErr, ScriptName, ScriptFullName and so on. Output is UTF-8, with LF at the\n"
    L"end of a line unless it goes to a console. A syntax error or an uncaught error is reported as\n"
    L"  SCRIPT.vbs(line, column) source: description (number)\n"
    L"The exit status is that of WScript.Quit, or one of these:\n"
    L"\n"
    L"  0    the script ended\n"
    L"  1    a syntax error, an uncaught error or a crash; a recording that could not be written\n"
    L"  2    nothing to run, or the scenario is wrong\n"
    L"  3    an expectation failed, or --strict found something\n"
    L"  4    the recording says of something that it cannot be reproduced\n"
    L"  124  the time limit was reached\n"
    L"\n"
    L"Of several the first in this order: 124, 1, that of WScript.Quit where it is not 0, 3, 4, 0. Of a folder of "
    L"tests\n"
    L"likewise.\n";

CommandLine ReadCommandLine(std::span<wchar_t* const> words) {
  CommandLine line;
  TraceWords trace;
  bool optionsEnded = false;
  while (!words.empty()) {
    const std::wstring word = words.front();
    words = words.subspan(1);
    if (!optionsEnded && word == L"--") {
      optionsEnded = true;
    } else if (!optionsEnded && word.starts_with(L"--")) {
      const Option& option = OptionOf(word);
      if (!option.needs.empty() && words.empty()) {
        throw UsageError{word + L" needs " + std::wstring(option.needs)};
      }
      option.take(line, trace, option.needs.empty() ? std::wstring() : std::wstring(words.front()));
      words = words.subspan(option.needs.empty() ? 0 : 1);
    } else if (line.script.empty() && line.tests.empty()) {
      line.script = ExistingFile(word, L"script");
    } else {
      line.arguments.push_back(word);
    }
  }
  if (!line.help) {
    line.trace = SettingsOf(trace);
    line.recording = RecordingOf(trace);
    if (!line.transcript.empty() && line.trace.file.empty()) {
      line.trace.file = line.transcript + L".jsonl";
      line.traceIsForTranscript = true;
    }
    RequireSense(line, trace);
  }
  return line;
}

}  // namespace wendrill::script_host
