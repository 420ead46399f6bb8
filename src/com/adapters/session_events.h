// A session's ReceivedResponse event.
#pragma once

#include <functional>
#include <memory>

#include "com/server/automation_types.h"
#include "toolkit/terminal.h"

namespace wendrill::com {

// Connects `handler` to the event. The session's default event interface is found through its own description, and the
// event in it by its name, so nothing of the toolkit's identities is assumed. Fails when the session describes no such
// event (438) or refuses the connection.
std::unique_ptr<EventConnection> ConnectReceivedResponse(IDispatch* session, std::function<void()> handler);

}  // namespace wendrill::com
