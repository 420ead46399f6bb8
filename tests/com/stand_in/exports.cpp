// The two classes of PnrStandIn.dll. Their identities are known to the manifest beside it and to nobody else.

#include <new>

#include "stand_in.h"

namespace wendrill::com::testing {
namespace {

// {F20BAFB1-7F0E-4CF3-969F-BB23396A4619}: szuPNR.PNR
constexpr CLSID kPnr = {0xF20BAFB1, 0x7F0E, 0x4CF3, {0x96, 0x9F, 0xBB, 0x23, 0x39, 0x6A, 0x46, 0x19}};

// {B2DE85FA-9AAA-4FC1-AC96-20A88857E12F}: PnrStandIn.Control
constexpr CLSID kControl = {0xB2DE85FA, 0x9AAA, 0x4FC1, {0xAC, 0x96, 0x20, 0xA8, 0x88, 0x57, 0xE1, 0x2F}};

// One for each class, as long as the process lives.
class Factory final : public IClassFactory {
 public:
  explicit Factory(IDispatch* (*make)()) : make_(make) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
    const bool known = wanted == IID_IUnknown || wanted == IID_IClassFactory;
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID wanted, void** object) override {
    *object = nullptr;
    if (outer != nullptr) {
      return CLASS_E_NOAGGREGATION;
    }
    const auto made = Reference<IDispatch>::Adopt(make_());
    return made->QueryInterface(wanted, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  IDispatch* (*make_)();
};

Factory pnrs([] { return TheStandIn().NewPnr(); });
Factory controls(NewControl);

}  // namespace
}  // namespace wendrill::com::testing

extern "C" {

HRESULT WINAPI DllGetClassObject(REFCLSID id, REFIID wanted, LPVOID* object) {
  using namespace wendrill::com::testing;
  *object = nullptr;
  if (id == kPnr) {
    return pnrs.QueryInterface(wanted, object);
  }
  return id == kControl ? controls.QueryInterface(wanted, object) : CLASS_E_CLASSNOTAVAILABLE;
}

HRESULT WINAPI DllCanUnloadNow() {
  return S_FALSE;
}

}  // extern "C"
