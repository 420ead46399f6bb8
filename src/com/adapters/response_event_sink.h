// A session's ReceivedResponse event.
#pragma once

#include <functional>
#include <memory>

#include "com/server/automation_types.h"
#include "toolkit/terminal.h"

namespace wendrill::com {

// Connects `handler` to the event until the returned connection is destroyed. The event is found by its name, first in
// the source interfaces of the session's class (IProvideClassInfo), then in the type library that describes the
// session, so that no interface identifier of the toolkit is assumed. Raises 438 when neither has an event of that name
// for which the session has a connection point, and the session's own error when Advise fails.
std::unique_ptr<EventConnection> ConnectReceivedResponse(IDispatch* session, std::function<void()> handler);

}  // namespace wendrill::com
