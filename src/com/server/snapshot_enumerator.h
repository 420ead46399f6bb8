// Enumerators over a copy of a list. An enumerator and all its clones share one copy, so that later changes of the list
// do not affect what they return.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "com/server/boundary.h"
#include "com/server/counted_object.h"

namespace wendrill::com {

// Implements any of automation's enumerator interfaces, such as IEnumVARIANT. kGive writes one item to an uninitialised
// element of the caller's array; an object in the element is AddRef'ed for the caller.
template <typename Interface, typename Item, typename Element, void (*kGive)(const Item&, Element*)>
class SnapshotEnumerator final : public CountedObject<CountOfAnyThread, ObjectLock, Interface> {
 public:
  using Items = std::vector<Item>;

  // An enumerator is created with one reference, which the caller owns. `next` is the index, counted from 0, of the
  // item that the first call of Next returns.
  explicit SnapshotEnumerator(Items items) : SnapshotEnumerator(std::make_shared<const Items>(std::move(items)), 0) {}
  SnapshotEnumerator(std::shared_ptr<const Items> items, std::size_t next) : items_(std::move(items)), next_(next) {}

  HRESULT STDMETHODCALLTYPE Next(ULONG wanted, Element* elements, ULONG* fetched) override {
    if (elements == nullptr || (fetched == nullptr && wanted != 1)) {
      return E_POINTER;
    }
    ULONG given = 0;
    for (; given < wanted && next_ < items_->size(); ++given, ++next_) {
      kGive((*items_)[next_], &elements[given]);
    }
    if (fetched != nullptr) {
      *fetched = given;
    }
    return given == wanted ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    const std::size_t left = items_->size() - next_;
    next_ += count < left ? count : left;
    return count <= left ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    next_ = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Clone(Interface** clone) override {
    return clone == nullptr ? E_POINTER : Guarded([&] { *clone = new SnapshotEnumerator(items_, next_); });
  }

 private:
  std::shared_ptr<const Items> items_;
  std::size_t next_;
};

}  // namespace wendrill::com
