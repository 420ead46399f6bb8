#include "scan/element_arrays.h"

#include "common/error.h"

namespace wendrill {

void ElementArrays::Reset() {
  text_.clear();
  initial_.clear();
  for (const ArrayKey& key : keys_) {
    initial_.push_back(Stored(key.initial));
  }
  entries_ = initial_;
}

void ElementArrays::GrowTo(std::int16_t index) {
  for (std::int32_t last = UpperBound(); last < index; ++last) {
    entries_.insert(entries_.end(), initial_.begin(), initial_.end());
  }
}

std::int32_t ElementArrays::UpperBound() const {
  return static_cast<std::int32_t>(entries_.size() / keys_.size()) - 1;
}

Value ElementArrays::At(std::size_t key, std::int32_t index) const {
  if (index < 0 || index > UpperBound()) {
    Raise(RunTimeError::SubscriptOutOfRange);
  }
  const Entry& entry = entries_[static_cast<std::size_t>(index) * keys_.size() + key];
  return keys_[key].type == ArrayType::Flag ? Value(entry.flag)
                                            : Value(TextView(text_).substr(entry.first, entry.length));
}

}  // namespace wendrill
