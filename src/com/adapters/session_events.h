// A session's ReceivedResponse event.
#pragma once

#include <functional>
#include <memory>

#include "com/server/automation_types.h"
#include "toolkit/terminal.h"

namespace wendrill::com {

// Connects `handler` to the event. The event is found by its name, in the source interfaces of the class that the
// session provides (IProvideClassInfo), else in the type library that describes the session, so nothing of the
// toolkit's identities is assumed. Fails when neither has such an event that the session offers (438), or when the
// session refuses the connection.
std::unique_ptr<EventConnection> ConnectReceivedResponse(IDispatch* session, std::function<void()> handler);

}  // namespace wendrill::com
