#include "com/recorder/quiet_call.h"

#include <utility>

#include "com/server/conversions.h"
#include "com/server/variant_values.h"
#include "common/error.h"

namespace wendrill::recorder {
namespace {

// Rejects a value that is or contains an object, because a recording cannot contain objects.
class NoObjects final : public com::ObjectBridge {
 public:
  ObjectRef ToCore(IDispatch*) const override { Raise(RunTimeError::TypeMismatch); }
  IDispatch* ToAutomation(const ObjectRef&) const override { return nullptr; }
};

// Stores in `converted` a copy of the value, converted to `type`. Returns false for an object, for a by-reference
// VARIANT that refers to no variable, and when the conversion fails. Converts as automation does, so the text of a
// number follows the user's regional settings.
bool Convert(const VARIANT& value, VARTYPE type, VARIANT* converted) {
  com::OwnedVariant direct;
  if (!com::EndsInAVariable(value) || FAILED(VariantCopyInd(&direct, const_cast<VARIANT*>(&value))) ||
      IsObject(direct)) {
    return false;
  }
  return SUCCEEDED(com::ChangeType(converted, &direct, type));
}

bool CallWith(IDispatch* object, DISPID id, DISPPARAMS arguments, VARIANT* result) {
  const OwnErrorInformation own;
  return SUCCEEDED(object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &arguments,
                                  result, nullptr, nullptr));
}

}  // namespace

std::optional<DISPID> IdOf(IDispatch* object, const wchar_t* name) {
  const OwnErrorInformation own;
  auto* asked = const_cast<LPOLESTR>(name);
  DISPID id = DISPID_UNKNOWN;
  return SUCCEEDED(object->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id)) ? std::optional(id)
                                                                                         : std::nullopt;
}

bool Read(IDispatch* object, DISPID id, VARIANT* result) {
  return CallWith(object, id, DISPPARAMS{}, result);
}

bool Read(IDispatch* object, const wchar_t* name, VARIANT* result) {
  const auto id = IdOf(object, name);
  return id && Read(object, *id, result);
}

std::optional<std::u16string> ReadText(IDispatch* object, DISPID id) {
  com::OwnedVariant result;
  return Read(object, id, &result) ? TextIn(result) : std::nullopt;
}

std::optional<std::u16string> ReadText(IDispatch* object, const wchar_t* name) {
  const auto id = IdOf(object, name);
  return id ? ReadText(object, *id) : std::nullopt;
}

std::optional<std::int32_t> ReadNumber(IDispatch* object, const wchar_t* name) {
  com::OwnedVariant result;
  return Read(object, name, &result) ? NumberIn(result) : std::nullopt;
}

com::Reference<IDispatch> ObjectAt(IDispatch* object, DISPID id) {
  com::OwnedVariant result;
  return Read(object, id, &result) ? ObjectIn(result) : com::Reference<IDispatch>();
}

com::Reference<IDispatch> ObjectAt(IDispatch* object, const wchar_t* name) {
  const auto id = IdOf(object, name);
  return id ? ObjectAt(object, *id) : com::Reference<IDispatch>();
}

com::Reference<IDispatch> ItemAt(IDispatch* object, DISPID id, std::int32_t position) {
  VARIANT wanted;
  V_VT(&wanted) = VT_I4;
  V_I4(&wanted) = position;
  com::OwnedVariant result;
  return CallWith(object, id, DISPPARAMS{&wanted, nullptr, 1, 0}, &result) ? ObjectIn(result)
                                                                           : com::Reference<IDispatch>();
}

std::optional<std::u16string> TextIn(const VARIANT& value) {
  com::OwnedVariant text;
  return Convert(value, VT_BSTR, &text) ? std::optional(std::u16string(com::TextOf(V_BSTR(&text)))) : std::nullopt;
}

std::optional<std::int32_t> NumberIn(const VARIANT& value) {
  com::OwnedVariant number;
  return Convert(value, VT_I4, &number) ? std::optional<std::int32_t>(V_I4(&number)) : std::nullopt;
}

std::optional<bool> TruthIn(const VARIANT& value) {
  com::OwnedVariant truth;
  return Convert(value, VT_BOOL, &truth) ? std::optional(V_BOOL(&truth) != VARIANT_FALSE) : std::nullopt;
}

std::optional<Value> ValueIn(const VARIANT& value) {
  try {
    return com::ToValue(value, NoObjects());
  } catch (const Error&) {
    return std::nullopt;
  }
}

bool IsObject(const VARIANT& value) {
  return V_VT(&value) == VT_DISPATCH || V_VT(&value) == VT_UNKNOWN;
}

com::Reference<IDispatch> ObjectIn(const VARIANT& value) {
  com::Reference<IDispatch> object;
  if (IsObject(value) && V_UNKNOWN(&value) != nullptr) {
    V_UNKNOWN(&value)->QueryInterface(IID_IDispatch, object.ReceiveVoid());
  }
  return object;
}

}  // namespace wendrill::recorder
