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

  CQueueObject();                                       // creates a core queue
  explicit CQueueObject(std::shared_ptr<CQueue> core);  // for an existing core queue, such as that of a batch
  ~CQueueObject() override;

  // The automation object of a core queue, AddRef'ed for the caller: the live automation object if one exists,
  // otherwise a new one.
  static _CQueue* For(const std::shared_ptr<CQueue>& core);

  // Adds a CQuillet with the command `Command` to the queue and returns the automation object of the CQuillet.
  // Overrides the generated slot because of a failure that the generated slot does not handle: when the automation
  // object cannot be created for lack of memory, this slot removes the CQuillet from the queue again.
  HRESULT STDMETHODCALLTYPE Add(BSTR* Command, BSTR* sKey, _CQuillet** result) override;

  // Returns an enumerator over the CQuillet objects that are in the queue at the time of the call. The enumerator is
  // not affected when CQuillet objects are added or removed later.
  HRESULT STDMETHODCALLTYPE get_NewEnum(IUnknown** result) override;

  Core& TheCore() { return *core_; }
  const std::shared_ptr<CQueue>& SharedCore() const { return core_; }

 private:
  std::shared_ptr<CQueue> core_;
};

}  // namespace wendrill::com
