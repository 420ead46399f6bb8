// Late binding from a table that the compiler makes from the members' signatures, one row a member.
//
// A table is written beside its class:
//
//   constexpr auto kMembers = std::to_array<DispatchRow>({
//       Property<&_CQueue::get_Count>(2, L"Count"),
//       Function<&_CQueue::Item>(DISPID_VALUE, L"Item", {L"vntIndexKey"}),
//       Action<&_CQueue::RemoveAll>(4, L"RemoveAll"),
//   });
//
// The type library only describes; the system's own typed dispatch refuses a script's plain variables for by-reference
// parameters and costs some twenty times as much a call.
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

// The arguments of one call in their written order; null for one that was left out.
using OrderedArguments = std::array<VARIANTARG*, kMaximumParameters>;

// Calls the method behind a row on `object`, which points at the interface that the table belongs to. `result` may be
// null, and receives nothing from a call that fails. `misfit` receives the place of an argument that does not fit or
// cannot be written back, counted from 0, and is left alone otherwise.
using Invoker = HRESULT (*)(void* object, const OrderedArguments& arguments, VARIANT* result, UINT* misfit);

inline constexpr UINT kNoArgument = ~0U;

struct DispatchRow {
  const wchar_t* name = nullptr;
  DISPID id = 0;
  Invoker call = nullptr;     // method or property get
  Invoker put = nullptr;      // property put, by value or by reference
  std::uint8_t required = 0;  // arguments that must be there
  std::uint8_t allowed = 0;   // arguments that may be there
  bool givesObject = false;   // further arguments go to the default member of the result
  std::array<const wchar_t*, kMaximumParameters> parameters{};
};

namespace detail {

template <typename Method>
struct Signature;
template <typename Interface, typename... Parameters>
struct Signature<HRESULT (STDMETHODCALLTYPE Interface::*)(Parameters...)> {
  using Class = Interface;
  using All = std::tuple<Parameters...>;
  static constexpr std::size_t kCount = sizeof...(Parameters);
};

// What a method's result parameter becomes in a VARIANT.
template <typename Result>
inline constexpr VARTYPE kResultType = VT_EMPTY;
template <>
inline constexpr VARTYPE kResultType<BSTR*> = VT_BSTR;
template <>
inline constexpr VARTYPE kResultType<SHORT*> = VT_I2;
template <>
inline constexpr VARTYPE kResultType<LONG*> = VT_I4;
template <>
inline constexpr VARTYPE kResultType<IUnknown**> = VT_UNKNOWN;
template <>
inline constexpr VARTYPE kResultType<VARIANT*> = VT_VARIANT;
template <typename Interface>
requires std::is_base_of_v<IDispatch, Interface>
inline constexpr VARTYPE kResultType<Interface**> = VT_DISPATCH;

template <typename Method>
using LastParameterOf = std::tuple_element_t<Signature<Method>::kCount - 1, typename Signature<Method>::All>;

// One Argument for each parameter of a method but its result.
template <typename Parameters, typename Indexes>
struct ArgumentsAt;
template <typename Parameters, std::size_t... kIndex>
struct ArgumentsAt<Parameters, std::index_sequence<kIndex...>> {
  using Type = std::tuple<Argument<std::tuple_element_t<kIndex, Parameters>>...>;
};
template <typename Parameters, bool kReturns>
using ArgumentsOf =
    typename ArgumentsAt<Parameters,
                         std::make_index_sequence<std::tuple_size_v<Parameters> - (kReturns ? 1 : 0)>>::Type;

// How to get from the interface that a table belongs to, to the one that has the method: usually they are the same.
template <typename Interface>
struct Direct {
  static Interface* From(void* object) { return static_cast<Interface*>(object); }
};

// Calls kMethod: load the arguments, call, write back, hand out the result. The result comes last: nobody clears that
// of a call that failed.
template <auto kMethod, bool kReturns, VARTYPE kResult, typename Path,
          typename Parameters = typename Signature<decltype(kMethod)>::All>
HRESULT Call(void* object, const OrderedArguments& given, VARIANT* result, UINT* misfit) {
  using Method = decltype(kMethod);
  ArgumentsOf<Parameters, kReturns> arguments;
  constexpr std::size_t kCount = std::tuple_size_v<decltype(arguments)>;

  return [&]<std::size_t... kIndex>(std::index_sequence<kIndex...>)->HRESULT {
    HRESULT status = S_OK;
    (void)misfit;
    (void)given;
    // Takes a step with each argument until one fails.
    const auto succeedsWithEach = [&]([[maybe_unused]] auto step) {
      return ((SUCCEEDED(status = step(std::get<kIndex>(arguments), given[kIndex])) ||
               (*misfit = static_cast<UINT>(kIndex), false)) &&
              ... && true);
    };
    if (!succeedsWithEach([](auto& argument, VARIANTARG* from) { return argument.Load(from); })) {
      return status;
    }
    auto* target = Path::From(object);
    OwnedVariant value;
    if constexpr (!kReturns) {
      status = (target->*kMethod)(std::get<kIndex>(arguments).Pass()...);
    } else if constexpr (kResult == VT_VARIANT) {
      status = (target->*kMethod)(std::get<kIndex>(arguments).Pass()..., &value);
    } else {
      // The union's members share their address, so one pointer serves every type of result.
      auto* place = reinterpret_cast<LastParameterOf<Method>>(&V_I4(&value));
      status = (target->*kMethod)(std::get<kIndex>(arguments).Pass()..., place);
      V_VT(&value) = SUCCEEDED(status) ? kResult : static_cast<VARTYPE>(VT_EMPTY);
    }
    if (FAILED(status) || !succeedsWithEach([](auto& argument, VARIANTARG*) { return argument.StoreBack(); })) {
      return status;
    }
    if (kReturns && result != nullptr) {
      *result = value;
      V_VT(&value) = VT_EMPTY;
    }
    return status;
  }
  (std::make_index_sequence<kCount>());
}

template <auto kMethod, bool kReturns>
constexpr std::size_t ParameterCount() {
  return Signature<decltype(kMethod)>::kCount - (kReturns ? 1 : 0);
}

constexpr void NameParameters(DispatchRow& row, std::initializer_list<const wchar_t*> names) {
  std::size_t index = 0;
  for (const wchar_t* name : names) {
    row.parameters[index++] = name;
  }
}

}  // namespace detail

// How many trailing arguments a caller may leave out.
struct Optional {
  std::uint8_t count = 0;
};

// A method with a result. kResult names the type where it is not the one of the signature: VT_BOOL for a Boolean. So
// does Parameters, a tuple with the result's place last: BooleanParameter for a Boolean.
template <auto kMethod, VARTYPE kResult = detail::kResultType<detail::LastParameterOf<decltype(kMethod)>>,
          typename Path = detail::Direct<typename detail::Signature<decltype(kMethod)>::Class>,
          typename Parameters = typename detail::Signature<decltype(kMethod)>::All>
constexpr DispatchRow Function(DISPID id, const wchar_t* name, std::initializer_list<const wchar_t*> parameters = {},
                               Optional optional = {}) {
  static_assert(kResult != VT_EMPTY, "the last parameter is no result");
  DispatchRow row{.name = name, .id = id, .call = detail::Call<kMethod, true, kResult, Path, Parameters>};
  row.allowed = detail::ParameterCount<kMethod, true>();
  row.required = static_cast<std::uint8_t>(row.allowed - optional.count);
  row.givesObject = kResult == VT_DISPATCH;
  detail::NameParameters(row, parameters);
  return row;
}

// A method without a result.
template <auto kMethod, typename Path = detail::Direct<typename detail::Signature<decltype(kMethod)>::Class>>
constexpr DispatchRow Action(DISPID id, const wchar_t* name, std::initializer_list<const wchar_t*> parameters = {},
                             Optional optional = {}) {
  DispatchRow row{.name = name, .id = id, .call = detail::Call<kMethod, false, VT_EMPTY, Path>};
  row.allowed = detail::ParameterCount<kMethod, false>();
  row.required = static_cast<std::uint8_t>(row.allowed - optional.count);
  detail::NameParameters(row, parameters);
  return row;
}

// A property that can be read.
template <auto kGet>
constexpr DispatchRow Property(DISPID id, const wchar_t* name, std::initializer_list<const wchar_t*> parameters = {}) {
  return Function<kGet>(id, name, parameters);
}

// A property that can be read and written.
template <auto kGet, auto kPut>
constexpr DispatchRow Property(DISPID id, const wchar_t* name, std::initializer_list<const wchar_t*> parameters = {}) {
  DispatchRow row = Function<kGet>(id, name, parameters);
  row.put = detail::Call<kPut, false, VT_EMPTY, detail::Direct<typename detail::Signature<decltype(kPut)>::Class>>;
  return row;
}

// The rows of one interface, with an index by name (folded, hashed) and one by identifier.
class DispatchTable {
 public:
  // The rows must outlive the table. `further` answers what they do not have.
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
  std::vector<std::uint8_t> byName_;  // open addressing; row + 1, 0 for a free place; a power of two
  DISPID firstId_ = 0;
  std::vector<std::uint8_t> byId_;  // from firstId_ on; row + 1
  const DispatchTable* further_;
};

}  // namespace wendrill::com
