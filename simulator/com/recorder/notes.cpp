#include "com/recorder/notes.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

#include "com/recorder/behind.h"
#include "com/recorder/pnr_reading.h"
#include "com/recorder/quiet_call.h"
#include "com/recorder/wrapper.h"
#include "common/error.h"
#include "common/text.h"

namespace wendrill::recorder {
namespace {

constexpr wchar_t kSessionList[] = L"kzuHostToolKit.HostSessionList";
constexpr wchar_t kLockAlarm[] = L"LockAlarm";

// The argument at a position counted from 0; null when the call has no such argument. The DISPID of a named argument is
// taken as its position.
const VARIANT* Argument(const DISPPARAMS* arguments, UINT position) {
  if (arguments == nullptr || arguments->rgvarg == nullptr) {
    return nullptr;
  }
  for (UINT named = 0; named < arguments->cNamedArgs; ++named) {
    if (arguments->rgdispidNamedArgs != nullptr &&
        arguments->rgdispidNamedArgs[named] == static_cast<DISPID>(position)) {
      return &arguments->rgvarg[named];
    }
  }
  const UINT unnamed = arguments->cArgs - arguments->cNamedArgs;
  return position < unnamed ? &arguments->rgvarg[arguments->cArgs - 1 - position] : nullptr;
}

std::optional<std::u16string> TextArgument(const DISPPARAMS* arguments, UINT position) {
  const VARIANT* argument = Argument(arguments, position);
  return argument == nullptr ? std::nullopt : TextIn(*argument);
}

bool TruthArgument(const DISPPARAMS* arguments, UINT position) {
  const VARIANT* argument = Argument(arguments, position);
  return argument != nullptr && TruthIn(*argument).value_or(false);
}

// The wrapper that an argument or a result contains, not AddRef'ed; null when the argument or the result contains
// anything else. By-reference VARIANTs are followed.
Wrapper* WrapperOf(const VARIANT* value) {
  com::Reference<IWrapper> ours;
  com::OwnedVariant direct;
  if (value == nullptr || FAILED(VariantCopyInd(&direct, const_cast<VARIANT*>(value)))) {
    return nullptr;
  }
  const auto object = ObjectIn(direct);
  if (!object || FAILED(object->QueryInterface(__uuidof(IWrapper), ours.ReceiveVoid()))) {
    return nullptr;
  }
  return &ours->Itself();  // `value` holds the reference that keeps the wrapper alive
}

// The HRESULT of a failed call. If `status` is DISP_E_EXCEPTION and `exception` is not null, returns the HRESULT in
// `exception`: its scode, or the HRESULT of its wCode when scode is 0. Otherwise returns `status`. A deferred fill-in
// is made in a copy of `exception`, so that the program gets `exception` unchanged.
HRESULT StatusIn(HRESULT status, const EXCEPINFO* exception) {
  if (status != DISP_E_EXCEPTION || exception == nullptr) {
    return status;
  }
  if (exception->pfnDeferredFillIn == nullptr) {
    return exception->scode != 0 ? exception->scode : StatusOfNumber(exception->wCode);
  }
  EXCEPINFO filled = *exception;
  filled.pfnDeferredFillIn = nullptr;
  exception->pfnDeferredFillIn(&filled);
  SysFreeString(filled.bstrSource);
  SysFreeString(filled.bstrDescription);
  SysFreeString(filled.bstrHelpFile);
  return filled.scode != 0 ? filled.scode : StatusOfNumber(filled.wCode);
}

// Whether an error is a mistake of the program: a wrong member, argument or index. Such an error is not recorded,
// because the simulator raises the error as the terminal does. Three cases are recorded although the error may be a
// mistake of the program:
// - the failure to transmit an entry that the recorder could read;
// - the failure of a retrieval over a connection whose session is known;
// - an error 438 (no such member) of the alarm, which is recorded as an alarm without LockAlarm.
bool IsTheProgramsOwn(std::int32_t number) {
  constexpr RunTimeError kOwn[] = {RunTimeError::InvalidCall,         RunTimeError::Overflow,
                                   RunTimeError::SubscriptOutOfRange, RunTimeError::TypeMismatch,
                                   RunTimeError::MemberNotSupported,  RunTimeError::ArgumentMissing,
                                   RunTimeError::WrongArgumentCount};
  return std::any_of(std::begin(kOwn), std::end(kOwn),
                     [number](RunTimeError own) { return number == static_cast<std::int32_t>(own); });
}

// The name of the called member, for a message: the terminal's name of the member if the recorder knows that name,
// otherwise a text with the member's DISPID.
std::u16string NameOf(const PassedCall& call) {
  for (const NamedMember& member : kNamedMembers) {
    const bool isEnumeration = member.name == std::wstring_view(L"_NewEnum");
    if (member.act == call.act && isEnumeration == (call.id == DISPID_NEWENUM)) {
      return std::u16string(com::TextOf(std::wstring_view(member.name)));
    }
  }
  for (const simulator::Collection& collection : simulator::kCollections) {
    if (call.act == Act::ReadCollection && collection.id == call.id) {
      return std::u16string(collection.name);
    }
  }
  return u"the member with the dispatch identifier " + DecimalText(call.id);
}

}  // namespace

template <typename Work>
void Notes::Quietly(Work&& work) noexcept {
  const OwnErrorInformation own;
  ++busy_;
  hasNews_ = true;
  try {
    work();
  } catch (...) {
    recording_.Incomplete();
  }
  --busy_;
}

void Notes::Missed() noexcept {
  hasNews_ = true;
  recording_.Incomplete();
}

void Notes::Created(Wrapper& object) noexcept {
  Quietly([&] {
    if (object.WhatItIs() == Kind::SessionList) {
      TellSessions(object.Real());
    } else if (object.WhatItIs() == Kind::Session) {
      com::Reference<IDispatch> list;
      if (SUCCEEDED(CreateBehind(kSessionList, IID_IDispatch, list.ReceiveVoid()))) {
        TellSessions(list.Get());
      }
    }
  });
}

void Notes::AlarmRefused() noexcept {
  Quietly([&] { recording_.AlarmIsAbsent(); });
}

void Notes::Wrapped(Wrapper& session) noexcept {
  Quietly([&] {
    session.Knowledge().session = ReadText(session.Real(), L"SessionName").value_or(u"");
    ++sessions_[session.Knowledge().session].wrappers;
  });
}

void Notes::Gone(Wrapper& object) noexcept {
  if (object.WhatItIs() != Kind::Session && object.WhatItIs() != Kind::Response) {
    return;
  }
  Quietly([&] {
    for (auto& [name, notes] : sessions_) {
      notes.response = notes.response == &object ? nullptr : notes.response;
    }
    if (object.WhatItIs() == Kind::Session) {
      const auto session = sessions_.find(object.Knowledge().session);
      if (session != sessions_.end() && --session->second.wrappers == 0) {
        Complete(object.Knowledge().session, object.Real());
      }
    }
  });
}

void Notes::NameUnknown(Wrapper& object, const wchar_t* name) noexcept {
  if (object.WhatItIs() == Kind::Alarm && name != nullptr && _wcsicmp(name, kLockAlarm) == 0) {
    Quietly([&] { recording_.AlarmHasNoMethod(); });
  }
}

void Notes::TellSessions(IDispatch* list) {
  const auto count = ReadNumber(list, L"Count");
  const auto item = IdOf(list, L"Item");
  if (!count || !item) {
    return;
  }
  std::vector<std::u16string> names;
  for (std::int32_t position = 1; position <= *count; ++position) {
    const auto session = ItemAt(list, *item, position);
    names.push_back(session ? ReadText(session.Get(), L"SessionName").value_or(u"") : u"");
  }
  recording_.Sessions(names);
}

// The arguments that the recording needs are copied here, because the call itself, which is forwarded after Begin, may
// change them.
PassedCall Notes::Begin(Wrapper& object, DISPID id, WORD flags, const DISPPARAMS* arguments) noexcept {
  PassedCall call;
  Quietly([&] {
    call.id = id;
    call.act = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0 ? Act::None : object.ActOf(id);
    call.session = object.Knowledge().session;
    switch (call.act) {
      case Act::Send:
        call.entry = TextArgument(arguments, 0);
        call.truth = TruthArgument(arguments, 1);
        if (call.truth) {
          Complete(call.session, object.Real());
        }
        break;
      case Act::SendKey:
        if (const VARIANT* key = Argument(arguments, 0)) {
          call.key = NumberIn(*key);
        }
        break;
      case Act::LockAlarm:
        call.truth = TruthArgument(arguments, 0);
        break;
      case Act::Retrieve:
      case Act::RetrieveCurrent:
        if (Wrapper* connection = WrapperOf(Argument(arguments, 0))) {
          call.session = connection->Knowledge().session;
        }
        if (call.act == Act::Retrieve) {
          call.entry = TextArgument(arguments, 1);
        }
        break;
      default:
        break;
    }
  });
  return call;
}

void Notes::End(Wrapper& object, const PassedCall& call, HRESULT status, const EXCEPINFO* exception,
                const VARIANT* result) noexcept {
  Quietly([&] {
    if (FAILED(status)) {
      Refused(object, call, status, exception);
    } else {
      Answered(object, call, result);
    }
  });
}

void Notes::Answered(Wrapper& object, const PassedCall& call, const VARIANT* result) {
  const auto number = [result] { return result == nullptr ? std::nullopt : NumberIn(*result); };
  switch (call.act) {
    case Act::ListSessions:
      TellSessions(object.Real());
      break;
    case Act::Send:
      if (!call.truth) {
        recording_.Typed(call.session, call.entry.value_or(u""));
      } else {
        SessionNotes& session = sessions_[call.session];
        session.answer = recording_.Sent(call.session, call.entry.value_or(u""));
        session.isRead = false;
        session.response = nullptr;
        ResponseReturned(call.session, result);
      }
      break;
    case Act::LastResponse:
      ResponseReturned(call.session, result);
      break;
    case Act::HostConnection:
      if (Wrapper* connection = WrapperOf(result)) {
        connection->Knowledge().session = call.session;
      }
      break;
    case Act::SendKey:
      if (call.key && result != nullptr) {
        recording_.Key(call.session, *call.key, TruthIn(*result).value_or(false));
      }
      break;
    case Act::Buffer:
      BufferRead(object, result);
      break;
    case Act::LockAlarm:
      recording_.AlarmAnswered(call.truth, number().value_or(0));
      break;
    case Act::TerminalReady:
      recording_.TerminalReady(number().value_or(0));
      break;
    case Act::HostReady:
      recording_.HostReady(number().value_or(0));
      break;
    case Act::TerminalVersion:
      recording_.TerminalVersion(result == nullptr ? u"" : TextIn(*result).value_or(u""));
      break;
    case Act::Retrieve:
    case Act::RetrieveCurrent:
      Retrieved(object, call, result);
      break;
    case Act::ReadCollection:
      CollectionAsked(object, call.id);
      break;
    default:
      break;
  }
}

void Notes::Refused(Wrapper& object, const PassedCall& call, HRESULT status, const EXCEPINFO* exception) {
  const HRESULT reported = StatusIn(status, exception);
  const std::int32_t number = status == DISP_E_EXCEPTION ? NumberOfStatus(reported) : NumberOfBareStatus(reported);
  const bool isTheSimulatorsToo = IsTheProgramsOwn(number);
  if (call.act == Act::Send && call.truth && call.entry) {
    recording_.SendFailed(call.session, *call.entry, number);
  } else if (call.act == Act::Retrieve || call.act == Act::RetrieveCurrent) {
    if (!call.session.empty()) {
      recording_.RetrievalFailed(call.session, call.entry, number);
    }
  } else if (object.WhatItIs() == Kind::Alarm &&
             number == static_cast<std::int32_t>(RunTimeError::MemberNotSupported)) {
    recording_.AlarmHasNoMethod();
  } else if (!isTheSimulatorsToo) {
    recording_.Failed(NameOf(call), number);
  }
}

// --- Answers ------------------------------------------------------------------------------------------------------

// Reads and records the last answer of a session, unless all properties of that answer have been recorded. Called when
// the program is assumed to have finished with that answer: before the next entry is sent, and when the session's last
// wrapper is destroyed.
void Notes::Complete(const std::u16string& session, IDispatch* real) {
  SessionNotes& notes = sessions_[session];
  if (!notes.answer || notes.isRead) {
    return;
  }
  const auto response =
      notes.response != nullptr ? com::Reference<IDispatch>(notes.response->Real()) : ObjectAt(real, L"LastResponse");
  if (response) {
    recording_.BufferRead(*notes.answer, ReadText(response.Get(), L"Buffer").value_or(u""), false);
    ReadAnswer(notes, response.Get());
  }
}

void Notes::ReadAnswer(SessionNotes& session, IDispatch* response) {
  session.isRead = true;
  recording_.ResponseRead(*session.answer,
                          {.entry = ReadText(response, L"HostCommand").value_or(u""),
                           .text = ReadText(response, L"Text").value_or(u""),
                           .type = ReadNumber(response, L"ResponseType").value_or(0),
                           .columns = static_cast<std::int16_t>(ReadNumber(response, L"NumberOfColumns").value_or(0)),
                           .lines = static_cast<std::int16_t>(ReadNumber(response, L"NumberOfLines").value_or(0))});
}

void Notes::ResponseReturned(const std::u16string& session, const VARIANT* result) {
  Wrapper* const response = WrapperOf(result);
  if (response == nullptr) {
    return;
  }
  SessionNotes& notes = sessions_[session];
  response->Knowledge().session = session;
  response->Knowledge().answer = notes.answer;
  if (notes.answer) {
    notes.response = response;
  } else if (!std::exchange(toldOfForeignResponse_, true)) {
    recording_.NotReproducible(u"a response was there before the program had sent an entry");
  }
}

void Notes::BufferRead(Wrapper& response, const VARIANT* result) {
  const auto answer = response.Knowledge().answer;
  if (!answer || result == nullptr) {
    return;
  }
  const std::u16string buffer = TextIn(*result).value_or(u"");
  recording_.BufferRead(*answer, buffer);
  SessionNotes& notes = sessions_[response.Knowledge().session];
  if (!buffer.empty() && !notes.isRead && notes.answer == answer) {
    ReadAnswer(notes, response.Real());
  }
}

// --- Events -------------------------------------------------------------------------------------------------------

std::vector<Notes::Listener>::iterator Notes::ListenerOf(const void* sink) {
  return std::find_if(listeners_.begin(), listeners_.end(),
                      [sink](const Listener& listener) { return listener.sink == sink; });
}

void Notes::Listens(const void* sink, const std::u16string& session) noexcept {
  Quietly([&] {
    const bool isFirst = std::none_of(listeners_.begin(), listeners_.end(),
                                      [&](const Listener& listener) { return listener.session == session; });
    listeners_.push_back({sink, session});
    if (isFirst) {
      recording_.Listening(session, true);
    }
  });
}

void Notes::ListensNoMore(const void* sink) noexcept {
  if (ListenerOf(sink) == listeners_.end()) {
    return;
  }
  Quietly([&] {
    const std::u16string session = ListenerOf(sink)->session;
    listeners_.erase(ListenerOf(sink));
    if (std::none_of(listeners_.begin(), listeners_.end(),
                     [&](const Listener& listener) { return listener.session == session; })) {
      recording_.Listening(session, false);
    }
  });
}

// The terminal raises each event once for every sink that is connected to the session. So that an event is recorded
// only once, it is recorded when it reaches the sink that was connected first. After the session's first entry, the
// response that an event brings becomes the session's last response, whichever sink the event reaches.
void Notes::Event(const void* sink, IDispatch* response) noexcept {
  Quietly([&] {
    const auto listener = ListenerOf(sink);
    if (listener == listeners_.end()) {
      return;
    }
    const auto first = std::find_if(listeners_.begin(), listeners_.end(),
                                    [&](const Listener& each) { return each.session == listener->session; });
    if (first == listener) {
      recording_.Event(listener->session);
    }
    VARIANT given;
    V_VT(&given) = VT_DISPATCH;
    V_DISPATCH(&given) = response;
    if (sessions_[listener->session].answer) {
      ResponseReturned(listener->session, &given);
    }
  });
}

// --- PNRs ---------------------------------------------------------------------------------------------------------

void Notes::Retrieved(Wrapper& pnr, const PassedCall& call, const VARIANT* result) {
  const std::int32_t status = call.act == Act::RetrieveCurrent && result != nullptr ? NumberIn(*result).value_or(0) : 0;
  const auto entry = call.entry ? std::optional<std::u16string_view>(*call.entry) : std::nullopt;
  Known& known = pnr.Knowledge();
  known.retrieval = recording_.Retrieved(call.session, entry, ReadPnrObject(pnr.Real(), status));
  known.collections.clear();
  if (recording_.HowTo().readsWholePnrs) {
    for (const simulator::Collection& collection : simulator::kCollections) {
      ReadCollections(pnr, collection.id);
    }
  }
}

void Notes::CollectionAsked(Wrapper& pnr, std::int32_t id) {
  if (pnr.Knowledge().retrieval) {
    ReadCollections(pnr, id);
  }
}

// Reads the collection with the DISPID `id`, unless that collection has been read since the last retrieval. A PNR has
// four collections of air segments, but a scenario has one list of air segments. So if `id` is one of these four
// collections, the other three are read too.
void Notes::ReadCollections(Wrapper& pnr, std::int32_t id) {
  Known& known = pnr.Knowledge();
  const auto* asked = std::find_if(std::begin(simulator::kCollections), std::end(simulator::kCollections),
                                   [id](const simulator::Collection& each) { return each.id == id; });
  std::set<std::u16string> flown;
  for (const simulator::Collection& collection : simulator::kCollections) {
    const bool isWanted = &asked->elementType == &simulator::kAirSegment
                              ? &collection.elementType == &simulator::kAirSegment
                              : collection.id == id;
    if (isWanted && known.collections.insert(collection.id).second) {
      if (auto elements = ReadElements(pnr.Real(), collection, flown)) {
        recording_.CollectionRead(*known.retrieval, collection.id, std::move(*elements));
      }
    }
  }
}

// --- The end ------------------------------------------------------------------------------------------------------

recording::Outcome Notes::Finish() noexcept {
  ++busy_;
  recording::Outcome outcome = recording_.Finish();
  --busy_;
  hasNews_ = !outcome.isWritten;  // after a failure, a later attempt to write the file may have enough memory
  return outcome;
}

}  // namespace wendrill::recorder
