#include "session/shared_session.h"

#include "common/error.h"
#include "common/numeric.h"
#include "toolkit/message_pump.h"

namespace wendrill {

std::shared_ptr<HostSession> SessionOf(const ModuleState& state) {
  if (!state.SharedSession) {
    Raise(RunTimeError::ObjectNotSet);
  }
  return state.SharedSession;
}

std::shared_ptr<HostResponse> ResponseOf(const ModuleState& state) {
  if (!state.LastResponseObject) {
    Raise(RunTimeError::ObjectNotSet);
  }
  return state.LastResponseObject;
}

std::u16string ResponseBuffer(const ModuleState& state) {
  return ResponseOf(state)->Buffer();
}

std::int16_t ResponseType(const ModuleState& state) {
  return Narrow16(ResponseOf(state)->ResponseType());
}

void SendEntry(ModuleState& state, std::u16string_view entry) {
  auto response = SessionOf(state)->Send(entry, true);
  state.LastResponseObject = std::move(response);
}

void PressClear(const ModuleState& state) {
  if (!SessionOf(state)->SendKey(kbClear)) {
    Raise(RunTimeError::InvalidCall);
  }
}

void RunMessages(const ModuleState& state) {
  if (state.pump.RunOnce()) {
    Raise(RunTimeError::InvalidCall);
  }
}

}  // namespace wendrill
