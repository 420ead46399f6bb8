#include "late_bound.h"

#include <wrl/client.h>

#include "nearest_name.h"

namespace wendrill::script_host {

namespace {

using Microsoft::WRL::ComPtr;

constexpr HRESULT kCannotCreateObject = static_cast<HRESULT>(0x800A01AD);

Failure FailureOf(HRESULT status, EXCEPINFO& exception) {
  if (exception.pfnDeferredFillIn != nullptr) {
    exception.pfnDeferredFillIn(&exception);
  }
  SysFreeString(exception.bstrHelpFile);
  const HRESULT told = status == DISP_E_EXCEPTION ? exception.scode : status;
  std::wstring source = Taken(exception.bstrSource);
  std::wstring description = Taken(exception.bstrDescription);
  return {told, std::move(source), std::move(description)};
}

void Read(IDispatch& object, const wchar_t* property, VARTYPE type, VARIANT* result) {
  CallByName(object, property, nullptr, result);
  const HRESULT status = VariantChangeType(result, result, 0, type);
  if (FAILED(status)) {
    throw Failure{status, {}, {}};
  }
}

// Returns the error for a failed creation: `status`, with the source and the description of the error information that
// the class set. When the class set no error information, the description contains the class name and the system's
// message for `status`.
Failure RefusalOf(HRESULT status, const std::wstring& className) {
  ComPtr<IErrorInfo> told;
  if (GetErrorInfo(0, &told) != S_OK) {
    return {status, L"WScript.CreateObject",
            L"an object of class \"" + className + L"\" could not be created: " + SystemMessage(status)};
  }
  BSTR source = nullptr;
  BSTR description = nullptr;
  told->GetSource(&source);
  told->GetDescription(&description);
  return {status, Taken(source), Taken(description)};
}

}  // namespace

void CallByName(IDispatch& object, const wchar_t* member, const std::wstring* argument, VARIANT* result) {
  auto* name = const_cast<LPOLESTR>(member);
  DISPID id = DISPID_UNKNOWN;
  const HRESULT known = object.GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(known)) {
    throw Failure{known, {}, {}};
  }
  OwnedVariant value;
  DISPPARAMS arguments{&value, nullptr, 0, 0};
  if (argument != nullptr) {
    SetText(value, *argument);
    arguments.cArgs = 1;
  }
  EXCEPINFO exception{};
  const HRESULT status = object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                                       &arguments, result, &exception, nullptr);
  if (FAILED(status)) {
    throw FailureOf(status, exception);
  }
}

std::wstring TextOf(IDispatch& object, const wchar_t* property) {
  OwnedVariant value;
  Read(object, property, VT_BSTR, &value);
  return {V_BSTR(&value), SysStringLen(V_BSTR(&value))};
}

long NumberOf(IDispatch& object, const wchar_t* property) {
  OwnedVariant value;
  Read(object, property, VT_I4, &value);
  return V_I4(&value);
}

bool TruthOf(IDispatch& object, const wchar_t* property) {
  OwnedVariant value;
  Read(object, property, VT_BOOL, &value);
  return V_BOOL(&value) != VARIANT_FALSE;
}

std::vector<std::wstring> TextsOf(IDispatch& object, const wchar_t* property) {
  OwnedVariant array;
  CallByName(object, property, nullptr, &array);
  std::vector<std::wstring> texts;
  LONG last = -1;
  if (V_VT(&array) == (VT_ARRAY | VT_VARIANT)) {
    SafeArrayGetUBound(V_ARRAY(&array), 1, &last);
  }
  for (LONG index = 0; index <= last; ++index) {
    OwnedVariant element;
    SafeArrayGetElement(V_ARRAY(&array), &index, &element);
    if (V_VT(&element) == VT_BSTR) {
      texts.emplace_back(V_BSTR(&element), SysStringLen(V_BSTR(&element)));
    }
  }
  return texts;
}

bool IsClass(const std::wstring& className) {
  CLSID identity;
  return SUCCEEDED(CLSIDFromProgID(className.c_str(), &identity));
}

IDispatch* CreateByName(const std::wstring& className) {
  CLSID identity;
  if (FAILED(CLSIDFromProgID(className.c_str(), &identity))) {
    throw Failure{kCannotCreateObject, L"WScript.CreateObject",
                  L"there is no class \"" + className + L"\"" + NearestClassRemark(className)};
  }
  SetErrorInfo(0, nullptr);
  IDispatch* object = nullptr;
  const HRESULT status =
      CoCreateInstance(identity, nullptr, CLSCTX_SERVER, IID_IDispatch, reinterpret_cast<void**>(&object));
  if (FAILED(status)) {
    throw RefusalOf(status, className);
  }
  return object;
}

}  // namespace wendrill::script_host
