#include "com/server/variant_values.h"

#include <memory>

#include "com/server/boundary.h"
#include "com/server/conversions.h"
#include "common/error.h"
#include "common/foreign_value.h"

namespace wendrill::com {
namespace {

// Calls `visit(element)` for each element of a one-dimensional array and returns the lower bound of the array; 0 when
// the array is null. Raises 13 (type mismatch) for an array with several dimensions or with elements of another type
// than `type`. The element type is read from the array itself: an early-bound parameter has the type SAFEARRAY*, which
// does not contain the element type.
template <typename Element, typename Visit>
LONG ForEach(SAFEARRAY* array, VARTYPE type, Visit visit) {
  LONG lower = 0;
  LONG upper = -1;
  if (array == nullptr) {
    return 0;
  }
  VARTYPE held = VT_EMPTY;
  if (SafeArrayGetDim(array) != 1 || FAILED(SafeArrayGetVartype(array, &held)) || held != type) {
    Raise(RunTimeError::TypeMismatch);
  }
  Check(SafeArrayGetLBound(array, 1, &lower));
  Check(SafeArrayGetUBound(array, 1, &upper));
  Element* elements = nullptr;
  Check(SafeArrayAccessData(array, reinterpret_cast<void**>(&elements)));
  // A destructor unlocks the array, because `visit` may throw.
  struct Unlock {
    SAFEARRAY* locked;
    ~Unlock() { SafeArrayUnaccessData(locked); }
  } unlock{array};
  for (LONG index = 0; index <= upper - lower; ++index) {
    visit(elements[index]);
  }
  return lower;
}

ValueArray ValuesOfArray(SAFEARRAY* array, const ObjectBridge& bridge) {
  ValueArray values;
  values.lowerBound = ForEach<VARIANT>(
      array, VT_VARIANT, [&](const VARIANT& element) { values.items.push_back(ToValue(element, bridge)); });
  return values;
}

// A foreign value: a copy of a VARIANT whose type the core does not have.
class KeptVariant final : public ForeignValue {
 public:
  explicit KeptVariant(const VARIANT& variant) { Copy(variant, &kept_); }

  double Number() const override {
    OwnedVariant number;
    CheckConversion(ChangeType(&number, &kept_, VT_R8));
    return V_R8(&number);
  }

  std::u16string Text() const override {
    OwnedVariant text;
    CheckConversion(ChangeType(&text, &kept_, VT_BSTR));
    return std::u16string(TextOf(V_BSTR(&text)));
  }

  void CopyTo(VARIANT* variant) const { Copy(kept_, variant); }

 private:
  static void Copy(const VARIANT& from, VARIANT* to) { CheckConversion(VariantCopy(to, const_cast<VARIANT*>(&from))); }

  OwnedVariant kept_;
};

Value Kept(const VARIANT& variant) {
  return ForeignValueRef(std::make_shared<KeptVariant>(variant));
}

Value ToArray(const VARIANT& variant, const ObjectBridge& bridge) {
  switch (V_VT(&variant)) {
    case VT_ARRAY | VT_BSTR:
      return TextsOfArray(V_ARRAY(&variant));
    case VT_ARRAY | VT_VARIANT:
      return ValuesOfArray(V_ARRAY(&variant), bridge);
    default:
      return Kept(variant);
  }
}

ObjectRef ToObjectRef(IUnknown* unknown, const ObjectBridge& bridge) {
  if (unknown == nullptr) {
    return {};
  }
  Reference<IDispatch> object;
  if (FAILED(unknown->QueryInterface(IID_IDispatch, object.ReceiveVoid()))) {
    Raise(RunTimeError::TypeMismatch);
  }
  return bridge.ToCore(object.Get());
}

SAFEARRAY* NewArray(VARTYPE type, std::int32_t lowerBound, std::size_t count) {
  SAFEARRAY* array = SafeArrayCreateVector(type, lowerBound, static_cast<ULONG>(count));
  if (array == nullptr) {
    throw std::bad_alloc();
  }
  return array;
}

// A new array with one element for each item. `make(item, place)` creates the element at `place`.
template <typename Element, typename Items, typename Make>
SAFEARRAY* Filled(VARTYPE type, std::int32_t lowerBound, const Items& items, Make make) {
  SAFEARRAY* array = NewArray(type, lowerBound, items.size());
  try {
    Element* place = static_cast<Element*>(array->pvData);
    for (const auto& item : items) {
      make(item, place++);
    }
  } catch (...) {
    SafeArrayDestroy(array);
    throw;
  }
  return array;
}

SAFEARRAY* VariantsOfTexts(const TextArray& texts) {
  return Filled<VARIANT>(VT_VARIANT, texts.lowerBound, texts.items, [](const std::u16string& text, VARIANT* place) {
    V_BSTR(place) = NewString(text);
    V_VT(place) = VT_BSTR;
  });
}

void SetArray(VARIANT* variant, VARTYPE elements, SAFEARRAY* array) {
  V_VT(variant) = static_cast<VARTYPE>(VT_ARRAY | elements);
  V_ARRAY(variant) = array;
}

// A visitor that stores a Value in a VARIANT, with one overload for each alternative of Value.
struct Writer {
  VARIANT* variant;
  const ObjectBridge& bridge;
  ArrayForm form;

  void operator()(std::monostate) const { V_VT(variant) = VT_EMPTY; }
  void operator()(Null) const { V_VT(variant) = VT_NULL; }
  void operator()(bool truth) const {
    V_VT(variant) = VT_BOOL;
    V_BOOL(variant) = truth ? VARIANT_TRUE : VARIANT_FALSE;
  }
  void operator()(std::int16_t number) const {
    V_VT(variant) = VT_I2;
    V_I2(variant) = number;
  }
  void operator()(std::int32_t number) const {
    V_VT(variant) = VT_I4;
    V_I4(variant) = number;
  }
  void operator()(double number) const {
    V_VT(variant) = VT_R8;
    V_R8(variant) = number;
  }
  void operator()(const Date& date) const {
    V_VT(variant) = VT_DATE;
    V_DATE(variant) = date.days;
  }
  void operator()(const std::u16string& text) const {
    V_BSTR(variant) = NewString(text);
    V_VT(variant) = VT_BSTR;
  }
  void operator()(const TextArray& texts) const {
    if (form == ArrayForm::Strings) {
      SetArray(variant, VT_BSTR, ArrayOfTexts(texts));
    } else {
      SetArray(variant, VT_VARIANT, VariantsOfTexts(texts));
    }
  }
  void operator()(const ValueArray& values) const {
    SetArray(variant, VT_VARIANT,
             Filled<VARIANT>(VT_VARIANT, values.lowerBound, values.items,
                             [this](const Value& value, VARIANT* place) { ToVariant(value, place, bridge, form); }));
  }
  // The cast is safe: every foreign value is created as a KeptVariant.
  void operator()(const ForeignValueRef& value) const { static_cast<const KeptVariant&>(*value).CopyTo(variant); }
  void operator()(const ObjectRef& object) const {
    V_DISPATCH(variant) = bridge.ToAutomation(object);
    V_VT(variant) = VT_DISPATCH;
  }
};

// The value of the variable to which a VARIANT refers. Raises 13 (type mismatch) for a reference that leads to no
// variable and for a variable that cannot be copied, and whatever ToValue raises for the value of the variable.
Value BehindReference(const VARIANT& variant, const ObjectBridge& bridge) {
  OwnedVariant direct;
  if (!EndsInAVariable(variant) || FAILED(VariantCopyInd(&direct, const_cast<VARIANT*>(&variant)))) {
    Raise(RunTimeError::TypeMismatch);
  }
  return ToValue(direct, bridge);
}

}  // namespace

bool EndsInAVariable(const VARIANT& variant) {
  constexpr int kMostReferences = 8;
  const VARIANT* referring = &variant;
  for (int references = 0; references < kMostReferences; ++references) {
    if ((V_VT(referring) & VT_BYREF) == 0) {
      return true;
    }
    if (V_BYREF(referring) == nullptr) {
      return false;
    }
    if (V_VT(referring) != (VT_BYREF | VT_VARIANT)) {
      return true;
    }
    referring = V_VARIANTREF(referring);
  }
  return false;
}

Value ToValue(const VARIANT& variant, const ObjectBridge& bridge) {
  if ((V_VT(&variant) & VT_BYREF) != 0) {
    return BehindReference(variant, bridge);
  }
  if ((V_VT(&variant) & VT_ARRAY) != 0) {
    return ToArray(variant, bridge);
  }
  switch (V_VT(&variant)) {
    case VT_EMPTY:
      return {};
    case VT_NULL:
      return Null{};
    case VT_BOOL:
      return V_BOOL(&variant) != VARIANT_FALSE;
    case VT_I2:
      return V_I2(&variant);
    case VT_I4:
      return static_cast<std::int32_t>(V_I4(&variant));
    case VT_R8:
      return V_R8(&variant);
    case VT_DATE:
      return Date{V_DATE(&variant)};
    case VT_BSTR:
      return std::u16string(TextOf(V_BSTR(&variant)));
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return ToObjectRef(V_UNKNOWN(&variant), bridge);
    case VT_ERROR:
      return V_ERROR(&variant) == DISP_E_PARAMNOTFOUND ? Value() : Kept(variant);
    default:
      return Kept(variant);
  }
}

void ToVariant(const Value& value, VARIANT* variant, const ObjectBridge& bridge, ArrayForm form) {
  VariantInit(variant);
  std::visit(Writer{variant, bridge, form}, value.Get());
}

SAFEARRAY* ArrayOfTexts(const TextArray& texts) {
  return Filled<BSTR>(VT_BSTR, texts.lowerBound, texts.items,
                      [](const std::u16string& text, BSTR* place) { *place = NewString(text); });
}

TextArray TextsOfArray(SAFEARRAY* texts) {
  TextArray result;
  result.lowerBound = ForEach<BSTR>(texts, VT_BSTR, [&](BSTR text) { result.items.emplace_back(TextOf(text)); });
  return result;
}

}  // namespace wendrill::com
