#include "com/server/module.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <map>
#include <new>

#include "com/server/boundary.h"
#include "com/server/module_path.h"

namespace wendrill::com {
namespace {

// The counts that decide whether the DLL can unload. They are globals because DllCanUnloadNow is a global function.
std::atomic<long> liveObjects{0};
std::atomic<long> livingFactories{0};
std::atomic<long> callersLocks{0};
HINSTANCE moduleInstance = nullptr;

// The cache of the type information (ITypeInfo) that clients have asked for. The key is the address of the GUID of the
// type. Clients may ask for the ITypeInfo of a type on every call, and may recognise a type by the address of its
// ITypeInfo. So each type keeps the same ITypeInfo as long as any object of this DLL is live.
using Descriptions = std::map<const GUID*, Reference<ITypeInfo>>;
Descriptions& KnownDescriptions() {
  // The map is constructed in static memory and is never destroyed. The release of the last object accesses the map,
  // and must not fail when memory is short.
  alignas(Descriptions) static std::byte place[sizeof(Descriptions)];
  static auto& descriptions = *new (place) Descriptions();
  return descriptions;
}

HRESULT LoadDescription(const GUID& id, ITypeInfo** information) {
  Reference<ITypeLib> library;
  const HRESULT status = LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.Receive());
  return FAILED(status) ? status : library->GetTypeInfoOfGuid(id, information);
}

}  // namespace

ObjectLock::ObjectLock() {
  liveObjects.fetch_add(1, std::memory_order_relaxed);
}

ObjectLock::~ObjectLock() {
  if (liveObjects.load(std::memory_order_acquire) == 1 && kServer.lastObjectGone != nullptr) {
    // The object is still counted during this call, so that DllCanUnloadNow returns S_FALSE.
    kServer.lastObjectGone();
    KnownDescriptions().clear();
  }
  liveObjects.fetch_sub(1, std::memory_order_release);
}

FactoryLock::FactoryLock() {
  livingFactories.fetch_add(1, std::memory_order_relaxed);
}

FactoryLock::~FactoryLock() {
  livingFactories.fetch_sub(1, std::memory_order_relaxed);
}

void LockServer(bool lock) {
  long locks = callersLocks.load();
  while (!callersLocks.compare_exchange_weak(locks, lock ? locks + 1 : std::max(locks - 1, 0L))) {
  }
}

bool CanUnload() {
  return liveObjects.load(std::memory_order_acquire) == 0 && livingFactories.load() == 0 && callersLocks.load() == 0;
}

HINSTANCE ModuleInstance() {
  return moduleInstance;
}

void SetModuleInstance(HINSTANCE instance) {
  moduleInstance = instance;
}

std::wstring ModulePath() {
  return PathOfModule(moduleInstance);
}

HRESULT TypeInformationOf(const GUID& id, ITypeInfo** information) {
  return Guarded([&]() -> HRESULT {
    *information = nullptr;
    Reference<ITypeInfo>& known = KnownDescriptions()[&id];
    if (!known) {
      const HRESULT status = LoadDescription(id, known.Receive());
      if (FAILED(status)) {
        return status;
      }
    }
    *information = Reference<ITypeInfo>(known).Release();
    return S_OK;
  });
}

}  // namespace wendrill::com
