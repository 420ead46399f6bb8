// How the vtable methods ("slots") of an automation class forward to the members of its core class. Each argument is
// converted to the type of the core member's parameter, the member runs inside the exception boundary, and its return
// value is stored in the slot's out parameter. The conversions follow from the signatures of the slot and of the core
// member. The slots themselves are generated from the interface definition.
#pragma once

#include <memory>
#include <type_traits>
#include <utility>

#include "com/adapters/dispatch_client.h"
#include "com/adapters/foreign_bag.h"
#include "com/classes/library.h"
#include "com/server/automation_class.h"
#include "com/server/automation_types.h"
#include "com/server/variant_values.h"
#include "common/param_bag.h"
#include "common/value.h"
#include "session/quillet.h"
#include "wendrill23.h"

namespace wendrill::com {

// ---- Results -------------------------------------------------------------------------------------------------------

// Give stores the return value of a core member in the out parameter of a slot. The caller owns a returned string or
// reference.
inline void Give(const std::u16string& text, BSTR* result) {
  *result = NewString(text);
}
inline void Give(ReceivedText&& text, BSTR* result) {
  *result = StringOf(std::move(text));
}
inline void Give(std::int16_t number, SHORT* result) {
  *result = number;
}
inline void Give(std::int32_t number, LONG* result) {
  *result = number;
}
inline void Give(bool truth, VARIANT_BOOL* result) {
  *result = truth ? VARIANT_TRUE : VARIANT_FALSE;
}
inline void Give(const ObjectRef& object, IDispatch** result) {
  *result = ForeignObjects(TheLibrary().names).ToAutomation(object);
}
inline void Give(const ParamBagRef& bag, IDispatch** result) {
  *result = ObjectBehind(bag);
  if (*result != nullptr) {
    (*result)->AddRef();
  }
}
// The overloads of Give for CQuillet and CQueue store the automation object of the core object `core`, AddRef'ed for
// the caller. As long as that automation object is live, each call stores the same pointer. The overload for CQueue
// stores null when `core` is null.
void Give(const std::shared_ptr<CQuillet>& core, _CQuillet** result);
void Give(const std::shared_ptr<CQueue>& core, _CQueue** result);

// ---- Arguments -----------------------------------------------------------------------------------------------------

// The core queue of the automation object `queue`; null when `queue` is null. Raises 13 (type mismatch) for a queue
// object that this library did not create.
std::shared_ptr<CQueue> QueueBehind(_CQueue* queue);

// A VARIANT variable of the caller that receives an array of strings. The core member fills `texts`; afterwards
// StoreBack stores the contents of `texts` in the caller's variable.
struct VariableForTexts {
  VARIANT* variable;  // null when the caller does not want the array
  TextArray texts = {};

  operator TextArray&() { return texts; }
  void StoreBack();
};

// The caller's array of strings. `texts` begins as a copy of the caller's array, and the core member may change the
// copy. StoreBack replaces the caller's array by `texts`.
struct ArrayForTexts {
  SAFEARRAY** array;
  TextArray texts;

  operator TextArray&() { return texts; }
  void StoreBack();
};

// Incoming converts an argument of a slot to Wanted, the type of the core member's parameter. For an array that the
// member fills or changes, Incoming returns an object that converts to TextArray& and has a method StoreBack. After the
// member has succeeded, StoreBack writes the array to the caller's variable.
template <typename Wanted = std::u16string_view>
std::u16string_view Incoming(BSTR text) {
  return TextOf(text);
}
template <typename Wanted = std::u16string_view>
std::u16string_view Incoming(BSTR* text) {
  return text == nullptr ? std::u16string_view() : TextOf(*text);
}
template <typename Wanted>
Wanted Incoming(SHORT number) {
  return static_cast<Wanted>(number);  // Wanted may be bool: VARIANT_BOOL is the same C++ type as SHORT
}
template <typename Wanted>
Value Incoming(const VARIANT& value) {
  return ToValue(value, ForeignObjects(TheLibrary().names));
}
template <typename Wanted>
ObjectRef Incoming(IDispatch* object) {
  return object == nullptr ? ObjectRef() : ForeignObjects(TheLibrary().names).ToCore(object);
}
template <typename Wanted>
ParamBagRef Incoming(IDispatch** bag) {
  return AdaptParamBag(bag == nullptr ? nullptr : *bag, TheLibrary().names);
}
template <typename Wanted>
Wanted Incoming(QuilletKeyValues* key) {
  return static_cast<Wanted>(*key);
}
template <typename Wanted>
std::shared_ptr<CQueue> Incoming(_CQueue* queue) {
  return QueueBehind(queue);
}
template <typename Wanted>
VariableForTexts Incoming(VARIANT* variable) {
  return {.variable = variable};
}
template <typename Wanted>
ArrayForTexts Incoming(SAFEARRAY** array) {
  return {.array = array, .texts = TextsOfArray(*array)};
}

// Verify checks an argument of a slot before the core member runs. Returns E_POINTER for a null QuilletKeyValues* (the
// code of a key of the keyboard) and for a null SAFEARRAY**. Any other null pointer is accepted as an empty value.
template <typename Given>
HRESULT Verify(const Given& /*given*/) {
  return S_OK;
}
inline HRESULT Verify(QuilletKeyValues* key) {
  return key == nullptr ? E_POINTER : S_OK;
}
inline HRESULT Verify(SAFEARRAY** array) {
  return array == nullptr ? E_POINTER : S_OK;
}
// Checks a VARIANT variable that is to receive an array of strings. Raises 13 (type mismatch) for a variable of another
// type than VARIANT, array of strings or array of VARIANTs. Returns E_INVALIDARG for a reference that does not lead to
// a variable, and DISP_E_ARRAYISLOCKED when the variable contains an array that cannot be replaced. Returns S_OK when
// `variable` is null.
HRESULT Verify(VARIANT* variable);

// ---- Calls ---------------------------------------------------------------------------------------------------------

namespace detail {

template <typename Member>
struct CoreParameters;
template <typename Core, typename Result, typename... Parameters>
struct CoreParameters<Result (Core::*)(Parameters...)> {
  using Types = std::tuple<std::remove_cvref_t<Parameters>...>;
};
template <typename Core, typename Result, typename... Parameters>
struct CoreParameters<Result (Core::*)(Parameters...) const> {
  using Types = std::tuple<std::remove_cvref_t<Parameters>...>;
};

template <typename Argument>
void StoreBack(Argument& argument) {
  if constexpr (requires { argument.StoreBack(); }) {
    argument.StoreBack();
  }
}

// Calls Verify for each argument in order, until an argument fails. Returns the failure status of that argument; S_OK
// when all arguments pass.
template <typename... Given>
HRESULT VerifyAll(Given... given) {
  HRESULT status = S_OK;
  (void)(... && SUCCEEDED(status = Verify(given)));
  return status;
}

template <auto kMember, typename Core, typename... Wanted, typename... Given>
auto CallCore(Core& core, std::type_identity<std::tuple<Wanted...>> /*parameters*/, Given... given) {
  // The braces guarantee that the arguments are converted in order.
  std::tuple<decltype(Incoming<Wanted>(given))...> arguments{Incoming<Wanted>(given)...};
  const auto call = [&](auto&... argument) { return (core.*kMember)(argument...); };
  const auto storeBack = [](auto&... argument) { (StoreBack(argument), ...); };
  if constexpr (std::is_void_v<decltype(std::apply(call, arguments))>) {
    std::apply(call, arguments);
    std::apply(storeBack, arguments);
  } else {
    auto result = std::apply(call, arguments);
    std::apply(storeBack, arguments);
    return result;
  }
}

}  // namespace detail

// Implements a slot without a result: checks and converts the arguments, and calls the member kMember of the object's
// core. When Verify rejects an argument, the member is not called and the result is the failure status of Verify.
template <auto kMember, typename Object, typename... Given>
HRESULT Forward(Object& object, Given... given) {
  using Parameters = typename detail::CoreParameters<decltype(kMember)>::Types;
  return object.Run([&] {
    const HRESULT status = detail::VerifyAll(given...);
    if (SUCCEEDED(status)) {
      detail::CallCore<kMember>(object.TheCore(), std::type_identity<Parameters>{}, given...);
    }
    return status;
  });
}

// Implements a slot with a result: works like Forward, and stores the return value of kMember in `*result`. After a
// failure, `*result` is empty (0, null or False). Returns E_POINTER when `result` is null.
template <auto kMember, typename Object, typename Result, typename... Given>
HRESULT ForwardResult(Object& object, Result* result, Given... given) {
  if (result == nullptr) {
    return E_POINTER;
  }
  *result = Result{};
  using Parameters = typename detail::CoreParameters<decltype(kMember)>::Types;
  return object.Run([&] {
    const HRESULT status = detail::VerifyAll(given...);
    if (SUCCEEDED(status)) {
      Give(detail::CallCore<kMember>(object.TheCore(), std::type_identity<Parameters>{}, given...), result);
    }
    return status;
  });
}

}  // namespace wendrill::com
