#include "hostile_values.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "com/server/automation_types.h"

namespace wendrill::com::testing {
namespace {

constexpr VARTYPE kNoType = 0x0FF0;

Make Of(VARTYPE type, double number) {
  return [type, number](VARIANT* made) {
    OwnedVariant source;
    V_VT(&source) = VT_R8;
    V_R8(&source) = number;
    EXPECT_EQ(S_OK, VariantChangeType(made, &source, 0, type));
  };
}

Make OfText(std::wstring text) {
  return [text = std::move(text)](VARIANT* made) {
    V_VT(made) = VT_BSTR;
    V_BSTR(made) = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  };
}

Make OfArray(VARTYPE elements, UINT dimensions, LONG lower, ULONG count) {
  return [=](VARIANT* made) {
    std::vector<SAFEARRAYBOUND> bounds(dimensions, SAFEARRAYBOUND{count, lower});
    V_VT(made) = static_cast<VARTYPE>(VT_ARRAY | elements);
    V_ARRAY(made) = SafeArrayCreate(elements, dimensions, bounds.data());
  };
}

// A number that a conversion from a double would not give.
template <typename Set>
Make Raw(VARTYPE type, Set set) {
  return [type, set](VARIANT* made) {
    V_VT(made) = type;
    set(made);
  };
}

bool CanBeReferredTo(const VARIANT& variant) {
  const VARTYPE type = V_VT(&variant);
  return type != VT_EMPTY && type != VT_NULL && type != VT_DECIMAL && type != kNoType && (type & VT_BYREF) == 0;
}

}  // namespace

std::vector<std::pair<const char*, Make>> HostileValues(IDispatch* someObject, IUnknown* noDispatch) {
  return {
      {"Empty", [](VARIANT*) {}},
      {"Null", Raw(VT_NULL, [](VARIANT*) {})},
      {"Nothing", Raw(VT_DISPATCH, [](VARIANT* v) { V_DISPATCH(v) = nullptr; })},
      {"no unknown", Raw(VT_UNKNOWN, [](VARIANT* v) { V_UNKNOWN(v) = nullptr; })},
      {"object", Raw(VT_DISPATCH,
                     [someObject](VARIANT* v) {
                       V_DISPATCH(v) = someObject;
                       someObject->AddRef();
                     })},
      {"object without automation", Raw(VT_UNKNOWN,
                                        [noDispatch](VARIANT* v) {
                                          V_UNKNOWN(v) = noDispatch;
                                          noDispatch->AddRef();
                                        })},
      {"True", Raw(VT_BOOL, [](VARIANT* v) { V_BOOL(v) = VARIANT_TRUE; })},
      {"byte", Of(VT_UI1, 255)},
      {"-1", Of(VT_I2, -1)},
      {"-32768", Of(VT_I2, -32768)},
      {"70000", Of(VT_I4, 70000)},
      {"largest", Of(VT_I4, 2147483647)},
      {"smallest", Of(VT_I4, -2147483648.0)},
      {"64 bits", Of(VT_I8, 1e15)},
      {"unsigned", Of(VT_UI4, 4294967295.0)},
      {"1e300", Of(VT_R8, 1e300)},
      {"not a number", Raw(VT_R8, [](VARIANT* v) { V_R8(v) = std::nan(""); })},
      {"infinity", Raw(VT_R8, [](VARIANT* v) { V_R8(v) = std::numeric_limits<double>::infinity(); })},
      {"currency", Of(VT_CY, 922337203685477.0)},
      {"decimal", Of(VT_DECIMAL, 1e20)},
      {"date", Of(VT_DATE, 39611.5)},
      {"date out of range", Raw(VT_DATE, [](VARIANT* v) { V_DATE(v) = 1e15; })},
      {"error", Raw(VT_ERROR, [](VARIANT* v) { V_ERROR(v) = E_FAIL; })},
      {"omitted", Raw(VT_ERROR, [](VARIANT* v) { V_ERROR(v) = DISP_E_PARAMNOTFOUND; })},
      {"no string", Raw(VT_BSTR, [](VARIANT* v) { V_BSTR(v) = nullptr; })},
      {"text", OfText(L"JD")},
      {"number as text", OfText(L"1")},
      {"text with NUL", OfText(std::wstring(L"A\0B", 3))},
      {"unpaired surrogates", OfText(std::wstring{static_cast<wchar_t>(0xDC00), static_cast<wchar_t>(0xD800)})},
      {"a million characters", OfText(std::wstring(1'000'000, L'X'))},
      {"array of values", OfArray(VT_VARIANT, 1, 0, 3)},
      {"array of strings", OfArray(VT_BSTR, 1, 1, 2)},
      {"array without elements", OfArray(VT_VARIANT, 1, 0, 0)},
      {"array far below zero", OfArray(VT_VARIANT, 1, -2147483647, 2)},
      {"array of numbers", OfArray(VT_I4, 1, 0, 2)},
      {"array of two dimensions", OfArray(VT_VARIANT, 2, 0, 2)},
      {"array that is none", Raw(VT_ARRAY | VT_VARIANT, [](VARIANT* v) { V_ARRAY(v) = nullptr; })},
      {"reference to no variable", Raw(VT_BYREF | VT_VARIANT, [](VARIANT* v) { V_VARIANTREF(v) = nullptr; })},
      {"reference to itself", Raw(VT_BYREF | VT_VARIANT, [](VARIANT* v) { V_VARIANTREF(v) = v; })},
      {"reference to no text", Raw(VT_BYREF | VT_BSTR, [](VARIANT* v) { V_BSTRREF(v) = nullptr; })},
      {"reference to no object", Raw(VT_BYREF | VT_DISPATCH, [](VARIANT* v) { V_DISPATCHREF(v) = nullptr; })},
      {"unknown type", Raw(kNoType, [](VARIANT*) {})},
  };
}

LateArguments::LateArguments(std::size_t count, const Make& make, Passing passing) : held_(count), passed_(count) {
  for (std::size_t index = 0; index < count; ++index) {
    VariantInit(&held_[index]);
    make(&held_[index]);
    passed_[index] = held_[index];
    if (passing == Passing::AsVariable) {
      V_VT(&passed_[index]) = VT_BYREF | VT_VARIANT;
      V_VARIANTREF(&passed_[index]) = &held_[index];
    } else if (passing == Passing::ByReference && CanBeReferredTo(held_[index])) {
      V_VT(&passed_[index]) = static_cast<VARTYPE>(V_VT(&held_[index]) | VT_BYREF);
      V_BYREF(&passed_[index]) = &V_I4(&held_[index]);
    }
  }
}

LateArguments::~LateArguments() {
  for (VARIANT& variant : held_) {
    if (V_VT(&variant) == kNoType || (V_VT(&variant) & VT_BYREF) != 0) {
      V_VT(&variant) = VT_EMPTY;
    }
    VariantClear(&variant);
  }
}

}  // namespace wendrill::com::testing
