// The host's side of a running script: where its WScript comes from and where its errors go.
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

// The script that a site serves.
struct HostedScript {
  std::wstring name;  // of its file, without a folder
  std::wstring text;
  Language language;
};

class ScriptSite final
    : public com::CountedObject<com::CountOfAnyThread, NoLock, IActiveScriptSite, IActiveScriptSiteUIControl> {
 public:
  // Error reports name the script's file and quote the line of its text; the script sees `wscript` as the objects
  // WScript and WSH.
  ScriptSite(const HostedScript& script, Microsoft::WRL::ComPtr<IDispatch> wscript, TimeLimit& limit, RunRecord& record,
             RunTrace& trace);

  // Called when the engine has parsed the text and begins to run it: later errors are not syntax errors. Reports then
  // look at the engine's global variables.
  void TextAccepted(IActiveScript& engine) { running_ = &engine; }

  // Whether an error has been reported.
  bool Failed() const { return failed_; }

  HRESULT STDMETHODCALLTYPE GetLCID(LCID* locale) override;
  HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR name, DWORD wanted, IUnknown** item, ITypeInfo** type) override;
  HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR* version) override;
  HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT* result, const EXCEPINFO* exception) override;
  HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE state) override;
  HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError* error) override;
  HRESULT STDMETHODCALLTYPE OnEnterScript() override;
  HRESULT STDMETHODCALLTYPE OnLeaveScript() override;

  // Forbids message boxes: this host may run without a user, and a message box would wait for ever for a click.
  HRESULT STDMETHODCALLTYPE GetUIBehavior(SCRIPTUICITEM item, SCRIPTUICHANDLING* handling) override;

 private:
  std::wstring ReportOf(IActiveScriptError& error, ScriptFailure& failure) const;

  const HostedScript& script_;
  Microsoft::WRL::ComPtr<IDispatch> wscript_;
  TimeLimit& limit_;
  RunRecord& record_;
  RunTrace& trace_;
  IActiveScript* running_ = nullptr;  // null while the text is parsed
  bool failed_ = false;
};

}  // namespace wendrill::script_host
