// Port to everything that the library has made by others: one function per closed component.
#pragma once

#include <memory>

#include "common/module_state.h"
#include "common/param_bag.h"
#include "common/value.h"
#include "toolkit/alarm_manager.h"
#include "toolkit/automation_object.h"
#include "toolkit/terminal.h"
#include "toolkit/text_helper_service.h"

namespace wendrill {

// Each function makes a new object of a closed component. A component that cannot be created fails with its own error,
// 429 where there is no other.
class Platform {
 public:
  virtual ~Platform() = default;

  virtual std::shared_ptr<HostSessionList> CreateSessionList() = 0;
  virtual std::shared_ptr<HostSession> CreateSession() = 0;
  virtual ObjectRef CreatePnr() = 0;
  virtual std::shared_ptr<AlarmManager> CreateAlarmManager() = 0;
  virtual std::shared_ptr<TextHelperService> CreateTextHelper() = 0;
  virtual ParamBagRef CreateParamBag() = 0;
};

// The shared text helper, made on first use.
inline TextHelperService& TextHelperOf(ModuleState& state) {
  if (!state.TextHelper) {
    state.TextHelper = state.platform.CreateTextHelper();
  }
  return *state.TextHelper;
}

}  // namespace wendrill
