// CQueue as automation sees it.
#pragma once

#include <memory>

#include "batch/queue.h"
#include "com/server/automation_class.h"
#include "wendrill23_slots.h"

namespace wendrill::com {

class CQueueObject final : public AutomationClass<CQueueObject, &CLSID_CQueue, _CQueue> {
 public:
  using Core = CQueue;

  CQueueObject();                                       // a new queue
  explicit CQueueObject(std::shared_ptr<CQueue> core);  // for the queue of a batch
  ~CQueueObject() override;

  // The automation object of a core object, AddRef'ed for the caller; an existing one when it is still live.
  static _CQueue* For(const std::shared_ptr<CQueue>& core);

  // Like the generated slot, but removes the entry again when memory for its object is short.
  HRESULT STDMETHODCALLTYPE Add(BSTR* Command, BSTR* sKey, _CQuillet** result) override;

  // Enumerates the entries as they are now: adding and removing meanwhile does not disturb it.
  HRESULT STDMETHODCALLTYPE get_NewEnum(IUnknown** result) override;

  Core& TheCore() { return *core_; }
  const std::shared_ptr<CQueue>& SharedCore() const { return core_; }

 private:
  std::shared_ptr<CQueue> core_;
};

}  // namespace wendrill::com
