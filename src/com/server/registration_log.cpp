#include "com/server/registration_log.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "com/server/automation_types.h"
#include "com/server/boundary.h"
#include "com/server/module.h"
#include "common/text.h"

namespace wendrill::com {
namespace {

std::wstring LogFile() {
  constexpr wchar_t kVariable[] = L"WENDRILL_REGISTER_LOG";
  std::wstring path(GetEnvironmentVariableW(kVariable, nullptr, 0), L'\0');
  path.resize(GetEnvironmentVariableW(kVariable, path.data(), static_cast<DWORD>(path.size())));
  return path;
}

// The description in the thread's error information; empty when the thread has no error information. Reading the error
// information clears it, so this function sets it again.
std::u16string DescriptionOnThread() {
  Reference<IErrorInfo> information;
  OwnedString description;
  if (GetErrorInfo(0, information.Receive()) == S_OK) {
    information->GetDescription(description.Receive());
    SetErrorInfo(0, information.Get());
  }
  return std::u16string(description.Text());
}

std::string LineOf(HRESULT status) {
  std::u16string description = DescriptionOnThread();
  if (description.empty()) {
    description = SystemText(status);
  }
  std::replace_if(
      description.begin(), description.end(), [](char16_t c) { return c < u' '; }, u' ');
  char number[16];
  std::snprintf(number, sizeof(number), "0x%08lX", static_cast<unsigned long>(status));
  return ToUtf8(TextOf(ModulePath())) + ": " + ToUtf8(description) + " (" + number + ")\r\n";
}

}  // namespace

void LogRefusal(HRESULT status) noexcept {
  Guarded([&] {
    const std::wstring path = LogFile();
    if (path.empty()) {
      return;
    }
    const std::string line = LineOf(status);
    const HANDLE file = CreateFileW(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
      DWORD written = 0;
      WriteFile(file, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
      CloseHandle(file);
    }
  });
}

}  // namespace wendrill::com
