#include "memory.h"

#include <ole2.h>
#include <windows.h>

#include <array>

namespace wendrill::soak {
namespace {

std::size_t BytesInUse(HANDLE heap) {
  std::size_t bytes = 0;
  PROCESS_HEAP_ENTRY entry{};
  if (HeapLock(heap) == FALSE) {
    return 0;
  }
  while (HeapWalk(heap, &entry) != FALSE) {
    if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) {
      bytes += entry.cbData;
    }
  }
  HeapUnlock(heap);
  return bytes;
}

// Everything that is committed and belongs to this process alone. The system's own count of it is 0 under Wine.
std::size_t PrivateBytes() {
  std::size_t bytes = 0;
  MEMORY_BASIC_INFORMATION region{};
  for (const char* address = nullptr; VirtualQuery(address, &region, sizeof region) == sizeof region;
       address = static_cast<const char*>(region.BaseAddress) + region.RegionSize) {
    if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE) {
      bytes += region.RegionSize;
    }
  }
  return bytes;
}

}  // namespace

Memory MemoryNow() {
  Memory memory;
  memory.privateBytes = PrivateBytes();
  std::array<HANDLE, 64> heaps{};
  const DWORD count = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
  for (DWORD heap = 0; heap < count && heap < heaps.size(); ++heap) {
    memory.heapBytes += BytesInUse(heaps[heap]);
  }
  return memory;
}

}  // namespace wendrill::soak
