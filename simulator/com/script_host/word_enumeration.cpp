#include "word_enumeration.h"

#include <algorithm>

#include "script_object.h"

namespace wendrill::script_host {

WordEnumeration::WordEnumeration(std::vector<std::wstring> words, std::size_t next)
    : words_(std::move(words)), next_(next) {}

HRESULT WordEnumeration::QueryInterface(REFIID identity, void** object) {
  if (identity != IID_IUnknown && identity != IID_IEnumVARIANT) {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  *object = static_cast<IEnumVARIANT*>(this);
  AddRef();
  return S_OK;
}

ULONG WordEnumeration::AddRef() {
  return ++references_;
}

ULONG WordEnumeration::Release() {
  const ULONG left = --references_;
  if (left == 0) {
    delete this;
  }
  return left;
}

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
