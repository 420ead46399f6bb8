// script_host: runs one VBScript or JScript file and reports every failure, on stderr and in the exit status.
//
// The classes of the library and of the simulator are found through the manifest of the mode (mode_manifest.h); nothing
// is registered.
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

#include "command_line.h"
#include "console.h"
#include "crash_report.h"
#include "encoding.h"
#include "mode_manifest.h"
#include "scenario_check.h"
#include "script_object.h"
#include "script_site.h"
#include "wscript.h"

namespace wendrill::script_host {

namespace {

using Microsoft::WRL::ComPtr;

constexpr int kScriptFailed = 1;
constexpr int kNothingToRun = 2;

const wchar_t* LanguageOf(const std::filesystem::path& script) {
  const std::wstring extension = script.extension().wstring();
  if (_wcsicmp(extension.c_str(), L".vbs") == 0) {
    return L"VBScript";
  }
  if (_wcsicmp(extension.c_str(), L".js") == 0) {
    return L"JScript";
  }
  throw UsageError{L"not a script that can be run here: " + script.filename().wstring() +
                   L" (the name must end in .vbs or .js)"};
}

std::wstring ReadScript(const std::filesystem::path& script) {
  std::ifstream file(script, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (!file) {
    throw UsageError{L"script file cannot be read: " + script.wstring()};
  }
  return TextOfScript(bytes);
}

ComPtr<IActiveScript> CreateEngine(const wchar_t* language) {
  CLSID identity;
  ComPtr<IActiveScript> engine;
  HRESULT status = CLSIDFromProgID(language, &identity);
  if (SUCCEEDED(status)) {
    status = CoCreateInstance(identity, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&engine));
  }
  if (FAILED(status)) {
    throw UsageError{L"this system has no script engine for " + std::wstring(language) + L": " + SystemMessage(status)};
  }
  return engine;
}

// Passes the script's text to the engine and runs it to its end.
HRESULT Execute(IActiveScript& engine, ScriptSite& site, const std::wstring& text) {
  ComPtr<IActiveScriptParse> parser;
  HRESULT status = engine.QueryInterface(IID_PPV_ARGS(&parser));
  const auto step = [&status](auto call) {
    if (SUCCEEDED(status)) {
      status = call();
    }
  };
  step([&] { return parser->InitNew(); });
  step([&] { return engine.SetScriptSite(&site); });
  step([&] { return engine.AddNamedItem(L"WScript", SCRIPTITEM_ISVISIBLE); });
  step([&] { return engine.AddNamedItem(L"WSH", SCRIPTITEM_ISVISIBLE); });
  step([&] {
    return parser->ParseScriptText(text.c_str(), nullptr, nullptr, nullptr, 0, 0, SCRIPTTEXT_ISVISIBLE, nullptr,
                                   nullptr);
  });
  site.TextAccepted();
  step([&] { return engine.SetScriptState(SCRIPTSTATE_CONNECTED); });
  return status;
}

int Run(const CommandLine& line) {
  const std::filesystem::path path(line.script);
  const wchar_t* language = LanguageOf(path);
  const std::wstring text = ReadScript(path);
  const std::wstring name = path.filename().wstring();
  ReportCrashesOf(name);
  const ComPtr<IActiveScript> engine = CreateEngine(language);

  // WScript.Quit. No call ends a running script that contains On Error Resume Next, so this function closes the engine,
  // which releases the script's variables, and then ends the process.
  const auto quit = [&engine](int status) {
    engine->Close();
    ExitProcess(static_cast<UINT>(status));
  };
  ComPtr<IDispatch> wscript;
  wscript.Attach(new WScript(line.script, line.arguments, quit));
  ComPtr<ScriptSite> site;
  site.Attach(new ScriptSite(name, text, wscript));

  const HRESULT status = Execute(*engine.Get(), *site.Get(), text);
  engine->Close();
  if (FAILED(status) && !site->Failed()) {
    WriteError(name + L": could not be run: " + SystemMessage(status) + L" (" + std::to_wstring(status) + L")\r\n");
  }
  return FAILED(status) || site->Failed() ? kScriptFailed : 0;
}

int RunInApartment(const CommandLine& line) {
  const ModeManifest manifest(line.mode);
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  if (!line.scenario.empty()) {
    RequireGoodScenario(line.scenario);
  }
  const int status = Run(line);
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
    return RunInApartment(line);
  } catch (const UsageError& error) {
    WriteError(L"script_host: " + error.message + L"\r\n");
    return kNothingToRun;
  }
}
