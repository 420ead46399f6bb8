#include "com/server/arguments.h"

#include "com/server/conversions.h"

namespace wendrill::com {
namespace {

// Stores the lower bound and the number of elements of a one-dimensional array; 0 and 0 when the array is null. Returns
// DISP_E_TYPEMISMATCH for an array with several dimensions and for an array whose elements are not of `type`.
HRESULT BoundsOf(SAFEARRAY* array, VARTYPE type, LONG* lower, LONG* count) {
  *lower = 0;
  *count = 0;
  if (array == nullptr) {
    return S_OK;
  }
  LONG upper = -1;
  VARTYPE held = VT_EMPTY;
  if (SafeArrayGetDim(array) != 1 || FAILED(SafeArrayGetVartype(array, &held)) || held != type) {
    return DISP_E_TYPEMISMATCH;
  }
  SafeArrayGetLBound(array, 1, lower);
  SafeArrayGetUBound(array, 1, &upper);
  *count = upper - *lower + 1;
  return S_OK;
}

// The VARTYPE of an array whose elements have the C++ type Element.
template <typename Element>
inline constexpr VARTYPE kTypeOf = std::is_same_v<Element, BSTR> ? VT_BSTR : VT_VARIANT;

// Stores in `result` a new array with the bounds of `source`. `convert(from, to)` creates each element. When `convert`
// fails, destroys the new array and returns the failure of `convert`. Returns DISP_E_TYPEMISMATCH when `source` has
// several dimensions or elements of another type than From. A null `source` gives an empty array. `result` is written
// only on success.
template <typename From, typename To, typename Convert>
HRESULT Converted(SAFEARRAY* source, SAFEARRAY** result, Convert convert) {
  LONG lower = 0;
  LONG count = 0;
  HRESULT status = BoundsOf(source, kTypeOf<From>, &lower, &count);
  if (FAILED(status)) {
    return status;
  }
  SAFEARRAY* array = SafeArrayCreateVector(kTypeOf<To>, lower, static_cast<ULONG>(count));
  if (array == nullptr) {
    return E_OUTOFMEMORY;
  }
  From* from = nullptr;
  To* to = nullptr;
  if (count > 0) {
    SafeArrayAccessData(source, reinterpret_cast<void**>(&from));
    SafeArrayAccessData(array, reinterpret_cast<void**>(&to));
    for (LONG index = 0; index < count && SUCCEEDED(status); ++index) {
      status = convert(from + index, to + index);
    }
    SafeArrayUnaccessData(array);
    SafeArrayUnaccessData(source);
  }
  if (FAILED(status)) {
    SafeArrayDestroy(array);
    return status;
  }
  *result = array;
  return S_OK;
}

HRESULT CopyString(const BSTR* from, BSTR* to) {
  *to = SysAllocStringLen(*from, SysStringLen(*from));
  return *to == nullptr ? E_OUTOFMEMORY : S_OK;
}

HRESULT StringOfVariant(VARIANT* from, BSTR* to) {
  OwnedVariant coerced;
  const HRESULT status = CoerceInto(&coerced, from, VT_BSTR);
  if (SUCCEEDED(status)) {
    *to = V_BSTR(&coerced);
    V_VT(&coerced) = VT_EMPTY;
  }
  return status;
}

HRESULT VariantOfString(const BSTR* from, VARIANT* to) {
  V_VT(to) = VT_BSTR;
  return CopyString(from, &V_BSTR(to));
}

SAFEARRAY* ArrayIn(VARIANTARG* argument) {
  return (V_VT(argument) & VT_BYREF) != 0 ? *V_ARRAYREF(argument) : V_ARRAY(argument);
}

// Returns S_OK when the array can be destroyed and replaced, or is null; otherwise DISP_E_ARRAYISLOCKED.
HRESULT RequireReplaceable(const SAFEARRAY* array) {
  constexpr USHORT kFixed = FADF_AUTO | FADF_STATIC | FADF_EMBEDDED | FADF_FIXEDSIZE;
  const bool isReplaceable = array == nullptr || (array->cLocks == 0 && (array->fFeatures & kFixed) == 0);
  return isReplaceable ? S_OK : DISP_E_ARRAYISLOCKED;
}

// Stores in `target` the new array of strings that ArrayOfStrings makes of `value`. The system's conversion
// (ChangeType) cannot be used, because it does not convert the elements of an array.
HRESULT CoerceIntoStrings(VARIANT* target, VARIANTARG* value) {
  SAFEARRAY* texts = nullptr;
  const HRESULT status = ArrayOfStrings(value, &texts);
  if (SUCCEEDED(status)) {
    V_VT(target) = VT_ARRAY | VT_BSTR;
    V_ARRAY(target) = texts;
  }
  return status;
}

}  // namespace

bool IsOmitted(const VARIANTARG* argument) {
  return V_VT(argument) == VT_ERROR && V_ERROR(argument) == DISP_E_PARAMNOTFOUND;
}

HRESULT CoerceInto(VARIANT* target, VARIANTARG* argument, VARTYPE type) {
  // Converting Null or Nothing must be a type mismatch, as in the automation run time. For Nothing, the system's
  // conversion returns DISP_E_BADVARTYPE, which is therefore replaced by DISP_E_TYPEMISMATCH.
  const HRESULT status = ChangeType(target, argument, type);
  return status == DISP_E_BADVARTYPE ? DISP_E_TYPEMISMATCH : status;
}

HRESULT ObjectOf(VARIANTARG* argument, IDispatch** object) {
  *object = nullptr;
  VARIANTARG* value = Unwrapped(argument);
  IUnknown* unknown = nullptr;
  switch (V_VT(value)) {
    case VT_EMPTY:
      return S_OK;
    case VT_DISPATCH:
      unknown = V_DISPATCH(value);
      break;
    case VT_UNKNOWN:
      unknown = V_UNKNOWN(value);
      break;
    case VT_BYREF | VT_DISPATCH:
      unknown = *V_DISPATCHREF(value);
      break;
    case VT_BYREF | VT_UNKNOWN:
      unknown = *V_UNKNOWNREF(value);
      break;
    default:
      return DISP_E_TYPEMISMATCH;
  }
  if (unknown == nullptr) {
    return S_OK;
  }
  return SUCCEEDED(unknown->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(object))) ? S_OK
                                                                                             : DISP_E_TYPEMISMATCH;
}

HRESULT StoreInto(VARIANTARG* argument, VARIANT* value) {
  if ((V_VT(argument) & VT_BYREF) == 0) {
    return S_OK;
  }
  if (V_VT(argument) == (VT_BYREF | VT_VARIANT)) {
    VARIANTARG* variable = Unwrapped(argument);
    if ((V_VT(variable) & VT_BYREF) != 0) {
      return StoreInto(variable, value);
    }
    const HRESULT status = VariantClear(variable);
    if (SUCCEEDED(status)) {
      *variable = *value;
      V_VT(value) = VT_EMPTY;
    }
    return status;
  }
  const auto type = static_cast<VARTYPE>(V_VT(argument) & ~VT_BYREF);
  OwnedVariant coerced;
  const HRESULT status =
      type == (VT_ARRAY | VT_BSTR) ? CoerceIntoStrings(&coerced, value) : CoerceInto(&coerced, value, type);
  if (FAILED(status)) {
    return status;
  }
  switch (type) {
    case VT_BSTR:
      std::swap(*V_BSTRREF(argument), V_BSTR(&coerced));
      return S_OK;
    case VT_DISPATCH:
    case VT_UNKNOWN:
      std::swap(*V_UNKNOWNREF(argument), V_UNKNOWN(&coerced));
      return S_OK;
    case VT_I2:
    case VT_BOOL:
      *V_I2REF(argument) = V_I2(&coerced);
      return S_OK;
    case VT_I4:
    case VT_INT:
      *V_I4REF(argument) = V_I4(&coerced);
      return S_OK;
    default:
      break;
  }
  return (type & VT_ARRAY) != 0 ? ReplaceArray(V_ARRAYREF(argument), &V_ARRAY(&coerced)) : DISP_E_TYPEMISMATCH;
}

HRESULT RequirePlaceForTexts(const VARIANTARG* argument) {
  while (V_VT(argument) == (VT_BYREF | VT_VARIANT)) {
    argument = V_VARIANTREF(argument);
    // A VARIANT variable accepts any type, unless it contains a locked array, which cannot be destroyed.
    if ((V_VT(argument) & VT_BYREF) == 0) {
      const bool isLocked = V_ISARRAY(argument) && V_ARRAY(argument) != nullptr && V_ARRAY(argument)->cLocks != 0;
      return isLocked ? DISP_E_ARRAYISLOCKED : S_OK;
    }
  }
  switch (V_VT(argument)) {
    case VT_BYREF | VT_ARRAY | VT_BSTR:
    case VT_BYREF | VT_ARRAY | VT_VARIANT:
      return RequireReplaceable(*V_ARRAYREF(argument));
    default:  // a typed variable is of a wrong type; an argument by value is accepted: StoreInto ignores it
      return (V_VT(argument) & VT_BYREF) != 0 ? DISP_E_TYPEMISMATCH : S_OK;
  }
}

HRESULT ReplaceArray(SAFEARRAY** place, SAFEARRAY** array) {
  HRESULT status = RequireReplaceable(*place);
  if (SUCCEEDED(status)) {
    status = SafeArrayDestroy(*place);
  }
  if (SUCCEEDED(status)) {
    *place = std::exchange(*array, nullptr);
  }
  return status;
}

HRESULT ArrayOfVariants(SAFEARRAY* texts, VARIANT* target) {
  SAFEARRAY* array = nullptr;
  const HRESULT status = Converted<BSTR, VARIANT>(texts, &array, VariantOfString);
  if (SUCCEEDED(status)) {
    V_VT(target) = VT_ARRAY | VT_VARIANT;
    V_ARRAY(target) = array;
  }
  return status;
}

HRESULT ArrayOfStrings(VARIANTARG* argument, SAFEARRAY** texts) {
  *texts = nullptr;
  VARIANTARG* value = Unwrapped(argument);
  switch (V_VT(value) & ~VT_BYREF) {
    case VT_EMPTY:
      return S_OK;
    case VT_ARRAY | VT_BSTR:
      return Converted<BSTR, BSTR>(ArrayIn(value), texts, CopyString);
    case VT_ARRAY | VT_VARIANT:
      return Converted<VARIANT, BSTR>(ArrayIn(value), texts, StringOfVariant);
    default:
      return DISP_E_TYPEMISMATCH;
  }
}

HRESULT Argument<SAFEARRAY**>::StoreBack() {
  if (argument_ == nullptr) {
    return S_OK;
  }
  VARIANTARG* target = Unwrapped(argument_);
  if (V_VT(target) == (VT_BYREF | VT_ARRAY | VT_BSTR)) {
    return ReplaceArray(V_ARRAYREF(target), &texts_);
  }
  OwnedVariant values;
  const HRESULT status = ArrayOfVariants(texts_, &values);
  return FAILED(status) ? status : StoreInto(argument_, &values);
}

}  // namespace wendrill::com
