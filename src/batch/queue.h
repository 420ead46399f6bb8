// CQueue: an ordered, optionally keyed collection of host entries, each held in a CQuillet whose Command is the entry.
// The queue itself sends nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/module_state.h"
#include "common/value.h"
#include "session/quillet.h"

namespace wendrill {

class CQueue {
 public:
  explicit CQueue(ModuleState& state) : state_(state) {}

  CQueue(const CQueue&) = delete;
  CQueue& operator=(const CQueue&) = delete;

  // Appends an entry and returns the object that holds it. An empty key means no key. Raises 2400 when the queue
  // already has the key, and on any other failure. The object is a CQuillet, and the first live CQuillet connects the
  // session: so Add also raises 2400 when no session runs.
  std::shared_ptr<CQuillet> Add(std::u16string_view Command, std::u16string_view sKey = {});

  // The stored object at a position (counted from 1) or, when the index is a string, under a key, compared without
  // case. Raises 5 when there is no such object, 13 for an index that is neither a string nor a number.
  std::shared_ptr<CQuillet> Item(const Value& vntIndexKey) const;

  std::int32_t Count() const;

  // Removes one entry; the positions of later entries decrease by one. Raises the same errors as Item.
  void Remove(const Value& vntIndexKey);
  void RemoveAll();

  // A copy of the list of stored objects, in order.
  std::vector<std::shared_ptr<CQuillet>> Entries() const;

 private:
  struct Entry {
    std::u16string foldedKey;  // empty when the entry has no key
    std::shared_ptr<CQuillet> quillet;
  };

  std::size_t IndexOf(const Value& vntIndexKey) const;
  std::size_t IndexOfKey(std::u16string_view key) const;

  ModuleState& state_;
  std::vector<Entry> entries_;
  std::map<std::u16string, std::shared_ptr<CQuillet>, std::less<>> byKey_;  // folded keys
};

}  // namespace wendrill
