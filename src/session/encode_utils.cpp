#include "session/encode_utils.h"

#include <cstdint>

#include "common/error.h"
#include "common/failures.h"
#include "toolkit/automation_object.h"
#include "toolkit/platform.h"

namespace wendrill {
namespace {

constexpr auto kObjectErrorBase = static_cast<std::int32_t>(0x80040000);
constexpr std::int32_t kConnectFailed = kObjectErrorBase + 1110;

// Intentional: the published message has two carriage returns and no line feed between its sentences.
constexpr const char16_t* kConnectFailedMessage =
    u"Failed to connect to Selvarin Quillet Session.\r\rVerify that an Selvarin Quillet session is started.";

std::shared_ptr<HostSession> SessionIfAnyRuns(Platform& platform) {
  const auto list = platform.CreateSessionList();
  if (list->Count() < 1) {
    Raise(RunTimeError::ObjectNotSet);
  }
  return platform.CreateSession();
}

}  // namespace

CEncodeUtils::CEncodeUtils(ModuleState& state) {
  session_ =
      ReplacingFailure([&] { return SessionIfAnyRuns(state.platform); },
                       [] { return Error(kConnectFailed, u"CEncodeUtils.Class_Initialize", kConnectFailedMessage); });
}

ObjectRef CEncodeUtils::EncodeSession() {
  return session_->HostConnection();
}

}  // namespace wendrill
