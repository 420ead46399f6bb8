#include "platform_growth.h"

#include <ole2.h>
#include <windows.h>

#include <algorithm>
#include <stdexcept>

#include "com/support/apartment_thread.h"
#include "memory.h"
#include "soak_desk.h"

namespace wendrill::soak {
namespace {

// Answers each late-bound call as the library does where a call fails. Lives as long as its owner.
class FailingObject final : public IDispatch {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = id == IID_IUnknown || id == IID_IDispatch;
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
    *info = nullptr;
    return DISP_E_BADINDEX;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* id) override {
    *id = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO* exception,
                                   UINT*) override {
    *exception = {};
    exception->scode = E_INVALIDARG;
    exception->bstrSource = SysAllocString(L"Wendrill23.CQueue");
    exception->bstrDescription = SysAllocString(L"Invalid procedure call or argument");
    return DISP_E_EXCEPTION;
  }
};

constexpr int kWarmUp = 200;
constexpr int kCalls = 2'000;

// Whether each call reached the object.
bool Call(IDispatch* object, int times) {
  bool answered = true;
  for (int made = 0; made < times; ++made) {
    answered = CallByName(object, L"Item", L"NONE") == DISP_E_EXCEPTION && answered;
  }
  return answered;
}

}  // namespace

double BytesKeptByMarshalling() {
  FailingObject object;
  IStream* passed = nullptr;
  if (FAILED(CoMarshalInterThreadInterfaceInStream(IID_IDispatch, &object, &passed))) {
    throw std::runtime_error("an object of the test's own cannot be passed to another apartment");
  }
  bool measured = false;
  Memory before;
  Memory after;
  const com::testing::ApartmentThread client(COINIT_APARTMENTTHREADED, [&] {
    Reference<IDispatch> proxy;
    measured = SUCCEEDED(CoGetInterfaceAndReleaseStream(passed, IID_IDispatch, proxy.ReceiveVoid())) &&
               Call(proxy.Get(), kWarmUp);
    before = MemoryNow();
    measured = measured && Call(proxy.Get(), kCalls);
    after = MemoryNow();
  });
  client.PumpUntilEnded();
  if (!measured) {
    throw std::runtime_error("what marshalling keeps cannot be measured");
  }
  const auto kept = std::max(before.heapBytes, after.heapBytes) - before.heapBytes;  // never less than nothing
  return static_cast<double>(kept) / kCalls;
}

}  // namespace wendrill::soak
