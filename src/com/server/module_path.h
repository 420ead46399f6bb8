#pragma once

#include <windows.h>

#include <string>

namespace wendrill::com {

// The full path, of any length, of the file of a loaded module. A null `module` denotes the program of the process.
inline std::wstring PathOfModule(HMODULE module) {
  std::wstring path(MAX_PATH, L'\0');
  DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
  while (length == path.size()) {
    path.resize(path.size() * 2);
    length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
  }
  path.resize(length);
  return path;
}

}  // namespace wendrill::com
