// Ports to the terminal's host toolkit: the session list, a session, a response.
//
// Every call may fail with the toolkit's own error. References are shared: an object lives as long as somebody holds
// it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/value.h"
#include "toolkit/received_text.h"

namespace wendrill {

// A code of QuilletKeyValues; the ones that the library presses itself.
using KeyCode = std::int32_t;
inline constexpr KeyCode kbClear = 322;
inline constexpr KeyCode kbPA2 = 353;

class HostResponse {
 public:
  virtual ~HostResponse() = default;

  virtual std::u16string Buffer() = 0;  // the whole response text; empty while the host has not answered
  virtual ReceivedText ReceivedBuffer() { return Buffer(); }  // the same
  virtual std::u16string HostCommand() = 0;                   // the entry that produced it
  virtual std::int32_t ResponseType() = 0;
  virtual std::u16string Text() = 0;  // the response text as the toolkit reports it
  virtual std::int16_t NumberOfColumns() = 0;
  virtual std::int16_t NumberOfLines() = 0;
  virtual std::u16string Line(std::int16_t index) = 0;  // one line of the buffer
};

// Keeps a session's event connected to its handler; destroying it disconnects.
class EventConnection {
 public:
  virtual ~EventConnection() = default;
};

class HostSession {
 public:
  virtual ~HostSession() = default;

  // Puts the entry on the terminal and, with `transmit`, sends it to the host. Returns the response, which may still be
  // empty; Nothing when the toolkit hands out none.
  virtual std::shared_ptr<HostResponse> Send(std::u16string_view entry, bool transmit) = 0;

  virtual std::shared_ptr<HostResponse> LastResponse() = 0;  // Nothing before the first response
  virtual std::u16string SessionName() = 0;
  virtual ObjectRef HostConnection() = 0;  // what the PNR toolkit takes to read PNRs
  virtual bool SendKey(KeyCode key) = 0;   // whether the terminal accepted the key

  // Calls `handler` whenever a host response arrives, on the caller's thread, while messages are pumped.
  virtual std::unique_ptr<EventConnection> OnReceivedResponse(std::function<void()> handler) = 0;
};

class HostSessionList {
 public:
  virtual ~HostSessionList() = default;

  virtual std::int32_t Count() = 0;
  virtual std::shared_ptr<HostSession> Item(const Value& nameOrIndex) = 0;  // fails for a name that it does not know
  virtual std::vector<std::shared_ptr<HostSession>> Sessions() = 0;         // in the list's own order
};

}  // namespace wendrill
