// A program's side of a session's events.
#pragma once

#include <ole2.h>
#include <windows.h>

#include "com/server/automation_types.h"
#include "com/server/counted_object.h"

namespace wendrill::com::testing {

struct OfNoServer {};

// A sink that counts the events and keeps the response of the last one.
class EventSink final : public CountedObject<CountOfAnyThread, OfNoServer, IDispatch> {
 public:
  Reference<IDispatch> response;
  int events = 0;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    ++events;
    response = Reference<IDispatch>(V_DISPATCH(&arguments->rgvarg[0]));
    return S_OK;
  }
};

// Events arrive in messages.
inline void PumpMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    DispatchMessageW(&message);
  }
}

}  // namespace wendrill::com::testing
