// CQueue: an ordered collection of commands for the host. The queue stores each command as the Command of a CQuillet,
// which may have a key. The queue itself sends nothing.
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

  // Appends a CQuillet with the command `Command` to the queue and returns the CQuillet. An empty `sKey` means that the
  // CQuillet has no key. Raises 2400 on any failure, for example when a CQuillet of the queue already has the key. The
  // first CQuillet object of the process connects the session, so Add also fails when no other CQuillet object exists
  // and no session runs.
  std::shared_ptr<CQuillet> Add(std::u16string_view Command, std::u16string_view sKey = {});

  // The CQuillet that `vntIndexKey` identifies: a string is the key of the CQuillet, any other value is its position
  // (counted from 1). Keys are compared without case. Raises 5 (invalid argument) when the queue has no such position
  // or key. A position that cannot be converted to an integer raises the error of ToInt32, for example 13 (type
  // mismatch) for an array.
  std::shared_ptr<CQuillet> Item(const Value& vntIndexKey) const;

  std::int32_t Count() const;

  // Removes the CQuillet that Item would return for `vntIndexKey`; the positions of all later CQuillet objects decrease
  // by one. Raises the errors of Item.
  void Remove(const Value& vntIndexKey);
  void RemoveAll();

  // The CQuillet objects of the queue, in order. The vector is a copy, so later changes of the queue do not affect it.
  std::vector<std::shared_ptr<CQuillet>> Entries() const;

 private:
  struct Entry {
    std::u16string foldedKey;  // empty when the CQuillet has no key
    std::shared_ptr<CQuillet> quillet;
  };

  std::size_t IndexOf(const Value& vntIndexKey) const;
  std::size_t IndexOfKey(std::u16string_view key) const;

  ModuleState& state_;
  std::vector<Entry> entries_;
  // The CQuillet objects that have a key. The key of the map is the CQuillet's key in capitals (see FoldedKey).
  std::map<std::u16string, std::shared_ptr<CQuillet>, std::less<>> byKey_;
};

}  // namespace wendrill
