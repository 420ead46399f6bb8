#include "com/classes/queue_object.h"

#include "com/classes/library.h"
#include "com/classes/quillet_object.h"
#include "com/classes/results.h"
#include "com/server/object_enumerator.h"
#include "com/server/variant_values.h"

namespace wendrill::com {

template <>
const DispatchTable& TableOf<_CQueue>() {
  using I = _CQueue;
  static constexpr auto kMembers = std::to_array<DispatchRow>({
      Function<&I::Add>(1, L"Add", {L"Command", L"sKey"}, Optional{1}),
      Function<&I::Item>(DISPID_VALUE, L"Item", {L"vntIndexKey"}),
      Property<&I::get_Count>(2, L"Count"),
      Action<&I::Remove>(3, L"Remove", {L"vntIndexKey"}),
      Action<&I::RemoveAll>(4, L"RemoveAll"),
      Property<&I::get_NewEnum>(DISPID_NEWENUM, L"NewEnum"),
  });
  static const DispatchTable table(kMembers);
  return table;
}

namespace {

void GiveQuillet(const std::shared_ptr<CQuillet>& core, _CQuillet** result) {
  *result = CQuilletObject::For(core);
}

std::u16string_view TextBehind(BSTR* text) {
  return text == nullptr ? std::u16string_view() : TextOf(*text);
}

Value KeyIn(const VARIANT& vntIndexKey) {
  return ToValue(vntIndexKey, ForeignObjects(TheLibrary().names));
}

}  // namespace

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

std::shared_ptr<CQueue> CQueueObject::Behind(_CQueue* queue) {
  for (const auto& [core, object] : TheLibrary().queues) {
    if (object == queue) {
      return object->core_;
    }
  }
  return {};
}

HRESULT CQueueObject::Add(BSTR* Command, BSTR* sKey, _CQuillet** result) {
  return Run([&]() -> HRESULT {
    if (result == nullptr) {
      return E_POINTER;
    }
    *result = nullptr;
    const std::shared_ptr<CQuillet> added = core_->Add(TextBehind(Command), TextBehind(sKey));
    try {
      GiveQuillet(added, result);
    } catch (...) {
      core_->Remove(core_->Count());  // nobody knows of it
      throw;
    }
    return S_OK;
  });
}

HRESULT CQueueObject::Item(VARIANT vntIndexKey, _CQuillet** result) {
  return Run([&]() -> HRESULT {
    if (result == nullptr) {
      return E_POINTER;
    }
    *result = nullptr;
    GiveQuillet(core_->Item(KeyIn(vntIndexKey)), result);
    return S_OK;
  });
}

HRESULT CQueueObject::get_Count(LONG* result) {
  return Run([&] { return GiveResult(result, [&] { return core_->Count(); }); });
}

HRESULT CQueueObject::Remove(VARIANT vntIndexKey) {
  return Run([&] { core_->Remove(KeyIn(vntIndexKey)); });
}

HRESULT CQueueObject::RemoveAll() {
  return Run([&] { core_->RemoveAll(); });
}

HRESULT CQueueObject::get_NewEnum(IUnknown** result) {
  return Run([&]() -> HRESULT {
    if (result == nullptr) {
      return E_POINTER;
    }
    *result = nullptr;
    // The entries as they stand now: adding and removing during the walk does not disturb it.
    std::vector<Reference<IDispatch>> entries;
    for (const std::shared_ptr<CQuillet>& entry : core_->Entries()) {
      entries.push_back(Reference<IDispatch>::Adopt(CQuilletObject::For(entry)));
    }
    *result = NewEnumerator(std::move(entries));
    return S_OK;
  });
}

}  // namespace wendrill::com
