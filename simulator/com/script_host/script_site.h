// The host's side of a running script: where its WScript comes from and where its errors go.
#pragma once

#include <activscp.h>
#include <windows.h>
#include <wrl/client.h>

#include <string>

namespace wendrill::script_host {

class ScriptSite final : public IActiveScriptSite, public IActiveScriptSiteUIControl {
 public:
  // Error reports name the script's file and quote the line of its text; the script sees `wscript` as the objects
  // WScript and WSH.
  ScriptSite(std::wstring scriptName, const std::wstring& scriptText, Microsoft::WRL::ComPtr<IDispatch> wscript);

  // Called when the engine has parsed the text and begins to run it: later errors are not syntax errors.
  void TextAccepted() { parsing_ = false; }

  // Whether an error has been reported.
  bool Failed() const { return failed_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID identity, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;

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
  ~ScriptSite() = default;

  std::wstring ReportOf(IActiveScriptError& error) const;
  std::wstring DescriptionOf(EXCEPINFO& exception) const;

  std::wstring scriptName_;
  const std::wstring& scriptText_;
  Microsoft::WRL::ComPtr<IDispatch> wscript_;
  bool parsing_ = true;
  bool failed_ = false;
  ULONG references_ = 1;
};

}  // namespace wendrill::script_host
