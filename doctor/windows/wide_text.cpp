#include "windows/wide_text.h"

#include <windows.h>

#include "script_host/encoding.h"

namespace wendrill::doctor {

std::wstring Wide(std::string_view utf8) {
  const int size = static_cast<int>(utf8.size());
  std::wstring text(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0)), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, text.data(), static_cast<int>(text.size()));
  return text;
}

std::string Narrow(std::wstring_view text) {
  return script_host::Utf8Of(text);
}

}  // namespace wendrill::doctor
