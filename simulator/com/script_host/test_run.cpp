#include "test_run.h"

#include <windows.h>

#include <algorithm>
#include <cwchar>
#include <filesystem>
#include <string>
#include <vector>

#include "console.h"
#include "junit.h"
#include "program_path.h"
#include "text_file.h"
#include "time_limit.h"

namespace wendrill::script_host {

namespace {

constexpr int kScriptFailed = 1;
constexpr int kExpectationFailed = 3;

bool IsTest(const std::filesystem::path& path) {
  const std::wstring name = path.filename().wstring();
  const auto endsWith = [&name](std::wstring_view ending) {
    return name.size() > ending.size() && _wcsicmp(name.c_str() + name.size() - ending.size(), ending.data()) == 0;
  };
  return endsWith(L"_test.vbs") || endsWith(L"_test.js");
}

std::vector<std::filesystem::path> TestsIn(const std::wstring& folder) {
  std::vector<std::filesystem::path> tests;
  for (const auto& file : std::filesystem::directory_iterator(folder)) {
    if (file.is_regular_file() && IsTest(file.path())) {
      tests.push_back(file.path());
    }
  }
  std::sort(tests.begin(), tests.end());
  return tests;
}

// Returns a word of a command line between quotes, as Windows programs expect it: a quote inside the word is preceded
// by a backslash, and a backslash is doubled only where a quote follows it.
std::wstring QuotedWord(const std::wstring& word) {
  std::wstring quoted = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t character : word) {
    if (character == L'"') {
      quoted.append(backslashes + 1, L'\\');
    }
    backslashes = character == L'\\' ? backslashes + 1 : 0;
    quoted += character;
  }
  return quoted.append(backslashes, L'\\') + L"\"";
}

// Runs a program with the standard input, output and error of this program. Waits until the program has ended, and
// returns its exit status. Throws UsageError when the program cannot be started.
int StatusOf(const std::vector<std::wstring>& words) {
  std::wstring commandLine;
  for (const std::wstring& word : words) {
    commandLine += (commandLine.empty() ? L"" : L" ") + QuotedWord(word);
  }
  STARTUPINFOW start{};
  start.cb = sizeof(start);
  PROCESS_INFORMATION process{};
  if (CreateProcessW(words.front().c_str(), commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                     &process) == FALSE) {
    throw UsageError{L"a test could not be started"};
  }
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD status = 0;
  GetExitCodeProcess(process.hProcess, &status);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return static_cast<int>(status);
}

std::wstring TemporaryFile() {
  wchar_t folder[MAX_PATH + 1] = L"";
  wchar_t file[MAX_PATH + 1] = L"";
  GetTempPathW(MAX_PATH, folder);
  GetTempFileNameW(folder, L"wnd", 0, file);
  return file;
}

// Returns the command line that runs one test and writes its results to the file `results`.
std::vector<std::wstring> CallOf(const CommandLine& line, const std::filesystem::path& test,
                                 const std::wstring& results) {
  wchar_t seconds[32];
  std::swprintf(seconds, std::size(seconds), L"%g", line.timeout);
  std::vector<std::wstring> words{ProgramPath().wstring(), L"--timeout", seconds, L"--junit", results};
  std::filesystem::path scenario = test;
  scenario.replace_extension(L".toml");
  if (line.mode == Mode::Terminal) {
    words.emplace_back(L"--terminal");
  } else if (std::filesystem::exists(scenario)) {
    words.insert(words.end(), {L"--scenario", scenario.wstring()});
  } else if (!line.scenario.empty()) {
    words.insert(words.end(), {L"--scenario", line.scenario});
  }
  if (line.strict) {
    words.emplace_back(L"--strict");
  }
  words.push_back(test.wstring());
  return words;
}

// Returns the <testsuite> that a test wrote to the file `file`, and deletes the file. When the file contains no
// <testsuite>, returns a suite with one failed case.
std::wstring ResultsOf(const std::wstring& file, const std::wstring& test, int status) {
  const std::wstring suites = SuitesOf(ReadText(file));
  DeleteFileW(file.c_str());
  if (!suites.empty()) {
    return suites;
  }
  return JUnitSuite(test, {{L"script ended", L"ended without results, status " + std::to_wstring(status)}}, 0);
}

}  // namespace

int Graver(int left, int right) {
  constexpr int kOrder[] = {kTimeIsOver, kScriptFailed};
  for (const int status : kOrder) {
    if (left == status || right == status) {
      return status;
    }
  }
  for (const int status : {left, right}) {
    if (status != 0 && status != kExpectationFailed) {
      return status;
    }
  }
  return std::max(left, right);
}

int RunTests(const CommandLine& line) {
  const auto tests = TestsIn(line.tests);
  if (tests.empty()) {
    throw UsageError{L"no test in " + line.tests + L": the names of tests end in _test.vbs or _test.js"};
  }
  int gravest = 0;
  int passed = 0;
  std::wstring suites;
  for (const std::filesystem::path& test : tests) {
    const std::wstring name = test.filename().wstring();
    const std::wstring results = TemporaryFile();
    const int status = StatusOf(CallOf(line, test, results));
    suites += ResultsOf(results, name, status);
    passed += status == 0 ? 1 : 0;
    gravest = Graver(gravest, status);
    WriteOut(status == 0 ? L"passed " + name + L"\r\n"
                         : L"FAILED " + name + L", status " + std::to_wstring(status) + L"\r\n");
  }
  WriteOut(std::to_wstring(passed) + L" passed, " + std::to_wstring(static_cast<int>(tests.size()) - passed) +
           L" failed\r\n");
  if (!line.junit.empty()) {
    WriteText(line.junit, JUnitFile(suites));
  }
  return gravest;
}

}  // namespace wendrill::script_host
