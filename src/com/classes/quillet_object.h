// The automation class CQuillet, which forwards to the core's CQuillet.
#pragma once

#include <memory>

#include "com/classes/library.h"
#include "com/server/automation_class.h"
#include "session/quillet.h"
#include "wendrill23_slots.h"

namespace wendrill::com {

class CQuilletObject final : public AutomationClass<CQuilletObject, &CLSID_CQuillet, _CQuillet> {
 public:
  using Core = CQuillet;

  CQuilletObject();                                         // creates a core object
  explicit CQuilletObject(std::shared_ptr<CQuillet> core);  // for the core object of a queue's entry
  ~CQuilletObject() override;

  // The automation object of a core object, AddRef'ed for the caller: the live automation object if one exists,
  // otherwise a new one.
  static _CQuillet* For(const std::shared_ptr<CQuillet>& core);

  Core& TheCore() { return *core_; }

 private:
  std::shared_ptr<CQuillet> core_;
};

}  // namespace wendrill::com
