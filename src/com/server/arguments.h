// The arguments of a late-bound call to a typed method. Each argument is dereferenced and converted, passed to the
// method, and written back if the parameter is by reference.
//
// A script passes a plain variable as a reference to a VARIANT of any type. A by-reference parameter accepts such an
// argument: the value is converted into a local variable of the parameter's type, and the method receives a pointer to
// the local variable. After a successful call, the script's variable receives the value of the local variable:
//   - For a parameter of type VARIANT* or SAFEARRAY**, always.
//   - For any other parameter, only when the method has changed the value. Otherwise the script's variable keeps its
//     value and its type.
#pragma once

#include <type_traits>

#include "com/server/automation_types.h"

namespace wendrill::com {

// The VARIANT at the end of a chain of references to VARIANTs. When `argument` is null or is not a reference to a
// VARIANT, the result is `argument` itself.
inline VARIANTARG* Unwrapped(VARIANTARG* argument) {
  while (argument != nullptr && V_VT(argument) == (VT_BYREF | VT_VARIANT)) {
    argument = V_VARIANTREF(argument);
  }
  return argument;
}

// Whether the argument is the marker for an argument that the caller left out: VT_ERROR with DISP_E_PARAMNOTFOUND.
bool IsOmitted(const VARIANTARG* argument);

// Converts the argument to `type` and stores the result in `target`. Returns the status of the system's conversion:
// DISP_E_OVERFLOW when a number does not fit into `type`, DISP_E_TYPEMISMATCH for an argument that is not convertible
// to `type`. REQUIRES: `target` is Empty.
HRESULT CoerceInto(VARIANT* target, VARIANTARG* argument, VARTYPE type);

// Stores the object of an argument in `object`, AddRef'ed; null for Empty and Nothing. Returns DISP_E_TYPEMISMATCH for
// any other value and for an object without IDispatch.
HRESULT ObjectOf(VARIANTARG* argument, IDispatch** object);

// Stores `value` in the variable that a by-reference argument refers to; does nothing for an argument that was passed
// by value. A variable of type VARIANT takes ownership of the contents of `value`, which becomes Empty. A variable of
// another type receives a converted copy. Returns a failure in these cases:
//   - The value does not convert to the type of the variable: the failure of the conversion.
//   - The type of the variable is not VARIANT, string, object, Boolean, 16-bit integer, 32-bit integer or array:
//     DISP_E_TYPEMISMATCH.
//   - The variable contains an array that is locked or cannot be replaced: DISP_E_ARRAYISLOCKED.
HRESULT StoreInto(VARIANTARG* argument, VARIANT* value);

// Checks, before a call does any work, that StoreInto can store an array of strings in the variable to which the
// argument refers. Returns S_OK except in these cases:
//   - A variable of type VARIANT: DISP_E_ARRAYISLOCKED when the variable contains a locked array.
//   - A variable of another type: DISP_E_TYPEMISMATCH unless the variable is an array of strings or of VARIANTs;
//     DISP_E_ARRAYISLOCKED when ReplaceArray cannot replace that array.
//
// The result for an argument that was passed by value is S_OK, because StoreInto ignores the argument.
HRESULT RequirePlaceForTexts(const VARIANTARG* argument);

// Destroys the caller's array `*place` and moves the array `*array` to `*place`; `*array` is then null. Returns
// DISP_E_ARRAYISLOCKED and changes nothing when the caller's array is locked, for example by an enumeration of the
// array. Also returns DISP_E_ARRAYISLOCKED for an array that was declared with fixed bounds, because the memory of such
// an array belongs to the caller.
HRESULT ReplaceArray(SAFEARRAY** place, SAFEARRAY** array);

// Converts an array of strings to an array of VARIANTs and stores the new array in `target`. The conversion is for
// scripts, which can index only arrays of VARIANTs. A null `texts` becomes an empty array.
HRESULT ArrayOfVariants(SAFEARRAY* texts, VARIANT* target);

// Converts an argument that contains an array of strings or of VARIANTs to a new array of strings, which the caller
// owns; Empty becomes null. Returns DISP_E_TYPEMISMATCH for any other argument and for an array with several
// dimensions. Returns the failure of CoerceInto for an element that does not convert to a string.
HRESULT ArrayOfStrings(VARIANTARG* argument, SAFEARRAY** texts);

// One parameter of a typed method. Load converts the caller's argument; a null argument means that the caller left out
// an optional argument. Pass returns the value to pass to the method. StoreBack is called after the method has
// succeeded and stores the value of a by-reference parameter in the caller's variable.
template <typename Parameter>
class Argument;

namespace detail {

// A number or a Boolean that is passed by value. kType is the type to which the caller's argument is converted; VT_I4
// for an enumeration.
template <typename Number, VARTYPE kType>
class NumberArgument {
 public:
  HRESULT Load(VARIANTARG* argument) {
    if (argument == nullptr) {
      return S_OK;  // an omitted number is 0
    }
    VARIANTARG* value = Unwrapped(argument);
    if (V_VT(value) == kType) {
      number_ = Read(value);
      return S_OK;
    }
    OwnedVariant coerced;
    const HRESULT status = CoerceInto(&coerced, value, kType);
    if (SUCCEEDED(status)) {
      number_ = Read(&coerced);
    }
    return status;
  }
  Number Pass() { return number_; }
  HRESULT StoreBack() { return S_OK; }

 protected:
  static Number Read(const VARIANT* value) {
    if constexpr (kType == VT_I4) {
      return static_cast<Number>(V_I4(value));
    } else {
      return static_cast<Number>(V_I2(value));
    }
  }
  Number number_{};
};

// A number or a Boolean that is passed by reference. StoreBack writes to the caller's variable only when the method has
// changed the value.
template <typename Number, VARTYPE kType>
class NumberReferenceArgument : NumberArgument<Number, kType> {
 public:
  HRESULT Load(VARIANTARG* argument) {
    argument_ = argument;
    const HRESULT status = NumberArgument<Number, kType>::Load(argument);
    before_ = this->number_;
    return status;
  }
  Number* Pass() { return &this->number_; }
  HRESULT StoreBack() {
    if (argument_ == nullptr || before_ == this->number_) {
      return S_OK;
    }
    OwnedVariant value;
    V_VT(&value) = kType;
    if constexpr (kType == VT_I4) {
      V_I4(&value) = static_cast<LONG>(this->number_);
    } else {
      V_I2(&value) = static_cast<SHORT>(this->number_);
    }
    return StoreInto(argument_, &value);
  }

 private:
  VARIANTARG* argument_ = nullptr;
  Number before_{};
};

}  // namespace detail

template <>
class Argument<SHORT> : public detail::NumberArgument<SHORT, VT_I2> {};
template <>
class Argument<LONG> : public detail::NumberArgument<LONG, VT_I4> {};

template <typename Number>
requires std::is_enum_v<Number>
class Argument<Number*> : public detail::NumberReferenceArgument<Number, VT_I4> {
};

// Denotes a Boolean parameter in a dispatch row. VARIANT_BOOL cannot denote a Boolean: in C++, VARIANT_BOOL and SHORT
// are the same type.
struct Boolean {};
template <>
class Argument<Boolean> : public detail::NumberArgument<VARIANT_BOOL, VT_BOOL> {};
template <>
class Argument<Boolean*> : public detail::NumberReferenceArgument<VARIANT_BOOL, VT_BOOL> {};

// A string that is passed by value. An argument that is a string already is passed without a copy.
template <>
class Argument<BSTR> {
 public:
  HRESULT Load(VARIANTARG* argument) {
    if (argument == nullptr) {
      return S_OK;
    }
    VARIANTARG* value = Unwrapped(argument);
    if (V_VT(value) == VT_BSTR) {
      text_ = V_BSTR(value);
      return S_OK;
    }
    const HRESULT status = CoerceInto(&coerced_, value, VT_BSTR);
    text_ = V_VT(&coerced_) == VT_BSTR ? V_BSTR(&coerced_) : nullptr;
    return status;
  }
  BSTR Pass() { return text_; }
  HRESULT StoreBack() { return S_OK; }

 private:
  OwnedVariant coerced_;
  BSTR text_ = nullptr;
};

// A string that is passed by reference. The method receives a copy. StoreBack writes to the caller's variable only when
// the method has changed the string.
template <>
class Argument<BSTR*> {
 public:
  HRESULT Load(VARIANTARG* argument) {
    argument_ = argument;
    Argument<BSTR> value;
    const HRESULT status = value.Load(argument);
    if (SUCCEEDED(status)) {
      before_ = OwnedStringOf(value.Pass());
      text_ = OwnedStringOf(value.Pass());
    }
    return status;
  }
  BSTR* Pass() { return &text_; }
  HRESULT StoreBack() {
    if (argument_ == nullptr || TextOf(text_) == TextOf(before_)) {
      return S_OK;
    }
    OwnedVariant value;
    V_VT(&value) = VT_BSTR;
    V_BSTR(&value) = std::exchange(text_, nullptr);
    return StoreInto(argument_, &value);
  }
  Argument() = default;
  Argument(const Argument&) = delete;
  Argument& operator=(const Argument&) = delete;
  ~Argument() {
    SysFreeString(text_);
    SysFreeString(before_);
  }

 private:
  static BSTR OwnedStringOf(BSTR text) { return NewString(TextOf(text)); }
  VARIANTARG* argument_ = nullptr;
  BSTR before_ = nullptr;
  BSTR text_ = nullptr;
};

// An object that is passed by value. Load queries the object for the interface of the parameter, and returns
// DISP_E_TYPEMISMATCH when the object does not implement that interface.
template <typename Interface>
requires std::is_base_of_v<IUnknown, Interface>
class Argument<Interface*> {
 public:
  HRESULT Load(VARIANTARG* argument) {
    if (argument == nullptr) {
      return S_OK;
    }
    Reference<IDispatch> object;
    const HRESULT status = ObjectOf(argument, object.Receive());
    if (FAILED(status) || !object) {
      return status;
    }
    object_ = object.As<Interface>();
    return object_ ? S_OK : DISP_E_TYPEMISMATCH;
  }
  Interface* Pass() { return object_.Get(); }
  HRESULT StoreBack() { return S_OK; }

 private:
  Reference<Interface> object_;
};

// An object that is passed by reference. StoreBack writes to the caller's variable only when the method has assigned
// another object.
template <>
class Argument<IDispatch**> {
 public:
  HRESULT Load(VARIANTARG* argument) {
    argument_ = argument;
    const HRESULT status = argument == nullptr ? S_OK : ObjectOf(argument, object_.Receive());
    before_ = object_;
    passed_ = object_.Release();
    return status;
  }
  IDispatch** Pass() { return &passed_; }
  HRESULT StoreBack() {
    if (argument_ == nullptr || passed_ == before_.Get()) {
      return S_OK;
    }
    OwnedVariant value;
    V_VT(&value) = VT_DISPATCH;
    V_DISPATCH(&value) = std::exchange(passed_, nullptr);
    return StoreInto(argument_, &value);
  }
  Argument() = default;
  Argument(const Argument&) = delete;
  Argument& operator=(const Argument&) = delete;
  ~Argument() { object_ = Reference<IDispatch>::Adopt(passed_); }

 private:
  VARIANTARG* argument_ = nullptr;
  Reference<IDispatch> before_;
  Reference<IDispatch> object_;
  IDispatch* passed_ = nullptr;
};

// A VARIANT that is passed by value. The method receives the caller's VARIANT without a copy of its contents. When the
// argument refers to a variable of another type than VARIANT, the method receives a copy of the value of that variable.
// An omitted argument is passed as VT_ERROR with DISP_E_PARAMNOTFOUND.
template <>
class Argument<VARIANT> {
 public:
  HRESULT Load(VARIANTARG* argument) {
    if (argument == nullptr) {
      V_VT(&value_) = VT_ERROR;
      V_ERROR(&value_) = DISP_E_PARAMNOTFOUND;
      return S_OK;
    }
    VARIANTARG* source = Unwrapped(argument);
    if ((V_VT(source) & VT_BYREF) == 0) {
      value_ = *source;
      return S_OK;
    }
    const HRESULT status = VariantCopyInd(&copied_, source);
    value_ = copied_;
    return status;
  }
  VARIANT Pass() { return value_; }
  HRESULT StoreBack() { return S_OK; }

 private:
  VARIANT value_{};
  OwnedVariant copied_;
};

// A VARIANT that is passed by reference. The published members use such a parameter only for a variable that receives
// an array of strings. The caller's variable may be a VARIANT with any contents but a locked array. A variable of
// another type must be an array of strings or of VARIANTs.
template <>
class Argument<VARIANT*> {
 public:
  HRESULT Load(VARIANTARG* argument) {
    argument_ = argument;
    if (argument == nullptr) {
      return S_OK;
    }
    const HRESULT status = RequirePlaceForTexts(argument);
    return FAILED(status) ? status : VariantCopyInd(&value_, Unwrapped(argument));
  }
  VARIANT* Pass() { return &value_; }
  HRESULT StoreBack() { return argument_ == nullptr ? S_OK : StoreInto(argument_, &value_); }

 private:
  VARIANTARG* argument_ = nullptr;
  OwnedVariant value_;
};

// An array of strings that is passed by reference. The method receives a copy of the caller's array. StoreBack replaces
// the caller's array by this copy, even when the method has not changed the copy.
template <>
class Argument<SAFEARRAY**> {
 public:
  HRESULT Load(VARIANTARG* argument) {
    argument_ = argument;
    if (argument == nullptr) {
      return S_OK;
    }
    const HRESULT status = ArrayOfStrings(argument, &texts_);
    return FAILED(status) ? status : RequirePlaceForTexts(argument);
  }
  SAFEARRAY** Pass() { return &texts_; }
  HRESULT StoreBack();
  Argument() = default;
  Argument(const Argument&) = delete;
  Argument& operator=(const Argument&) = delete;
  ~Argument() { SafeArrayDestroy(texts_); }

 private:
  VARIANTARG* argument_ = nullptr;
  SAFEARRAY* texts_ = nullptr;
};

}  // namespace wendrill::com
