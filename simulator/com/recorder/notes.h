// Tells the recording what the program and the terminal said to each other, and reads for it what the program did not.
//
// None of these functions raises: a failure here, and one of the recorder's own calls, must not reach the program.
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

// A call of a wrapped object, from before it is passed on until it has returned.
struct PassedCall {
  Act act = Act::None;
  DISPID id = 0;
  std::u16string session;
  std::optional<std::u16string> entry;
  std::optional<std::int32_t> key;
  bool truth = false;  // of Send: whether the entry is transmitted; of LockAlarm: whether it is locked
};

class Notes {
 public:
  explicit Notes(recording::Settings settings) : recording_(std::move(settings)) {}

  // An object of a class was created, or its class refused.
  void Created(Wrapper& object) noexcept;
  void AlarmRefused() noexcept;
  // A session has a wrapper now.
  void Wrapped(Wrapper& session) noexcept;
  // A wrapper is destroyed; its object still lives.
  void Gone(Wrapper& object) noexcept;
  // A name was asked for and is no member.
  void NameUnknown(Wrapper& object, const wchar_t* name) noexcept;

  PassedCall Begin(Wrapper& object, DISPID id, WORD flags, const DISPPARAMS* arguments) noexcept;
  // `result` holds wrappers already.
  void End(Wrapper& object, const PassedCall& call, HRESULT status, const EXCEPINFO* exception,
           const VARIANT* result) noexcept;

  // A sink of the program listens to the session, or does no longer; an event reached it.
  void Listens(const void* sink, const std::u16string& session) noexcept;
  void ListensNoMore(const void* sink) noexcept;
  void Event(const void* sink, IDispatch* response) noexcept;

  // A call or an event could not be passed on, because memory was short.
  void Missed() noexcept;

  // Whether anything was told that is in no file.
  bool HasNews() const { return hasNews_; }
  recording::Outcome Finish() noexcept;
  void TellProblem(std::u16string_view sentence) noexcept { recording_.TellProblem(sentence); }

  // Whether a call of this object is running: when the process ends meanwhile, what it holds may be half done.
  bool IsBusy() const { return busy_ > 0; }

 private:
  struct SessionNotes {
    std::optional<recording::SendId> answer;  // to the last entry
    bool isRead = false;                      // that answer, with everything
    Wrapper* response = nullptr;              // its wrapper, while it lives
    int wrappers = 0;                         // sessions of this name that the program has
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
  std::vector<Listener> listeners_;  // the oldest first
  bool toldOfForeignResponse_ = false;
  bool hasNews_ = false;
  int busy_ = 0;
};

}  // namespace wendrill::recorder
