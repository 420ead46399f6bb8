// CQueue: an ordered collection of host entries, which may have keys. Each entry is the Command of a CQuillet. The
// queue itself sends nothing.
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

  // Appends an entry and returns the CQuillet whose Command is the entry. An empty `sKey` means that the entry has no
  // key. Raises 2400 when the queue already has the key, and on any other failure. Add fails when no session runs and
  // no other CQuillet is live, because the first live CQuillet connects the session.
  std::shared_ptr<CQuillet> Add(std::u16string_view Command, std::u16string_view sKey = {});

  // The CQuillet at a position (counted from 1) or, when the index is a string, under a key. Keys are compared without
  // case. Raises 5 when there is no such CQuillet. A position that cannot be converted raises the error of ToInt32, for
  // example 13 for an array.
  std::shared_ptr<CQuillet> Item(const Value& vntIndexKey) const;

  std::int32_t Count() const;

  // Removes one entry; the positions of the entries after it decrease by one. Raises the errors of Item.
  void Remove(const Value& vntIndexKey);
  void RemoveAll();

  // The CQuillet objects of all entries, in order, as a copy of the queue's list.
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
  std::map<std::u16string, std::shared_ptr<CQuillet>, std::less<>> byKey_;  // the entries with a key, by folded key
};

}  // namespace wendrill
