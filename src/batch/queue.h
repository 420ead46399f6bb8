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
  explicit CQueue(ModuleState& module) : module_(module) {}

  CQueue(const CQueue&) = delete;
  CQueue& operator=(const CQueue&) = delete;

  // Appends an entry and returns the object that holds it. An empty key is no key. 2400 when the key is there already
  // and on any other failure; the first object that lives connects the session, so also when no session runs.
  std::shared_ptr<CQuillet> Add(std::u16string_view Command, std::u16string_view sKey = {});

  // The stored object at a position (counted from 1) or, for a text, under a key, whatever its case. 5 when there is
  // none; 13 for an index that is neither text nor a number.
  std::shared_ptr<CQuillet> Item(const Value& vntIndexKey) const;

  std::int32_t Count() const;

  // Removes one entry; later positions move up by one. Errors as those of Item.
  void Remove(const Value& vntIndexKey);
  void RemoveAll();

  // The stored objects in order, as they are now.
  std::vector<std::shared_ptr<CQuillet>> Entries() const;

 private:
  struct Entry {
    std::u16string foldedKey;  // empty: no key
    std::shared_ptr<CQuillet> quillet;
  };

  std::size_t IndexOf(const Value& vntIndexKey) const;
  std::size_t IndexOfKey(std::u16string_view key) const;

  ModuleState& module_;
  std::vector<Entry> entries_;
  std::map<std::u16string, std::shared_ptr<CQuillet>, std::less<>> byKey_;  // folded keys
};

}  // namespace wendrill
