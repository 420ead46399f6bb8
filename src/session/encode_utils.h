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
  // runs or a call to the toolkit fails. Only a lack of memory raises 7 (out of memory) instead.
  explicit CEncodeUtils(ModuleState& state);

  CEncodeUtils(const CEncodeUtils&) = delete;
  CEncodeUtils& operator=(const CEncodeUtils&) = delete;

  // Returns the host connection of the session; null when the toolkit has none. EncodeSession has no error number of
  // its own: an error of the toolkit propagates unchanged.
  ObjectRef EncodeSession();

 private:
  std::shared_ptr<HostSession> session_;
};

}  // namespace wendrill
