// The alarm lock keeps the terminal's alarm from interrupting a script while the script sends entries that raise host
// alarms.
//
// Newer terminal releases have a component that takes and releases the lock. On older releases the library sends the
// entries LOCK and UNLOCK instead.
//
// LockUnLockAlarm never raises. When a step fails, even for lack of memory, LockUnLockAlarm continues as follows:
//   - TerminalReady or HostReady fails: the terminal or the host counts as not ready.
//   - The version cannot be read: the terminal counts as an older release.
//   - The release or the build in the version is not a number: the number counts as 0.
//   - The alarm component raises 438 (no such member) because it has no method LockAlarm: the entries are sent instead.
//   - The alarm component cannot be created, or raises another error: the code is 0 (success).
//   - The alarm component returns something that is not a 16-bit number: the code is 0 (success).
//   - Pressing the clear key raises an error: the terminal counts as not having accepted the key.
//   - Sending the entry LOCK or UNLOCK raises an error: the entry counts as sent.
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

// The codes that LockUnLockAlarm returns. 0, 1 and 2 mean success. The library itself returns -7 (screen not cleared)
// and -8 (terminal or host not ready). The alarm component defines the meaning of all other codes.
constexpr std::int16_t kAlarmDone = 0;
constexpr std::int16_t kLastSuccessCode = 2;
constexpr std::int16_t kScreenNotCleared = -7;
constexpr std::int16_t kTerminalNotReady = -8;

// The terminal releases that have the alarm component are 3.0 and later, and 2.3 from build 300 on. Versions are parsed
// and compared in single precision, so that the version text 2.3 equals kEarlyComponentRelease.
constexpr float kComponentRelease = 3.0F;
constexpr float kEarlyComponentRelease = 2.3F;
constexpr float kEarlyComponentBuild = 300.0F;

// Returns the result of `question`, a function that calls a component; returns `otherwise` when `question` throws.
template <typename Answer, typename Question>
Answer AnswerOr(Answer otherwise, Question question) {
  try {
    return question();
  } catch (...) {
    return otherwise;
  }
}

// Whether both the terminal and the host are ready for the alarm lock. A question that fails counts as "not ready".
// Intentional: HostReady is called even when the terminal is not ready.
bool TerminalTakesAlarmLock(ModuleState& state) {
  const auto terminal = AnswerOr(std::int32_t{0}, [&] { return TextHelperOf(state).TerminalReady(); });
  const auto host = AnswerOr(std::int32_t{0}, [&] { return TextHelperOf(state).HostReady(); });
  return terminal != 0 && host != 0;
}

// A part of the version, written with a decimal comma, as a single-precision number; 0 when the part is not a number or
// is too large for single precision.
float VersionNumber(TextView part) {
  const double number = ParseNumberWithDecimalComma(part).value_or(0.0);
  return std::abs(number) <= std::numeric_limits<float>::max() ? static_cast<float>(number) : 0.0F;
}

// Whether a terminal of this version has the alarm component. A version consists of the release, "P" and the build
// (3.0P1). False for a string that does not contain "P" exactly once.
bool HasAlarmComponent(TextView version) {
  const auto mark = ColumnOf(version, u"P");
  if (mark == 0 || ColumnOf(version, u"P", mark + 1) != 0) {
    return false;
  }
  const std::u16string decimal = Replaced(version, u".", u",");  // VersionNumber expects a decimal comma
  const float release = VersionNumber(FieldOf(decimal, 1, u"P"));
  const float build = VersionNumber(FieldOf(decimal, 2, u"P"));
  return release >= kComponentRelease || (release == kEarlyComponentRelease && build >= kEarlyComponentBuild);
}

// The code that the alarm component returns. nullopt when the component raises 438 (no such member), because it has no
// method LockAlarm. 0 (success) after any other failure: the component cannot be created, it raises another error, or
// its code is not a 16-bit number.
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

// The entries that raise host alarms are those in kAlarmEntries and every entry that begins with one of kAlarmPrefixes.
constexpr std::array<TextView, 4> kAlarmEntries = {u"BT", u"EF", u"ET", u"ER"};
constexpr std::array<TextView, 8> kAlarmPrefixes = {u"QE", u"TTP", u"FQD", u"FXB", u"FXL", u"FXC", u"FQP", u"FXA"};

// The first letters of all entries that raise host alarms.
constexpr TextView kFirstLetters = u"BEFQT";

constexpr bool BeginsAsAlarmEntry(TextView entry) {
  return !entry.empty() && kFirstLetters.find(entry.front()) != TextView::npos;
}
static_assert(std::ranges::all_of(kAlarmEntries, BeginsAsAlarmEntry) &&
              std::ranges::all_of(kAlarmPrefixes, BeginsAsAlarmEntry));

// Whether an entry raises host alarms. Most entries begin with none of kFirstLetters and need no further comparison.
bool IsAlarmEntry(TextView entry) {
  return BeginsAsAlarmEntry(entry) &&
         (std::ranges::find(kAlarmEntries, entry) != kAlarmEntries.end() ||
          std::ranges::any_of(kAlarmPrefixes, [entry](TextView prefix) { return entry.starts_with(prefix); }));
}

// Raises `number` when the code means failure: when it is negative and not kTerminalNotReady.
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
  const bool hasComponent = AnswerOr(false, [&] { return HasAlarmComponent(TextHelperOf(state_).TerminalVersion()); });
  const auto code = hasComponent ? CodeOfComponent(state_, blnLockUnLock) : std::nullopt;
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
