// Pressing single keys, and switching the terminal's mode.
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

// The number with at least two digits: 05 for 5, 123 for 123; a minus sign comes before the digits.
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

// Intentional: the form is always appended; an omitted form counts as 0 and appends 00.
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

// Waits without a time limit: only the toolkit's event, or the end of the program, ends the wait. When a message during
// the wait calls ChangeSMOD on the same object, the inner call releases tmpSession_ and with it the awaited event: the
// outer ChangeSMOD then fails.
void CQuillet::PressAndAwaitEvent() {
  TmpSession()->SendKey(kbPA2);
  while (awaitingEvent_) {
    RunMessages(state_);
  }
  TmpSession();
}

// Returns a reference that the caller holds for one call, as SessionOf does for the shared session.
std::shared_ptr<HostSession> CQuillet::TmpSession() const {
  if (!tmpSession_) {
    Raise(RunTimeError::ObjectNotSet);
  }
  return tmpSession_;
}

// Without tmpSession_ no event can arrive, so the wait must end.
void CQuillet::ReleaseTmpSession() {
  awaitingEvent_ = false;
  tmpSessionEvents_.reset();
  tmpSession_.reset();
}

void CQuillet::mTmpSession_ReceivedResponse(const ObjectRef& /*newResponse*/) {
  awaitingEvent_ = false;
}

}  // namespace wendrill
