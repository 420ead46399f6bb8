// The members of CQuillet that send one entry to the host and read its response.
#include <chrono>

#include "common/error_numbers.h"
#include "common/numeric.h"
#include "common/text.h"
#include "session/quillet.h"
#include "session/shared_session.h"
#include "session/unlocking.h"
#include "toolkit/clock.h"

namespace wendrill {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::seconds kResponseWait = 46s;
constexpr int kSendingPasses = 2;  // the maximum number of times that an unanswered entry is sent again

}  // namespace

ReceivedText CQuillet::SendCommand(std::u16string_view strCommand) {
  if (strCommand.empty()) {
    return {};
  }
  return Unlocking(kSendCommandFailed, [&] {
    PressClear(state_);
    LockAlarmForEntry(strCommand);
    SendEntry(state_, strCommand);
    ReceivedText buffer = ResponseOf(state_)->ReceivedBuffer();
    state_.LastResponseObject.reset();
    return buffer;
  });
}

std::u16string CQuillet::SendCommandNoTransmit(std::u16string_view strCommand) {
  if (!strCommand.empty()) {
    WithNumber(kSendCommandFailed, [&] {
      state_.LastResponseObject = SessionOf(state_)->Send(strCommand, false);
      state_.LastResponseObject.reset();
    });
  }
  return {};
}

std::u16string CQuillet::SendCommandNoClear(std::u16string_view strCommand) {
  if (strCommand.empty()) {
    return {};
  }
  return Unlocking(kSendCommandNoClearFailed, [&] {
    LockAlarmForEntry(strCommand);
    if (alarmLocked_) {
      PressClear(state_);
    }
    std::u16string buffer = SendAndRetry(strCommand);
    state_.LastResponseObject.reset();
    return buffer;
  });
}

// Sends the entry and returns the buffer of the response. When the buffer is still empty after 46 seconds, sends the
// entry again: at most three times in all. The buffer may fill at any time, so each decision reads the buffer again.
// Raises 2530 when the buffer is empty after the third sending.
std::u16string CQuillet::SendAndRetry(std::u16string_view strCommand) {
  SendEntry(state_, strCommand);
  for (int pass = 1; pass <= kSendingPasses; ++pass) {
    if (!ResponseBuffer(state_).empty()) {
      break;
    }
    WaitForResponse();
    if (!state_.ResponseArrived) {
      state_.LastResponseObject.reset();
      SendEntry(state_, strCommand);
      if (!ResponseBuffer(state_).empty()) {
        break;
      }
    }
  }
  std::u16string buffer = ResponseBuffer(state_);
  if (buffer.empty() && !state_.ResponseArrived) {
    RaiseOwn(kSendCommandNoClearFailed);
  }
  return buffer;
}

// Delivers messages in a busy loop until the buffer of the response has text or 46 seconds have passed. ResponseArrived
// is true afterwards when the buffer has text, and false after 46 seconds without text. Raises 5 (invalid call) when
// the program is told to close. Raises 91 (object not set) when a message calls a member that drops the response in
// progress; the response is dropped together with the session, and when another entry is sent.
//
// Intentional: the start of the wait is rounded to the second, and the deadline is not corrected at midnight. The clock
// starts again at 0 at midnight, so a wait whose deadline is at midnight or later has no time limit.
void CQuillet::WaitForResponse() {
  state_.ResponseArrived = false;
  const double start = RoundHalfEven(state_.clock.SecondsSinceMidnight());
  const double deadline = start + static_cast<double>(kResponseWait.count());
  while (state_.clock.SecondsSinceMidnight() < deadline) {
    RunMessages(state_);
    if (!ResponseBuffer(state_).empty()) {
      state_.ResponseArrived = true;
      return;
    }
  }
}

std::vector<std::u16string> ResponsesTo(const std::vector<std::u16string>& entries, ModuleState& state) {
  std::vector<std::u16string> responses;
  if (!entries.empty()) {
    CQuillet quillet(state);
    for (const std::u16string& entry : entries) {
      responses.push_back(quillet.SendCommand(entry));
    }
  }
  return responses;
}

}  // namespace wendrill
