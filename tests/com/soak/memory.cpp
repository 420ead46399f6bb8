#include "memory.h"

#include <ole2.h>
#include <windows.h>

#include <array>
#include <cstdint>
#include <cstring>

namespace wendrill::soak {
namespace {

// Wine 10 keeps small blocks of one size together in a group, which is a block of the heap itself and stays when
// nothing in it is in use any more. HeapWalk reports the group alone. Only Wine's header before the block tells it
// apart; no header of Wine 8 has that bit.
bool IsGroup(const PROCESS_HEAP_ENTRY& block) {
  constexpr unsigned char kGroup = 0x80;
  return (static_cast<const unsigned char*>(block.lpData)[-1] & kGroup) != 0;
}

// A group has a header, then blocks of one size. A block has a header too, which begins with that size in units of the
// alignment. HeapValidate may be asked about the beginning of a block alone: anywhere else it takes what lies before
// the address for a header, and follows it out of the heap.
std::size_t BytesInUse(HANDLE heap, const PROCESS_HEAP_ENTRY& group) {
  constexpr std::size_t kAlignment = 8;
  constexpr std::size_t kGroupHeader = 16;
  constexpr std::size_t kBlockHeader = 8;
  constexpr std::size_t kBlocks = 31;
  const char* block = static_cast<const char*>(group.lpData) + kGroupHeader;
  std::uint16_t units = 0;
  std::memcpy(&units, block, sizeof units);
  const std::size_t size = units * kAlignment;
  if (size <= kBlockHeader || kGroupHeader + kBlocks * size > group.cbData) {
    return group.cbData;  // another layout: the block in its entirety, as HeapWalk reports it
  }
  std::size_t bytes = 0;
  for (std::size_t index = 0; index < kBlocks; ++index, block += size) {
    if (HeapValidate(heap, 0, block + kBlockHeader) != FALSE) {
      bytes += HeapSize(heap, 0, block + kBlockHeader);
    }
  }
  return bytes;
}

struct HeapBytes {
  std::size_t inUse = 0;
  std::size_t kept = 0;  // committed and free: a heap grows in steps and keeps what it once had
};

HeapBytes BytesOf(HANDLE heap) {
  HeapBytes bytes;
  PROCESS_HEAP_ENTRY entry{};
  if (HeapLock(heap) == FALSE) {
    return bytes;
  }
  while (HeapWalk(heap, &entry) != FALSE) {
    if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) {
      const std::size_t inUse = IsGroup(entry) ? BytesInUse(heap, entry) : entry.cbData;
      bytes.inUse += inUse;
      bytes.kept += entry.cbData - inUse;
    } else if ((entry.wFlags & (PROCESS_HEAP_REGION | PROCESS_HEAP_UNCOMMITTED_RANGE)) == 0) {
      bytes.kept += entry.cbData;
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
    const HeapBytes bytes = BytesOf(heaps[heap]);
    memory.heapBytes += bytes.inUse;
    memory.privateBytes -= bytes.kept;
  }
  return memory;
}

}  // namespace wendrill::soak
