// Records the program's calls of the terminal's objects. Also calls the terminal's objects itself, to read what the
// scenario needs but the program has not read: the last answer of a session, and the display, the header and the
// collections of a retrieved PNR.
//
// No public function except the constructor raises: neither a failure in this class nor a failure of one of the
// recorder's own calls may reach the program. The constructor raises the errors of the constructor of Recording.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "com/recorder/known_members.h"
#include "recording/recording.h"

namespace wendrill::recorder {

class Wrapper;

// A call of a member of a wrapped object. Begin fills this structure before the call is forwarded, and End uses it
// after the call has returned.
struct PassedCall {
  Act act = Act::None;
  DISPID id = 0;
  std::u16string session;
  std::optional<std::u16string> entry;
  std::optional<std::int32_t> key;
  bool truth = false;  // for Send: whether the entry is transmitted; for LockAlarm: whether the alarm is locked
};

class Notes {
 public:
  explicit Notes(recording::Settings settings) : recording_(std::move(settings)) {}

  // Created looks at an object that the program has just created: for a session or a session list, it records the names
  // of all running sessions; for any other object, it does nothing. AlarmRefused records that the alarm object could
  // not be created.
  void Created(Wrapper& object) noexcept;
  void AlarmRefused() noexcept;
  // To be called after the creation of a session's wrapper. Reads the name of the session, and counts the wrappers of
  // sessions of this name, so that Gone recognises the last of these wrappers.
  void Wrapped(Wrapper& session) noexcept;
  // To be called when a wrapper is destroyed, while the terminal's object still exists. If it is the last wrapper of a
  // session, records what the program has not read of the session's last answer. If it is the wrapper of a response,
  // forgets the pointer to that wrapper.
  void Gone(Wrapper& object) noexcept;
  // Records that the alarm has no method LockAlarm, if GetIDsOfNames of the alarm failed for that name. Ignores all
  // other names and objects.
  void NameUnknown(Wrapper& object, const wchar_t* name) noexcept;

  // Returns what End needs to know of a call. To be called before the call is forwarded, because the call may change
  // its arguments. For Send, also records what the program has not read of the session's last answer.
  PassedCall Begin(Wrapper& object, DISPID id, WORD flags, const DISPPARAMS* arguments) noexcept;
  // Records the result or the failure of a call that has returned. The objects in `result` have been replaced by
  // wrappers already. `result` is null when the call failed, and when the program asked for no result (except for Send,
  // whose result the recorder always asks for).
  void End(Wrapper& object, const PassedCall& call, HRESULT status, const EXCEPINFO* exception,
           const VARIANT* result) noexcept;

  // Listens records that a sink was connected to the events of a session, ListensNoMore that the sink was disconnected,
  // and Event that an event reached the sink. `sink` only identifies the sink; nothing is called through the pointer.
  void Listens(const void* sink, const std::u16string& session) noexcept;
  void ListensNoMore(const void* sink) noexcept;
  void Event(const void* sink, IDispatch* response) noexcept;

  // Records that a call or an event is missing: for lack of memory, the recorder could not forward that call or event.
  void Missed() noexcept;

  // Whether a call or an event came since the file was last written. Also true if that writing failed.
  bool HasNews() const { return hasNews_; }
  recording::Outcome Finish() noexcept;
  void TellProblem(std::u16string_view sentence) noexcept { recording_.TellProblem(sentence); }

  // Whether a function of this class is running. If the process ends meanwhile, this object's data may be inconsistent.
  bool IsBusy() const { return busy_ > 0; }

 private:
  struct SessionNotes {
    std::optional<recording::SendId> answer;  // the answer to the last entry; nullopt before the first entry
    bool isRead = false;                      // whether all properties of that answer have been recorded
    Wrapper* response = nullptr;              // the wrapper of that answer; null when no such wrapper exists
    int wrappers = 0;                         // how many wrappers of sessions of this name exist
  };
  struct Listener {
    const void* sink;
    std::u16string session;
  };

  template <typename Work>
  void Quietly(Work&& work) noexcept;

  void TellSessions(IDispatch* list);
  void Complete(const std::u16string& session, IDispatch* real);
  void ReadAnswer(SessionNotes& session, IDispatch* response);
  void Answered(Wrapper& object, const PassedCall& call, const VARIANT* result);
  void ResponseReturned(const std::u16string& session, const VARIANT* result);
  void BufferRead(Wrapper& response, const VARIANT* result);
  void Retrieved(Wrapper& pnr, const PassedCall& call, const VARIANT* result);
  void CollectionAsked(Wrapper& pnr, std::int32_t id);
  void ReadCollections(Wrapper& pnr, std::int32_t id);
  void Refused(Wrapper& object, const PassedCall& call, HRESULT status, const EXCEPINFO* exception);
  std::vector<Listener>::iterator ListenerOf(const void* sink);

  recording::Recording recording_;
  std::map<std::u16string, SessionNotes> sessions_;
  std::vector<Listener> listeners_;  // in the order in which the sinks were connected
  bool toldOfForeignResponse_ = false;
  bool hasNews_ = false;
  int busy_ = 0;
};

}  // namespace wendrill::recorder
