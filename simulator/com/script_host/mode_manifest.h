// Which components a script meets: each mode is an application manifest in this program's resources.
#pragma once

#include <windows.h>

#include "command_line.h"

namespace wendrill::script_host {

// Lets the calling thread find the DLLs that the mode's manifest names, without registration, for as long as it lives.
// Raises UsageError when one of them is not beside this program.
class ModeManifest {
 public:
  explicit ModeManifest(Mode mode);
  ~ModeManifest();
  ModeManifest(const ModeManifest&) = delete;
  ModeManifest& operator=(const ModeManifest&) = delete;

 private:
  HANDLE context_;
  ULONG_PTR cookie_ = 0;
};

}  // namespace wendrill::script_host
