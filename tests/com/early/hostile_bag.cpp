#include "hostile_bag.h"

namespace wendrill::com::testing {

class HostileBag::Entry final : public _ParamBagEntry {
 public:
  Entry(Reference<HostileBag> bag, std::wstring text) : bag_(std::move(bag)), text_(std::move(text)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
    const bool known = wanted == IID_IUnknown || wanted == IID_IDispatch || wanted == __uuidof(_ParamBagEntry);
    *object = known ? static_cast<_ParamBagEntry*>(this) : nullptr;
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
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }

  HRESULT STDMETHODCALLTYPE get_Value(VARIANT* value) override {
    const HRESULT status = bag_->Enter();
    if (status != S_OK) {
      return status;
    }
    if (bag_->onValue) {
      return bag_->onValue(value);
    }
    V_VT(value) = VT_BSTR;
    V_BSTR(value) = SysAllocStringLen(text_.data(), static_cast<UINT>(text_.size()));
    return S_OK;
  }

 private:
  Reference<HostileBag> bag_;
  std::wstring text_;
  ULONG references_ = 1;
};

void HostileBag::Put(const wchar_t* key, const wchar_t* text) {
  texts_[key] = text;
}

HRESULT HostileBag::QueryInterface(REFIID wanted, void** object) {
  const bool known = wanted == IID_IUnknown || wanted == IID_IDispatch || wanted == __uuidof(_ParamBag);
  *object = known ? static_cast<_ParamBag*>(this) : nullptr;
  if (known) {
    AddRef();
  }
  return known ? S_OK : E_NOINTERFACE;
}

ULONG HostileBag::Release() {
  const ULONG left = --references_;
  if (left == 0) {
    delete this;
  }
  return left;
}

HRESULT HostileBag::Enter() {
  ++calls_;
  return onCall ? onCall(calls_) : S_OK;
}

HRESULT HostileBag::Set(BSTR key, VARIANT) {
  const HRESULT status = Enter();
  if (status == S_OK) {
    ++settings_;
    texts_[key] = L"";
  }
  return status;
}

HRESULT HostileBag::Get(BSTR key, _ParamBagEntry** entry) {
  *entry = nullptr;
  const HRESULT status = Enter();
  if (status == S_OK && !handsOutNoEntries && texts_.contains(key)) {
    *entry = new Entry(Reference<HostileBag>(this), texts_[key]);
  }
  return status;
}

}  // namespace wendrill::com::testing
