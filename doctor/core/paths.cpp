#include "core/paths.h"

#include <algorithm>

namespace wendrill::doctor {
namespace {

char Lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool StartsWithText(std::string_view text, std::string_view prefix) {
  return text.size() >= prefix.size() && SameText(text.substr(0, prefix.size()), prefix);
}

}  // namespace

bool SameText(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return Lower(a) == Lower(b); });
}

std::string FileNameOf(std::string_view path) {
  return std::string(path.substr(path.find_last_of("\\/") + 1));  // npos + 1 is 0: without a separator, the whole path
}

std::string FolderOf(std::string_view path) {
  const std::size_t separator = path.find_last_of("\\/");
  return std::string(separator == std::string_view::npos ? "" : path.substr(0, separator));
}

std::string ProgramOf(std::string_view command) {
  if (command.starts_with('"')) {
    return std::string(command.substr(1, command.find('"', 1) - 1));
  }
  // A path without quotes may contain blanks, so the path ends at the first ".exe", else at the first blank.
  for (std::size_t at = 0; at + 4 <= command.size(); ++at) {
    if (SameText(command.substr(at, 4), ".exe")) {
      return std::string(command.substr(0, at + 4));
    }
  }
  return std::string(command.substr(0, command.find(' ')));
}

std::string Quoted(std::string_view text) {
  return "\"" + std::string(text) + "\"";
}

std::string SeenBy64Bit(const System& system, const std::string& path) {
  const std::string folder = system.WindowsFolder() + "\\System32\\";
  if (!system.Is64Bit() || !StartsWithText(path, folder)) {
    return path;
  }
  return system.WindowsFolder() + "\\Sysnative\\" + path.substr(folder.size());
}

std::string FolderOf32BitPrograms(const System& system) {
  return system.WindowsFolder() + (system.Is64Bit() ? "\\SysWOW64" : "\\System32");
}

std::string TextOf(Bits bits) {
  switch (bits) {
    case Bits::k32:
      return "32-bit";
    case Bits::k64:
      return "64-bit";
    case Bits::Unknown:
      break;
  }
  return "of unknown kind";
}

std::string Regsvr32(const System& system, std::string_view switches, std::string_view dll) {
  return FolderOf32BitPrograms(system) + "\\regsvr32 " + std::string(switches) + (switches.empty() ? "" : " ") +
         Quoted(dll);
}

}  // namespace wendrill::doctor
