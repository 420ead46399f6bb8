// CBatch as automation sees it.
#pragma once

#include "batch/batch.h"
#include "com/server/automation_object_base.h"
#include "wendrill23.h"

namespace wendrill::com {

class CBatchObject final : public AutomationClass<CBatchObject, &CLSID_CBatch, _CBatch> {
 public:
  CBatchObject();

  HRESULT STDMETHODCALLTYPE get_Commands(_CQueue** result) override;
  HRESULT STDMETHODCALLTYPE putref_Commands(_CQueue* objCommands) override;
  HRESULT STDMETHODCALLTYPE get_Separator(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE put_Separator(BSTR strSeparator) override;
  HRESULT STDMETHODCALLTYPE Submit() override;
  HRESULT STDMETHODCALLTYPE SubmitWithResponse(IDispatch** objResponse) override;
  HRESULT STDMETHODCALLTYPE RMBatch(BSTR strString, SAFEARRAY** strRMElement) override;

 private:
  CBatch core_;
};

}  // namespace wendrill::com
