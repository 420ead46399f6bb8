#include "scan/element_arrays.h"

#include <utility>

#include "common/error.h"

namespace wendrill {

void ElementArrays::Reset() {
  arrays_.clear();
  for (const ArrayKey& key : keys_) {
    if (key.type == ArrayType::Text) {
      arrays_.emplace_back(std::vector<std::u16string>(1, std::u16string(key.initial)));
    } else {
      arrays_.emplace_back(std::vector<bool>(1, false));
    }
  }
}

void ElementArrays::GrowTo(std::int16_t index) {
  if (index <= UpperBound()) {
    return;
  }
  const std::size_t entries = static_cast<std::size_t>(index) + 1;
  for (std::size_t i = 0; i < arrays_.size(); ++i) {
    if (auto* texts = std::get_if<std::vector<std::u16string>>(&arrays_[i])) {
      texts->resize(entries, std::u16string(keys_[i].initial));
    } else {
      std::get<std::vector<bool>>(arrays_[i]).resize(entries, false);
    }
  }
}

std::int32_t ElementArrays::UpperBound() const {
  if (arrays_.empty()) {
    return -1;
  }
  const std::size_t size = std::visit([](const auto& entries) { return entries.size(); }, arrays_.front());
  return static_cast<std::int32_t>(size) - 1;
}

Value ElementArrays::At(std::size_t key, std::int32_t index) const {
  if (index < 0 || index > UpperBound()) {
    Raise(RunTimeError::SubscriptOutOfRange);
  }
  const auto at = static_cast<std::size_t>(index);
  return std::visit([at](const auto& entries) { return Value(entries[at]); }, arrays_.at(key));
}

void ElementArrays::SetText(std::size_t key, std::int16_t index, std::u16string text) {
  std::get<std::vector<std::u16string>>(arrays_[key])[static_cast<std::size_t>(index)] = std::move(text);
}

void ElementArrays::SetFlag(std::size_t key, std::int16_t index, bool flag) {
  std::get<std::vector<bool>>(arrays_[key])[static_cast<std::size_t>(index)] = flag;
}

}  // namespace wendrill
