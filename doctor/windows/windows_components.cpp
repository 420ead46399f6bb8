#include <ole2.h>
#include <windows.h>
#include <wrl/client.h>

#include <cstdio>

#include "windows/wide_text.h"
#include "windows/windows_machine.h"

namespace wendrill::doctor {
namespace {

using Microsoft::WRL::ComPtr;

std::wstring SystemsText(HRESULT status) {
  wchar_t text[512] = L"";
  DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                static_cast<DWORD>(status), 0, text, static_cast<DWORD>(std::size(text)), nullptr);
  while (length > 0 && text[length - 1] <= L' ') {
    --length;
  }
  return {text, length};
}

// Describes a failure: the error description that the failing call left, else the system's message for the status. The
// status follows in parentheses.
std::string FailureOf(HRESULT status) {
  ComPtr<IErrorInfo> information;
  std::wstring reason = SystemsText(status);
  BSTR description = nullptr;
  if (GetErrorInfo(0, &information) == S_OK && SUCCEEDED(information->GetDescription(&description)) &&
      SysStringLen(description) > 0) {
    reason.assign(description, SysStringLen(description));
  }
  SysFreeString(description);
  char number[16];
  std::snprintf(number, sizeof(number), "0x%08lX", static_cast<unsigned long>(status));
  return Narrow(reason) + (reason.empty() ? "" : " ") + "(" + number + ")";
}

HRESULT CreateByName(const std::string& name, ComPtr<IDispatch>& object) {
  SetErrorInfo(0, nullptr);
  CLSID id;
  const HRESULT status = CLSIDFromProgID(Wide(name).c_str(), &id);
  return FAILED(status) ? status : CoCreateInstance(id, nullptr, CLSCTX_SERVER, IID_PPV_ARGS(&object));
}

HRESULT PropertyOf(IDispatch& object, const wchar_t* name, VARIANT& value) {
  LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
  DISPID id = DISPID_UNKNOWN;
  const HRESULT status = object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
  DISPPARAMS none{};
  return FAILED(status) ? status
                        : object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET | DISPATCH_METHOD,
                                        &none, &value, nullptr, nullptr);
}

}  // namespace

Creation WindowsComponents::Create(const std::string& programmaticName) const {
  ComPtr<IDispatch> object;
  const HRESULT status = CreateByName(programmaticName, object);
  return FAILED(status) ? Creation{false, FailureOf(status)} : Creation{true, ""};
}

Components::Sessions WindowsComponents::CountSessions() const {
  ComPtr<IDispatch> list;
  VARIANT count;
  VariantInit(&count);
  HRESULT status = CreateByName("kzuHostToolKit.HostSessionList", list);
  if (SUCCEEDED(status)) {
    status = PropertyOf(*list.Get(), L"Count", count);
  }
  if (SUCCEEDED(status)) {
    status = VariantChangeType(&count, &count, 0, VT_I4);
  }
  if (FAILED(status)) {
    VariantClear(&count);
    return {0, FailureOf(status)};
  }
  return {static_cast<int>(V_I4(&count)), ""};
}

}  // namespace wendrill::doctor
