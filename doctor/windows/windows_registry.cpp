#include <windows.h>

#include "windows/wide_text.h"
#include "windows/windows_machine.h"

namespace wendrill::doctor {
namespace {

// A registry key opened for reading. Get returns null when the key cannot be opened.
class OpenKey {
 public:
  OpenKey(Hive hive, View view, const std::wstring& path) {
    const HKEY root = hive == Hive::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
    const REGSAM side = view == View::k32 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_QUERY_VALUE | side, &key_) != ERROR_SUCCESS) {
      key_ = nullptr;
    }
  }
  ~OpenKey() {
    if (key_ != nullptr) {
      RegCloseKey(key_);
    }
  }
  OpenKey(const OpenKey&) = delete;
  OpenKey& operator=(const OpenKey&) = delete;

  HKEY Get() const { return key_; }

 private:
  HKEY key_ = nullptr;
};

}  // namespace

std::optional<std::string> WindowsRegistry::Value(Hive hive, View view, const std::string& key,
                                                  const std::string& name) const {
  const OpenKey opened(hive, view, Wide(key));
  if (opened.Get() == nullptr) {
    return std::nullopt;
  }
  std::wstring text(MAX_PATH, L'\0');
  for (;;) {
    auto bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    // With RRF_NOEXPAND, variables in the value stay unchanged: the caller replaces them (System::Expanded).
    const LSTATUS status =
        RegGetValueW(opened.Get(), nullptr, Wide(name).c_str(), RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ | RRF_NOEXPAND,
                     nullptr, text.data(), &bytes);
    if (status == ERROR_MORE_DATA) {
      text.resize(text.size() * 2);
      continue;
    }
    return status == ERROR_SUCCESS ? std::optional(Narrow(text.c_str())) : std::nullopt;
  }
}

}  // namespace wendrill::doctor
