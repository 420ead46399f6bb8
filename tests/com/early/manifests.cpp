#include "manifests.h"

#include <windows.h>

namespace wendrill::com::testing {

std::wstring FolderOfProgram() {
  wchar_t path[MAX_PATH];
  const std::wstring whole(path, GetModuleFileNameW(nullptr, path, MAX_PATH));
  return whole.substr(0, whole.find_last_of(L'\\') + 1);
}

std::string ManifestIn(const std::wstring& file, int number) {
  const HMODULE module = LoadLibraryExW((FolderOfProgram() + file).c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
  std::string text;
  if (const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(number), MAKEINTRESOURCEW(24))) {
    const HGLOBAL loaded = LoadResource(module, found);
    text.assign(static_cast<const char*>(LockResource(loaded)), SizeofResource(module, found));
  }
  FreeLibrary(module);
  return text;
}

}  // namespace wendrill::com::testing
