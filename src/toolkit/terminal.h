// Ports to the terminal's host toolkit: the session list, a session, a response.
//
// Every method may raise the toolkit's own error, with its number, source and description; 438 for a member that the
// toolkit's object does not have; 13 for a result that does not convert to the declared type. Returned references are
// shared: an object is released when its last reference is dropped. Foreign code runs inside every call and may call
// back into the library.
//
// Terms such as PNR, entry, segment and association: docs/glossary.md.
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

// A code of the enumeration QuilletKeyValues. The two constants are the keys that the library presses by itself.
using KeyCode = std::int32_t;
inline constexpr KeyCode kbClear = 322;
inline constexpr KeyCode kbPA2 = 353;

// One response of the host. Reading a property asks the toolkit on each call: nothing is cached, and a response that
// was empty may be filled at the next reading.
class HostResponse {
 public:
  virtual ~HostResponse() = default;

  // The whole response: rows of NumberOfColumns characters without line breaks. Empty while the host has not answered.
  virtual std::u16string Buffer() = 0;

  // The same text as Buffer, in the string that the toolkit allocated: a caller that only forwards the text need not
  // copy it. The caller owns the string.
  virtual ReceivedText ReceivedBuffer() { return Buffer(); }

  // The entry that this response answers.
  virtual std::u16string HostCommand() = 0;

  // The toolkit's number for the type of display; a PNR display and a continued display have numbers of their own.
  virtual std::int32_t ResponseType() = 0;

  // The response as the toolkit formats it, which may differ from Buffer.
  virtual std::u16string Text() = 0;

  // The size of the screen. Raises 6 when the toolkit reports a number that 16 bits do not hold.
  virtual std::int16_t NumberOfColumns() = 0;
  virtual std::int16_t NumberOfLines() = 0;

  // One line of the buffer, counted from 1. `index` is passed to the toolkit unchecked; a line that does not exist
  // raises the toolkit's own error.
  virtual std::u16string Line(std::int16_t index) = 0;
};

// Keeps a session's event connected to its handler. Destroying the connection disconnects: the handler is not called
// again, even when the toolkit keeps its reference to the event sink.
class EventConnection {
 public:
  virtual ~EventConnection() = default;
};

// One terminal session. Several HostSession objects may refer to the same running session.
class HostSession {
 public:
  virtual ~HostSession() = default;

  // Puts `entry` on the terminal and, with `transmit`, sends it to the host. Does not wait for the host: the response
  // may still be empty. Returns Nothing when the toolkit returns no response, as for an entry that is not transmitted.
  virtual std::shared_ptr<HostResponse> Send(std::u16string_view entry, bool transmit) = 0;

  // The newest response of this session, whoever sent the entry; Nothing before the first response.
  virtual std::shared_ptr<HostResponse> LastResponse() = 0;

  // The name under which HostSessionList::Item finds the session.
  virtual std::u16string SessionName() = 0;

  // The connection object that the PNR component takes to retrieve a PNR; Nothing when the toolkit has none. The
  // library passes it on and calls no member of it.
  virtual ObjectRef HostConnection() = 0;

  // Presses a key. Returns whether the terminal accepted it: a rejected key is a result and raises nothing.
  virtual bool SendKey(KeyCode key) = 0;

  // Calls `handler` whenever a response arrives, on the caller's thread, while messages are pumped, until the returned
  // connection is destroyed. The handler may destroy the connection itself. Raises 438 when the session has no such
  // event.
  virtual std::unique_ptr<EventConnection> OnReceivedResponse(std::function<void()> handler) = 0;
};

// The sessions that run on this desktop.
class HostSessionList {
 public:
  virtual ~HostSessionList() = default;

  // How many sessions run. 0 when no session runs, which raises nothing.
  virtual std::int32_t Count() = 0;

  // The session of a name or of a position counted from 1; never Nothing. A name or position that the list does not
  // have raises the toolkit's own error.
  virtual std::shared_ptr<HostSession> Item(const Value& nameOrIndex) = 0;

  // All sessions in the list's own order.
  virtual std::vector<std::shared_ptr<HostSession>> Sessions() = 0;
};

}  // namespace wendrill
