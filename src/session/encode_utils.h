// CEncodeUtils returns the host connection of the running terminal session, for components that call the PNR toolkit
// themselves. A CEncodeUtils object holds its own reference to the session and shares no state with CQuillet.
#pragma once

#include <memory>

#include "common/module_state.h"
#include "common/value.h"
#include "toolkit/terminal.h"

namespace wendrill {

class CEncodeUtils {
 public:
  // Connects to a running session. Raises -2147220394, with the source "CEncodeUtils.Class_Initialize", when no session
  // runs or anything else fails.
  explicit CEncodeUtils(ModuleState& state);

  CEncodeUtils(const CEncodeUtils&) = delete;
  CEncodeUtils& operator=(const CEncodeUtils&) = delete;

  // The host connection of the session; null when the toolkit has none. An error of the toolkit propagates unchanged:
  // this member has no error number of its own.
  ObjectRef EncodeSession();

 private:
  std::shared_ptr<HostSession> session_;
};

}  // namespace wendrill
