// script_host runs one VBScript or JScript file, or a folder of script tests. It reports every failure on standard
// error and in the exit status.
//
// Nothing is registered: the classes of the library, the simulator and the recorder are found through the manifest of
// the mode (mode_manifest.h).
#include <activscp.h>
#include <windows.h>
#include <wrl/client.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "command_line.h"
#include "console.h"
#include "crash_report.h"
#include "encoding.h"
#include "engine.h"
#include "junit.h"
#include "mode_manifest.h"
#include "run_record.h"
#include "run_recording.h"
#include "run_trace.h"
#include "run_transcript.h"
#include "scenario_check.h"
#include "script_object.h"
#include "script_site.h"
#include "simulator_link.h"
#include "test_run.h"
#include "text_file.h"
#include "time_limit.h"
#include "wscript.h"

namespace wendrill::script_host {

namespace {

using Microsoft::WRL::ComPtr;

// Some of the exit statuses of this program. kHelp describes all of them.
constexpr int kScriptFailed = 1;
constexpr int kNothingToRun = 2;
constexpr int kExpectationFailed = 3;

Language LanguageOf(const std::filesystem::path& script) {
  const std::wstring extension = script.extension().wstring();
  if (_wcsicmp(extension.c_str(), L".vbs") == 0) {
    return Language::VBScript;
  }
  if (_wcsicmp(extension.c_str(), L".js") == 0) {
    return Language::JScript;
  }
  throw UsageError{L"not a script that can be run here: " + script.filename().wstring() +
                   L" (the name must end in .vbs or .js)"};
}

HostedScript ReadScript(const std::filesystem::path& script) {
  std::ifstream file(script, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (!file) {
    throw UsageError{L"script file cannot be read: " + script.wstring()};
  }
  return {script.filename().wstring(), TextOfScript(bytes), LanguageOf(script)};
}

// One run of a script, from its start to its results.
class ScriptRun {
 public:
  explicit ScriptRun(const CommandLine& line)
      : line_(line),
        script_(ReadScript(line.script)),
        limit_(script_.name, line.timeout, [this](const std::wstring& message) { TimeIsOver(message); }) {
    if (!line.junit.empty()) {
      WriteText(line.junit, {});  // so that a file that cannot be written is reported before the script runs
    }
    ReportCrashesOf(script_.name);
    if (line.mode == Mode::Simulated) {
      simulator_.emplace(script_.name, limit_, record_);
    }
    recording_.Start(line);
    PrepareTranscriptOf(line);
    trace_.Start(line, script_.name, simulator_ ? simulator_->Observable() : nullptr);
    AfterCrashReport([this](const std::wstring& message) { Crashed(message); });
  }
  ~ScriptRun() { AfterCrashReport({}); }
  ScriptRun(const ScriptRun&) = delete;
  ScriptRun& operator=(const ScriptRun&) = delete;

  // Runs the script and returns the exit status.
  int Run() {
    const ComPtr<IActiveScript> engine = CreateEngine(script_.language);
    // Carries out WScript.Quit: closes the engine, which releases the script's variables, then ends the process. The
    // process must end, because no call into the engine ends a running script that contains On Error Resume Next.
    const auto quit = [this, &engine](int status) {
      engine->Close();
      ExitProcess(static_cast<UINT>(Finish(status)));
    };
    ComPtr<IDispatch> wscript;
    wscript.Attach(new WScript(line_.script, line_.arguments, limit_, quit));
    ComPtr<ScriptSite> site;
    site.Attach(new ScriptSite(script_, wscript, limit_, record_, trace_));

    HRESULT status = Parse(*engine.Get(), *site.Get(), script_.text.c_str());
    if (SUCCEEDED(status)) {
      site->TextAccepted(*engine.Get());
      status = engine->SetScriptState(SCRIPTSTATE_CONNECTED);
    }
    engine->Close();
    if (FAILED(status) && !site->Failed()) {
      const std::wstring report =
          script_.name + L": could not be run: " + SystemMessage(status) + L" (" + std::to_wstring(status) + L")";
      record_.ScriptFailed(report);
      WriteError(report + L"\r\n");
      trace_.Failed({.text = SystemMessage(status), .number = status});
    }
    return Finish(FAILED(status) || site->Failed() ? kScriptFailed : 0);
  }

 private:
  // Ends a run: prints the simulator's report, writes the JUnit file and the recording, ends the trace and writes the
  // transcript. `status` is the argument of WScript.Quit if the script called WScript.Quit, otherwise 1 if the script
  // failed and 0 if it did not. Returns the exit status of the process, which also depends on the time limit, the
  // expectations, the simulator's findings and the recording.
  int Finish(int status) {
    limit_.Stop();
    if (limit_.Struck()) {
      if (record_.ScriptError().empty()) {  // the script ignored the error of the failed call
        record_.ScriptFailed(limit_.ReportAt(0));
        WriteError(limit_.ReportAt(0) + L"\r\n");
        trace_.Failed({.text = limit_.ReportAt(0)});
      }
      status = kTimeIsOver;
    } else if (status != 0 && record_.ScriptError().empty()) {
      record_.ScriptFailed(L"ended with status " + std::to_wstring(status));
    }
    const RunFindings findings = simulator_ ? simulator_->Findings() : RunFindings{};
    WriteError(findings.report);
    const bool strict = line_.strict || findings.strict;
    if (!line_.junit.empty()) {
      WriteJUnit(ResultsOf(findings, strict));
    }
    const bool held = !record_.AnyFailed() && (!strict || findings.count == 0);
    const RunRecording::End recorded = recording_.Finish();
    for (const std::wstring& message : recorded.messages) {
      Tell(message);
    }
    const int ownStatus = Graver(status, held ? 0 : kExpectationFailed);
    const int exitStatus =
        ownStatus == 0 || recorded.status == kScriptFailed ? Graver(ownStatus, recorded.status) : ownStatus;
    trace_.End(exitStatus);
    if (const std::wstring file = trace_.Broken(); !file.empty()) {
      Tell(L"the trace could not be written to its end: " + file);
    }
    Tell(WriteTranscriptOf(line_));
    return exitStatus;
  }

  // Prints the script's name and a message on standard error; prints nothing when the message is empty.
  void Tell(const std::wstring& message) const {
    if (!message.empty()) {
      WriteError(script_.name + L": " + message + L"\r\n");
    }
  }

  // Used when a crash or the time limit ends the process: returns the message that no recording was written. Empty when
  // the command line and QUILLET_RECORD request no recording.
  std::wstring RecordingLeft() const {
    return line_.recording.empty() ? std::wstring() : L"there is no recording: the process was ended";
  }

  // Called after a crash of the process, on the thread that reports crashes; `message` has been printed.
  void Crashed(const std::wstring& message) {
    trace_.Failed({.text = message});
    trace_.Cut(kScriptFailed);
    Tell(TraceLeftFor(line_));
    Tell(RecordingLeft());
  }

  // Called on the thread that watches the time limit, before the process is ended; `message` has been printed. The
  // simulator's report is not read, because the simulator belongs to the apartment of the script's thread. The JUnit
  // file therefore marks the cases of that report as skipped.
  void TimeIsOver(const std::wstring& message) {
    record_.ScriptFailed(message);
    trace_.Failed({.text = message});
    trace_.Cut(kTimeIsOver);
    Tell(WriteTranscriptOf(line_));
    Tell(RecordingLeft());
    if (!line_.junit.empty()) {
      WriteJUnit({{L"unanswered entries", {}, true}, {L"unused replies", {}, true}, {L"warnings", {}, true}});
    }
  }

  // Returns three test cases for the simulator's findings: unanswered entries, unused replies and warnings. A case
  // fails if there are such findings and the run is strict.
  static std::vector<Case> ResultsOf(const RunFindings& findings, bool strict) {
    const auto joined = [strict](const std::vector<std::wstring>& lines) {
      std::wstring text;
      for (const std::wstring& found : lines) {
        text += strict ? (text.empty() ? L"" : L"; ") + found : L"";
      }
      return text;
    };
    return {{L"unanswered entries", joined(findings.unanswered)},
            {L"unused replies", joined(findings.unused)},
            {L"warnings", joined(findings.warnings)}};
  }

  // Writes the JUnit file: first one test case for each expectation, then the cases `results`, then the case "script
  // ended", which fails when the script failed, ended with a status other than 0, or reached the time limit.
  void WriteJUnit(const std::vector<Case>& results) {
    std::vector<Case> cases = record_.Expectations();
    cases.insert(cases.end(), results.begin(), results.end());
    cases.push_back({L"script ended", record_.ScriptError()});
    const double seconds = static_cast<double>(GetTickCount64() - start_) / 1000;
    WriteText(line_.junit, JUnitFile(JUnitSuite(script_.name, cases, seconds)));
  }

  const CommandLine& line_;
  const HostedScript script_;
  const ULONGLONG start_ = GetTickCount64();
  RunRecord record_;
  RunRecording recording_;
  RunTrace trace_;
  TimeLimit limit_;
  std::optional<SimulatorLink> simulator_;
};

int RunInApartment(const CommandLine& line) {
  RunRecording::ChooseTerminal(line);
  const ModeManifest manifest(line);
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  if (!line.scenario.empty()) {
    RequireGoodScenario(line.scenario);
  }
  int status = 0;
  {
    ScriptRun run(line);
    status = run.Run();
  }
  CoUninitialize();
  return status;
}

}  // namespace

}  // namespace wendrill::script_host

int wmain(int count, wchar_t** words) {
  using namespace wendrill::script_host;
  try {
    const CommandLine line = ReadCommandLine(std::span(words, static_cast<std::size_t>(count)).subspan(1));
    if (line.help) {
      WriteOut(kHelp);
      return 0;
    }
    if (!line.scenario.empty()) {
      _wputenv_s(L"QUILLET_SCENARIO", line.scenario.c_str());
    }
    // This program starts the trace itself. QUILLET_TRACE is cleared, so that neither the simulator nor a program that
    // the script starts begins another trace in the same file.
    _wputenv_s(L"QUILLET_TRACE", L"");
    _wputenv_s(L"QUILLET_RECORD", L"");  // cleared, because this program starts the recording itself
    return line.tests.empty() ? RunInApartment(line) : RunTests(line);
  } catch (const UsageError& error) {
    WriteError(L"script_host: " + error.message + L"\r\n");
    return kNothingToRun;
  }
}
