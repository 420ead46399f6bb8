// CQueue as automation sees it.
#pragma once

#include <memory>

#include "batch/queue.h"
#include "com/server/automation_object_base.h"
#include "wendrill23_slots.h"

namespace wendrill::com {

class CQueueObject final : public AutomationClass<CQueueObject, &CLSID_CQueue, _CQueue> {
 public:
  using Core = CQueue;

  CQueueObject();                                       // a new one, for a caller
  explicit CQueueObject(std::shared_ptr<CQueue> core);  // one that a batch holds
  ~CQueueObject() override;

  // The automation object of a core object, AddRef'ed for the caller; the living one where there is one.
  static _CQueue* For(const std::shared_ptr<CQueue>& core);

  // As generated, and leaves no entry behind when memory for its object is short.
  HRESULT STDMETHODCALLTYPE Add(BSTR* Command, BSTR* sKey, _CQuillet** result) override;

  // Enumerates the entries as they are now: adding and removing meanwhile does not disturb it.
  HRESULT STDMETHODCALLTYPE get_NewEnum(IUnknown** result) override;

  Core& TheCore() { return *core_; }
  const std::shared_ptr<CQueue>& SharedCore() const { return core_; }

 private:
  std::shared_ptr<CQueue> core_;
};

}  // namespace wendrill::com
