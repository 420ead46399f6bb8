#include "program_path.h"

#include <windows.h>

#include <string>

namespace wendrill::script_host {

std::filesystem::path ProgramPath() {
  std::wstring path(MAX_PATH, L'\0');
  DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  while (length == path.size()) {
    path.resize(path.size() * 2);
    length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  }
  path.resize(length);
  return path;
}

}  // namespace wendrill::script_host
