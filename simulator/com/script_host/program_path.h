// The full path of this program's file.
#pragma once

#include <filesystem>

namespace wendrill::script_host {

std::filesystem::path ProgramPath();

}  // namespace wendrill::script_host
