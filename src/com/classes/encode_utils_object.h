// The automation class CEncodeUtils, which forwards to the core's CEncodeUtils.
#pragma once

#include "com/server/automation_class.h"
#include "session/encode_utils.h"
#include "wendrill23_slots.h"

namespace wendrill::com {

class CEncodeUtilsObject final : public AutomationClass<CEncodeUtilsObject, &CLSID_CEncodeUtils, _CEncodeUtils> {
 public:
  using Core = CEncodeUtils;

  CEncodeUtilsObject() : core_(TheLibrary().state) {}

  Core& TheCore() { return core_; }

 private:
  CEncodeUtils core_;
};

}  // namespace wendrill::com
