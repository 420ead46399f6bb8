// A 64-bit program that uses the 32-bit library through its surrogate: late bound, with an error, and early bound.
// Prints what it got, a line each.
#include <ole2.h>
#include <windows.h>

#include <cstdio>
#include <string>

#include "wendrill23.h"

namespace {

static_assert(sizeof(void*) == 8);

int Fail(const char* what, HRESULT status) {
  std::printf("%s failed: 0x%08lX\n", what, static_cast<unsigned long>(status));
  return 1;
}

void Print(const char* what, const wchar_t* text, UINT length) {
  std::string narrow;
  for (UINT at = 0; at < length; ++at) {
    narrow += text[at] < 128 ? static_cast<char>(text[at]) : '?';
  }
  std::printf("%s: %s\n", what, narrow.c_str());
}

HRESULT Create(const wchar_t* name, IDispatch** object) {
  CLSID id;
  const HRESULT status = CLSIDFromProgID(name, &id);
  return FAILED(status) ? status
                        : CoCreateInstance(id, nullptr, CLSCTX_ALL, IID_IDispatch, reinterpret_cast<void**>(object));
}

HRESULT Call(IDispatch* object, const wchar_t* member, VARIANT argument, VARIANT* result, EXCEPINFO* exception) {
  auto* name = const_cast<LPOLESTR>(member);
  DISPID id = DISPID_UNKNOWN;
  HRESULT status = object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  DISPPARAMS arguments{&argument, nullptr, 1, 0};
  return FAILED(status) ? status
                        : object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                                         &arguments, result, exception, nullptr);
}

VARIANT Text(const wchar_t* text) {
  VARIANT value;
  V_VT(&value) = VT_BSTR;
  V_BSTR(&value) = SysAllocString(text);
  return value;
}

}  // namespace

int main() {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  IDispatch* quillet = nullptr;
  HRESULT status = Create(L"Wendrill23.CQuillet", &quillet);
  if (FAILED(status)) {
    return Fail("creating", status);
  }
  std::printf("in this process: %s\n", GetModuleHandleW(L"Wendrill23.dll") == nullptr ? "no" : "yes");

  VARIANT result;
  VariantInit(&result);
  EXCEPINFO exception{};
  status = Call(quillet, L"SendCommand", Text(L"AN15JUNPARLON"), &result, &exception);
  if (FAILED(status)) {
    return Fail("SendCommand", status);
  }
  Print("late bound", V_BSTR(&result), 18);

  IDispatch* queue = nullptr;
  status = Create(L"Wendrill23.CQueue", &queue);
  if (FAILED(status)) {
    return Fail("creating a queue", status);
  }
  VARIANT place;
  V_VT(&place) = VT_I4;
  V_I4(&place) = 7;
  status = Call(queue, L"Item", place, &result, &exception);
  std::printf("error: 0x%08lX 0x%08lX\n", static_cast<unsigned long>(status),
              static_cast<unsigned long>(exception.scode));
  Print("description", exception.bstrDescription, SysStringLen(exception.bstrDescription));
  Print("source", exception.bstrSource, SysStringLen(exception.bstrSource));

  _CQuillet* typed = nullptr;
  status = quillet->QueryInterface(__uuidof(_CQuillet), reinterpret_cast<void**>(&typed));
  if (FAILED(status)) {
    return Fail("asking for _CQuillet", status);
  }
  BSTR answer = nullptr;
  status = typed->SendCommand(V_BSTR(&(result = Text(L"AN15JUNPARLON"))), &answer);
  if (FAILED(status)) {
    return Fail("_CQuillet::SendCommand", status);
  }
  Print("early bound", answer, 18);
  // Not asked of another object: Wine 8 starts a surrogate for each one, where Windows has one for all.
  status = typed->get_LastBuffer(&answer);
  if (FAILED(status)) {
    return Fail("_CQuillet::LastBuffer", status);
  }
  Print("last response", answer, 18);
  typed->Release();
  queue->Release();
  quillet->Release();
  CoUninitialize();
  return 0;
}
