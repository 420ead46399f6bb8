// The members of the terminal's objects that the recorder must recognise. A call of any other member is forwarded and
// the objects in its result are wrapped, but the call is recorded only if it fails, and in general not if the failure
// is a mistake of the program.
#pragma once

#include <cstdint>
#include <span>

#include "derive/object_model.h"

namespace wendrill::recorder {

// The kinds of the terminal's objects. Other: the header, the collections and the elements of a PNR, and any further
// object that the terminal returns.
enum class Kind { Other, SessionList, Session, Response, Connection, Pnr, Alarm, TextHelper };

// What a member does, as far as the recorder must know this: to record the call, or to wrap the object that the member
// returns. None for any other member.
enum class Act {
  None,
  ListSessions,
  FindSession,
  Send,
  LastResponse,
  HostConnection,
  SendKey,
  Buffer,
  LockAlarm,
  TerminalReady,
  HostReady,
  TerminalVersion,
  Value,
  Retrieve,
  RetrieveCurrent,
  ReadCollection,
};

// A member that the recorder recognises by its name. The members of a PNR are recognised by their DISPIDs instead
// (ActOfPnr).
struct NamedMember {
  Kind object;
  const wchar_t* name;
  Act act;
};

inline constexpr NamedMember kNamedMembers[] = {
    {Kind::SessionList, L"Item", Act::FindSession},      {Kind::SessionList, L"Count", Act::ListSessions},
    {Kind::SessionList, L"_NewEnum", Act::ListSessions}, {Kind::Session, L"Send", Act::Send},
    {Kind::Session, L"LastResponse", Act::LastResponse}, {Kind::Session, L"HostConnection", Act::HostConnection},
    {Kind::Session, L"SendKey", Act::SendKey},           {Kind::Response, L"Buffer", Act::Buffer},
    {Kind::Alarm, L"LockAlarm", Act::LockAlarm},         {Kind::TextHelper, L"TerminalReady", Act::TerminalReady},
    {Kind::TextHelper, L"HostReady", Act::HostReady},    {Kind::TextHelper, L"TerminalVersion", Act::TerminalVersion},
};

// The Act of the PNR's member with this DISPID; Act::None for a member that the recorder need not recognise.
inline Act ActOfPnr(std::int32_t id) {
  switch (id) {
    case simulator::kPnrValue.id:
      return Act::Value;
    case simulator::kPnrRetrieve.id:
      return Act::Retrieve;
    case simulator::kPnrRetrieveCurrent.id:
      return Act::RetrieveCurrent;
    default:
      for (const simulator::Collection& collection : simulator::kCollections) {
        if (collection.id == id) {
          return Act::ReadCollection;
        }
      }
      return Act::None;
  }
}

// The kind of the objects that a member with this Act returns. Kind::Other unless the objects are sessions, responses
// or connections.
inline Kind ResultOf(Act act) {
  switch (act) {
    case Act::ListSessions:
    case Act::FindSession:
      return Kind::Session;
    case Act::Send:
    case Act::LastResponse:
      return Kind::Response;
    case Act::HostConnection:
      return Kind::Connection;
    default:
      return Kind::Other;
  }
}

}  // namespace wendrill::recorder
