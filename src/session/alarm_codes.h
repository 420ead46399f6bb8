// The codes of LockUnLockAlarm that callers tell apart. 0, 1 and 2 are successes; every other code is the alarm
// component's own.
#pragma once

#include <cstdint>

namespace wendrill {

inline constexpr std::int16_t kAlarmDone = 0;
inline constexpr std::int16_t kScreenNotCleared = -7;
inline constexpr std::int16_t kTerminalNotReady = -8;

// Raises `number` for a code that stands for a failure: negative, but not that the terminal is not ready.
void RequireAlarmCode(std::int16_t code, std::int32_t number);

}  // namespace wendrill
