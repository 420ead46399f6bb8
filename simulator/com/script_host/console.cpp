#include "console.h"

#include <windows.h>

#include "encoding.h"

namespace wendrill::script_host {

namespace {

void Write(DWORD stream, std::wstring_view text) {
  HANDLE handle = GetStdHandle(stream);
  DWORD mode = 0;
  DWORD written = 0;
  if (GetConsoleMode(handle, &mode) != 0) {
    WriteConsoleW(handle, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    return;
  }
  const std::string bytes = Utf8Of(text);
  WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

}  // namespace

void WriteOut(std::wstring_view text) {
  Write(STD_OUTPUT_HANDLE, text);
}
void WriteError(std::wstring_view text) {
  Write(STD_ERROR_HANDLE, text);
}

}  // namespace wendrill::script_host
