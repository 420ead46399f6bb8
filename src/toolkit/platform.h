// Port to the closed components: one function for each class that the library creates.
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

// Each function returns a new object, never Nothing; the caller shares ownership of it through the reference. A
// component that cannot be created raises the error of its class factory, or 429 when there is no class factory, as
// for a class that is not registered. The Platform itself keeps no reference to the objects that it created, and
// outlives them.
class Platform {
 public:
  virtual ~Platform() = default;

  // The list of the terminal sessions that run now.
  virtual std::shared_ptr<HostSessionList> CreateSessionList() = 0;

  // A session object of the library's own, which ChangeSMOD presses keys on and takes events from.
  virtual std::shared_ptr<HostSession> CreateSession() = 0;

  // A PNR object that holds no PNR until one is retrieved into it.
  virtual ObjectRef CreatePnr() = 0;

  // The alarm component. Raises 429 on older terminal releases, which do not have it.
  virtual std::shared_ptr<AlarmManager> CreateAlarmManager() = 0;

  // The text helper. Use TextHelperOf, which creates it once.
  virtual std::shared_ptr<TextHelperService> CreateTextHelper() = 0;

  // An empty parameter bag.
  virtual ParamBagRef CreateParamBag() = 0;
};

// The shared text helper, created on first use and owned by `state`. A failure to create it propagates, and the next
// call tries again.
inline TextHelperService& TextHelperOf(ModuleState& state) {
  if (!state.TextHelper) {
    state.TextHelper = state.platform.CreateTextHelper();
  }
  return *state.TextHelper;
}

}  // namespace wendrill
