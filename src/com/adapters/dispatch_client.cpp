#include "com/adapters/dispatch_client.h"

#include <algorithm>
#include <utility>

#include "com/server/boundary.h"
#include "com/server/conversions.h"
#include "common/error.h"

namespace wendrill::com {
namespace {

// The maximum number of types in the cache: several times the number of types of the terminal's components, which is
// about twenty.
constexpr std::size_t kMostTypes = 64;

// Asks the object for the DISPID of a name. Raises 438 (member not supported) when the object has no such member, and
// the error of GetIDsOfNames for any other failure.
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

// Whether the type information contains the DISPID `id` for the name. If not, the DISPID must not be used for other
// objects of the type: it is valid only for the object that returned it.
bool Describes(ITypeInfo* type, std::u16string_view name, DISPID id) {
  const std::u16string terminated(name);
  auto* asked = const_cast<LPOLESTR>(WideOf(terminated.c_str()));
  MEMBERID described = DISPID_UNKNOWN;
  return SUCCEEDED(type->GetIDsOfNames(&asked, 1, &described)) && described == id;
}

}  // namespace

DISPID TypeNames::IdOf(IDispatch* object, std::u16string_view name) {
  const auto known = std::ranges::find(ids_, name.data(), [](const auto& entry) { return entry.first; });
  return known != ids_.end() ? known->second : Ask(object, name);
}

DISPID TypeNames::Ask(IDispatch* object, std::u16string_view name) {
  const DISPID id = AskForId(object, name);
  if (Describes(type_.Get(), name, id)) {
    ids_.emplace_back(name.data(), id);
  }
  return id;
}

std::shared_ptr<TypeNames> KnownNames::Of(const Reference<ITypeInfo>& type) {
  const auto known = std::ranges::find(types_, type.Get(), [](const auto& names) { return names->Type(); });
  if (known != types_.end()) {
    return *known;
  }
  const auto names = std::make_shared<TypeNames>(type);
  if (types_.size() < kMostTypes) {
    types_.push_back(names);
  } else {
    const auto replaced = std::exchange(types_[oldest_], names);  // released when the block ends: runs foreign code
    oldest_ = (oldest_ + 1) % kMostTypes;
  }
  return names;
}

void KnownNames::Forget() {
  oldest_ = 0;
  const auto released = std::exchange(types_, {});
}

DISPID NamedObject::IdOf(std::u16string_view name) {
  if (!wasDescribed_) {
    Describe();
  }
  return names_ ? names_->IdOf(Get(), name) : AskForId(Get(), name);
}

void NamedObject::Describe() {
  Reference<ITypeInfo> type;
  if (SUCCEEDED(Get()->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.Receive())) && type) {
    names_ = known_->Of(type);
  }
  wasDescribed_ = true;
}

void CallMember(IDispatch* object, DISPID id, WORD flags, std::span<VARIANT> arguments, VARIANT* result) {
  std::reverse(arguments.begin(), arguments.end());
  DISPID newValue = DISPID_PROPERTYPUT;
  const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS parameters{arguments.data(), isPut ? &newValue : nullptr, static_cast<UINT>(arguments.size()),
                        isPut ? 1U : 0U};
  EXCEPINFO exception;  // set field by field: clearing the whole structure would take too long
  exception.wCode = 0;
  exception.bstrSource = nullptr;
  exception.bstrDescription = nullptr;
  exception.bstrHelpFile = nullptr;
  exception.pvReserved = nullptr;
  exception.pfnDeferredFillIn = nullptr;
  exception.scode = 0;
  const HRESULT status =
      object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result, &exception, nullptr);
  if (FAILED(status)) {
    RaiseDispatchFailure(status, exception);
  }
}

namespace {

constexpr WORD kRead = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

// Converts `result` to `type` in place. Raises 13 (type mismatch) when `result` does not convert.
void Coerce(VARIANT* result, VARTYPE type) {
  if (V_VT(result) != type && FAILED(ChangeType(result, result, type))) {
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
  const BSTR string = V_BSTR(&result);
  V_VT(&result) = VT_EMPTY;
  return {reinterpret_cast<char16_t*>(string), SysStringLen(string), FreeString};
}

BSTR StringOf(ReceivedText&& text) {
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
      V_VT(&result) = VT_EMPTY;
      return Reference<IDispatch>::Adopt(V_DISPATCH(&result));
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
  SetErrorInfo(0, nullptr);  // otherwise Check could raise the error information of an earlier failure
  CLSID id;
  Check(CLSIDFromProgID(programmaticId, &id));
  Reference<IDispatch> object;
  Check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IDispatch, object.ReceiveVoid()));
  return object;
}

}  // namespace wendrill::com
