#include "com/server/object_enumerator.h"

#include <atomic>
#include <memory>

#include "com/server/boundary.h"
#include "com/server/module.h"

namespace wendrill::com {
namespace {

using Objects = std::vector<Reference<IDispatch>>;

class ObjectEnumerator final : public IEnumVARIANT {
 public:
  ObjectEnumerator(std::shared_ptr<const Objects> objects, std::size_t next)
      : objects_(std::move(objects)), next_(next) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
    if (object == nullptr) {
      return E_POINTER;
    }
    const bool known = wanted == IID_IUnknown || wanted == IID_IEnumVARIANT;
    *object = known ? static_cast<IEnumVARIANT*>(this) : nullptr;
    if (known) {
      AddRef();
    }
    return known ? S_OK : E_NOINTERFACE;
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
    if (elements == nullptr || (fetched == nullptr && wanted != 1)) {
      return E_POINTER;
    }
    ULONG given = 0;
    for (; given < wanted && next_ < objects_->size(); ++given, ++next_) {
      Reference<IDispatch> object = (*objects_)[next_];
      VariantInit(&elements[given]);
      V_VT(&elements[given]) = VT_DISPATCH;
      V_DISPATCH(&elements[given]) = object.Release();
    }
    if (fetched != nullptr) {
      *fetched = given;
    }
    return given == wanted ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    const std::size_t left = objects_->size() - next_;
    next_ += count < left ? count : left;
    return count <= left ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    next_ = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** clone) override {
    return clone == nullptr ? E_POINTER : Guarded([&] { *clone = new ObjectEnumerator(objects_, next_); });
  }

 private:
  std::shared_ptr<const Objects> objects_;
  std::size_t next_;
  std::atomic<ULONG> references_{1};
  ObjectLock lock_;
};

}  // namespace

IUnknown* NewEnumerator(std::vector<Reference<IDispatch>> objects) {
  return new ObjectEnumerator(std::make_shared<const Objects>(std::move(objects)), 0);
}

}  // namespace wendrill::com
