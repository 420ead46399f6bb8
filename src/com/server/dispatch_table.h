// Late binding from a table of members, one row for each name. The tables are generated from the interface definition
// and contain its parameter types: the C++ types do not distinguish a Boolean from a short.
//
// The system's own dispatch through the type library (ITypeInfo::Invoke) is not used: it rejects a script's plain
// variables for by-reference parameters and takes about twenty times as long per call.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "com/server/arguments.h"

namespace wendrill::com {

inline constexpr std::size_t kMaximumParameters = 4;

// The arguments of one call from first to last; null for an argument that was left out.
using OrderedArguments = std::array<VARIANTARG*, kMaximumParameters>;

// Calls a row's method on `object`, which points at the interface that the table belongs to. `result` may be null, and
// receives nothing from a call that fails. `badArgument` receives the index (counted from 0) of an argument that does
// not convert or cannot be written back, and is unchanged otherwise.
using Invoker = HRESULT (*)(void* object, const OrderedArguments& arguments, VARIANT* result, UINT* badArgument);

inline constexpr UINT kNoArgument = ~0U;

struct DispatchRow {
  const wchar_t* name = nullptr;
  DISPID id = 0;
  Invoker call = nullptr;     // method or property get
  Invoker put = nullptr;      // property put, by value or by reference
  std::uint8_t required = 0;  // the minimum number of arguments
  std::uint8_t allowed = 0;   // the maximum number of arguments
  bool givesObject = false;   // further arguments are passed to the default member of the result
  std::array<const wchar_t*, kMaximumParameters> parameters{};
};

// Converts a pointer from the interface that late-bound callers hold to the interface that has the method. Usually the
// two are the same.
template <typename Interface>
struct Direct {
  static Interface* From(void* object) { return static_cast<Interface*>(object); }
};

// The arguments of one call: load all, call, store all. Loading and storing stop at the first argument that fails;
// `badArgument` receives its index, counted from 0.
template <typename... Parameters>
class ArgumentList {
 public:
  HRESULT LoadAll(const OrderedArguments& given, UINT* badArgument) {
    return UntilFailure<0>([&](auto& argument, std::size_t index) { return argument.Load(given[index]); }, badArgument);
  }

  // `result` is the address for the method's result, if the method has one.
  template <typename Interface, typename Method, typename... Result>
  HRESULT CallMethod(Interface* target, Method method, Result... result) {
    return std::apply([&](auto&... argument) { return (target->*method)(argument.Pass()..., result...); }, arguments_);
  }

  // Writes by-reference arguments back to the caller's variables.
  HRESULT StoreAll(UINT* badArgument) {
    return UntilFailure<0>([](auto& argument, std::size_t /*index*/) { return argument.StoreBack(); }, badArgument);
  }

 private:
  template <std::size_t kIndex, typename Step>
  HRESULT UntilFailure(Step step, UINT* badArgument) {
    if constexpr (kIndex == sizeof...(Parameters)) {
      return S_OK;
    } else {
      const HRESULT status = step(std::get<kIndex>(arguments_), kIndex);
      if (FAILED(status)) {
        *badArgument = static_cast<UINT>(kIndex);
        return status;
      }
      return UntilFailure<kIndex + 1>(step, badArgument);
    }
  }

  std::tuple<Argument<Parameters>...> arguments_;
};

namespace detail {

template <typename Method>
struct ResultParameter;
template <typename Interface, typename... Parameters>
struct ResultParameter<HRESULT (STDMETHODCALLTYPE Interface::*)(Parameters...)> {
  using Type = std::tuple_element_t<sizeof...(Parameters) - 1, std::tuple<Parameters...>>;
};

}  // namespace detail

// The address at which a method stores its result: the VARIANT itself, or a member of the VARIANT's union. All members
// of the union have the same address.
template <typename Method, VARTYPE kResult>
auto ResultPlace(VARIANT* value) {
  using Place = typename detail::ResultParameter<Method>::Type;
  if constexpr (kResult == VT_VARIANT) {
    return value;
  } else {
    return reinterpret_cast<Place>(&V_I4(value));
  }
}

// Calls a method of `target` late bound. kResult is VT_EMPTY for a method without a result. The result is stored last,
// because callers do not clear the result of a failed call. The method is not a template argument, so that all methods
// of an interface with the same parameters and result share one function.
template <VARTYPE kResult, typename... Parameters, typename Interface, typename Method>
HRESULT CallMethod(Interface* target, Method method, const OrderedArguments& given, VARIANT* result,
                   UINT* badArgument) {
  ArgumentList<Parameters...> arguments;
  HRESULT status = arguments.LoadAll(given, badArgument);
  if (FAILED(status)) {
    return status;
  }
  OwnedVariant value;
  if constexpr (kResult == VT_EMPTY) {
    status = arguments.CallMethod(target, method);
  } else {
    status = arguments.CallMethod(target, method, ResultPlace<Method, kResult>(&value));
    if (kResult != VT_VARIANT && SUCCEEDED(status)) {
      V_VT(&value) = kResult;
    }
  }
  if (SUCCEEDED(status)) {
    status = arguments.StoreAll(badArgument);
  }
  if (SUCCEEDED(status) && result != nullptr) {
    *result = std::exchange(static_cast<VARIANT&>(value), VARIANT{});
  }
  return status;
}

// The same for one method, as a row calls it.
template <auto kMethod, typename Path, VARTYPE kResult, typename... Parameters>
HRESULT Call(void* object, const OrderedArguments& given, VARIANT* result, UINT* badArgument) {
  return CallMethod<kResult, Parameters...>(Path::From(object), kMethod, given, result, badArgument);
}

// The rows of an interface. Path converts the pointer that late-bound callers hold to a pointer to this interface.
// Specialised by generated code.
template <typename Interface, typename Path = Direct<Interface>>
inline constexpr std::nullptr_t kMembersOf = nullptr;

// The rows of one interface, with an index by name (folded, hashed) and one by identifier.
class DispatchTable {
 public:
  // REQUIRES: the rows outlive the table. Names and identifiers that the rows do not have are looked up in `further`.
  explicit DispatchTable(std::span<const DispatchRow> rows, const DispatchTable* further = nullptr);

  const DispatchRow* RowOf(DISPID id) const;
  const DispatchRow* RowOf(std::wstring_view name) const;

  // IDispatch::GetIDsOfNames: the member's name first, then names of its parameters.
  HRESULT IdsOfNames(LPOLESTR* names, UINT count, DISPID* ids) const;

  // IDispatch::Invoke on `object`, which points at the interface.
  HRESULT Invoke(void* object, DISPID id, WORD flags, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                 UINT* argument) const;

 private:
  std::span<const DispatchRow> rows_;
  // A hash table with open addressing: row + 1, or 0 for a free slot. Its size is a power of two.
  std::vector<std::uint8_t> byName_;
  DISPID firstId_ = 0;
  std::vector<std::uint8_t> byId_;  // for each identifier from firstId_ on: row + 1, or 0
  const DispatchTable* further_;
};

}  // namespace wendrill::com
