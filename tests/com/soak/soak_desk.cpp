#include "soak_desk.h"

#include <stdexcept>

namespace wendrill::soak {

void Desk::Put(const wchar_t* key, const wchar_t* text) {
  OwnedVariant value;
  V_VT(&value) = VT_BSTR;
  V_BSTR(&value) = SysAllocString(text);
  Bag()->Set(Text(key), value);
}

void Desk::Put(const wchar_t* key, SHORT number) {
  OwnedVariant value;
  V_VT(&value) = VT_I2;
  V_I2(&value) = number;
  Bag()->Set(Text(key), value);
}

void Desk::Put(const wchar_t* key, bool truth) {
  OwnedVariant value;
  V_VT(&value) = VT_BOOL;
  V_BOOL(&value) = truth ? VARIANT_TRUE : VARIANT_FALSE;
  Bag()->Set(Text(key), value);
}

void Desk::ReleaseAll() {
  bag_ = {};
  encodeUtils_ = {};
  batch_ = {};
  queue_ = {};
  pnr_ = {};
  quillet_ = {};
}

HRESULT Desk::Called(HRESULT status) {
  ++calls;
  if (FAILED(status)) {
    ++failures;
    Reference<IErrorInfo> information;
    if (GetErrorInfo(0, information.Receive()) == S_OK) {
      Text description;
      information->GetDescription(description.Receive());
    }
  }
  return status;
}

void Desk::ThrowBroken(HRESULT status) {
  throw std::runtime_error("an object cannot be created: status " + std::to_string(status));
}

}  // namespace wendrill::soak
