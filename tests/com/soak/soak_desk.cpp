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

std::wstring Desk::TextUnder(const wchar_t* key) {
  OwnedVariant name;
  OwnedVariant value;
  V_VT(&name) = VT_BSTR;
  V_BSTR(&name) = SysAllocString(key);
  Bag()->get_Item(name, &value);
  return V_VT(&value) == VT_BSTR ? V_BSTR(&value) : L"";
}

void Desk::ThrowBroken(HRESULT status) {
  throw std::runtime_error("an object cannot be created: status " + std::to_string(status));
}

HRESULT CallByName(IDispatch* object, const wchar_t* member, const wchar_t* argument) {
  auto* name = const_cast<LPOLESTR>(member);
  DISPID id = DISPID_UNKNOWN;
  const HRESULT status = object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(status)) {
    return status;
  }
  OwnedVariant variable;
  V_VT(&variable) = VT_BSTR;
  V_BSTR(&variable) = SysAllocString(argument);
  VARIANT passed;
  V_VT(&passed) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&passed) = &variable;
  DISPPARAMS parameters{&passed, nullptr, *argument == L'\0' ? 0U : 1U, 0};
  OwnedVariant result;
  EXCEPINFO exception{};
  const HRESULT answer = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                                        &parameters, &result, &exception, nullptr);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  return answer;
}

}  // namespace wendrill::soak
