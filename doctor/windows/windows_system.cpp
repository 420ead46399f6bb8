#include <windows.h>

#include <cstdlib>

#include "windows/wide_text.h"
#include "windows/windows_machine.h"

namespace wendrill::doctor {
namespace {

template <typename Signature>
Signature FunctionOf(const wchar_t* library, const char* name) {
  return reinterpret_cast<Signature>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(library), name)));
}

// The version of Wine; null on Windows.
const char* WinesVersion() {
  const auto version = FunctionOf<const char*(CDECL*)()>(L"ntdll.dll", "wine_get_version");
  return version == nullptr ? nullptr : version();
}

// The version of Windows. RtlGetVersion returns the true version, whatever versions the program's manifest declares.
std::string WindowsVersion() {
  OSVERSIONINFOW version{};
  version.dwOSVersionInfoSize = sizeof(version);
  const auto ask = FunctionOf<LONG(WINAPI*)(OSVERSIONINFOW*)>(L"ntdll.dll", "RtlGetVersion");
  if (ask != nullptr) {
    ask(&version);
  }
  return std::to_string(version.dwMajorVersion) + "." + std::to_string(version.dwMinorVersion) + "." +
         std::to_string(version.dwBuildNumber);
}

// The text with which `fill` fills a buffer. `fill` takes the buffer and its size, and returns the length it has
// written or, when the buffer is too small, the length it needs. The buffer is doubled until the text fits.
template <typename Fill>
std::wstring Filled(Fill fill) {
  std::wstring text(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = fill(text.data(), static_cast<DWORD>(text.size()));
    if (length < text.size()) {
      text.resize(length);
      return text;
    }
    text.resize(text.size() * 2);
  }
}

}  // namespace

std::string WindowsSystem::Name() const {
  return IsWine() ? "Wine " + std::string(WinesVersion()) + " as Windows " + WindowsVersion()
                  : "Windows " + WindowsVersion();
}

bool WindowsSystem::IsWine() const {
  return WinesVersion() != nullptr;
}

bool WindowsSystem::Is64Bit() const {
  BOOL under64Bit = FALSE;
  return OwnBits() == Bits::k64 || (IsWow64Process(GetCurrentProcess(), &under64Bit) != FALSE && under64Bit != FALSE);
}

Bits WindowsSystem::OwnBits() const {
  return sizeof(void*) == 4 ? Bits::k32 : Bits::k64;
}

bool WindowsSystem::IsElevated() const {
  HANDLE token = nullptr;
  TOKEN_ELEVATION elevation{};
  DWORD size = 0;
  if (OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token) == FALSE) {
    return false;
  }
  GetTokenInformation(token, TokenElevation, &elevation, sizeof(elevation), &size);
  CloseHandle(token);
  return elevation.TokenIsElevated != 0;
}

std::string WindowsSystem::WindowsFolder() const {
  return Narrow(Filled([](wchar_t* text, DWORD size) { return GetSystemWindowsDirectoryW(text, size); }));
}

std::string WindowsSystem::OwnFolder() const {
  const std::wstring path = Filled([](wchar_t* text, DWORD size) { return GetModuleFileNameW(nullptr, text, size); });
  return Narrow(path.substr(0, path.find_last_of(L'\\')));
}

std::optional<std::string> WindowsSystem::Variable(const std::string& name) const {
  const wchar_t* value = _wgetenv(Wide(name).c_str());
  return value == nullptr ? std::nullopt : std::optional(Narrow(value));
}

std::string WindowsSystem::Expanded(const std::string& text) const {
  const std::wstring wide = Wide(text);
  std::wstring expanded =
      Filled([&wide](wchar_t* result, DWORD size) { return ExpandEnvironmentStringsW(wide.c_str(), result, size); });
  return Narrow(expanded.c_str());  // c_str, because ExpandEnvironmentStringsW counts the terminating NUL
}

}  // namespace wendrill::doctor
