// The automation class CQueue, which forwards to the core's CQueue.
#pragma once

#include <memory>

#include "batch/queue.h"
#include "com/server/automation_class.h"
#include "wendrill23_slots.h"

namespace wendrill::com {

class CQueueObject final : public AutomationClass<CQueueObject, &CLSID_CQueue, _CQueue> {
 public:
  using Core = CQueue;

  CQueueObject();                                       // for a new core queue
  explicit CQueueObject(std::shared_ptr<CQueue> core);  // for an existing core queue, such as that of a batch
  ~CQueueObject() override;

  // The automation object of a core queue, AddRef'ed for the caller: the live one if there is one, otherwise a new one.
  static _CQueue* For(const std::shared_ptr<CQueue>& core);

  // Adds an entry and returns its automation object. Unlike the generated slot, removes the entry again when its
  // automation object cannot be created for lack of memory.
  HRESULT STDMETHODCALLTYPE Add(BSTR* Command, BSTR* sKey, _CQuillet** result) override;

  // Returns an enumerator over the entries that the queue has now. Adding and removing entries later does not affect
  // it.
  HRESULT STDMETHODCALLTYPE get_NewEnum(IUnknown** result) override;

  Core& TheCore() { return *core_; }
  const std::shared_ptr<CQueue>& SharedCore() const { return core_; }

 private:
  std::shared_ptr<CQueue> core_;
};

}  // namespace wendrill::com
