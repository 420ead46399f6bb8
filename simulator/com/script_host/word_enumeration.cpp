#include "word_enumeration.h"

#include <algorithm>

namespace wendrill::script_host {

WordEnumeration::WordEnumeration(std::vector<std::wstring> words, std::size_t next)
    : words_(std::move(words)), next_(next) {}

HRESULT WordEnumeration::Next(ULONG count, VARIANT* values, ULONG* fetched) {
  ULONG given = 0;
  for (; given < count && next_ < words_.size(); ++given, ++next_) {
    VariantInit(&values[given]);
    SetText(values[given], words_[next_]);
  }
  if (fetched != nullptr) {
    *fetched = given;
  }
  return given == count ? S_OK : S_FALSE;
}

HRESULT WordEnumeration::Skip(ULONG count) {
  const std::size_t left = words_.size() - next_;
  next_ += std::min<std::size_t>(count, left);
  return count <= left ? S_OK : S_FALSE;
}

HRESULT WordEnumeration::Reset() {
  next_ = 0;
  return S_OK;
}

HRESULT WordEnumeration::Clone(IEnumVARIANT** copy) {
  *copy = new WordEnumeration(words_, next_);
  return S_OK;
}

}  // namespace wendrill::script_host
