#include "com/adapters/dispatch_client.h"

#include <algorithm>
#include <utility>

#include "com/server/boundary.h"
#include "common/error.h"

namespace wendrill::com {
namespace {

// The closed components have some twenty types; a server that describes itself anew at every call must not make the
// names grow without end.
constexpr std::size_t kMostTypes = 256;

// Asks the object; 438 when it has no member of that name.
DISPID AskForId(IDispatch* object, std::u16string_view name) {
  const std::u16string terminated(name);
  auto* asked = const_cast<LPOLESTR>(WideOf(terminated.c_str()));
  DISPID id = DISPID_UNKNOWN;
  const HRESULT status = object->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(status)) {
    SetErrorInfo(0, nullptr);
    RaiseStatus(status);
  }
  return id;
}

}  // namespace

DISPID TypeNames::IdOf(IDispatch* object, std::u16string_view name) {
  for (const auto& [known, id] : ids_) {
    if (known.data() == name.data() && known.size() == name.size()) {
      return id;
    }
  }
  const DISPID id = AskForId(object, name);
  ids_.emplace_back(name, id);
  return id;
}

TypeNames* KnownNames::Of(IDispatch* object) {
  Reference<ITypeInfo> type;
  if (FAILED(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.Receive())) || !type) {
    return nullptr;
  }
  const auto known = types_.find(type.Get());
  if (known != types_.end()) {
    return &known->second;
  }
  ITypeInfo* const address = type.Get();
  return types_.size() < kMostTypes ? &types_.try_emplace(address, std::move(type)).first->second : nullptr;
}

DISPID NamedObject::IdOf(std::u16string_view name) {
  if (!wasDescribed_) {
    ofType_ = names_->Of(Get());
    wasDescribed_ = true;
  }
  return ofType_ != nullptr ? ofType_->IdOf(Get(), name) : AskForId(Get(), name);
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

void FreeString(char16_t* string) {
  SysFreeString(reinterpret_cast<BSTR>(string));
}

void ReadText(IDispatch* object, DISPID id, VARIANT* result) {
  CallMember(object, id, kRead, {}, result);
  Coerce(result, VT_BSTR);
}

}  // namespace

std::u16string TextResult(IDispatch* object, DISPID id) {
  OwnedVariant result;
  ReadText(object, id, &result);
  return std::u16string(TextOf(V_BSTR(&result)));
}

ReceivedText ReceivedResult(IDispatch* object, DISPID id) {
  OwnedVariant result;
  ReadText(object, id, &result);
  const BSTR string = std::exchange(V_BSTR(&result), nullptr);
  return {reinterpret_cast<char16_t*>(string), SysStringLen(string), FreeString};
}

BSTR StringOf(ReceivedText text) {
  char16_t* const received = text.Release(FreeString);
  return received != nullptr ? reinterpret_cast<BSTR>(received) : NewString(text.View());
}

std::int32_t NumberResult(IDispatch* object, DISPID id) {
  OwnedVariant result;
  CallMember(object, id, kRead, {}, &result);
  Coerce(&result, VT_I4);
  return V_I4(&result);
}

Reference<IDispatch> TakeObject(VARIANT& result) {
  switch (V_VT(&result)) {
    case VT_EMPTY:
    case VT_NULL:
      return {};
    case VT_DISPATCH:
      return Reference<IDispatch>::Adopt(std::exchange(V_DISPATCH(&result), nullptr));
    case VT_UNKNOWN: {
      Reference<IDispatch> object;
      if (V_UNKNOWN(&result) != nullptr &&
          FAILED(V_UNKNOWN(&result)->QueryInterface(IID_IDispatch, object.ReceiveVoid()))) {
        Raise(RunTimeError::TypeMismatch);
      }
      return object;
    }
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
