// A parameter bag of a caller who means harm: a table of values whose every call can do something first, or instead.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "com/server/automation_types.h"
#include "platform.h"

namespace wendrill::com::testing {

class HostileBag final : public _ParamBag {
 public:
  // Runs before each call of Set, Get and the entry's value, counted from 1; anything but S_OK is what the call
  // answers, nothing being done.
  std::function<HRESULT(int nth)> onCall;

  // What an entry answers for its value, in place of what was set.
  std::function<HRESULT(VARIANT* value)> onValue;

  bool handsOutNoEntries = false;  // Get answers S_OK and gives nothing

  void Put(const wchar_t* key, const wchar_t* text);
  int Calls() const { return calls_; }
  int Settings() const { return settings_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }

  HRESULT STDMETHODCALLTYPE Set(BSTR key, VARIANT value) override;
  HRESULT STDMETHODCALLTYPE Get(BSTR key, _ParamBagEntry** entry) override;
  HRESULT STDMETHODCALLTYPE get_Item(VARIANT, VARIANT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE put_Item(VARIANT, VARIANT) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Exists(VARIANT, VARIANT_BOOL*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Keys(VARIANT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_Count(LONG*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE RemoveAll() override { return E_NOTIMPL; }

  static int Living() { return living; }
  static Reference<HostileBag> New() { return Reference<HostileBag>::Adopt(new HostileBag()); }

 private:
  class Entry;

  HostileBag() { ++living; }
  ~HostileBag() { --living; }
  HRESULT Enter();

  static inline int living = 0;
  ULONG references_ = 1;
  int calls_ = 0;
  int settings_ = 0;
  std::map<std::wstring, std::wstring> texts_;
};

}  // namespace wendrill::com::testing
