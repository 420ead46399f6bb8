#include "com/server/class_factory.h"

#include <atomic>
#include <new>

namespace wendrill::com {
namespace {

class ClassFactory final : public IClassFactory, public ISupportErrorInfo {
 public:
  explicit ClassFactory(const ServerClass& created) : class_(created) {}
  ClassFactory(const ClassFactory&) = delete;
  ClassFactory& operator=(const ClassFactory&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
    if (object == nullptr) {
      return E_POINTER;
    }
    *object = nullptr;
    if (wanted == IID_IUnknown || wanted == IID_IClassFactory) {
      *object = static_cast<IClassFactory*>(this);
    } else if (wanted == IID_ISupportErrorInfo) {
      *object = static_cast<ISupportErrorInfo*>(this);
    } else {
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return references_.fetch_add(1) + 1; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = references_.fetch_sub(1) - 1;
    if (left == 0) {
      delete this;
    }
    return left;
  }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID wanted, void** object) override {
    if (object == nullptr) {
      return E_POINTER;
    }
    *object = nullptr;
    return outer != nullptr ? CLASS_E_NOAGGREGATION : class_.create(wanted, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    com::LockServer(lock != FALSE);
    return S_OK;
  }

  // The factory supports error information: a failed creation has number, source and description like any other
  // failure.
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID asked) override {
    return asked == IID_IClassFactory ? S_OK : S_FALSE;
  }

 private:
  const ServerClass& class_;
  std::atomic<ULONG> references_{1};
  FactoryLock lock_;
};

}  // namespace

HRESULT ClassObjectOf(const CLSID& id, const IID& wanted, void** object) {
  if (object == nullptr) {
    return E_POINTER;
  }
  *object = nullptr;
  for (const ServerClass& candidate : kServer.classes) {
    if (candidate.id == id) {
      auto* factory = new (std::nothrow) ClassFactory(candidate);
      if (factory == nullptr) {
        return E_OUTOFMEMORY;
      }
      const HRESULT status = factory->QueryInterface(wanted, object);
      factory->Release();
      return status;
    }
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace wendrill::com
