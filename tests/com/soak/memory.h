// What this process holds.
#pragma once

#include <cstddef>

namespace wendrill::soak {

struct Memory {
  std::size_t privateBytes = 0;  // committed, and the process's own; without what its heaps keep free
  std::size_t heapBytes = 0;     // in use on all heaps of the process
};

Memory MemoryNow();

}  // namespace wendrill::soak
