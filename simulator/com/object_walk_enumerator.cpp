#include "com/object_walk_enumerator.h"

#include <atomic>

#include "com/server/boundary.h"
#include "com/server/module.h"
#include "com/simulation.h"

namespace wendrill::simulator {
namespace {

class WalkEnumerator final : public IEnumVARIANT, public ISupportErrorInfo {
 public:
  explicit WalkEnumerator(std::unique_ptr<ObjectWalk> walk) : walk_(std::move(walk)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
    if (object == nullptr) {
      return E_POINTER;
    }
    *object = nullptr;
    if (wanted == IID_IUnknown || wanted == IID_IEnumVARIANT) {
      *object = static_cast<IEnumVARIANT*>(this);
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

  HRESULT STDMETHODCALLTYPE Next(ULONG wanted, VARIANT* elements, ULONG* fetched) override {
    if (elements == nullptr) {
      return E_POINTER;
    }
    ULONG given = 0;
    const HRESULT status = com::Guarded([&] {
      for (; given < wanted; ++given) {
        const ObjectRef object = walk_->Next();
        if (!object) {
          return;
        }
        ValueOut(object, &elements[given], com::ArrayForm::Variants);
      }
    });
    if (fetched != nullptr) {
      *fetched = given;
    }
    if (FAILED(status)) {
      return status;
    }
    return given == wanted ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    bool ended = false;
    const HRESULT status = com::Guarded([&] {
      for (ULONG skipped = 0; skipped < count && !ended; ++skipped) {
        ended = walk_->Next() == nullptr;
      }
    });
    return FAILED(status) || !ended ? status : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID asked) override {
    return asked == IID_IEnumVARIANT ? S_OK : S_FALSE;
  }

 private:
  std::unique_ptr<ObjectWalk> walk_;
  std::atomic<ULONG> references_{1};
  com::ObjectLock lock_;
};

}  // namespace

IUnknown* NewWalkEnumerator(std::unique_ptr<ObjectWalk> walk) {
  return static_cast<IEnumVARIANT*>(new WalkEnumerator(std::move(walk)));
}

}  // namespace wendrill::simulator
