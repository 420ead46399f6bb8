// IGet and IGetPNR as classes of their own: creatable, so that callers can bind to the interfaces, and empty. Every
// member does nothing and returns Nothing; what works is CPNR.
#pragma once

#include "com/classes/pnr_members.h"
#include "com/server/automation_object_base.h"
#include "wendrill23.h"

namespace wendrill::com {

class IGetObject final : public AutomationClass<IGetObject, &CLSID_IGet, _IGet> {
 public:
#define DEFINE_MEMBER(name, id)                                                 \
  HRESULT STDMETHODCALLTYPE name(IDispatch**, IDispatch** result) override {    \
    return result == nullptr ? E_POINTER : HandOut<IDispatch>(nullptr, result); \
  }
  WENDRILL_GET_MEMBERS(DEFINE_MEMBER)
#undef DEFINE_MEMBER
};

class IGetPNRObject final : public AutomationClass<IGetPNRObject, &CLSID_IGetPNR, _IGetPNR> {
 public:
  HRESULT STDMETHODCALLTYPE Elements(IDispatch**, IDispatch** result) override {
    return result == nullptr ? E_POINTER : HandOut<IDispatch>(nullptr, result);
  }
};

}  // namespace wendrill::com
