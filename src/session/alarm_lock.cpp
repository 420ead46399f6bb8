// The alarm lock: it keeps the terminal's alarm from interrupting a script while it sends entries that raise host
// alarms.
//
// Newer terminal releases have a component for the lock; older releases take the entries LOCK and UNLOCK.
//
// LockUnLockAlarm never raises. A step that fails, memory shortage included, is ignored, and the following steps
// continue with these values (this list is the only place that defines them):
//   - a readiness question that fails counts as answered with 0;
//   - a version that cannot be read is the empty string, and a part of the version that is not a number is 0;
//   - an alarm component that cannot be created, fails (other than for lack of the method) or answers with something
//     that is not a 16-bit number gives the code 0, so that the lock counts as held;
//   - a clear key that fails counts as not accepted;
//   - a LOCK or UNLOCK entry that fails counts as sent.
#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <limits>
#include <optional>
#include <string>

#include "common/error.h"
#include "common/error_numbers.h"
#include "common/numeric.h"
#include "common/text.h"
#include "session/quillet.h"
#include "session/shared_session.h"
#include "toolkit/alarm_manager.h"
#include "toolkit/clock.h"
#include "toolkit/platform.h"

namespace wendrill {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kPauseAfterLock = 400ms;

// The codes of LockUnLockAlarm that are distinguished. 0, 1 and 2 mean success; the meaning of every other code is the
// alarm component's.
constexpr std::int16_t kAlarmDone = 0;
constexpr std::int16_t kLastSuccessCode = 2;
constexpr std::int16_t kScreenNotCleared = -7;
constexpr std::int16_t kTerminalNotReady = -8;

// The terminal releases that have the alarm component: 3.0 and later, and 2.3 from build 300 on. Versions are parsed
// and compared in single precision, so that the version text 2.3 equals this constant.
constexpr float kComponentRelease = 3.0F;
constexpr float kEarlyComponentRelease = 2.3F;
constexpr float kEarlyComponentBuild = 300.0F;

// The result of a question to a component; `otherwise` when the call fails.
template <typename Answer, typename Question>
Answer AnswerOr(Answer otherwise, Question question) {
  try {
    return question();
  } catch (...) {
    return otherwise;
  }
}

// Intentional: both questions are asked, whatever the first answer is.
bool TerminalTakesAlarmLock(ModuleState& state) {
  const auto terminal = AnswerOr(std::int32_t{0}, [&] { return TextHelperOf(state).TerminalReady(); });
  const auto host = AnswerOr(std::int32_t{0}, [&] { return TextHelperOf(state).HostReady(); });
  return terminal != 0 && host != 0;
}

// A part of the version as a single-precision number; 0 when it is not a number.
float VersionNumber(TextView part) {
  const double number = ParseNumberWithDecimalComma(part).value_or(0.0);
  return std::abs(number) <= std::numeric_limits<float>::max() ? static_cast<float>(number) : 0.0F;
}

// Whether a terminal of this version (release, "P", build: 3.0P1) has the alarm component. A string without a "P", or
// with more than one, is not a version.
bool HasAlarmComponent(TextView version) {
  const auto mark = ColumnOf(version, u"P");
  if (mark == 0 || ColumnOf(version, u"P", mark + 1) != 0) {
    return false;
  }
  const std::u16string decimal = Replaced(version, u".", u",");  // the parser expects a decimal comma
  const float release = VersionNumber(FieldOf(decimal, 1, u"P"));
  const float build = VersionNumber(FieldOf(decimal, 2, u"P"));
  return release >= kComponentRelease || (release == kEarlyComponentRelease && build >= kEarlyComponentBuild);
}

// The component's code; nullopt when the component has no method LockAlarm.
std::optional<std::int16_t> CodeOfComponent(ModuleState& state, bool lock) {
  const auto component = AnswerOr(std::shared_ptr<AlarmManager>(), [&] { return state.platform.CreateAlarmManager(); });
  if (!component) {
    return kAlarmDone;
  }
  try {
    return ToInt16(component->LockAlarm(lock));
  } catch (const Error& error) {
    if (error.Number() == static_cast<std::int32_t>(RunTimeError::MemberNotSupported)) {
      return std::nullopt;
    }
  } catch (...) {
  }
  return kAlarmDone;
}

// Entries that raise host alarms: exactly these four, and every entry with one of the prefixes.
constexpr std::array<TextView, 4> kAlarmEntries = {u"BT", u"EF", u"ET", u"ER"};
constexpr std::array<TextView, 8> kAlarmPrefixes = {u"QE", u"TTP", u"FQD", u"FXB", u"FXL", u"FXC", u"FQP", u"FXA"};

constexpr TextView kFirstLetters = u"BEFQT";

constexpr bool BeginsAsAlarmEntry(TextView entry) {
  return !entry.empty() && kFirstLetters.find(entry.front()) != TextView::npos;
}
static_assert(std::ranges::all_of(kAlarmEntries, BeginsAsAlarmEntry) &&
              std::ranges::all_of(kAlarmPrefixes, BeginsAsAlarmEntry));

// Most entries begin with another letter, and are not compared.
bool IsAlarmEntry(TextView entry) {
  return BeginsAsAlarmEntry(entry) &&
         (std::ranges::find(kAlarmEntries, entry) != kAlarmEntries.end() ||
          std::ranges::any_of(kAlarmPrefixes, [entry](TextView prefix) { return entry.starts_with(prefix); }));
}

// Raises `number` for a code that means failure: a negative code other than "terminal not ready".
void RequireAlarmCode(std::int16_t code, std::int32_t number) {
  if (code < 0 && code != kTerminalNotReady) {
    RaiseOwn(number);
  }
}

}  // namespace

void CQuillet::LockAlarm() {
  RequireAlarmCode(LockUnLockAlarm(true), kLockAlarmFailed);
}

void CQuillet::UnLockAlarm() {
  RequireAlarmCode(LockUnLockAlarm(false), kUnLockAlarmFailed);
}

void CQuillet::LockAlarmForEntry(std::u16string_view entry) {
  if (IsAlarmEntry(entry)) {
    LockAlarm();
  }
}

std::int16_t CQuillet::LockUnLockAlarm(bool blnLockUnLock) {
  if (!TerminalTakesAlarmLock(state_)) {
    return kTerminalNotReady;
  }
  if (alarmLocked_ == blnLockUnLock) {
    return kAlarmDone;
  }
  const auto version = AnswerOr(std::u16string(), [&] { return TextHelperOf(state_).TerminalVersion(); });
  const auto code = HasAlarmComponent(version) ? CodeOfComponent(state_, blnLockUnLock) : std::nullopt;
  if (!code) {
    return LockByEntry(blnLockUnLock);
  }
  if (*code >= kAlarmDone && *code <= kLastSuccessCode) {
    alarmLocked_ = blnLockUnLock;
  }
  return *code;
}

std::int16_t CQuillet::LockByEntry(bool lock) {
  if (!AnswerOr(false, [&] { return SessionOf(state_)->SendKey(kbClear); })) {
    return kScreenNotCleared;
  }
  AnswerOr(std::shared_ptr<HostResponse>(), [&] { return SessionOf(state_)->Send(lock ? u"LOCK" : u"UNLOCK", true); });
  state_.clock.Sleep(kPauseAfterLock);
  alarmLocked_ = lock;
  return kAlarmDone;
}

}  // namespace wendrill
