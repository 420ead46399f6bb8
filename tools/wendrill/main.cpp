// The program wendrill: reads the displays of PNRs into JSON, CSV or a scenario, and writes pages of traces. See
// docs/wendrill.md.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "display_source.h"
#include "output.h"
#include "progress.h"
#include "reading.h"
#include "sections.h"
#include "transcript/transcript.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace wendrill::tool {
namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

constexpr unsigned kMostThreads = 256;

struct Arguments {
  std::vector<std::string> paths;
  InputForm in = InputForm::Auto;
  ReadingOptions reading;
  std::vector<std::string> kinds;
};

std::string KindList() {
  std::string kinds;
  std::string last;
  for (const Section& section : Sections()) {
    if (section.kind != last) {
      kinds += (kinds.empty() ? "" : ", ") + std::string(section.kind);
    }
    last = section.kind;
  }
  return kinds;
}

void AddInput(CLI::App& command, Arguments& arguments) {
  static const std::map<std::string, InputForm> kForms = {
      {"auto", InputForm::Auto}, {"text", InputForm::Text}, {"jsonl", InputForm::JsonLines}};
  command.add_option("PATH", arguments.paths, "files and folders; - or nothing: standard input");
  command
      .add_option("--in", arguments.in, "auto, text or jsonl: the form of the input; auto looks at each file's start")
      ->transform(CLI::Transformer(kForms, CLI::ignore_case).description(""))
      ->option_text("FORM");
}

void AddReading(CLI::App& command, Arguments& arguments) {
  static const std::map<std::string, OutputForm> kForms = {
      {"json", OutputForm::Json}, {"jsonl", OutputForm::JsonLines}, {"csv", OutputForm::Csv}};
  static const std::map<std::string, Keys> kKeys = {{"plain", Keys::Plain}, {"bag", Keys::Bag}};
  static const std::map<std::string, OnError> kOnError = {
      {"keep", OnError::Keep}, {"skip", OnError::Skip}, {"stop", OnError::Stop}};
  ReadingOptions& reading = arguments.reading;
  command.add_option("--out", reading.out, "json (one array), jsonl (an object in each line; the default) or csv")
      ->transform(CLI::Transformer(kForms, CLI::ignore_case).description(""))
      ->option_text("FORM");
  command.add_option("--kind", arguments.kinds, "these kinds of elements alone; csv needs exactly one. " + KindList())
      ->delimiter(',')
      ->allow_extra_args(false)
      ->option_text("KIND,...");
  command.add_option("--keys", reading.keys, "plain names, or bag: the names and records of the library")
      ->transform(CLI::Transformer(kKeys, CLI::ignore_case).description(""))
      ->option_text("NAMES");
  reading.threads = std::clamp(std::thread::hardware_concurrency(), 1U, kMostThreads);
  command.add_option("-j,--threads", reading.threads, "how many threads read; one for each processor unless said")
      ->check(CLI::Range(1U, kMostThreads).description(""))
      ->option_text("N");
  command.add_flag("--ordered,!--unordered", reading.isOrdered,
                   "whether displays come out in the order of the input (the default)");
  command
      .add_option("--errors", reading.onError,
                  "keep (a line for each bad display; the default), skip, or stop at the first")
      ->transform(CLI::Transformer(kOnError, CLI::ignore_case).description(""))
      ->option_text("WHAT");
}

// Describes the first error in the arguments; empty when they are valid. Also completes the arguments: copies the kinds
// into the selection, and adds standard input when there is no path.
std::string WrongUsage(Arguments& arguments) {
  for (const std::string& kind : arguments.kinds) {
    if (!IsKind(kind)) {
      return "--kind: there is no kind \"" + kind + "\"; there are " + KindList();
    }
    arguments.reading.selection.kinds.insert(kind);
  }
  if (arguments.reading.out == OutputForm::Csv && arguments.reading.selection.kinds.size() != 1) {
    return "--out csv needs --kind with exactly one kind";
  }
  if (arguments.reading.out == OutputForm::Csv && arguments.reading.keys == Keys::Bag &&
      arguments.kinds.front() == "original_issues") {
    return "--keys bag: the library has no record of original_issues";
  }
  if (arguments.paths.empty()) {
    arguments.paths.emplace_back("-");
  }
  for (const std::string& path : arguments.paths) {
    std::error_code error;
    if (path != "-" && !std::filesystem::exists(path, error)) {
      return path + " is not there";
    }
  }
  return {};
}

int StatusOf(const ReadingTotals& totals) {
  if (totals.outputFailed) {
    std::fprintf(stderr, "wendrill: the output cannot be written\n");
    return kFailed;
  }
  return totals.bad > 0 ? kFailed : 0;
}

int Read(Arguments& arguments) {
  DisplaySource source(arguments.paths, arguments.in);
  Progress progress(source);
  const ReadingTotals totals =
      ReadDisplays(source, arguments.reading, [&](const ReadingTotals& soFar) { progress.Show(soFar.displays); });
  progress.Clear();
  return StatusOf(totals);
}

int Scenario(Arguments& arguments) {
  DisplaySource source(arguments.paths, arguments.in);
  return StatusOf(WriteScenario(source));
}

bool IsStandardInput(const std::string& path) {
  return path.empty() || path == "-";
}

int Transcript(const std::string& path) {
  std::ifstream file;
  if (!IsStandardInput(path)) {
    std::error_code error;
    if (!std::filesystem::exists(path, error)) {
      std::fprintf(stderr, "wendrill: %s is not there\n", path.c_str());
      return kWrongUsage;
    }
    if (std::filesystem::is_directory(path, error) || (file.open(path, std::ios::binary), !file)) {
      std::fprintf(stderr, "wendrill: %s cannot be read\n", path.c_str());
      return kFailed;
    }
  }
  std::istream& trace = IsStandardInput(path) ? std::cin : file;
  std::ostringstream page;
  transcript::WriteTranscript(trace, page);
  if (trace.bad()) {
    std::fprintf(stderr, "wendrill: the trace could not be read to its end\n");
    return kFailed;
  }
  bool failed = false;
  WriteOut(std::move(page).str(), failed);
  return StatusOf({.outputFailed = failed});
}

int Run(int argc, char** argv) {
  CLI::App app(
      "Reads the displays of PNRs into data: JSON, CSV, or a scenario for the simulator. Makes a page of a trace.",
      "wendrill");
  app.set_version_flag("--version", "wendrill " WENDRILL_VERSION);
  app.require_subcommand(1);
  app.footer(
      "Exit status: 0 all read, 1 some of the input could not be read, 2 wrong usage. docs/wendrill.md tells more.");
  Arguments arguments;
  CLI::App* read = app.add_subcommand("read", "reads displays: one object for each, bad ones included");
  AddInput(*read, arguments);
  AddReading(*read, arguments);
  CLI::App* scenario = app.add_subcommand("scenario", "writes a scenario with a PNR for each display");
  AddInput(*scenario, arguments);
  CLI::App* schema = app.add_subcommand("schema", "prints the JSON schema of the objects with plain names");
  CLI::App* page =
      app.add_subcommand("transcript", "writes the page of a trace: one file of HTML (docs/transcript.md)");
  std::string trace;
  page->add_option("FILE", trace, "the trace; - or nothing: standard input");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error, std::cout, std::cerr) == 0 ? 0 : kWrongUsage;
  }
  if (schema->parsed()) {
    bool failed = false;
    WriteOut(SchemaText(), failed);
    return StatusOf({.outputFailed = failed});
  }
  if (page->parsed()) {
    return Transcript(trace);
  }
  if (const std::string wrong = WrongUsage(arguments); !wrong.empty()) {
    std::fprintf(stderr, "wendrill: %s\n", wrong.c_str());
    return kWrongUsage;
  }
  return scenario->parsed() ? Scenario(arguments) : Read(arguments);
}

}  // namespace
}  // namespace wendrill::tool

int main(int argc, char** argv) {
#ifdef _WIN32
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
#else
  std::signal(SIGPIPE, SIG_IGN);  // with the signal ignored, writing to a closed pipe fails with EPIPE
#endif
  try {
    return wendrill::tool::Run(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "wendrill: %s\n", error.what());
    return 1;
  }
}
