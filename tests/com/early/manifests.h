// The manifests in the resources of DLLs and programs.
#pragma once

#include <string>

namespace wendrill::com::testing {

// The folder of the test program, where the DLLs and the script host are; ends with a backslash.
std::wstring FolderOfProgram();

// The manifest that a file of that folder has in its resources under a number; empty when it has none.
std::string ManifestIn(const std::wstring& file, int number);

}  // namespace wendrill::com::testing
