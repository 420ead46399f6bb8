#include "com/classes/queue_object.h"

#include <algorithm>
#include <vector>

#include "com/classes/quillet_object.h"
#include "com/server/object_enumerator.h"
#include "common/error.h"

namespace wendrill::com {

CQueueObject::CQueueObject() : CQueueObject(std::make_shared<CQueue>(TheLibrary().state)) {}

CQueueObject::CQueueObject(std::shared_ptr<CQueue> core) : core_(std::move(core)) {
  TheLibrary().queues[core_.get()] = this;
}

CQueueObject::~CQueueObject() {
  TheLibrary().queues.erase(core_.get());
}

_CQueue* CQueueObject::For(const std::shared_ptr<CQueue>& core) {
  const auto living = TheLibrary().queues.find(core.get());
  if (living == TheLibrary().queues.end()) {
    return new CQueueObject(core);
  }
  living->second->AddRef();
  return living->second;
}

HRESULT CQueueObject::Add(BSTR* Command, BSTR* sKey, _CQuillet** result) {
  if (result == nullptr) {
    return E_POINTER;
  }
  *result = nullptr;
  return Run([&] {
    const std::shared_ptr<CQuillet> added = core_->Add(Incoming(Command), Incoming(sKey));
    try {
      Give(added, result);
    } catch (...) {
      core_->Remove(core_->Count());  // removes the added entry, which is the last
      throw;
    }
  });
}

HRESULT CQueueObject::get_NewEnum(IUnknown** result) {
  if (result == nullptr) {
    return E_POINTER;
  }
  *result = nullptr;
  return Run([&] {
    std::vector<Reference<IDispatch>> entries;
    for (const std::shared_ptr<CQuillet>& entry : core_->Entries()) {
      entries.push_back(Reference<IDispatch>::Adopt(CQuilletObject::For(entry)));
    }
    *result = NewEnumerator(std::move(entries));
  });
}

void Give(const std::shared_ptr<CQueue>& core, _CQueue** result) {
  *result = core ? CQueueObject::For(core) : nullptr;
}

std::shared_ptr<CQueue> QueueBehind(_CQueue* queue) {
  if (queue == nullptr) {
    return nullptr;
  }
  const auto& living = TheLibrary().queues;
  const auto ours =
      std::find_if(living.begin(), living.end(), [&](const auto& entry) { return entry.second == queue; });
  if (ours == living.end()) {
    Raise(RunTimeError::TypeMismatch);
  }
  return ours->second->SharedCore();
}

}  // namespace wendrill::com
