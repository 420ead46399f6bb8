// Selects the DLLs whose classes a script can create although the DLLs are not registered. Each mode (simulated,
// terminal, recording) has an application manifest in this program's resources, which names the DLLs.
#pragma once

#include <windows.h>

#include "command_line.h"

namespace wendrill::script_host {

// The activation context of the run's mode. While the object exists, the thread that created the object finds the
// classes of the DLLs that the mode's manifest names. The constructor throws UsageError when Windows cannot create or
// activate the context, most often because one of these DLLs is not in this program's folder.
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
