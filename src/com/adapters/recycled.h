// Adapters of foreign objects are created and destroyed with every call, and one allocation from the system's heap
// takes longer than the call itself. So the memory of destroyed adapters is reused for new ones.
#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <utility>

namespace wendrill::com {

// Keeps up to kMostBlocks free blocks of T's size. Not thread-safe: adapters, like the module-wide state, are used on
// one thread.
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
      count = kMostBlocks;  // blocks freed after this destructor go to the heap
    }
  };

  static Blocks& Kept() {
    static Blocks blocks;
    return blocks;
  }
};

template <typename Adapter, typename... Arguments>
std::shared_ptr<Adapter> MakeRecycled(Arguments&&... arguments) {
  return std::allocate_shared<Adapter>(RecyclingAllocator<Adapter>(), std::forward<Arguments>(arguments)...);
}

}  // namespace wendrill::com
