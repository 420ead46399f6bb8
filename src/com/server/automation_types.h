// Classes that own the system's automation types: strings (BSTR), VARIANTs, interface pointers.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "common/value.h"

namespace wendrill::com {

// TextOf returns a char16_t view of wchar_t characters or of a BSTR; WideOf returns a wchar_t view of char16_t
// characters. Neither copies the characters: on Windows, wchar_t and char16_t are two types with the same 16-bit
// representation.
inline std::u16string_view TextOf(const wchar_t* characters, std::size_t length) {
  return {reinterpret_cast<const char16_t*>(characters), length};
}
inline std::u16string_view TextOf(BSTR text) {
  return TextOf(text, SysStringLen(text));
}
inline std::u16string_view TextOf(std::wstring_view text) {
  return TextOf(text.data(), text.size());
}
inline const wchar_t* WideOf(const char16_t* characters) {
  return reinterpret_cast<const wchar_t*>(characters);
}
inline std::wstring_view WideOf(std::u16string_view text) {
  return {WideOf(text.data()), text.size()};
}

// A new BSTR, which the caller frees, with the characters of `text`. Throws std::bad_alloc when memory is short.
inline BSTR NewString(std::u16string_view text) {
  BSTR string = SysAllocStringLen(WideOf(text.data()), static_cast<UINT>(text.size()));
  if (string == nullptr) {
    throw std::bad_alloc();
  }
  return string;
}

class OwnedString {
 public:
  OwnedString() = default;
  explicit OwnedString(std::u16string_view text) : string_(NewString(text)) {}
  ~OwnedString() { SysFreeString(string_); }
  OwnedString(const OwnedString&) = delete;
  OwnedString& operator=(const OwnedString&) = delete;

  BSTR Get() const { return string_; }
  BSTR* Place() { return &string_; }  // for a callee that may free the string and store a new one
  BSTR* Receive() {
    SysFreeString(std::exchange(string_, nullptr));
    return &string_;
  }
  BSTR Release() { return std::exchange(string_, nullptr); }
  std::u16string_view Text() const { return TextOf(string_); }

 private:
  BSTR string_ = nullptr;
};

// A VARIANT that is cleared on destruction.
class OwnedVariant : public VARIANT {
 public:
  OwnedVariant() : VARIANT{} {}
  ~OwnedVariant() {
    if (OwnsSomething()) {
      VariantClear(this);
    }
  }
  OwnedVariant(const OwnedVariant&) = delete;
  OwnedVariant& operator=(const OwnedVariant&) = delete;

 private:
  // Types below VT_BSTR, and Booleans, own no memory, so most VARIANTs are destroyed without a call of VariantClear.
  bool OwnsSomething() const { return V_VT(this) >= VT_BSTR && V_VT(this) != VT_BOOL; }
};

// A smart pointer to a COM interface. It calls AddRef and Release.
template <typename Interface>
class Reference {
 public:
  Reference() = default;
  explicit Reference(Interface* pointer) : pointer_(pointer) {
    if (pointer_ != nullptr) {
      pointer_->AddRef();
    }
  }
  Reference(const Reference& other) : Reference(other.pointer_) {}
  Reference(Reference&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
  Reference& operator=(Reference other) noexcept {
    std::swap(pointer_, other.pointer_);
    return *this;
  }
  ~Reference() {
    if (pointer_ != nullptr) {
      pointer_->Release();
    }
  }

  // Takes ownership of the caller's reference, without AddRef.
  static Reference Adopt(Interface* pointer) {
    Reference reference;
    reference.pointer_ = pointer;
    return reference;
  }

  Interface* Get() const { return pointer_; }
  Interface* operator->() const { return pointer_; }
  explicit operator bool() const { return pointer_ != nullptr; }

  // Releases the current reference, and returns the address of the pointer for an out parameter that receives a new
  // reference.
  Interface** Receive() {
    *this = Reference();
    return &pointer_;
  }
  void** ReceiveVoid() { return reinterpret_cast<void**>(Receive()); }

  // Transfers ownership of the reference to the caller, without calling Release.
  Interface* Release() { return std::exchange(pointer_, nullptr); }

  // Queries the object for the interface Other. Returns an empty Reference when the object does not implement Other,
  // and when this Reference is empty.
  template <typename Other>
  Reference<Other> As() const {
    Reference<Other> other;
    if (pointer_ != nullptr) {
      pointer_->QueryInterface(__uuidof(Other), other.ReceiveVoid());
    }
    return other;
  }

 private:
  Interface* pointer_ = nullptr;
};

}  // namespace wendrill::com
