// Selects the components that a script uses: each mode is an application manifest in this program's resources.
#pragma once

#include <windows.h>

#include "command_line.h"

namespace wendrill::script_host {

// While a ModeManifest exists, its thread finds the classes of the DLLs that the mode's manifest names, without
// registration. The constructor throws UsageError when one of these DLLs is not in this program's folder.
class ModeManifest {
 public:
  explicit ModeManifest(const CommandLine& line);
  ~ModeManifest();
  ModeManifest(const ModeManifest&) = delete;
  ModeManifest& operator=(const ModeManifest&) = delete;

 private:
  HANDLE context_;
  ULONG_PTR cookie_ = 0;
};

}  // namespace wendrill::script_host
