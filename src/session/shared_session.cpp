#include "session/shared_session.h"

#include "common/error.h"
#include "common/numeric.h"
#include "toolkit/message_pump.h"

namespace wendrill {

std::shared_ptr<HostSession> SessionOf(const ModuleState& module) {
  if (!module.SharedSession) {
    Raise(RunTimeError::ObjectNotSet);
  }
  return module.SharedSession;
}

std::shared_ptr<HostResponse> ResponseOf(const ModuleState& module) {
  if (!module.LastResponseObject) {
    Raise(RunTimeError::ObjectNotSet);
  }
  return module.LastResponseObject;
}

std::u16string ResponseBuffer(const ModuleState& module) {
  return ResponseOf(module)->Buffer();
}

std::int16_t ResponseType(const ModuleState& module) {
  return Narrow16(ResponseOf(module)->ResponseType());
}

void SendEntry(ModuleState& module, std::u16string_view entry) {
  auto response = SessionOf(module)->Send(entry, true);
  module.LastResponseObject = std::move(response);
}

void PressClear(const ModuleState& module) {
  if (!SessionOf(module)->SendKey(kbClear)) {
    Raise(RunTimeError::InvalidCall);
  }
}

void RunMessages(const ModuleState& module) {
  if (module.pump.RunOnce()) {
    Raise(RunTimeError::InvalidCall);
  }
}

}  // namespace wendrill
