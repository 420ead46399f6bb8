// Single keys, and the switch of the terminal's mode.
#include <string>

#include "common/error.h"
#include "common/text.h"
#include "session/error_numbers.h"
#include "session/failures.h"
#include "session/quillet.h"
#include "session/shared_session.h"
#include "toolkit/platform.h"

namespace wendrill {
namespace {

constexpr std::int16_t kAwaiting = -1;  // automation's True

// At least two digits: 5 gives 05, 123 stays 123; a sign stands in front of them.
std::u16string TwoDigits(std::int16_t number) {
  const int magnitude = number < 0 ? -int{number} : int{number};
  const std::u16string digits = (magnitude < 10 ? u"0" : u"") + DecimalText(magnitude);
  return number < 0 ? u"-" + digits : digits;
}

}  // namespace

void CQuillet::SendKey(KeyCode keyValue) {
  WithNumber(kSendKeyFailed, [&] { SessionOf(module_)->SendKey(keyValue); });
}

void CQuillet::ChangeSMOD(std::int16_t intSMOD, std::int16_t intFORM) {
  try {
    SwitchMode(intSMOD, intFORM);
  } catch (...) {
    ReleaseTmpSession();
    RaiseOwn(kChangeSMODFailed);
  }
  ReleaseTmpSession();
}

// The form is always appended: an omitted one counts as 0 and gives 00. Meant, and kept.
void CQuillet::SwitchMode(std::int16_t mode, std::int16_t form) {
  AwaitingEvent = kAwaiting;
  mTmpSession = module_.platform.CreateSession();
  tmpSessionEvents_ = TmpSession()->OnReceivedResponse([this] { mTmpSession_ReceivedResponse(); });
  PressAndAwaitEvent();
  AwaitingEvent = kAwaiting;
  PressAndAwaitEvent();
  SendEntry(module_, TwoDigits(mode) + TwoDigits(form));
  module_.LastResponseObject.reset();
}

// No time limit: only the toolkit's event, or the program's end, ends the wait. A ChangeSMOD that came in a message has
// released mTmpSession, and with it the event that was awaited here: this one fails.
void CQuillet::PressAndAwaitEvent() {
  TmpSession()->SendKey(kbPA2);
  while (AwaitingEvent == kAwaiting) {
    RunMessages(module_);
  }
  TmpSession();
}

// Held for one call, as the shared session is.
std::shared_ptr<HostSession> CQuillet::TmpSession() const {
  if (!mTmpSession) {
    Raise(RunTimeError::ObjectNotSet);
  }
  return mTmpSession;
}

// Without the session nothing is awaited.
void CQuillet::ReleaseTmpSession() {
  AwaitingEvent = 0;
  tmpSessionEvents_.reset();
  mTmpSession.reset();
}

void CQuillet::mTmpSession_ReceivedResponse(const ObjectRef& /*newResponse*/) {
  AwaitingEvent = 0;
}

}  // namespace wendrill
