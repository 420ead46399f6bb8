#include "com/server/registry.h"

#include "com/server/automation_types.h"
#include "com/server/boundary.h"
#include "com/server/module.h"
#include "common/error.h"

namespace wendrill::com {
namespace {

// The path of the registered classes, relative to the root key of the machine as well as to the root key of the user.
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

// Owns an open registry key. When the key cannot be opened, Get() is null and Status() is the error code.
class OpenKey {
 public:
  OpenKey(HKEY root, const std::wstring& path, REGSAM access)
      : status_(RegOpenKeyExW(root, path.c_str(), 0, access, &key_)) {}
  ~OpenKey() {
    if (status_ == ERROR_SUCCESS) {
      RegCloseKey(key_);
    }
  }
  OpenKey(const OpenKey&) = delete;
  OpenKey& operator=(const OpenKey&) = delete;

  HKEY Get() const { return key_; }
  LSTATUS Status() const { return status_; }

 private:
  HKEY key_ = nullptr;
  LSTATUS status_;
};

}  // namespace

REGSAM RegisteredClasses::With(REGSAM access) const {
  return access | (view_ == RegistryView::k64 ? KEY_WOW64_64KEY : KEY_WOW64_32KEY);
}

HKEY RegisteredClasses::Root() const {
  return scope_ == RegistrationScope::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

std::wstring RegisteredClasses::DefaultValue(const std::wstring& key) const {
  const OpenKey opened(Root(), kClasses + key, With(KEY_QUERY_VALUE));
  if (opened.Status() != ERROR_SUCCESS) {
    return L"";
  }
  std::wstring text(MAX_PATH, L'\0');
  for (;;) {
    auto bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    const LSTATUS status = RegGetValueW(opened.Get(), nullptr, nullptr, RRF_RT_REG_SZ, nullptr, text.data(), &bytes);
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
  LSTATUS status = RegCreateKeyExW(Root(), path.c_str(), 0, nullptr, 0, With(KEY_SET_VALUE), nullptr, &key, nullptr);
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
  {
    const OpenKey opened(Root(), kClasses + key, With(KEY_READ));
    wchar_t name[256];  // a key name has at most 255 characters, plus the terminating null
    while (opened.Status() == ERROR_SUCCESS && RegEnumKeyW(opened.Get(), 0, name, 256) == ERROR_SUCCESS) {
      Remove(key + L"\\" + name);
    }
  }
  const LSTATUS status = RegDeleteKeyExW(Root(), (kClasses + key).c_str(), With(0), 0);
  if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) {
    Fail(status, scope_, key, u"removed");
  }
}

void RegisteredClasses::RemoveIfEmpty(const std::wstring& key) const {
  DWORD keys = 1;
  DWORD values = 1;
  {
    const OpenKey opened(Root(), kClasses + key, With(KEY_READ));
    if (opened.Status() != ERROR_SUCCESS) {
      return;
    }
    RegQueryInfoKeyW(opened.Get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr, nullptr,
                     nullptr, nullptr);
  }
  if (keys == 0 && values == 0) {
    RegDeleteKeyExW(Root(), (kClasses + key).c_str(), With(0), 0);
  }
}

}  // namespace wendrill::com
