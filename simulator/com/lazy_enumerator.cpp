#include "com/lazy_enumerator.h"

#include <utility>

#include "com/server/boundary.h"
#include "com/server/counted_object.h"

namespace wendrill::simulator {
namespace {

class WalkEnumerator final
    : public com::CountedObject<com::CountOfAnyThread, com::ObjectLock, IEnumVARIANT, ISupportErrorInfo> {
 public:
  explicit WalkEnumerator(WalkStart start) : start_(std::move(start)), step_(start_()) {}

  HRESULT STDMETHODCALLTYPE Next(ULONG wanted, VARIANT* elements, ULONG* fetched) override {
    if (elements == nullptr) {
      return E_POINTER;
    }
    ULONG given = 0;
    const HRESULT status = com::Guarded([&] {
      for (; given < wanted; ++given) {
        com::Reference<IDispatch> object = step_();
        if (!object) {
          return;
        }
        V_VT(&elements[given]) = VT_DISPATCH;
        V_DISPATCH(&elements[given]) = object.Release();
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
        ended = !step_();
      }
    });
    return FAILED(status) || !ended ? status : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    return com::Guarded([&] { step_ = start_(); });
  }
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID asked) override {
    return asked == IID_IEnumVARIANT ? S_OK : S_FALSE;
  }

 private:
  WalkStart start_;
  WalkStep step_;
};

}  // namespace

IUnknown* NewWalkEnumerator(WalkStart start) {
  return static_cast<IEnumVARIANT*>(new WalkEnumerator(std::move(start)));
}

}  // namespace wendrill::simulator
