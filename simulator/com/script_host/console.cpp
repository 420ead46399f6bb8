#include "console.h"

#include <windows.h>

#include <string>

#include "encoding.h"

namespace wendrill::script_host {

namespace {

// Returns the text with LF for each CR LF. Programs that read a pipe or a file may treat a carriage return as a
// character of the line.
std::wstring WithLineFeeds(std::wstring_view text) {
  std::wstring result;
  result.reserve(text.size());
  for (std::size_t index = 0; index < text.size(); ++index) {
    const bool isBreak = text[index] == L'\r' && index + 1 < text.size() && text[index + 1] == L'\n';
    if (!isBreak) {
      result.push_back(text[index]);
    }
  }
  return result;
}

void Write(DWORD stream, std::wstring_view text) {
  HANDLE handle = GetStdHandle(stream);
  DWORD mode = 0;
  DWORD written = 0;
  if (GetConsoleMode(handle, &mode) != 0) {
    WriteConsoleW(handle, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    return;
  }
  const std::string bytes = Utf8Of(WithLineFeeds(text));
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
