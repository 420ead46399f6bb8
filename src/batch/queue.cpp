#include "batch/queue.h"

#include <algorithm>
#include <utility>

#include "batch/queue_key.h"
#include "common/error.h"
#include "common/error_numbers.h"
#include "common/failures.h"

namespace wendrill {

std::shared_ptr<CQuillet> CQueue::Add(std::u16string_view Command, std::u16string_view sKey) {
  return WithNumber(kAddFailed, [&] {
    auto quillet = std::make_shared<CQuillet>(state_);
    quillet->SetCommand(Command);
    const std::u16string key = FoldedKey(sKey);
    entries_.push_back({key, quillet});
    const auto enterKey = [&] {
      if (!key.empty() && !byKey_.emplace(key, quillet).second) {
        Raise(RunTimeError::KeyAlreadyPresent);
      }
    };
    UndoingOnFailure(enterKey, [this] { entries_.pop_back(); });
    return quillet;
  });
}

std::shared_ptr<CQuillet> CQueue::Item(const Value& vntIndexKey) const {
  return entries_[IndexOf(vntIndexKey)].quillet;
}

std::int32_t CQueue::Count() const {
  return static_cast<std::int32_t>(entries_.size());
}

// The local variable `removed` releases the CQuillet at the end of the function, when the queue is consistent again.
// This order matters: the destructor of the last CQuillet object of the process releases the session, and code that
// runs during this release must not find the queue half changed.
void CQueue::Remove(const Value& vntIndexKey) {
  const auto position = entries_.begin() + static_cast<std::ptrdiff_t>(IndexOf(vntIndexKey));
  const Entry removed = std::move(*position);
  entries_.erase(position);
  byKey_.erase(removed.foldedKey);
}

void CQueue::RemoveAll() {
  byKey_.clear();
  const auto removed = std::exchange(entries_, {});
}

std::vector<std::shared_ptr<CQuillet>> CQueue::Entries() const {
  std::vector<std::shared_ptr<CQuillet>> quillets;
  quillets.reserve(entries_.size());
  for (const Entry& entry : entries_) {
    quillets.push_back(entry.quillet);
  }
  return quillets;
}

// The index (counted from 0) in entries_ of the CQuillet that `vntIndexKey` identifies. A string is always a key, even
// when it looks like a number; any other value is a position (counted from 1). Raises 5 (invalid argument) when the
// queue has no such key or position, and the error of ToInt32 for a position that is not convertible to an integer.
std::size_t CQueue::IndexOf(const Value& vntIndexKey) const {
  if (const auto* key = vntIndexKey.As<std::u16string>()) {
    return IndexOfKey(*key);
  }
  const std::int32_t position = ToInt32(vntIndexKey);
  if (position < 1 || position > Count()) {
    Raise(RunTimeError::InvalidCall);
  }
  return static_cast<std::size_t>(position) - 1;
}

std::size_t CQueue::IndexOfKey(std::u16string_view key) const {
  const auto found = byKey_.find(FoldedKey(key));
  if (found == byKey_.end()) {
    Raise(RunTimeError::InvalidCall);
  }
  const auto entry = std::ranges::find(entries_, found->second, &Entry::quillet);
  return static_cast<std::size_t>(entry - entries_.begin());
}

}  // namespace wendrill
