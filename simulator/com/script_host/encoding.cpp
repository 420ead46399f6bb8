#include "encoding.h"

#include <windows.h>

#include <cstddef>

namespace wendrill::script_host {

namespace {

constexpr UINT kWindows1252 = 1252;

// Returns the bytes decoded with a code page; empty when `bytes` is empty or not valid in the code page.
std::wstring Decoded(UINT codePage, std::string_view bytes) {
  const int size = static_cast<int>(bytes.size());
  const int length = MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes.data(), size, nullptr, 0);
  std::wstring text(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes.data(), size, text.data(), length);
  return text;
}

// Decodes UTF-16. `low` is the position of the low byte in each pair of bytes: 0 for little-endian, 1 for big-endian. A
// single byte at the end is dropped.
std::wstring Utf16Pairs(std::string_view bytes, std::size_t low) {
  std::wstring text;
  text.reserve(bytes.size() / 2);
  for (std::size_t pair = 0; pair + 1 < bytes.size(); pair += 2) {
    const auto lowByte = static_cast<unsigned char>(bytes[pair + low]);
    const auto highByte = static_cast<unsigned char>(bytes[pair + 1 - low]);
    text.push_back(static_cast<wchar_t>(highByte << 8 | lowByte));
  }
  return text;
}

}  // namespace

std::string Utf8Of(std::wstring_view text) {
  const int length = static_cast<int>(text.size());
  const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), size, nullptr, nullptr);
  return bytes;
}

std::wstring TextOfScript(std::string_view bytes) {
  if (bytes.starts_with("\xFF\xFE")) {
    return Utf16Pairs(bytes.substr(2), 0);
  }
  if (bytes.starts_with("\xFE\xFF")) {
    return Utf16Pairs(bytes.substr(2), 1);
  }
  if (bytes.starts_with("\xEF\xBB\xBF")) {
    bytes.remove_prefix(3);
  }
  std::wstring text = Decoded(CP_UTF8, bytes);
  return text.empty() ? Decoded(kWindows1252, bytes) : text;
}

}  // namespace wendrill::script_host
