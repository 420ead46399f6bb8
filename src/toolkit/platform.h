// Port for the creation of the terminal's components. Platform has one function for each class of which the library
// creates objects.
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

// Each function returns a new object and never null; the caller shares ownership of the object through the returned
// reference. When the object cannot be created, the function raises the error of the component's class factory. Without
// a class factory, for example because the class is not registered, the function raises 429 (cannot create object). The
// Platform keeps no reference to the objects that it has created, and must exist longer than these objects.
class Platform {
 public:
  virtual ~Platform() = default;

  // The list of the terminal sessions that are running.
  virtual std::shared_ptr<HostSessionList> CreateSessionList() = 0;

  // An object that refers to a running terminal session. CQuillet creates such an object for the shared session, and
  // another in ChangeSMOD for its key presses and events; CEncodeUtils creates such an object for the host connection.
  virtual std::shared_ptr<HostSession> CreateSession() = 0;

  // A PNR object into which no PNR has been loaded.
  virtual ObjectRef CreatePnr() = 0;

  // The alarm component. Raises 429 (cannot create object) on older terminal releases, which do not have this
  // component.
  virtual std::shared_ptr<AlarmManager> CreateAlarmManager() = 0;

  // The text helper. Callers use TextHelperOf instead, which creates the text helper only once.
  virtual std::shared_ptr<TextHelperService> CreateTextHelper() = 0;

  // An empty parameter bag.
  virtual ParamBagRef CreateParamBag() = 0;
};

// Returns the shared text helper, which `state` owns. The first call creates the text helper. When the text helper
// cannot be created, the error propagates and the next call tries again.
inline TextHelperService& TextHelperOf(ModuleState& state) {
  if (!state.TextHelper) {
    state.TextHelper = state.platform.CreateTextHelper();
  }
  return *state.TextHelper;
}

}  // namespace wendrill
