// CQuillet as automation sees it.
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

  CQuilletObject();                                         // a new object
  explicit CQuilletObject(std::shared_ptr<CQuillet> core);  // for an entry of a queue
  ~CQuilletObject() override;

  // The automation object of a core object, AddRef'ed for the caller; an existing one when it is still live.
  static _CQuillet* For(const std::shared_ptr<CQuillet>& core);

  Core& TheCore() { return *core_; }

 private:
  std::shared_ptr<CQuillet> core_;
};

}  // namespace wendrill::com
