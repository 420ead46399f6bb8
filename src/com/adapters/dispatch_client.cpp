#include "com/adapters/dispatch_client.h"

#include <algorithm>

#include "com/server/boundary.h"
#include "common/error.h"

namespace wendrill::com {
namespace {

// The closed components have some twenty types.
constexpr std::size_t kMostTypes = 256;

}  // namespace

KnownNames::Names* KnownNames::NamesOf(IDispatch* object) {
  Reference<ITypeInfo> type;
  if (FAILED(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.Receive())) || !type) {
    return nullptr;
  }
  if (types_.size() >= kMostTypes) {
    types_.clear();  // a server that describes itself anew at every call must not make this grow
  }
  const auto [known, isNew] = types_.try_emplace(type.Get());
  if (isNew) {
    known->second.first = std::move(type);
  }
  return &known->second.second;
}

DISPID KnownNames::IdOf(IDispatch* object, std::u16string_view name) {
  Names* names = NamesOf(object);
  if (names != nullptr) {
    const auto known = names->find(name);
    if (known != names->end()) {
      return known->second;
    }
  }
  std::u16string terminated(name);
  auto* asked = const_cast<LPOLESTR>(WideOf(terminated.c_str()));
  DISPID id = DISPID_UNKNOWN;
  const HRESULT status = object->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(status)) {
    SetErrorInfo(0, nullptr);
    RaiseStatus(status);
  }
  if (names != nullptr) {
    names->emplace(std::move(terminated), id);
  }
  return id;
}

void CallMember(IDispatch* object, DISPID id, WORD flags, std::span<VARIANT> arguments, VARIANT* result) {
  std::reverse(arguments.begin(), arguments.end());
  DISPID newValue = DISPID_PROPERTYPUT;
  const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS parameters{arguments.data(), isPut ? &newValue : nullptr, static_cast<UINT>(arguments.size()),
                        isPut ? 1U : 0U};
  EXCEPINFO exception{};
  const HRESULT status =
      object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result, &exception, nullptr);
  if (FAILED(status)) {
    RaiseDispatchFailure(status, exception);
  }
}

namespace {

constexpr WORD kRead = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

// Changes a result in place.
void Coerce(VARIANT* result, VARTYPE type) {
  if (V_VT(result) != type && FAILED(VariantChangeType(result, result, VARIANT_ALPHABOOL, type))) {
    Raise(RunTimeError::TypeMismatch);
  }
}

}  // namespace

std::u16string TextResult(IDispatch* object, DISPID id) {
  OwnedVariant result;
  CallMember(object, id, kRead, {}, &result);
  Coerce(&result, VT_BSTR);
  return std::u16string(TextOf(V_BSTR(&result)));
}

std::int32_t NumberResult(IDispatch* object, DISPID id) {
  OwnedVariant result;
  CallMember(object, id, kRead, {}, &result);
  Coerce(&result, VT_I4);
  return V_I4(&result);
}

Reference<IDispatch> ObjectIn(const VARIANT& result) {
  Reference<IDispatch> object;
  switch (V_VT(&result)) {
    case VT_EMPTY:
    case VT_NULL:
      return object;
    case VT_DISPATCH:
    case VT_UNKNOWN:
      if (V_UNKNOWN(&result) != nullptr &&
          FAILED(V_UNKNOWN(&result)->QueryInterface(IID_IDispatch, object.ReceiveVoid()))) {
        Raise(RunTimeError::TypeMismatch);
      }
      return object;
    default:
      Raise(RunTimeError::ObjectRequired);
  }
}

Reference<IDispatch> CreateComponent(const wchar_t* programmaticId) {
  SetErrorInfo(0, nullptr);  // what a failing factory leaves must be told from what an earlier failure left
  CLSID id;
  Check(CLSIDFromProgID(programmaticId, &id));
  Reference<IDispatch> object;
  Check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IDispatch, object.ReceiveVoid()));
  return object;
}

}  // namespace wendrill::com
