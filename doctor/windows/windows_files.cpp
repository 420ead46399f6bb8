#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "windows/wide_text.h"
#include "windows/windows_machine.h"

namespace wendrill::doctor {
namespace {

// The resources of a module. The module is loaded as data, so that none of its code runs. Get returns nullopt when the
// module cannot be loaded or lacks the resource.
class Resources {
 public:
  explicit Resources(const std::wstring& path)
      : module_(LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE)) {}
  ~Resources() {
    if (module_ != nullptr) {
      FreeLibrary(module_);
    }
  }
  Resources(const Resources&) = delete;
  Resources& operator=(const Resources&) = delete;

  std::optional<std::string> Get(WORD number, const wchar_t* kind) const {
    const HRSRC found = module_ == nullptr ? nullptr : FindResourceW(module_, MAKEINTRESOURCEW(number), kind);
    const HGLOBAL loaded = found == nullptr ? nullptr : LoadResource(module_, found);
    if (loaded == nullptr) {
      return std::nullopt;
    }
    return std::string(static_cast<const char*>(LockResource(loaded)), SizeofResource(module_, found));
  }

 private:
  HMODULE module_;
};

std::optional<std::string> BytesOf(const std::wstring& path) {
  std::ifstream file(std::filesystem::path(path), std::ios::binary);
  if (!file) {
    return std::nullopt;
  }
  return std::string{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

template <typename Number>
bool Read(std::ifstream& file, std::streamoff at, Number& number) {
  file.seekg(at);
  return static_cast<bool>(file.read(reinterpret_cast<char*>(&number), sizeof(number)));
}

std::string VersionText(const VS_FIXEDFILEINFO& fixed) {
  return std::to_string(HIWORD(fixed.dwFileVersionMS)) + "." + std::to_string(LOWORD(fixed.dwFileVersionMS)) + "." +
         std::to_string(HIWORD(fixed.dwFileVersionLS)) + "." + std::to_string(LOWORD(fixed.dwFileVersionLS));
}

}  // namespace

bool WindowsFiles::Exists(const std::string& path) const {
  const DWORD attributes = GetFileAttributesW(Wide(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

Bits WindowsFiles::BitsOf(const std::string& path) const {
  std::ifstream file(std::filesystem::path(Wide(path)), std::ios::binary);
  IMAGE_DOS_HEADER start{};
  struct {
    DWORD signature;
    WORD machine;
  } header{};
  if (!Read(file, 0, start) || start.e_magic != IMAGE_DOS_SIGNATURE || !Read(file, start.e_lfanew, header) ||
      header.signature != IMAGE_NT_SIGNATURE) {
    return Bits::Unknown;
  }
  return header.machine == IMAGE_FILE_MACHINE_I386 ? Bits::k32 : Bits::k64;
}

FileIdentity WindowsFiles::IdentityOf(const std::string& path) const {
  const std::wstring file = Wide(path);
  std::vector<BYTE> block(GetFileVersionInfoSizeW(file.c_str(), nullptr));
  void* found = nullptr;
  UINT size = 0;
  FileIdentity identity;
  if (block.empty() || GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(block.size()), block.data()) == FALSE ||
      VerQueryValueW(block.data(), L"\\", &found, &size) == FALSE) {
    return identity;
  }
  identity.version = VersionText(*static_cast<const VS_FIXEDFILEINFO*>(found));
  if (VerQueryValueW(block.data(), L"\\StringFileInfo\\040904B0\\FileDescription", &found, &size) != FALSE) {
    identity.description = Narrow(static_cast<const wchar_t*>(found));
  }
  return identity;
}

bool WindowsFiles::IsMarkedAsDownloaded(const std::string& path) const {
  return GetFileAttributesW((Wide(path) + L":Zone.Identifier").c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::optional<std::string> WindowsFiles::ManifestOf(const std::string& program) const {
  constexpr WORD kHoldsFromTheStart = 1;
  const std::wstring path = Wide(program);
  const auto inside = Resources(path).Get(kHoldsFromTheStart, MAKEINTRESOURCEW(24));
  return inside ? inside : BytesOf(path + L".manifest");
}

}  // namespace wendrill::doctor
