// Access to the session, the response and the message queue that all objects of the process share.
//
// A call into the toolkit may pump messages, and a message may stop the loop, which drops session and response. So
// every caller holds a reference of its own: the object stays alive until the call returns, and the next call raises
// 91.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "common/module_state.h"
#include "toolkit/terminal.h"

namespace wendrill {

// The shared session. Raises 91 when there is no session.
std::shared_ptr<HostSession> SessionOf(const ModuleState& state);

// The response of the entry in progress. Raises 91 when there is no response.
std::shared_ptr<HostResponse> ResponseOf(const ModuleState& state);

// The buffer of the response in progress, read from the toolkit on each call, because it fills while messages are
// pumped.
std::u16string ResponseBuffer(const ModuleState& state);

// The type of the response in progress. Raises 6 when 16 bits do not hold it.
std::int16_t ResponseType(const ModuleState& state);

// Sends an entry; its response becomes the response in progress.
void SendEntry(ModuleState& state, std::u16string_view entry);

// Presses the clear key. Raises 5 when the terminal does not accept the key; the calling member turns this into its own
// number.
void PressClear(const ModuleState& state);

// Pumps the caller's messages once. Raises 5 when the program was told to close, so that a wait does not keep the
// program from ending; the calling member turns this into its own number.
void RunMessages(const ModuleState& state);

}  // namespace wendrill
