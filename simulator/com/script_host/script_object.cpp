#include "script_object.h"

#include <algorithm>
#include <cwchar>
#include <exception>

namespace wendrill::script_host {

namespace {

constexpr HRESULT kNumberBase = static_cast<HRESULT>(0x800A0000);

BSTR NewText(std::wstring_view text) {
  return SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
}

bool SameName(std::wstring_view left, const wchar_t* right) {
  return std::wcslen(right) == left.size() && _wcsnicmp(left.data(), right, left.size()) == 0;
}

HRESULT Reported(const Failure& failure, EXCEPINFO* exception) {
  if (failure.description.empty() || exception == nullptr) {
    return failure.status;
  }
  *exception = EXCEPINFO{};
  exception->scode = failure.status;
  exception->bstrSource = NewText(failure.source);
  exception->bstrDescription = NewText(failure.description);
  return DISP_E_EXCEPTION;
}

}  // namespace

long NumberOf(HRESULT status) {
  const bool carriesNumber = (static_cast<ULONG>(status) & 0xFFFF0000UL) == static_cast<ULONG>(kNumberBase);
  return carriesNumber ? status & 0xFFFF : status;
}

std::wstring SystemMessage(HRESULT status) {
  wchar_t text[512] = {};
  DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                static_cast<DWORD>(status), 0, text, static_cast<DWORD>(std::size(text)), nullptr);
  while (length > 0 && std::wcschr(L"\r\n. ", text[length - 1]) != nullptr) {
    --length;
  }
  return {text, length};
}

std::wstring Taken(BSTR text) {
  std::wstring taken(text, SysStringLen(text));
  SysFreeString(text);
  return taken;
}

VARIANT CallArguments::Converted(UINT index, VARTYPE type) const {
  if (index >= parameters_.cArgs) {
    throw Failure{DISP_E_BADPARAMCOUNT, {}, {}};
  }
  VARIANT value;
  VariantInit(&value);
  // In `rgvarg` the arguments are in reverse order: the last argument has the index 0. VariantCopyInd copies the value
  // of a variable that the script passes by reference (VT_BYREF).
  HRESULT status = VariantCopyInd(&value, &parameters_.rgvarg[parameters_.cArgs - 1 - index]);
  if (SUCCEEDED(status) && type != VT_EMPTY) {
    status = VariantChangeType(&value, &value, 0, type);
  }
  if (FAILED(status)) {
    VariantClear(&value);
    throw Failure{status, {}, {}};
  }
  return value;
}

bool CallArguments::IsNull(UINT index) const {
  VARIANT value = Converted(index, VT_EMPTY);
  const bool null = V_VT(&value) == VT_NULL;
  VariantClear(&value);
  return null;
}

std::wstring CallArguments::Text(UINT index) const {
  VARIANT value = Converted(index, VT_BSTR);
  std::wstring text(V_BSTR(&value), SysStringLen(V_BSTR(&value)));
  VariantClear(&value);
  return text;
}

long CallArguments::Number(UINT index) const {
  const VARIANT value = Converted(index, VT_I4);
  return V_I4(&value);
}

void SetText(VARIANT& result, std::wstring_view text) {
  V_VT(&result) = VT_BSTR;
  V_BSTR(&result) = NewText(text);
}

void SetNumber(VARIANT& result, long number) {
  V_VT(&result) = VT_I4;
  V_I4(&result) = number;
}

void SetTruth(VARIANT& result, bool truth) {
  V_VT(&result) = VT_BOOL;
  V_BOOL(&result) = truth ? VARIANT_TRUE : VARIANT_FALSE;
}

void SetObject(VARIANT& result, IDispatch* object) {
  object->AddRef();
  V_VT(&result) = VT_DISPATCH;
  V_DISPATCH(&result) = object;
}

void ScriptObject::Enter(DISPID member) {
  const auto found = std::find_if(members_.begin(), members_.end(),
                                  [member](const MemberName& candidate) { return candidate.id == member; });
  const std::wstring call =
      std::wstring(name_) + (found == members_.end() ? std::wstring() : L"." + std::wstring(found->name));
  if (const wchar_t* why = limit_.Enter(call)) {
    throw Failure{TimeLimit::kStatus, call, why};
  }
}

HRESULT ScriptObject::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

HRESULT ScriptObject::GetTypeInfo(UINT, LCID, ITypeInfo**) {
  return E_NOTIMPL;
}

HRESULT ScriptObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  for (UINT index = 0; index < count; ++index) {
    ids[index] = DISPID_UNKNOWN;
  }
  for (const MemberName& member : members_) {
    if (SameName(member.name, names[0])) {
      ids[0] = member.id;
    }
  }
  return count == 1 && ids[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT ScriptObject::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                             EXCEPINFO* exception, UINT*) {
  if ((flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) == 0) {
    return DISP_E_MEMBERNOTFOUND;  // these objects have no property that a script can assign
  }
  VARIANT unwanted;
  VARIANT& target = result != nullptr ? *result : unwanted;
  VariantInit(&target);
  try {
    Enter(member);
    Call(member, CallArguments(*parameters), target);
    if (result == nullptr) {
      VariantClear(&unwanted);
    }
    return S_OK;
  } catch (const Failure& failure) {
    return Reported(failure, exception);
  } catch (const std::exception&) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace wendrill::script_host
