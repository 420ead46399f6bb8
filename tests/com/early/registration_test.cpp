// Self-registration: what it writes, that nothing stays, and that it takes no name away from another server.
#include <algorithm>
#include <functional>

#include "common/text.h"
#include "desktop_fixture.h"

namespace wendrill::com::testing {
namespace {

using Exported = HRESULT(WINAPI*)();
using Install = HRESULT(WINAPI*)(BOOL, LPCWSTR);

// A DLL as regsvr32 meets it.
class ServerDll {
 public:
  explicit ServerDll(const wchar_t* name) : library_(LoadLibraryW(name)) {}
  ~ServerDll() { FreeLibrary(library_); }
  ServerDll(const ServerDll&) = delete;
  ServerDll& operator=(const ServerDll&) = delete;

  HRESULT Register() const { return Function<Exported>("DllRegisterServer")(); }
  HRESULT Unregister() const { return Function<Exported>("DllUnregisterServer")(); }
  HRESULT InstallFor(bool install, const wchar_t* scope) const {
    return Function<Install>("DllInstall")(install ? TRUE : FALSE, scope);
  }

 private:
  template <typename Signature>
  Signature Function(const char* name) const {
    return reinterpret_cast<Signature>(reinterpret_cast<void*>(GetProcAddress(library_, name)));
  }
  HMODULE library_;
};

// Every key below a key whose path or default value mentions a text; what registration may leave behind.
void Collect(HKEY root, const std::wstring& path, const std::function<void(const std::wstring&)>& visit) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
    return;
  }
  wchar_t name[256];
  DWORD length = 256;
  for (DWORD index = 0; RegEnumKeyExW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
       ++index, length = 256) {
    visit(path + L"\\" + name);
  }
  RegCloseKey(key);
}

// The keys directly below the places that registration writes to.
std::vector<std::wstring> KeysOf(HKEY root) {
  std::vector<std::wstring> keys;
  for (const wchar_t* place : {L"Software\\Classes", L"Software\\Classes\\CLSID", L"Software\\Classes\\TypeLib",
                               L"Software\\Classes\\Interface"}) {
    Collect(root, place, [&](const std::wstring& key) { keys.push_back(key); });
  }
  std::sort(keys.begin(), keys.end());
  return keys;
}

std::wstring DefaultValue(HKEY root, const std::wstring& key, const wchar_t* name = nullptr) {
  wchar_t text[512] = L"";
  DWORD bytes = sizeof(text);
  RegGetValueW(root, (L"Software\\Classes\\" + key).c_str(), name, RRF_RT_REG_SZ, nullptr, text, &bytes);
  return text;
}

std::wstring TextOfGuid(const GUID& id) {
  wchar_t text[40];
  StringFromGUID2(id, text, 40);
  return text;
}

TEST(Registration, ForTheMachineWritesEveryClassAndUnregisteringLeavesNoTrace) {
  const ServerDll dll(L"Wendrill23.dll");
  dll.Unregister();
  const auto before = KeysOf(HKEY_LOCAL_MACHINE);
  ASSERT_EQ(S_OK, dll.Register());
  const std::wstring clsid = TextOfGuid(CLSID_CQuillet);
  EXPECT_EQ(clsid, DefaultValue(HKEY_LOCAL_MACHINE, L"Wendrill23.CQuillet\\CLSID"));
  EXPECT_NE(std::wstring::npos,
            DefaultValue(HKEY_LOCAL_MACHINE, L"CLSID\\" + clsid + L"\\InprocServer32").find(L"Wendrill23.dll"));
  EXPECT_EQ(L"", DefaultValue(HKEY_LOCAL_MACHINE, L"CLSID\\" + clsid + L"\\InprocServer32", L"ThreadingModel"))
      << "COM creates the objects in the main apartment only where the value is missing";
  EXPECT_EQ(TextOfGuid(LIBID_Wendrill23), DefaultValue(HKEY_LOCAL_MACHINE, L"CLSID\\" + clsid + L"\\TypeLib"));
  for (const wchar_t* name : {L"CPNR", L"CQueue", L"CBatch", L"CEncodeUtils", L"IGet", L"IGetPNR"}) {
    EXPECT_NE(L"", DefaultValue(HKEY_LOCAL_MACHINE, std::wstring(L"Wendrill23.") + name + L"\\CLSID"));
  }
  EXPECT_NE(before, KeysOf(HKEY_LOCAL_MACHINE));
  ASSERT_EQ(S_OK, dll.Unregister());
  EXPECT_EQ(before, KeysOf(HKEY_LOCAL_MACHINE));
  EXPECT_EQ(S_OK, dll.Unregister()) << "what is not there is no failure";
}

TEST(Registration, ForTheUserWritesBelowTheUserAndLeavesNoTrace) {
  const ServerDll dll(L"Wendrill23.dll");
  dll.InstallFor(false, L"user");
  const auto machine = KeysOf(HKEY_LOCAL_MACHINE);
  const auto before = KeysOf(HKEY_CURRENT_USER);
  ASSERT_EQ(S_OK, dll.InstallFor(true, L"user"));
  EXPECT_EQ(TextOfGuid(CLSID_CPNR), DefaultValue(HKEY_CURRENT_USER, L"Wendrill23.CPNR\\CLSID"));
  EXPECT_NE(before, KeysOf(HKEY_CURRENT_USER));
  EXPECT_EQ(machine, KeysOf(HKEY_LOCAL_MACHINE)) << "the machine's part is not touched";
  ASSERT_EQ(S_OK, dll.InstallFor(false, L"user"));
  EXPECT_EQ(before, KeysOf(HKEY_CURRENT_USER));
}

TEST(Registration, AnUnknownScopeIsRefused) {
  const ServerDll dll(L"Wendrill23.dll");
  EXPECT_EQ(E_INVALIDARG, dll.InstallFor(true, L"everybody"));
}

TEST(Registration, TheSimulatorRefusesToTakeATakenName) {
  constexpr wchar_t kTaken[] = L"Software\\Classes\\szuPNR.PNR";
  constexpr wchar_t kOwner[] = L"{11111111-2222-3333-4444-555555555555}";
  const ServerDll dll(L"QuilletSimulator.dll");
  dll.Unregister();
  HKEY key = nullptr;
  ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_LOCAL_MACHINE, (std::wstring(kTaken) + L"\\CLSID").c_str(), 0, nullptr,
                                           0, KEY_SET_VALUE, nullptr, &key, nullptr));
  RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(kOwner), sizeof(kOwner));
  RegCloseKey(key);
  const auto before = KeysOf(HKEY_LOCAL_MACHINE);
  EXPECT_TRUE(FAILED(dll.Register()));
  const ErrorOnThread error = TakeError();
  EXPECT_NE(std::wstring::npos, error.description.find(L"szuPNR.PNR"));
  EXPECT_NE(std::wstring::npos, error.description.find(kOwner));
  EXPECT_EQ(before, KeysOf(HKEY_LOCAL_MACHINE)) << "nothing was written";
  EXPECT_EQ(S_OK, dll.Unregister());
  EXPECT_EQ(kOwner, DefaultValue(HKEY_LOCAL_MACHINE, L"szuPNR.PNR\\CLSID")) << "another server's name stays";
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, kTaken);
}

TEST(Registration, TheSimulatorRegistersAndUnregistersWithoutATrace) {
  const ServerDll dll(L"QuilletSimulator.dll");
  dll.Unregister();
  const auto before = KeysOf(HKEY_LOCAL_MACHINE);
  ASSERT_EQ(S_OK, dll.Register());
  EXPECT_EQ(TextOfGuid(CLSID_Control), DefaultValue(HKEY_LOCAL_MACHINE, L"QuilletSimulator.Control\\CLSID"));
  ASSERT_EQ(S_OK, dll.Unregister());
  EXPECT_EQ(before, KeysOf(HKEY_LOCAL_MACHINE));
}

}  // namespace
}  // namespace wendrill::com::testing
