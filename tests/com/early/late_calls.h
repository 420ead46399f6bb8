// Late-bound calls as a C++ client makes them, and their arguments.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <vector>

#include "com/server/automation_types.h"

namespace wendrill::com::testing {

inline DISPID IdOf(IDispatch* object, const wchar_t* name) {
  auto* asked = const_cast<LPOLESTR>(name);
  DISPID id = DISPID_UNKNOWN;
  EXPECT_EQ(S_OK, object->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id));
  return id;
}

// Arguments come in their written order; the call borrows them.
inline HRESULT Invoke(IDispatch* object, DISPID id, WORD flags, std::vector<VARIANT> arguments, VARIANT* result,
                      EXCEPINFO* exception = nullptr, UINT* argument = nullptr) {
  std::reverse(arguments.begin(), arguments.end());
  DISPID value = DISPID_PROPERTYPUT;
  const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS parameters{arguments.data(), isPut ? &value : nullptr, static_cast<UINT>(arguments.size()),
                        isPut ? 1U : 0U};
  return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result, exception, argument);
}

inline HRESULT Invoke(IDispatch* object, const wchar_t* name, std::initializer_list<VARIANT> arguments, VARIANT* result,
                      EXCEPINFO* exception = nullptr, UINT* argument = nullptr) {
  return Invoke(object, IdOf(object, name), DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments, result, exception,
                argument);
}

// What a failed call left in the exception information, whose strings are freed.
struct Exception {
  SCODE code = 0;
  std::wstring source;
  std::wstring description;
};
inline Exception Taken(EXCEPINFO& information) {
  Exception taken{information.scode, {}, {}};
  if (information.bstrSource != nullptr) {
    taken.source = information.bstrSource;
  }
  if (information.bstrDescription != nullptr) {
    taken.description = information.bstrDescription;
  }
  SysFreeString(information.bstrSource);
  SysFreeString(information.bstrDescription);
  SysFreeString(information.bstrHelpFile);
  information = EXCEPINFO{};
  return taken;
}

inline VARIANT OfType(VARTYPE type) {
  VARIANT variant{};
  V_VT(&variant) = type;
  return variant;
}
inline VARIANT Number(LONG number) {
  VARIANT variant = OfType(VT_I4);
  V_I4(&variant) = number;
  return variant;
}
inline VARIANT Real(double number) {
  VARIANT variant = OfType(VT_R8);
  V_R8(&variant) = number;
  return variant;
}
inline VARIANT String(BSTR text) {
  VARIANT variant = OfType(VT_BSTR);
  V_BSTR(&variant) = text;
  return variant;
}
inline VARIANT Object(IDispatch* object) {
  VARIANT variant = OfType(VT_DISPATCH);
  V_DISPATCH(&variant) = object;
  return variant;
}
inline VARIANT ByReference(VARIANT* variable) {
  VARIANT variant = OfType(VT_BYREF | VT_VARIANT);
  V_VARIANTREF(&variant) = variable;
  return variant;
}
inline VARIANT Omitted() {
  VARIANT variant = OfType(VT_ERROR);
  V_ERROR(&variant) = DISP_E_PARAMNOTFOUND;
  return variant;
}

}  // namespace wendrill::com::testing
