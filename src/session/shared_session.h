// Access to what all objects of the process share: the session, the response in progress and the message pump. The
// response in progress is the response to the entry that was sent last, until a member drops this response.
//
// A call into the toolkit may deliver messages, and a message may call StopLoop, which drops the session and the
// response. So SessionOf and ResponseOf return a shared reference, which the caller holds during its call: the object
// exists until the call returns. After StopLoop, SessionOf and ResponseOf raise 91 (object not set).
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "common/module_state.h"
#include "toolkit/terminal.h"

namespace wendrill {

// The shared session. Raises 91 (object not set) when there is no session.
std::shared_ptr<HostSession> SessionOf(const ModuleState& state);

// The response in progress: the response to the entry that was sent last. Raises 91 (object not set) when no entry has
// been sent yet, when the toolkit returned no response object, or when a member has dropped the response.
std::shared_ptr<HostResponse> ResponseOf(const ModuleState& state);

// The text that the host has sent so far in the response in progress: the buffer of the object that ResponseOf returns.
// Reads the buffer from the toolkit on each call, because the host's text may arrive while messages are delivered.
// Raises 91 (object not set) when there is no response.
std::u16string ResponseBuffer(const ModuleState& state);

// The toolkit's number for the type of the response in progress. Raises 91 (object not set) when there is no response,
// and 6 (overflow) when the number does not fit into 16 bits.
std::int16_t ResponseType(const ModuleState& state);

// Sends an entry and makes the host's response the response in progress. When the toolkit returns no response object,
// no response is in progress afterwards. Raises 91 (object not set) when there is no session.
void SendEntry(ModuleState& state, std::u16string_view entry);

// Presses the clear key. Raises 5 (invalid call) when the terminal does not accept the key; the calling member raises
// its own number instead of 5. Raises 91 (object not set) when there is no session.
void PressClear(const ModuleState& state);

// Delivers the waiting messages of the caller's thread. Raises 5 (invalid call) when the program was told to close, so
// that a wait does not keep the program from ending; the calling member raises its own number instead of 5.
void RunMessages(const ModuleState& state);

}  // namespace wendrill
