// Results of the core as the results of automation methods.
#pragma once

#include <utility>

#include "com/adapters/dispatch_client.h"
#include "com/adapters/parameter_bag.h"
#include "com/classes/library.h"
#include "com/server/automation_types.h"
#include "common/param_bag.h"

namespace wendrill::com {

inline void Give(const std::u16string& text, BSTR* result) {
  *result = NewString(text);
}
inline void Give(ReceivedText text, BSTR* result) {
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

// Runs a method's work and gives its result out; a result that was not given is empty.
template <typename Result, typename Work>
HRESULT GiveResult(Result* result, Work&& work) {
  if (result == nullptr) {
    return E_POINTER;
  }
  *result = Result{};
  Give(work(), result);
  return S_OK;
}

// The bag behind a by-reference parameter; an empty reference for Nothing.
inline ParamBagRef BagIn(IDispatch** objParams) {
  return AdaptParamBag(objParams == nullptr ? nullptr : *objParams, TheLibrary().names);
}

}  // namespace wendrill::com
