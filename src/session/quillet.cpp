// The members of CQuillet that create and release the object, choose the session and read the session's last response.
#include "session/quillet.h"

#include "common/error.h"
#include "common/error_numbers.h"
#include "common/failures.h"
#include "common/numeric.h"
#include "session/shared_session.h"
#include "toolkit/automation_object.h"
#include "toolkit/platform.h"

namespace wendrill {
namespace {

std::u16string JoinedNames(HostSessionList& list) {
  std::u16string names;
  for (const auto& session : list.Sessions()) {
    names += names.empty() ? u"" : u";";
    names += session->SessionName();
  }
  return names;
}

// The last response of the shared session, as a shared reference that the caller holds during one call. Raises 91
// (object not set) when there is no session or no response.
std::shared_ptr<HostResponse> LastResponseOf(const ModuleState& state) {
  auto response = SessionOf(state)->LastResponse();
  if (!response) {
    Raise(RunTimeError::ObjectNotSet);
  }
  return response;
}

}  // namespace

CQuillet::CQuillet(ModuleState& state) : state_(state) {
  if (state_.LiveInstanceCount == 0) {
    // When the set-up fails, what it has created must be released here: the destructor does not run for an object whose
    // constructor throws.
    UndoingOnFailure([this] { SetUpFirstInstance(); }, [this] { ReleaseShared(); });
  }
  state_.LiveInstanceCount = Add16(state_.LiveInstanceCount, 1);
}

CQuillet::~CQuillet() {
  if (--state_.LiveInstanceCount == 0) {
    ReleaseShared();
  }
}

void CQuillet::SetUpFirstInstance() {
  sessionList_ = state_.platform.CreateSessionList();
  if (sessionList_->Count() == 0) {
    RaiseOwn(kNoSessionRuns);  // intentional: the published message mentions a PNR, although no PNR was asked for
  }
  sessionNames_ = JoinedNames(*sessionList_);
  state_.gobjPNR = state_.platform.CreatePnr();
  state_.SharedSession = state_.platform.CreateSession();
}

void CQuillet::ReleaseShared() {
  state_.gobjPNR.reset();
  state_.SharedSession.reset();
  state_.LastResponseObject.reset();
  sessionList_.reset();
}

void CQuillet::ConnectSession(std::u16string_view strSession) {
  const auto connect = [&] {
    const bool anyRuns = sessionList_ && sessionList_->Count() != 0;
    state_.SharedSession.reset();
    if (anyRuns) {
      state_.SharedSession = sessionList_->Item(Value(strSession));
    }
    if (!state_.SharedSession) {
      RaiseOwn(kConnectSessionFailed);
    }
  };
  UndoingOnFailure([&] { WithNumber(kConnectSessionFailed, connect); }, [this] { state_.SharedSession.reset(); });
}

std::u16string CQuillet::GetSessionList() const {
  return sessionNames_;
}

void CQuillet::StopLoop() {
  loopActive_ = false;
  state_.SharedSession.reset();
  state_.LastResponseObject.reset();
}

std::u16string CQuillet::Command() const {
  return command_;
}

void CQuillet::SetCommand(std::u16string_view strCommand) {
  command_ = strCommand;
}

std::u16string CQuillet::LastBuffer() {
  return LastResponseOf(state_)->Buffer();
}

std::int16_t CQuillet::LastResponseType() {
  return Narrow16(LastResponseOf(state_)->ResponseType());
}

std::int16_t CQuillet::LastNumberOfColumns() {
  return LastResponseOf(state_)->NumberOfColumns();
}

std::int16_t CQuillet::LastNumberOfLines() {
  return LastResponseOf(state_)->NumberOfLines();
}

std::u16string CQuillet::LastHostCommand() {
  return LastResponseOf(state_)->HostCommand();
}

std::u16string CQuillet::LastText() {
  return LastResponseOf(state_)->Text();
}

std::u16string CQuillet::GetLineFromLastBuffer(std::int16_t LineIndex) {
  return LastResponseOf(state_)->Line(LineIndex);
}

}  // namespace wendrill
