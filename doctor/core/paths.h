// Functions for paths and command lines of Windows, as text.
#pragma once

#include <string>
#include <string_view>

#include "core/machine.h"

namespace wendrill::doctor {

// Whether the texts are equal, regardless of the case of ASCII letters. Registry keys and class identifiers are
// compared in this way.
bool SameText(std::string_view left, std::string_view right);

std::string FileNameOf(std::string_view path);
std::string FolderOf(std::string_view path);  // without a separator at the end; empty for a file name without folder

// The path of the program in a command line such as "C:\Windows\wscript.exe" "%1" %*
std::string ProgramOf(std::string_view command);

std::string Quoted(std::string_view text);

// The path with which the doctor, a 32-bit program, reaches the file that a 64-bit program finds under `path`.
std::string SeenBy64Bit(const System& system, const std::string& path);

// The folder of Windows' own 32-bit programs, as a user types it at a command prompt.
std::string FolderOf32BitPrograms(const System& system);

std::string TextOf(Bits bits);

// The command line of regsvr32 that registers or unregisters a library. `switches` are those of regsvr32, such as
// "/u /n /i:user"; they may be empty.
std::string Regsvr32(const System& system, std::string_view switches, std::string_view dll);

}  // namespace wendrill::doctor
