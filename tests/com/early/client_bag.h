// A bag of a client's own: any object with a keyed default member is one. The test says what it answers.
#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <vector>

#include "com/server/automation_types.h"

namespace wendrill::com::testing {

class ClientBag final : public IDispatch {
 public:
  // What reading a key gives; the value is Empty before.
  using Read = std::function<HRESULT(const std::wstring& key, VARIANT* value)>;

  static Reference<ClientBag> Make(Read read) { return Reference<ClientBag>::Adopt(new ClientBag(std::move(read))); }

  const std::vector<std::wstring>& KeysRead() const { return keysRead_; }
  const std::vector<std::wstring>& KeysPut() const { return keysPut_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
    const bool known = wanted == IID_IUnknown || wanted == IID_IDispatch;
    *object = known ? static_cast<IDispatch*>(this) : nullptr;
    if (known) {
      AddRef();
    }
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      delete this;
    }
    return left;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* id) override {
    *id = DISPID_UNKNOWN;
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                                   EXCEPINFO*, UINT*) override {
    if (id != DISPID_VALUE || arguments->cArgs == 0) {
      return DISP_E_MEMBERNOTFOUND;
    }
    const VARIANT& key = arguments->rgvarg[arguments->cArgs - 1];
    const std::wstring name(V_BSTR(&key), SysStringLen(V_BSTR(&key)));
    if ((flags & DISPATCH_PROPERTYPUT) != 0) {
      keysPut_.push_back(name);
      return S_OK;
    }
    keysRead_.push_back(name);
    return read_(name, result);
  }

 private:
  explicit ClientBag(Read read) : read_(std::move(read)) {}

  Read read_;
  std::vector<std::wstring> keysRead_;
  std::vector<std::wstring> keysPut_;
  std::atomic<ULONG> references_{1};
};

}  // namespace wendrill::com::testing
