// CQueue as automation sees it.
#pragma once

#include <memory>

#include "batch/queue.h"
#include "com/server/automation_object_base.h"
#include "wendrill23.h"

namespace wendrill::com {

class CQueueObject final : public AutomationClass<CQueueObject, &CLSID_CQueue, _CQueue> {
 public:
  CQueueObject();                                       // a new one, for a caller
  explicit CQueueObject(std::shared_ptr<CQueue> core);  // one that a batch holds
  ~CQueueObject() override;

  // The automation object of a core object, counted for the caller; the living one where there is one.
  static _CQueue* For(const std::shared_ptr<CQueue>& core);

  // The core object behind a queue of ours; an empty reference for Nothing and for an object of somebody else's.
  static std::shared_ptr<CQueue> Behind(_CQueue* queue);

  HRESULT STDMETHODCALLTYPE Add(BSTR* Command, BSTR* sKey, _CQuillet** result) override;
  HRESULT STDMETHODCALLTYPE Item(VARIANT vntIndexKey, _CQuillet** result) override;
  HRESULT STDMETHODCALLTYPE get_Count(LONG* result) override;
  HRESULT STDMETHODCALLTYPE Remove(VARIANT vntIndexKey) override;
  HRESULT STDMETHODCALLTYPE RemoveAll() override;
  HRESULT STDMETHODCALLTYPE get_NewEnum(IUnknown** result) override;

 private:
  std::shared_ptr<CQueue> core_;
};

}  // namespace wendrill::com
