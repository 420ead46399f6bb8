// CEncodeUtils: hands the running terminal session's host connection to components that talk to the PNR toolkit
// themselves. It has a session of its own and shares nothing with CQuillet.
#pragma once

#include <memory>

#include "common/module_state.h"
#include "common/value.h"
#include "toolkit/terminal.h"

namespace wendrill {

class CEncodeUtils {
 public:
  // -2147220394 from "CEncodeUtils.Class_Initialize" when no session runs, and for whatever else goes wrong.
  explicit CEncodeUtils(ModuleState& module);

  CEncodeUtils(const CEncodeUtils&) = delete;
  CEncodeUtils& operator=(const CEncodeUtils&) = delete;

  // The session's host connection. No number of its own: the toolkit's error travels on unchanged.
  ObjectRef EncodeSession();

 private:
  std::shared_ptr<HostSession> session_;
};

}  // namespace wendrill
