// What any C++ client of the library needs, early bound: owners of what calls return, errors with their texts, objects,
// bags, output. The samples of this folder include it; it includes wendrill23.h, which the IDL compiler makes from
// idl/wendrill23.idl.
#pragma once

#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <iterator>
#include <string>
#include <utility>

#include "wendrill23.h"

// What a call that failed has told.
struct Failure {
  HRESULT status;
  std::wstring source;
  std::wstring description;
};

// --- Owners: each gives back what it holds. Receive() is where a call puts its result; the owner must be empty then.

inline BSTR NewString(const std::wstring& text) {
  const BSTR string = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  if (string == nullptr) throw Failure{E_OUTOFMEMORY, {}, L"out of memory"};
  return string;
}

// The null string is the empty one.
inline std::wstring WideOf(BSTR string) {
  return string == nullptr ? L"" : std::wstring(string, SysStringLen(string));
}

class Text {
 public:
  Text() = default;
  explicit Text(const std::wstring& text) : string_(NewString(text)) {}
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;
  ~Text() { SysFreeString(string_); }

  BSTR Get() const { return string_; }
  BSTR* Receive() { return &string_; }

  // For a parameter that takes a string by reference.
  BSTR* InOut() { return &string_; }

  std::wstring Wide() const { return WideOf(string_); }

 private:
  BSTR string_ = nullptr;
};

class Value {
 public:
  Value() { VariantInit(&variant_); }
  explicit Value(SHORT number) : Value() {
    V_VT(&variant_) = VT_I2;
    V_I2(&variant_) = number;
  }
  explicit Value(LONG number) : Value() {
    V_VT(&variant_) = VT_I4;
    V_I4(&variant_) = number;
  }
  explicit Value(const std::wstring& text) : Value() {
    V_BSTR(&variant_) = NewString(text);
    V_VT(&variant_) = VT_BSTR;
  }
  Value(const Value&) = delete;
  Value& operator=(const Value&) = delete;
  ~Value() { VariantClear(&variant_); }

  const VARIANT& Get() const { return variant_; }
  VARIANT* Receive() { return &variant_; }

 private:
  VARIANT variant_;
};

template <typename Interface>
class Object {
 public:
  Object() = default;
  Object(Object&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
  Object& operator=(Object&&) = delete;
  ~Object() {
    if (pointer_ != nullptr) pointer_->Release();
  }

  Interface* Get() const { return pointer_; }
  Interface* operator->() const { return pointer_; }
  Interface** Receive() { return &pointer_; }

  // For a parameter that hands an object in and may hand another one out in its place.
  Interface** InOut() { return &pointer_; }

 private:
  Interface* pointer_ = nullptr;
};

// --- Errors

// A failed call leaves on its thread who failed and why; whoever takes that, takes it away. Where nothing is left, the
// caller's own words are used.
inline void Check(HRESULT status, const std::wstring& otherwise = L"the call failed") {
  if (SUCCEEDED(status)) return;
  Text source;
  Text description;
  Object<IErrorInfo> told;
  if (GetErrorInfo(0, told.Receive()) != S_OK) throw Failure{status, {}, otherwise};
  told->GetSource(source.Receive());
  told->GetDescription(description.Receive());
  throw Failure{status, source.Wide(), description.Wide()};
}

// A call by dispatch reports its error in a structure of its own, whose strings are the caller's to free.
[[noreturn]] inline void Throw(EXCEPINFO& told) {
  if (told.pfnDeferredFillIn != nullptr) told.pfnDeferredFillIn(&told);
  Text source;
  Text description;
  Text help;
  *source.Receive() = told.bstrSource;
  *description.Receive() = told.bstrDescription;
  *help.Receive() = told.bstrHelpFile;
  const HRESULT status = told.scode != S_OK ? told.scode : static_cast<HRESULT>(0x800A0000 + told.wCode);
  throw Failure{status, source.Wide(), description.Wide()};
}

// The numbers of the library and of the run time travel as 0x800A0000 + number. Any other status is the number itself.
inline std::wstring NumberOf(HRESULT status) {
  const auto bits = static_cast<unsigned long>(status);
  if (bits >> 16 == 0x800A) return std::to_wstring(bits & 0xFFFF);
  wchar_t digits[16];
  std::swprintf(digits, std::size(digits), L"0x%08lX", bits);
  return digits;
}

// --- Output

inline void PrintLine(std::FILE* stream, const std::wstring& line) {
  const UINT encoding = GetConsoleOutputCP();
  const auto length = static_cast<int>(line.size());
  const int bytes = WideCharToMultiByte(encoding, 0, line.data(), length, nullptr, 0, nullptr, nullptr);
  std::string encoded(static_cast<std::size_t>(bytes), '\0');
  WideCharToMultiByte(encoding, 0, line.data(), length, encoded.data(), bytes, nullptr, nullptr);
  std::fprintf(stream, "%s\n", encoded.c_str());
}

inline void PrintLine(const std::wstring& line) {
  PrintLine(stdout, line);
}

// --- Objects

// Makes the thread an apartment of its own, in which the library lives; a thread without one gets its errors without
// their texts. Objects must be gone before it is.
class Apartment {
 public:
  Apartment() { Check(CoInitialize(nullptr)); }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
  ~Apartment() { CoUninitialize(); }
};

template <typename Interface>
Object<Interface> Create(const wchar_t* name) {
  const std::wstring otherwise = std::wstring(L"cannot create ") + name;
  CLSID id;
  Check(CLSIDFromProgID(name, &id), otherwise);
  Object<Interface> object;
  Check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(object.Receive())), otherwise);
  return object;
}

// What a property holds: Read(pnr, &_CPNR::get_RecordLocator).
template <typename Interface>
std::wstring Read(const Object<Interface>& object, HRESULT (STDMETHODCALLTYPE Interface::*property)(BSTR*)) {
  Text text;
  Check((object.Get()->*property)(text.Receive()));
  return text.Wide();
}

template <typename Interface>
SHORT Read(const Object<Interface>& object, HRESULT (STDMETHODCALLTYPE Interface::*property)(SHORT*)) {
  SHORT number = 0;
  Check((object.Get()->*property)(&number));
  return number;
}

// A parameter bag, used as a script uses it: its values are reached through its default member, by key. How the
// terminal's bag returns them is the terminal's matter; a Scripting.Dictionary, which has them there, may take its
// place.
class Bag {
 public:
  Bag() : object_(Create<IDispatch>(L"Pellorin.ParamBag")) {}

  // A new one that asks for the element at a position, counted from 0. Each call gets its own: what a member does not
  // put stays as an earlier call has left it.
  explicit Bag(SHORT index) : Bag() { Set(L"intKeyIndex", Value(index)); }

  // One that asks for an element by its kind, too.
  Bag(const wchar_t* kind, SHORT index) : Bag(index) { Set(L"strKeyPNRElement", Value(std::wstring(kind))); }

  IDispatch** InOut() { return object_.InOut(); }

  // What is under a key; empty when there is nothing.
  void Get(const wchar_t* key, Value& found) const {
    const Value name{std::wstring(key)};
    VARIANT arguments[] = {name.Get()};
    Call(DISPATCH_PROPERTYGET, {arguments, nullptr, 1, 0}, found.Receive());
  }

  // The same as text.
  std::wstring operator[](const wchar_t* key) const {
    Value found;
    Get(key, found);
    Check(VariantChangeType(found.Receive(), found.Receive(), 0, VT_BSTR));
    return WideOf(V_BSTR(&found.Get()));
  }

 private:
  void Set(const wchar_t* key, const Value& value) {
    const Value name{std::wstring(key)};
    VARIANT arguments[] = {value.Get(), name.Get()};  // the last one comes first
    DISPID assigned = DISPID_PROPERTYPUT;
    Call(DISPATCH_PROPERTYPUT, {arguments, &assigned, 2, 1}, nullptr);
  }

  void Call(WORD kind, DISPPARAMS parameters, VARIANT* result) const {
    EXCEPINFO told{};
    const HRESULT status =
        object_->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, result, &told, nullptr);
    if (status == DISP_E_EXCEPTION) Throw(told);
    Check(status);
  }

  Object<IDispatch> object_;
};
