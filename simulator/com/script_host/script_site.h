// The IActiveScriptSite of a running script: gives the engine the object WScript and reports the script's errors.
#pragma once

#include <activscp.h>
#include <windows.h>
#include <wrl/client.h>

#include <string>

#include "com/server/counted_object.h"
#include "run_record.h"
#include "run_trace.h"
#include "script_object.h"
#include "script_text.h"
#include "time_limit.h"

namespace wendrill::script_host {

// The script that an engine runs.
struct HostedScript {
  std::wstring name;  // file name, without the folder
  std::wstring text;
  Language language;
};

class ScriptSite final
    : public com::CountedObject<com::CountOfAnyThread, NoLock, IActiveScriptSite, IActiveScriptSiteUIControl> {
 public:
  // `wscript` is the object that the script sees under the names WScript and WSH. Error reports contain the file name
  // of the script and the line of its text that failed.
  ScriptSite(const HostedScript& script, Microsoft::WRL::ComPtr<IDispatch> wscript, TimeLimit& limit, RunRecord& record,
             RunTrace& trace);

  // Call between the parsing of the whole text and its execution. An error before this call is reported as a syntax
  // error, and an error after this call as a run-time error. To explain a run-time error, the report may read the
  // global variables of `engine`.
  void TextAccepted(IActiveScript& engine) { running_ = &engine; }

  // Whether the engine has reported an error.
  bool Failed() const { return failed_; }

  HRESULT STDMETHODCALLTYPE GetLCID(LCID* locale) override;
  HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR name, DWORD wanted, IUnknown** item, ITypeInfo** type) override;
  HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR* version) override;
  HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT* result, const EXCEPINFO* exception) override;
  HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE state) override;
  HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError* error) override;
  HRESULT STDMETHODCALLTYPE OnEnterScript() override;
  HRESULT STDMETHODCALLTYPE OnLeaveScript() override;

  // Forbids message boxes. The host may run without a user, and then nobody would close a message box.
  HRESULT STDMETHODCALLTYPE GetUIBehavior(SCRIPTUICITEM item, SCRIPTUICHANDLING* handling) override;

 private:
  // Returns the report of an error as text for a person. Stores in `failure` what the trace contains of the error.
  std::wstring ReportOf(IActiveScriptError& error, ScriptFailure& failure) const;

  const HostedScript& script_;
  Microsoft::WRL::ComPtr<IDispatch> wscript_;
  TimeLimit& limit_;
  RunRecord& record_;
  RunTrace& trace_;
  IActiveScript* running_ = nullptr;  // not AddRef'ed; null until TextAccepted
  bool failed_ = false;
};

}  // namespace wendrill::script_host
