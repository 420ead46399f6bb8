#include "registered_dlls.h"

#include <algorithm>

#include "com/server/automation_types.h"
#include "common/text.h"
#include "platform.h"
#include "wendrill23.h"

namespace wendrill::com::testing {
namespace {

constexpr wchar_t kClasses[] = L"Software\\Classes";

std::wstring PathOf(HMODULE module) {
  wchar_t path[1024];
  return {path, GetModuleFileNameW(module, path, 1024)};
}

template <typename Signature>
Signature Function(HMODULE library, const char* name) {
  return reinterpret_cast<Signature>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

HRESULT CallOf(HMODULE library, const char* name) {
  return Function<HRESULT(WINAPI*)()>(library, name)();
}

HRESULT InstallCallOf(HMODULE library, bool install, const wchar_t* words) {
  return Function<HRESULT(WINAPI*)(BOOL, LPCWSTR)>(library, "DllInstall")(install ? TRUE : FALSE, words);
}

void ExportValues(HKEY key, const std::wstring& path, std::vector<std::wstring>& lines) {
  std::vector<BYTE> data(65536);
  for (DWORD index = 0;; ++index) {
    wchar_t name[1024];
    DWORD length = 1024;
    DWORD type = 0;
    auto bytes = static_cast<DWORD>(data.size());
    if (RegEnumValueW(key, index, name, &length, nullptr, &type, data.data(), &bytes) != ERROR_SUCCESS) {
      return;
    }
    std::wstring line = path + L" : " + name + L" = " + std::to_wstring(type) + L":";
    for (DWORD i = 0; i + 1 < bytes; i += 2) {
      line.push_back(static_cast<wchar_t>(data[i] | data[i + 1] << 8));
    }
    lines.push_back(line);
  }
}

void ExportKey(HKEY root, const std::wstring& path, std::vector<std::wstring>& lines) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
    return;
  }
  lines.push_back(path);
  ExportValues(key, path, lines);
  for (DWORD index = 0;; ++index) {
    wchar_t name[256];
    DWORD length = 256;
    if (RegEnumKeyExW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) {
      break;
    }
    ExportKey(root, path + L"\\" + name, lines);
  }
  RegCloseKey(key);
}

// What tests may have left: keys that mention one of the two DLLs' classes, names, interfaces or libraries.
void RemoveEverythingOfOurs(HKEY root) {
  for (const wchar_t* name :
       {L"Wendrill23.CQuillet", L"Wendrill23.CPNR", L"Wendrill23.CQueue", L"Wendrill23.CBatch",
        L"Wendrill23.CEncodeUtils", L"Wendrill23.IGet", L"Wendrill23.IGetPNR", L"kzuHostToolKit.HostSessionList",
        L"kzuHostToolKit.HostSession", L"szuPNR.PNR", L"wzuScriptHelper.AlarmManager", L"Pellorin.ParamBag",
        L"Pellorin.TextHelper", L"QuilletSimulator.Control", L"QuilletSimulator.Expect"}) {
    RemoveKey(root, name);
  }
  for (const GUID& library : {LIBID_Wendrill23, LIBID_QuilletSimulator}) {
    RemoveKey(root, L"TypeLib\\" + TextOfGuid(library));
  }
  for (const wchar_t* dll : {L"Wendrill23.dll", L"QuilletSimulator.dll"}) {
    Reference<ITypeLib> library;
    LoadTypeLibEx(dll, REGKIND_NONE, library.Receive());
    for (UINT index = 0; library && index < library->GetTypeInfoCount(); ++index) {
      Reference<ITypeInfo> type;
      TYPEATTR* attributes = nullptr;
      library->GetTypeInfo(index, type.Receive());
      type->GetTypeAttr(&attributes);
      const bool isClass = attributes->typekind == TKIND_COCLASS;
      RemoveKey(root, (isClass ? L"CLSID\\" : L"Interface\\") + TextOfGuid(attributes->guid));
      type->ReleaseTypeAttr(attributes);
    }
  }
}

}  // namespace

ServerDll::ServerDll(const std::wstring& path) : library_(LoadLibraryW(path.c_str())) {
  EXPECT_NE(nullptr, library_);
}
ServerDll::~ServerDll() {
  FreeLibrary(library_);
}
HRESULT ServerDll::Register() const {
  return CallOf(library_, "DllRegisterServer");
}
HRESULT ServerDll::Unregister() const {
  return CallOf(library_, "DllUnregisterServer");
}
HRESULT ServerDll::Install(const wchar_t* words) const {
  return InstallCallOf(library_, true, words);
}
HRESULT ServerDll::Uninstall(const wchar_t* words) const {
  return InstallCallOf(library_, false, words);
}
std::wstring ServerDll::Path() const {
  return PathOf(library_);
}

std::wstring CopyOf(const wchar_t* dll, const std::wstring& folder) {
  wchar_t temporary[MAX_PATH];
  const std::wstring path(temporary, GetTempPathW(MAX_PATH, temporary));
  CreateDirectoryW((path + folder).c_str(), nullptr);
  const std::wstring copy = path + folder + L"\\" + dll;
  const std::wstring program = PathOf(nullptr);
  const std::wstring original = program.substr(0, program.find_last_of(L'\\') + 1) + dll;
  EXPECT_NE(FALSE, CopyFileW(original.c_str(), copy.c_str(), FALSE));
  return copy;
}

std::wstring TextOfGuid(const GUID& id) {
  wchar_t text[40];
  StringFromGUID2(id, text, 40);
  return text;
}

std::wstring DefaultValue(HKEY root, const std::wstring& key, const wchar_t* name) {
  wchar_t text[1024] = L"";
  DWORD bytes = sizeof(text);
  RegGetValueW(root, (std::wstring(kClasses) + L"\\" + key).c_str(), name, RRF_RT_REG_SZ, nullptr, text, &bytes);
  return text;
}

void SetDefaultValue(HKEY root, const std::wstring& key, const std::wstring& text, const wchar_t* name) {
  ASSERT_EQ(ERROR_SUCCESS, RegSetKeyValueW(root, (std::wstring(kClasses) + L"\\" + key).c_str(), name, REG_SZ,
                                           text.c_str(), static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))));
}

void RemoveKey(HKEY root, const std::wstring& key) {
  RegDeleteTreeW(root, (std::wstring(kClasses) + L"\\" + key).c_str());
}

std::vector<std::wstring> Export() {
  std::vector<std::wstring> lines;
  for (const HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
    lines.push_back(root == HKEY_CURRENT_USER ? L"user" : L"machine");
    ExportKey(root, kClasses, lines);
  }
  return lines;
}

std::string Difference(const std::vector<std::wstring>& before, const std::vector<std::wstring>& after) {
  if (before == after) {
    return "";
  }
  const auto listed = [](const std::vector<std::wstring>& lines, const std::vector<std::wstring>& others) {
    std::wstring text;
    for (const std::wstring& line : lines) {
      text += std::find(others.begin(), others.end(), line) == others.end() ? L"\n  " + line : L"";
    }
    return ToUtf8(TextOf(std::wstring_view(text)));
  };
  return "gone:" + listed(before, after) + "\nnew:" + listed(after, before);
}

Registry::Registry() {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  HKEY user = nullptr;  // every user of Windows has this key; under Wine the first registration makes it
  RegCreateKeyW(HKEY_CURRENT_USER, kClasses, &user);
  RegCloseKey(user);
  RemoveEverythingOfOurs(HKEY_LOCAL_MACHINE);
  RemoveEverythingOfOurs(HKEY_CURRENT_USER);
}

Registry::~Registry() {
  RemoveEverythingOfOurs(HKEY_LOCAL_MACHINE);
  RemoveEverythingOfOurs(HKEY_CURRENT_USER);
  CoUninitialize();
}

std::wstring Registry::FileThatAnswers(const wchar_t* programmaticName) {
  CLSID id;
  Reference<IDispatch> object;
  if (FAILED(CLSIDFromProgID(programmaticName, &id)) ||
      FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.ReceiveVoid()))) {
    return L"";
  }
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     *reinterpret_cast<const wchar_t* const*>(object.Get()), &module);
  return PathOf(module);
}

}  // namespace wendrill::com::testing
