#include "script_site.h"

#include <algorithm>
#include <cwchar>
#include <sstream>

#include "console.h"
#include "script_object.h"

namespace wendrill::script_host {

namespace {

std::wstring Taken(BSTR text) {
  std::wstring taken(text, SysStringLen(text));
  SysFreeString(text);
  return taken;
}

// The number as in Err.Number; a system status is shown in hexadecimal too, the form in which it is documented.
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

struct Place {
  std::wstring text;  // (line, column), both counted from 1; empty when the engine does not know
  ULONG line = 0;     // counted from 1; 0 when the engine does not know
};

Place PlaceOf(IActiveScriptError& error) {
  DWORD context = 0;
  ULONG line = 0;  // the engine counts from 0
  LONG column = 0;
  if (FAILED(error.GetSourcePosition(&context, &line, &column))) {
    return {};
  }
  return {L"(" + std::to_wstring(line + 1) + L", " + std::to_wstring(std::max(column, 0L) + 1) + L")", line + 1};
}

// One line of the script (counted from 1); empty past the end.
std::wstring LineOfScript(const std::wstring& text, ULONG line) {
  std::wistringstream lines(text);
  std::wstring found;
  for (ULONG passed = 0; passed < line; ++passed) {
    if (!std::getline(lines, found)) {
      return {};
    }
  }
  return found;
}

// A line of the script, indented, to print below its error; empty for a blank line.
std::wstring Quoted(const std::wstring& line) {
  const std::size_t first = line.find_first_not_of(L" \t\r");
  if (first == std::wstring::npos) {
    return {};
  }
  return L"    " + line.substr(first, line.find_last_not_of(L" \t\r") + 1 - first) + L"\r\n";
}

}  // namespace

ScriptSite::ScriptSite(std::wstring scriptName, const std::wstring& scriptText,
                       Microsoft::WRL::ComPtr<IDispatch> wscript)
    : scriptName_(std::move(scriptName)), scriptText_(scriptText), wscript_(std::move(wscript)) {}

HRESULT ScriptSite::QueryInterface(REFIID identity, void** object) {
  if (identity == IID_IUnknown || identity == IID_IActiveScriptSite) {
    *object = static_cast<IActiveScriptSite*>(this);
  } else if (identity == __uuidof(IActiveScriptSiteUIControl)) {
    *object = static_cast<IActiveScriptSiteUIControl*>(this);
  } else {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

ULONG ScriptSite::AddRef() {
  return ++references_;
}

ULONG ScriptSite::Release() {
  const ULONG left = --references_;
  if (left == 0) {
    delete this;
  }
  return left;
}

HRESULT ScriptSite::GetLCID(LCID*) {
  return E_NOTIMPL;
}  // the engine then uses the user's locale

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

std::wstring ScriptSite::DescriptionOf(EXCEPINFO& exception) const {
  std::wstring description = Taken(exception.bstrDescription);
  if (description.empty()) {  // Wine's engines give many errors no description
    description = parsing_ ? L"syntax error" : SystemMessage(exception.scode);
  }
  return description.empty() ? L"unknown error" : description;
}

std::wstring ScriptSite::ReportOf(IActiveScriptError& error) const {
  EXCEPINFO exception{};
  error.GetExceptionInfo(&exception);
  if (exception.pfnDeferredFillIn != nullptr) {
    exception.pfnDeferredFillIn(&exception);
  }
  SysFreeString(exception.bstrHelpFile);
  const std::wstring source = Taken(exception.bstrSource);
  const Place place = PlaceOf(error);
  return scriptName_ + place.text + L" " + (source.empty() ? L"script" : source) + L": " + DescriptionOf(exception) +
         L" (" + NumberText(exception.scode) + L")\r\n" + Quoted(LineOfScript(scriptText_, place.line));
}

HRESULT ScriptSite::OnScriptError(IActiveScriptError* error) {
  failed_ = true;
  WriteError(ReportOf(*error));
  return S_OK;
}

HRESULT ScriptSite::GetUIBehavior(SCRIPTUICITEM, SCRIPTUICHANDLING* handling) {
  *handling = SCRIPTUICHANDLING_NOUIERROR;
  return S_OK;
}

}  // namespace wendrill::script_host
