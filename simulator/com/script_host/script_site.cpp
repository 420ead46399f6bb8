#include "script_site.h"

#include <algorithm>
#include <cwchar>
#include <sstream>

#include "console.h"
#include "error_explanation.h"
#include "script_object.h"
#include "syntax_place.h"

namespace wendrill::script_host {

namespace {

// Returns the Err.Number of a status as text. A negative number is a system status: the text then also contains the
// hexadecimal form, because system statuses are documented in hexadecimal.
std::wstring NumberText(HRESULT status) {
  const long number = NumberOf(status);
  std::wstring text = std::to_wstring(number);
  if (number < 0) {
    wchar_t hexadecimal[16];
    std::swprintf(hexadecimal, std::size(hexadecimal), L"%08lX", static_cast<unsigned long>(status));
    text += L", 0x" + std::wstring(hexadecimal);
  }
  return text;
}

// A place in the script. Line and column are counted from 1; 0 when not known.
struct Place {
  ULONG line = 0;
  ULONG column = 0;
};

Place PlaceOf(IActiveScriptError& error) {
  DWORD context = 0;
  ULONG line = 0;  // the engine counts lines from 0
  LONG column = 0;
  if (FAILED(error.GetSourcePosition(&context, &line, &column))) {
    return {};
  }
  return {line + 1, static_cast<ULONG>(std::max(column, 0L)) + 1};
}

// Returns "(line, column)"; "(line)" when the column is not known; empty when the line is not known.
std::wstring PlaceText(const Place& place) {
  if (place.line == 0) {
    return {};
  }
  const std::wstring column = place.column == 0 ? L"" : L", " + std::to_wstring(place.column);
  return L"(" + std::to_wstring(place.line) + column + L")";
}

// Returns the line of the script with the number `line`, counted from 1; empty for 0 and past the end of the text.
std::wstring LineOfScript(const std::wstring& text, ULONG line) {
  if (line == 0) {
    return {};
  }
  std::wistringstream lines(text);
  std::wstring found;
  for (ULONG passed = 0; passed < line; ++passed) {
    if (!std::getline(lines, found)) {
      return {};
    }
  }
  return found;
}

// Formats a line of the script for a report, which prints the line below the error message: the line without leading
// and trailing blanks, indented by four blanks, with CR LF at the end. Returns an empty string for a blank line.
std::wstring Quoted(const std::wstring& line) {
  const std::size_t first = line.find_first_not_of(L" \t\r");
  if (first == std::wstring::npos) {
    return {};
  }
  return L"    " + line.substr(first, line.find_last_not_of(L" \t\r") + 1 - first) + L"\r\n";
}

ScriptError ErrorOf(IActiveScriptError& reported) {
  EXCEPINFO exception{};
  reported.GetExceptionInfo(&exception);
  if (exception.pfnDeferredFillIn != nullptr) {
    exception.pfnDeferredFillIn(&exception);
  }
  SysFreeString(exception.bstrHelpFile);
  std::wstring source = Taken(exception.bstrSource);
  std::wstring description = Taken(exception.bstrDescription);
  return {exception.scode, std::move(source), std::move(description), {}};
}

}  // namespace

ScriptSite::ScriptSite(const HostedScript& script, Microsoft::WRL::ComPtr<IDispatch> wscript, TimeLimit& limit,
                       RunRecord& record, RunTrace& trace)
    : script_(script), wscript_(std::move(wscript)), limit_(limit), record_(record), trace_(trace) {}

HRESULT ScriptSite::GetLCID(LCID*) {
  return E_NOTIMPL;  // makes the engine use the user's locale
}

HRESULT ScriptSite::GetItemInfo(LPCOLESTR, DWORD wanted, IUnknown** item, ITypeInfo** type) {
  if ((wanted & SCRIPTINFO_ITYPEINFO) != 0 && type != nullptr) {
    *type = nullptr;
  }
  if ((wanted & SCRIPTINFO_IUNKNOWN) != 0) {
    wscript_.CopyTo(item);
  }
  return S_OK;
}

HRESULT ScriptSite::GetDocVersionString(BSTR*) {
  return E_NOTIMPL;
}
HRESULT ScriptSite::OnScriptTerminate(const VARIANT*, const EXCEPINFO*) {
  return S_OK;
}
HRESULT ScriptSite::OnStateChange(SCRIPTSTATE) {
  return S_OK;
}
HRESULT ScriptSite::OnEnterScript() {
  return S_OK;
}
HRESULT ScriptSite::OnLeaveScript() {
  return S_OK;
}

std::wstring ScriptSite::ReportOf(IActiveScriptError& reported, ScriptFailure& failure) const {
  Place place = PlaceOf(reported);
  if (limit_.Struck()) {
    failure = {.text = limit_.ReportAt(place.line), .line = place.line, .column = place.column};
    return limit_.ReportAt(place.line) + L"\r\n" + Quoted(LineOfScript(script_.text, place.line));
  }
  ScriptError error = ErrorOf(reported);
  if (running_ == nullptr) {
    error.description = error.description.empty() ? L"syntax error" : error.description;
    const auto found = FindSyntaxError(script_.text, script_.language, {place.line, place.column});
    place = found ? Place{found->line, found->column} : Place{};
  } else if (place.line > 0) {
    Microsoft::WRL::ComPtr<IDispatch> globals;
    running_->GetScriptDispatch(nullptr, &globals);
    Explain(error, {script_.text, script_.language, place.line, place.column, globals.Get()});
  }
  if (error.description.empty()) {  // for many errors Wine's engines give no description
    error.description = SystemMessage(error.status);
  }
  error.source = error.source.empty() ? L"script" : error.source;
  error.description = error.description.empty() ? L"unknown error" : error.description;
  failure = {.text = error.description,
             .number = NumberOf(error.status),
             .source = error.source,
             .line = place.line,
             .column = place.column};
  std::wstring report = script_.name + PlaceText(place) + L" " + error.source + L": " + error.description + L" (" +
                        NumberText(error.status) + L")\r\n";
  for (const std::wstring& reason : error.reasons) {
    failure.text += L"\n" + reason;
    report += L"    " + reason + L"\r\n";
  }
  return report + Quoted(LineOfScript(script_.text, place.line));
}

HRESULT ScriptSite::OnScriptError(IActiveScriptError* error) {
  failed_ = true;
  ScriptFailure failure;
  const std::wstring report = ReportOf(*error, failure);
  record_.ScriptFailed(report);
  WriteError(report);
  trace_.Failed(failure);
  return S_OK;
}

HRESULT ScriptSite::GetUIBehavior(SCRIPTUICITEM, SCRIPTUICHANDLING* handling) {
  *handling = SCRIPTUICHANDLING_NOUIERROR;
  return S_OK;
}

}  // namespace wendrill::script_host
