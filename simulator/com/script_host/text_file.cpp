#include "text_file.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "command_line.h"
#include "encoding.h"

namespace wendrill::script_host {

std::wstring ReadText(const std::wstring& path) {
  std::ifstream file(std::filesystem::path(path), std::ios::binary);
  return TextOfScript(std::string{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()});
}

void WriteText(const std::wstring& path, const std::wstring& text) {
  std::ofstream file(std::filesystem::path(path), std::ios::binary | std::ios::trunc);
  file << Utf8Of(text);
  file.close();
  if (!file) {
    throw UsageError{L"cannot be written: " + path};
  }
}

}  // namespace wendrill::script_host
