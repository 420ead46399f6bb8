// One argument of a late-bound call to a typed method: unwrap, convert, pass, write back.
//
// A script's plain variable arrives as a reference to a VARIANT of any type. A by-reference parameter accepts it: the
// value is converted into a local variable of the parameter's type, and after the call the local is stored in the
// script's variable if the method changed it. A variable whose value did not change keeps its type.
#pragma once

#include <type_traits>

#include "com/server/automation_types.h"

namespace wendrill::com {

// The VARIANT that an argument refers to, through any number of references to VARIANTs.
inline VARIANTARG* Unwrapped(VARIANTARG* argument) {
  while (argument != nullptr && V_VT(argument) == (VT_BYREF | VT_VARIANT)) {
    argument = V_VARIANTREF(argument);
  }
  return argument;
}

// Whether the caller left the argument out.
bool IsOmitted(const VARIANTARG* argument);

// Converts into `target`, which must be Empty. Fails with DISP_E_TYPEMISMATCH or DISP_E_OVERFLOW.
HRESULT CoerceInto(VARIANT* target, VARIANTARG* argument, VARTYPE type);

// The object of an argument, AddRef'ed; null for Empty and Nothing. Fails with DISP_E_TYPEMISMATCH for any other value.
HRESULT ObjectOf(VARIANTARG* argument, IDispatch** object);

// Stores `value` in the variable that a by-reference argument refers to; does nothing for an argument that was passed
// by value. Takes ownership of `value` on success.
HRESULT StoreInto(VARIANTARG* argument, VARIANT* value);

// Checks, before a call does any work, that StoreInto can store an array of strings. Fails with DISP_E_TYPEMISMATCH for
// a typed variable that is not an array of strings or of variants, and with DISP_E_ARRAYISLOCKED as ReplaceArray does.
HRESULT RequirePlaceForTexts(const VARIANTARG* argument);

// Replaces a caller's array, which is destroyed. Takes ownership of `array` on success. Fails with DISP_E_ARRAYISLOCKED
// when the caller's array is locked, as by an enumeration of it, or was declared with fixed bounds, because its memory
// then belongs to the caller.
HRESULT ReplaceArray(SAFEARRAY** place, SAFEARRAY** array);

// Converts an array of strings to an array of VARIANT, which scripts can index, and back. A null `texts` is an empty
// array.
HRESULT ArrayOfVariants(SAFEARRAY* texts, VARIANT* target);
HRESULT ArrayOfStrings(VARIANTARG* argument, SAFEARRAY** texts);

// One parameter of a typed method. Load converts the caller's argument (null for an optional argument that was left
// out), Pass returns what to pass to the method, StoreBack stores a by-reference result in the caller's variable.
template <typename Parameter>
class Argument;

namespace detail {

// Numbers by value; enumerations are 32-bit numbers.
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

// Numbers by reference.
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

// Marks a Boolean parameter in a dispatch row. The C++ type VARIANT_BOOL would not do: it is the same type as SHORT.
struct Boolean {};
template <>
class Argument<Boolean> : public detail::NumberArgument<VARIANT_BOOL, VT_BOOL> {};
template <>
class Argument<Boolean*> : public detail::NumberReferenceArgument<VARIANT_BOOL, VT_BOOL> {};

// A string by value; not copied when the caller's argument is a string already.
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

// A string by reference.
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

// An object by value, queried for the interface of the parameter.
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

// An object by reference.
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

// Any value, not copied. A by-reference argument is dereferenced first.
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

// A variable that receives an array of strings, whatever its value before the call. No published member takes a VARIANT
// by reference for any other purpose.
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

// An array of strings by reference.
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
