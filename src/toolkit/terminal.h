// Ports to the terminal's host toolkit: HostResponse, HostSession and HostSessionList.
//
// Every method may raise the toolkit's own error, with its number, source and description. Every method raises 438 (no
// such member) when the toolkit's object does not have the member, and 13 (type mismatch) when a result does not
// convert to the declared type. Returned references are shared: an object is released when its last reference is
// destroyed. Every call runs foreign code, which may call back into the library.
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

// A key code of the published enumeration QuilletKeyValues. The two constants are the keys that the library itself
// presses.
using KeyCode = std::int32_t;
inline constexpr KeyCode kbClear = 322;
inline constexpr KeyCode kbPA2 = 353;

// One response of the host. Every method asks the toolkit again on each call: nothing is cached. A response that was
// empty may therefore have a text at the next call.
class HostResponse {
 public:
  virtual ~HostResponse() = default;

  // The whole response, as rows of NumberOfColumns characters without line breaks. Empty while the host has not
  // answered.
  virtual std::u16string Buffer() = 0;

  // The text that Buffer returns, in the string that the toolkit allocated, so that a caller that only forwards the
  // text need not copy the string. The caller owns the returned string.
  virtual ReceivedText ReceivedBuffer() { return Buffer(); }

  // The entry to which the host sent this response.
  virtual std::u16string HostCommand() = 0;

  // The toolkit's number for the type of the display: 22 for the display of a PNR, 23 for a continued display, and
  // others.
  virtual std::int32_t ResponseType() = 0;

  // The text of the response in the toolkit's own formatting, which may differ from Buffer.
  virtual std::u16string Text() = 0;

  // NumberOfColumns returns the number of characters in a row of the screen, and NumberOfLines the number of rows. Both
  // methods raise 6 (overflow) when the toolkit's number does not fit into 16 bits.
  virtual std::int16_t NumberOfColumns() = 0;
  virtual std::int16_t NumberOfLines() = 0;

  // The line of the buffer with the number `index`, counted from 1. Passes `index` to the toolkit unchecked: a line
  // that does not exist raises the toolkit's own error.
  virtual std::u16string Line(std::int16_t index) = 0;
};

// Keeps a handler connected to an event of a session. Destroying the EventConnection disconnects the handler: the
// handler is not called again, even when the toolkit keeps its reference to the event sink.
class EventConnection {
 public:
  virtual ~EventConnection() = default;
};

// One terminal session. Several HostSession objects may refer to the same running session.
class HostSession {
 public:
  virtual ~HostSession() = default;

  // Puts `entry` on the screen and, when `transmit` is true, sends it to the host. Does not wait for the host: the
  // returned response may still be empty. Returns null when the toolkit returns no response, for example for an entry
  // that is not transmitted.
  virtual std::shared_ptr<HostResponse> Send(std::u16string_view entry, bool transmit) = 0;

  // The newest response of this session, even when another program sent the entry; null before the first response.
  virtual std::shared_ptr<HostResponse> LastResponse() = 0;

  // The name under which HostSessionList::Item finds the session.
  virtual std::u16string SessionName() = 0;

  // The connection object that the PNR object needs to retrieve a PNR; null when the toolkit has none. The library
  // passes the connection object to the PNR object and calls none of its members.
  virtual ObjectRef HostConnection() = 0;

  // Presses a key. Returns whether the terminal accepted the key; a rejected key raises no error.
  virtual bool SendKey(KeyCode key) = 0;

  // Connects `handler` to the session's ReceivedResponse event. Until the returned connection is destroyed, `handler`
  // is called whenever a response arrives. The calls come on the thread that called OnReceivedResponse, while this
  // thread delivers messages. The handler itself may destroy the connection. Raises 438 (no such member) when the
  // session has no ReceivedResponse event.
  virtual std::unique_ptr<EventConnection> OnReceivedResponse(std::function<void()> handler) = 0;
};

// The list of the sessions that run on this desktop.
class HostSessionList {
 public:
  virtual ~HostSessionList() = default;

  // The number of running sessions. Returns 0, and raises no error, when no session runs.
  virtual std::int32_t Count() = 0;

  // The session with a given name, or at a given position counted from 1; never null. When the list has no such
  // session, the toolkit's own error propagates. Raises 91 (object not set) when the toolkit returns Nothing.
  virtual std::shared_ptr<HostSession> Item(const Value& nameOrIndex) = 0;

  // All running sessions, in the list's own order.
  virtual std::vector<std::shared_ptr<HostSession>> Sessions() = 0;
};

}  // namespace wendrill
