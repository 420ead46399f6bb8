#include "com/server/registry.h"

#include "com/server/automation_types.h"
#include "com/server/boundary.h"
#include "com/server/module.h"
#include "common/error.h"

namespace wendrill::com {
namespace {

// The path of the classes, the same below the machine's and the user's root key.
constexpr wchar_t kClasses[] = L"Software\\Classes\\";

[[noreturn]] void Fail(LSTATUS status, RegistrationScope scope, const std::wstring& key, std::u16string_view what) {
  const HRESULT failure = HRESULT_FROM_WIN32(static_cast<DWORD>(status));
  const wchar_t* root = scope == RegistrationScope::User ? L"HKEY_CURRENT_USER\\" : L"HKEY_LOCAL_MACHINE\\";
  std::u16string description(TextOf(root + (kClasses + key)));
  description.append(u" cannot be ").append(what).append(u": ").append(SystemText(failure));
  if (status == ERROR_ACCESS_DENIED && scope == RegistrationScope::Machine) {
    description.append(
        u" This requires administrator rights; with the word user after /i: it is done for the user only.");
  }
  throw Error(failure, std::u16string(TextOf(ModulePath())), std::move(description));
}

}  // namespace

HKEY RegisteredClasses::Root() const {
  return scope_ == RegistrationScope::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

std::wstring RegisteredClasses::DefaultValue(const std::wstring& key) const {
  const std::wstring path = kClasses + key;
  std::wstring text(MAX_PATH, L'\0');
  for (;;) {
    auto bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    const LSTATUS status = RegGetValueW(Root(), path.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text.data(), &bytes);
    if (status == ERROR_MORE_DATA) {
      text.resize(text.size() * 2);
      continue;
    }
    return status == ERROR_SUCCESS ? text.c_str() : L"";
  }
}

void RegisteredClasses::Write(const RegistryValue& value) const {
  HKEY key = nullptr;
  const std::wstring path = kClasses + value.key;
  LSTATUS status = RegCreateKeyExW(Root(), path.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &key, nullptr);
  if (status == ERROR_SUCCESS) {
    const auto bytes = static_cast<DWORD>((value.text.size() + 1) * sizeof(wchar_t));
    status = RegSetValueExW(key, value.name.empty() ? nullptr : value.name.c_str(), 0, REG_SZ,
                            reinterpret_cast<const BYTE*>(value.text.c_str()), bytes);
    RegCloseKey(key);
  }
  if (status != ERROR_SUCCESS) {
    Fail(status, scope_, value.key, u"written");
  }
}

void RegisteredClasses::Remove(const std::wstring& key) const {
  const LSTATUS status = RegDeleteTreeW(Root(), (kClasses + key).c_str());
  if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) {
    Fail(status, scope_, key, u"removed");
  }
}

void RegisteredClasses::RemoveIfEmpty(const std::wstring& key) const {
  const std::wstring path = kClasses + key;
  HKEY opened = nullptr;
  if (RegOpenKeyExW(Root(), path.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) {
    return;
  }
  DWORD keys = 1;
  DWORD values = 1;
  RegQueryInfoKeyW(opened, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr, nullptr, nullptr,
                   nullptr);
  RegCloseKey(opened);
  if (keys == 0 && values == 0) {
    RegDeleteKeyW(Root(), path.c_str());
  }
}

}  // namespace wendrill::com
