// QuilletSimulator.Expect: the class with which a test script states its expectations.
#pragma once

#include "com/server/automation_class.h"
#include "platform_dispatch.h"

namespace wendrill::simulator {

class ExpectObject final : public com::AutomationClass<ExpectObject, &CLSID_Expect, _Expect> {
 public:
  HRESULT STDMETHODCALLTYPE Equal(BSTR name, VARIANT actual, VARIANT expected) override;
  HRESULT STDMETHODCALLTYPE Holds(BSTR name, VARIANT value) override;
  HRESULT STDMETHODCALLTYPE Sent(BSTR entry, VARIANT times) override;
  HRESULT STDMETHODCALLTYPE NotSent(BSTR entry) override;
  HRESULT STDMETHODCALLTYPE InOrder(VARIANT entries) override;
  HRESULT STDMETHODCALLTYPE Fails(BSTR name, LONG number, LONG expected) override;
  HRESULT STDMETHODCALLTYPE Screen(BSTR text, VARIANT seconds) override;
  HRESULT STDMETHODCALLTYPE get_Failed(LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_Failures(VARIANT* result) override;
};

}  // namespace wendrill::simulator
