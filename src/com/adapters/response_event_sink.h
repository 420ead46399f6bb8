// The connection to the event ReceivedResponse of a terminal session.
#pragma once

#include <functional>
#include <memory>

#include "com/server/automation_types.h"
#include "toolkit/terminal.h"

namespace wendrill::com {

// Connects `handler` to the event ReceivedResponse until the returned connection is destroyed. The event is searched
// for by its name: first in the source interfaces of the session's class (IProvideClassInfo), then in the type library
// that contains the session's type information. So the library does not depend on the IID of the event interface.
// Raises 438 (member not supported) when the session has no connection points, and when neither search finds an event
// of that name for which the session has a connection point. Raises the session's own error when Advise fails.
std::unique_ptr<EventConnection> ConnectReceivedResponse(IDispatch* session, std::function<void()> handler);

}  // namespace wendrill::com
