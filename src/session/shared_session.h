// The session, the response and the message queue that all objects of the process share, as the members call them.
//
// A call into the toolkit may let messages run, and a message may call StopLoop, which drops both. So every call holds
// a reference of its own: what it talks to stays alive until it returns, and the next call finds that it is gone.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "common/module_state.h"
#include "toolkit/terminal.h"

namespace wendrill {

// The shared session; 91 when there is none.
std::shared_ptr<HostSession> SessionOf(const ModuleState& module);

// The response of the entry in progress; 91 when there is none.
std::shared_ptr<HostResponse> ResponseOf(const ModuleState& module);

// The buffer of the response in progress, read anew at every call: it fills while messages run.
std::u16string ResponseBuffer(const ModuleState& module);

// The type of the response in progress; 6 when 16 bits cannot hold it.
std::int16_t ResponseType(const ModuleState& module);

// Sends an entry; its response becomes the response in progress.
void SendEntry(ModuleState& module, std::u16string_view entry);

// Clears the screen. A key that the terminal does not accept is a failure, 5, that the calling member puts its number
// to.
void PressClear(const ModuleState& module);

// Lets the caller's messages run once. A program that was told to close is a failure, 5, that the calling member puts
// its number to: no wait may keep the program from its end.
void RunMessages(const ModuleState& module);

}  // namespace wendrill
