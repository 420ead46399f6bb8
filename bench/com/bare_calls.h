// Automation calls without overhead: made as by a client that already knows every DISPID.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <initializer_list>
#include <span>
#include <string>

#include "com/server/automation_types.h"

namespace wendrill::com::bench {

// Throws std::runtime_error when `status` is a failure, which ends the benchmark: times of failing calls mean nothing.
void Must(HRESULT status);

Reference<IDispatch> Create(const wchar_t* programmaticId);

template <typename Interface>
Reference<Interface> CreateAs(const wchar_t* programmaticId) {
  return Create(programmaticId).template As<Interface>();
}

DISPID IdOf(IDispatch* object, const wchar_t* name);

// Calls a method or reads a property. `arguments` are in reverse order, as Invoke takes them. `result` is overwritten
// without being cleared.
inline void Call(IDispatch* object, DISPID id, std::span<VARIANT> arguments, VARIANT* result) {
  DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
  Must(object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &parameters, result,
                      nullptr, nullptr));
}

// Reads a property and discards its value.
inline void Read(IDispatch* object, DISPID id) {
  OwnedVariant result;
  Call(object, id, {}, &result);
}

// The object that a member returns. REQUIRES: the member returns a VT_DISPATCH.
inline Reference<IDispatch> ObjectOf(IDispatch* object, DISPID id, std::span<VARIANT> arguments = {}) {
  VARIANT result;
  VariantInit(&result);
  Call(object, id, arguments, &result);
  return Reference<IDispatch>::Adopt(V_DISPATCH(&result));
}

inline VARIANT Number(LONG number) {
  VARIANT variant;
  V_VT(&variant) = VT_I4;
  V_I4(&variant) = number;
  return variant;
}

inline VARIANT String(BSTR text) {
  VARIANT variant;
  V_VT(&variant) = VT_BSTR;
  V_BSTR(&variant) = text;
  return variant;
}

inline VARIANT Object(IDispatch* object) {
  VARIANT variant;
  V_VT(&variant) = VT_DISPATCH;
  V_DISPATCH(&variant) = object;
  return variant;
}

}  // namespace wendrill::com::bench
