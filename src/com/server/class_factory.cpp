#include "com/server/class_factory.h"

#include <new>

#include "com/server/counted_object.h"

namespace wendrill::com {
namespace {

class ClassFactory final : public CountedObject<CountOfAnyThread, FactoryLock, IClassFactory, ISupportErrorInfo> {
 public:
  explicit ClassFactory(const ServerClass& created) : class_(created) {}

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

  // The factory supports error information for IClassFactory: a failed creation reports number, source and description,
  // as any other failed call does.
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID asked) override {
    return asked == IID_IClassFactory ? S_OK : S_FALSE;
  }

 private:
  const ServerClass& class_;
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
