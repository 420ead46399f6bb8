// CEncodeUtils: returns the running terminal session's host connection, for components that call the PNR toolkit
// themselves. It has a session reference of its own and shares no state with CQuillet.
#pragma once

#include <memory>

#include "common/module_state.h"
#include "common/value.h"
#include "toolkit/terminal.h"

namespace wendrill {

class CEncodeUtils {
 public:
  // Connects to a running session. Raises -2147220394, with the source "CEncodeUtils.Class_Initialize", when no session
  // runs and on any other failure.
  explicit CEncodeUtils(ModuleState& state);

  CEncodeUtils(const CEncodeUtils&) = delete;
  CEncodeUtils& operator=(const CEncodeUtils&) = delete;

  // The session's host connection. Has no error number of its own: the toolkit's error propagates unchanged.
  ObjectRef EncodeSession();

 private:
  std::shared_ptr<HostSession> session_;
};

}  // namespace wendrill
