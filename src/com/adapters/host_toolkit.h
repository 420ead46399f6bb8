// The ports to the terminal, implemented over the objects of the host toolkit. The members of these objects are called
// by name.
#pragma once

#include "com/adapters/foreign_object.h"
#include "toolkit/alarm_manager.h"
#include "toolkit/terminal.h"
#include "toolkit/text_helper_service.h"

namespace wendrill::com {

std::shared_ptr<HostSessionList> AdaptSessionList(Reference<IDispatch> list, KnownNames& names);
std::shared_ptr<HostSession> AdaptSession(Reference<IDispatch> session, KnownNames& names);
std::shared_ptr<AlarmManager> AdaptAlarmManager(Reference<IDispatch> alarm, KnownNames& names);
std::shared_ptr<TextHelperService> AdaptTextHelper(Reference<IDispatch> helper, KnownNames& names);

}  // namespace wendrill::com
