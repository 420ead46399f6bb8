// The members of CQuillet that press a single key and switch the terminal's mode.
#include <string>

#include "common/error.h"
#include "common/error_numbers.h"
#include "common/failures.h"
#include "common/text.h"
#include "session/quillet.h"
#include "session/shared_session.h"
#include "toolkit/platform.h"

namespace wendrill {
namespace {

// The number in decimal with at least two digits: 05 for 5, 123 for 123. A minus sign precedes the digits.
std::u16string TwoDigits(std::int16_t number) {
  const int magnitude = number < 0 ? -int{number} : int{number};
  const std::u16string digits = (magnitude < 10 ? u"0" : u"") + DecimalText(magnitude);
  return number < 0 ? u"-" + digits : digits;
}

}  // namespace

void CQuillet::SendKey(KeyCode keyValue) {
  WithNumber(kSendKeyFailed, [&] { SessionOf(state_)->SendKey(keyValue); });
}

void CQuillet::ChangeSMOD(std::int16_t intSMOD, std::int16_t intFORM) {
  UndoingOnFailure([&] { WithNumber(kChangeSMODFailed, [&] { SwitchMode(intSMOD, intFORM); }); },
                   [this] { ReleaseTmpSession(); });
  ReleaseTmpSession();
}

// Switches the terminal's mode. Presses the key PA2 twice and waits for the ReceivedResponse event after each key
// press. Then sends the entry that consists of the mode and the form, each with at least two digits. Intentional: the
// entry always contains the form. When the caller omits this optional argument, the form is 0, so that the entry ends
// with 00.
void CQuillet::SwitchMode(std::int16_t mode, std::int16_t form) {
  awaitingEvent_ = true;
  tmpSession_ = state_.platform.CreateSession();
  tmpSessionEvents_ = TmpSession()->OnReceivedResponse([this] { mTmpSession_ReceivedResponse(); });
  PressAndAwaitEvent();
  awaitingEvent_ = true;
  PressAndAwaitEvent();
  SendEntry(state_, TwoDigits(mode) + TwoDigits(form));
  state_.LastResponseObject.reset();
}

// Presses the key PA2 and waits for the ReceivedResponse event of tmpSession_. The wait has no time limit. Raises 5
// (invalid call) when the program is told to close during the wait.
//
// A message during the wait may call ChangeSMOD on the same object. The inner ChangeSMOD releases tmpSession_ and ends
// this wait too. PressAndAwaitEvent then raises 91 (object not set), so that the outer ChangeSMOD fails.
void CQuillet::PressAndAwaitEvent() {
  TmpSession()->SendKey(kbPA2);
  while (awaitingEvent_) {
    RunMessages(state_);
  }
  TmpSession();
}

// The session that ChangeSMOD created. Raises 91 (object not set) when tmpSession_ is null. Returns a shared reference
// so that the session exists until the caller's call returns: a message during that call may release tmpSession_.
std::shared_ptr<HostSession> CQuillet::TmpSession() const {
  if (!tmpSession_) {
    Raise(RunTimeError::ObjectNotSet);
  }
  return tmpSession_;
}

// Disconnects the event handler and releases tmpSession_. Also ends a wait of PressAndAwaitEvent, because no event can
// arrive without tmpSession_.
void CQuillet::ReleaseTmpSession() {
  awaitingEvent_ = false;
  tmpSessionEvents_.reset();
  tmpSession_.reset();
}

void CQuillet::mTmpSession_ReceivedResponse(const ObjectRef& /*newResponse*/) {
  awaitingEvent_ = false;
}

}  // namespace wendrill
