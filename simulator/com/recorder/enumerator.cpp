#include "com/recorder/enumerator.h"

#include <utility>

#include "com/recorder/wrapper.h"
#include "com/server/boundary.h"
#include "com/server/counted_object.h"

namespace wendrill::recorder {
namespace {

class WrappedEnumerator final
    : public com::CountedObject<com::CountOfAnyThread, com::ObjectLock, IEnumVARIANT, ISupportErrorInfo> {
 public:
  WrappedEnumerator(com::Reference<IEnumVARIANT> real, Kind kind) : real_(std::move(real)), kind_(kind) {}

  HRESULT STDMETHODCALLTYPE Next(ULONG wanted, VARIANT* elements, ULONG* fetched) override {
    const HRESULT status = real_->Next(wanted, elements, fetched);
    if (elements == nullptr) {
      return status;
    }
    const ULONG given = fetched != nullptr ? *fetched : status == S_OK ? wanted : 0;
    const HRESULT wrapped = com::Guarded([&] {
      for (ULONG index = 0; index < given; ++index) {
        WrapResult(elements[index], kind_);
      }
    });
    if (SUCCEEDED(wrapped)) {
      return status;
    }
    for (ULONG index = 0; index < given; ++index) {
      VariantClear(&elements[index]);
    }
    if (fetched != nullptr) {
      *fetched = 0;
    }
    return wrapped;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override { return real_->Skip(count); }
  HRESULT STDMETHODCALLTYPE Reset() override { return real_->Reset(); }
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** clone) override {
    if (clone == nullptr) {
      return real_->Clone(nullptr);
    }
    *clone = nullptr;
    com::Reference<IEnumVARIANT> real;
    const HRESULT status = real_->Clone(real.Receive());
    if (FAILED(status) || !real) {
      return status;
    }
    return com::Guarded([&] { *clone = new WrappedEnumerator(std::move(real), kind_); });
  }

  // Returns S_FALSE when the terminal's enumerator does not implement ISupportErrorInfo. The caller then ignores the
  // error information, as it would without the recorder.
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID asked) override {
    const auto support = real_.As<ISupportErrorInfo>();
    return support ? support->InterfaceSupportsErrorInfo(asked) : S_FALSE;
  }

 private:
  com::Reference<IEnumVARIANT> real_;
  Kind kind_;
};

}  // namespace

IUnknown* NewWrappedEnumerator(com::Reference<IEnumVARIANT> real, Kind kind) {
  return static_cast<IEnumVARIANT*>(new WrappedEnumerator(std::move(real), kind));
}

}  // namespace wendrill::recorder
