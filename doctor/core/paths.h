// Paths and commands of Windows, as text.
#pragma once

#include <string>
#include <string_view>

#include "core/machine.h"

namespace wendrill::doctor {

// Letters of ASCII are compared without case, as registry keys and class identifiers are; others exactly.
bool SameText(std::string_view left, std::string_view right);

std::string FileNameOf(std::string_view path);
std::string FolderOf(std::string_view path);  // without a separator at the end; empty for a bare name

// The program of a command line such as "C:\Windows\wscript.exe" "%1" %*
std::string ProgramOf(std::string_view command);

std::string Quoted(std::string_view text);

// The file that a 64-bit program means by a path, as a path for the doctor, a 32-bit program.
std::string SeenBy64Bit(const System& system, const std::string& path);

// The folder of Windows' own 32-bit programs, as a person at this machine has to type it.
std::string FolderOf32BitPrograms(const System& system);

std::string TextOf(Bits bits);

// A command that registers a library or takes a registration back: `switches` as in "/u /n /i:user".
std::string Regsvr32(const System& system, std::string_view switches, std::string_view dll);

}  // namespace wendrill::doctor
