// Late binding (IDispatch) from a table of members, with one row for each name. The tables are generated from the
// interface definition (IDL) and contain the parameter types that the IDL declares. The C++ types would not suffice,
// because a Boolean has the same C++ type as a short.
//
// The system's own dispatch through the type library (ITypeInfo::Invoke) is not used for two reasons: ITypeInfo::Invoke
// rejects a script's plain variables for by-reference parameters, and a call through ITypeInfo::Invoke takes about
// twenty times as long.
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

// The arguments of one call, from first to last. An argument that the caller left out is null.
using OrderedArguments = std::array<VARIANTARG*, kMaximumParameters>;

// Calls the method of a dispatch row. `object` points to the interface that late-bound callers hold. `result` may be
// null, and is not written when the call fails. When an argument does not convert or cannot be written back,
// `badArgument` receives the index of that argument, counted from 0; otherwise `badArgument` is unchanged.
using Invoker = HRESULT (*)(void* object, const OrderedArguments& arguments, VARIANT* result, UINT* badArgument);

inline constexpr UINT kNoArgument = ~0U;

struct DispatchRow {
  const wchar_t* name = nullptr;
  DISPID id = 0;
  Invoker call = nullptr;  // calls the method or reads the property; null when the member allows neither
  Invoker put = nullptr;   // assigns the property, by value or by reference; null for methods and read-only properties
  std::uint8_t required = 0;  // the minimum number of arguments, not counting a property's new value
  std::uint8_t allowed = 0;   // the maximum number of arguments, not counting a property's new value
  // Whether the result is an object. For a property that has no parameters (`allowed` is 0) and returns an object, a
  // read with arguments is done in two steps: the property is read without arguments, and the arguments are passed to
  // the default member of the object that was read.
  bool givesObject = false;
  std::array<const wchar_t*, kMaximumParameters> parameters{};
};

// The usual Path of a dispatch row. A Path has a function From, which converts the interface pointer that late-bound
// callers hold into a pointer to the interface that declares the method. With Direct, the interface that late-bound
// callers hold declares the method itself.
template <typename Interface>
struct Direct {
  static Interface* From(void* object) { return static_cast<Interface*>(object); }
};

// The arguments of one call, used in three steps: LoadAll converts the caller's arguments, CallMethod calls the method,
// StoreAll writes by-reference arguments back. LoadAll and StoreAll stop at the first argument that fails, and store
// the index of that argument, counted from 0, in `badArgument`.
template <typename... Parameters>
class ArgumentList {
 public:
  HRESULT LoadAll(const OrderedArguments& given, UINT* badArgument) {
    return UntilFailure<0>([&](auto& argument, std::size_t index) { return argument.Load(given[index]); }, badArgument);
  }

  // `result` is the address at which the method stores its result. `result` is omitted when the method has no result.
  template <typename Interface, typename Method, typename... Result>
  HRESULT CallMethod(Interface* target, Method method, Result... result) {
    return std::apply([&](auto&... argument) { return (target->*method)(argument.Pass()..., result...); }, arguments_);
  }

  // Writes the values of by-reference arguments to the caller's variables. Called after the method has succeeded.
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

// The address at which a method stores its result: `value` itself when the result is a VARIANT, otherwise the union
// inside `value`, whose members all have the same address.
template <typename Method, VARTYPE kResult>
auto ResultPlace(VARIANT* value) {
  using Place = typename detail::ResultParameter<Method>::Type;
  if constexpr (kResult == VT_VARIANT) {
    return value;
  } else {
    return reinterpret_cast<Place>(&V_I4(value));
  }
}

// Calls a method of `target` with the arguments of a late-bound call. kResult is the type of the result; VT_EMPTY for a
// method without a result. The result is stored last and only on success, because callers do not clear the result of a
// failed call. `method` is a function argument, not a template argument, so that all methods of an interface with equal
// parameter and result types share one instantiation.
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

// The Invoker of the method kMethod, for use in a dispatch row. Path converts `object` into a pointer to the interface
// that declares kMethod.
template <auto kMethod, typename Path, VARTYPE kResult, typename... Parameters>
HRESULT Call(void* object, const OrderedArguments& given, VARIANT* result, UINT* badArgument) {
  return CallMethod<kResult, Parameters...>(Path::From(object), kMethod, given, result, badArgument);
}

// The dispatch rows of the members of Interface. Generated code specialises this variable for each dual interface with
// a constant array. The invokers in the array use Path to convert the pointer that late-bound callers hold into a
// pointer to Interface.
template <typename Interface, typename Path = Direct<Interface>>
inline constexpr std::nullptr_t kMembersOf = nullptr;

// The rows of one interface, with two indexes: a hash table by name, which ignores case, and an array by DISPID.
class DispatchTable {
 public:
  // `further` is a table that is searched for the names and DISPIDs that `rows` does not contain; it may be null.
  // REQUIRES: `rows` has 1 to 255 rows; `rows` and `further` outlive this table.
  explicit DispatchTable(std::span<const DispatchRow> rows, const DispatchTable* further = nullptr);

  // The row with a DISPID, or with a name, whose case is ignored. Null when neither this table nor `further` contains a
  // row with that DISPID or name.
  const DispatchRow* RowOf(DISPID id) const;
  const DispatchRow* RowOf(std::wstring_view name) const;

  // Implements IDispatch::GetIDsOfNames. The first name is the name of a member; the further names are names of the
  // parameters of that member.
  HRESULT IdsOfNames(LPOLESTR* names, UINT count, DISPID* ids) const;

  // Implements IDispatch::Invoke. `object` points to the interface that late-bound callers hold.
  HRESULT Invoke(void* object, DISPID id, WORD flags, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                 UINT* argument) const;

 private:
  std::span<const DispatchRow> rows_;
  // A hash table with open addressing, whose size is a power of two. An element is the index of a row plus 1; 0 when
  // the element is free.
  std::vector<std::uint8_t> byName_;
  DISPID firstId_ = 0;
  // For each DISPID from firstId_ on: the index of the row with that DISPID plus 1; 0 when no row has the DISPID.
  std::vector<std::uint8_t> byId_;
  const DispatchTable* further_;
};

}  // namespace wendrill::com
