// Reuses the memory of destroyed adapters for new adapters. An adapter implements a port of the core over a foreign
// object. The library creates and destroys an adapter with every call that involves a foreign object. Allocating an
// adapter from the system's heap would take longer than calling the foreign object.
#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <utility>

namespace wendrill::com {

// An allocator that keeps up to kMostBlocks freed blocks of T's size for reuse. Not thread-safe: adapters, like the
// module-wide state, are used on one thread.
template <typename T>
class RecyclingAllocator {
 public:
  using value_type = T;

  RecyclingAllocator() = default;
  template <typename Other>
  RecyclingAllocator(const RecyclingAllocator<Other>&) {}  // NOLINT: allocators convert into each other

  T* allocate(std::size_t count) {
    Blocks& blocks = Kept();
    if (count == 1 && blocks.count > 0) {
      return static_cast<T*>(blocks.places[--blocks.count]);
    }
    return static_cast<T*>(::operator new(count * sizeof(T)));
  }

  void deallocate(T* block, std::size_t count) {
    Blocks& blocks = Kept();
    if (count == 1 && blocks.count < kMostBlocks) {
      blocks.places[blocks.count++] = block;
    } else {
      ::operator delete(block);
    }
  }

  friend bool operator==(RecyclingAllocator, RecyclingAllocator) { return true; }

 private:
  static constexpr std::size_t kMostBlocks = 8;

  struct Blocks {
    void* places[kMostBlocks] = {};
    std::size_t count = 0;
    ~Blocks() {
      while (count > 0) {
        ::operator delete(places[--count]);
      }
      count = kMostBlocks;  // so that blocks that are freed later go to the heap
    }
  };

  static Blocks& Kept() {
    static Blocks blocks;
    return blocks;
  }
};

// Like std::make_shared, with memory from the RecyclingAllocator.
template <typename Adapter, typename... Arguments>
std::shared_ptr<Adapter> MakeRecycled(Arguments&&... arguments) {
  return std::allocate_shared<Adapter>(RecyclingAllocator<Adapter>(), std::forward<Arguments>(arguments)...);
}

}  // namespace wendrill::com
