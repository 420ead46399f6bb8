// Selects the DLLs whose classes a script can create although the DLLs are not registered. For each mode (simulated,
// terminal, recording), this program's resources contain an application manifest that names these DLLs.
#pragma once

#include <windows.h>

#include "command_line.h"

namespace wendrill::script_host {

// Activates the manifest of the mode that the command line selects. While a ModeManifest exists, the thread that
// created it can create the classes of the DLLs that the manifest names, although these DLLs are not registered. The
// constructor throws UsageError when Windows cannot create or activate the activation context, most often because one
// of these DLLs is not in this program's folder.
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
