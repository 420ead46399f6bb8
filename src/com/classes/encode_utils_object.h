// CEncodeUtils as automation sees it.
#pragma once

#include "com/server/automation_object_base.h"
#include "session/encode_utils.h"
#include "wendrill23.h"

namespace wendrill::com {

class CEncodeUtilsObject final : public AutomationClass<CEncodeUtilsObject, &CLSID_CEncodeUtils, _CEncodeUtils> {
 public:
  CEncodeUtilsObject();

  HRESULT STDMETHODCALLTYPE get_EncodeSession(IDispatch** result) override;

 private:
  CEncodeUtils core_;
};

}  // namespace wendrill::com
